#include "embedded/cash_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "embedded/built_firm.h"
#include "embedded/plain_book.h"
#include "embedded/record_rows.h"
#include "embedded/served_host.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::BookBill;
using test::BuiltFirm;
using test::Cents;
using test::Filter;
using test::PlainBook;
using test::RowsOf;
using testing::ElementsAre;

constexpr std::int64_t kDay = 45500;
const std::string kOfUser16 = " (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) ";

/// What the slow computation is asked for; "" and the widest days are open.
struct Asked {
    std::int64_t firstDay = 0, lastDay = 1 << 20;
    std::string firstAccount, lastAccount, accountName;
    std::string firstDepartment, lastDepartment, firstEmployee, lastEmployee, biller;
    int checkState = 0;
    bool hidesZero = false, hidesUnmoved = false, withOtherClaims = false;
    std::string user;
};

Ref<OrderedDictionary> FilterOf(const Asked& asked) {
    const auto day = [](std::int64_t number) { return FormatIsoDate(Date{static_cast<double>(number)}); };
    return Filter({{"BDate", asked.firstDay == 0 ? "" : day(asked.firstDay)},
                   {"EDate", day(asked.lastDay)},
                   {"BAcctNumber", asked.firstAccount},
                   {"EAcctNumber", asked.lastAccount},
                   {"AcctName", asked.accountName},
                   {"BDeptNumber", asked.firstDepartment},
                   {"EDeptNumber", asked.lastDepartment},
                   {"BEmpNumber", asked.firstEmployee},
                   {"EEmpNumber", asked.lastEmployee},
                   {"BillerName", asked.biller},
                   {"NotShowBalZero", asked.hidesZero ? "1" : "0"},
                   {"NotShowBillZero", asked.hidesUnmoved ? "1" : "0"},
                   {"CheckState", static_cast<std::int16_t>(asked.checkState)},
                   {"IncludARAP", asked.withOtherClaims ? "1" : "0"},
                   {"DataRightWhere", asked.user.empty() ? "" : kOfUser16}});
}

/// Money into `account` (negative: out of it) by one bill, kind by kind.
std::int64_t Flow(const BookBill& bill, std::int64_t account, const Asked& asked) {
    std::int64_t flow = 0;
    switch (bill.kind) {
        case BillKind::Sale:
        case BillKind::SaleReturn:
        case BillKind::ConsignmentSale:
        case BillKind::OtherIncome:
        case BillKind::PurchaseRebate:
            flow = bill.settled;
            break;
        case BillKind::Purchase:
        case BillKind::PurchaseReturn:
        case BillKind::Expense:
        case BillKind::SaleRebate:
            flow = -bill.settled;
            break;
        case BillKind::Receipt:
        case BillKind::AdvanceReceipt:
            flow = bill.amount;
            break;
        case BillKind::Payment:
        case BillKind::AdvancePayment:
        case BillKind::BankTransfer:
            flow = -bill.amount;
            break;
        case BillKind::OtherReceivable:
            flow = asked.withOtherClaims ? bill.settled : 0;
            break;
        case BillKind::OtherPayable:
            flow = asked.withOtherClaims ? -bill.settled : 0;
            break;
        default:
            return 0;
    }
    std::int64_t into = 0;
    if (bill.account == account) into += flow;
    if (bill.toAccount == account) into -= flow;
    return into;
}

struct SlowReports {
    std::vector<std::string> journal, ledger;
};

SlowReports Slow(const PlainBook& book, const Asked& asked) {
    std::map<std::string, std::int64_t> accounts;  // by code
    for (const auto& [id, item] : book.items) {
        if (item.itemClass != item_class::kAccount) continue;
        const auto isIts = [&](const BookBill& bill) { return bill.account == id || bill.toAccount == id; };
        const bool isDetail = item.begin != 0 || std::ranges::any_of(book.bills, isIts);
        if (isDetail) accounts[item.number] = id;
    }
    SlowReports reports;
    std::int64_t all[4] = {};
    for (const auto& [code, id] : accounts) {
        if (!book.Lies(id, asked.firstAccount, asked.lastAccount)) continue;
        const test::BookItem& item = book.Item(id);
        if (item.name.find(asked.accountName) == std::string::npos) continue;
        std::int64_t begin = item.begin;
        std::vector<const BookBill*> moving;
        for (const BookBill& bill : book.bills) {
            if (!PlainBook::Counts(bill, asked.checkState, asked.lastDay) || Flow(bill, id, asked) == 0)
                continue;
            if (!book.Lies(bill.department, asked.firstDepartment, asked.lastDepartment)) continue;
            if (!book.Lies(bill.employee, asked.firstEmployee, asked.lastEmployee)) continue;
            if (!asked.biller.empty()) {
                const auto biller = book.users.find(bill.biller);
                if (biller == book.users.end()) continue;
                if (biller->second.find(asked.biller) == std::string::npos) continue;
            }
            if (!book.Sees(asked.user, bill.customer)) continue;
            if (bill.day < asked.firstDay) {
                begin += Flow(bill, id, asked);
            } else {
                moving.push_back(&bill);
            }
        }
        std::ranges::stable_sort(moving, {}, &BookBill::day);
        std::vector<std::string> rows;
        const std::string head = code + "|" + item.name + "|";
        rows.push_back(head + (asked.firstDay == 0 ? "-" : std::to_string(asked.firstDay)) + "|||0|0|" +
                       std::to_string(begin) + "|期初余额||||");
        std::int64_t in = 0, out = 0;
        for (const BookBill* bill : moving) {
            const std::int64_t flow = Flow(*bill, id, asked);
            (flow > 0 ? in : out) += std::abs(flow);
            const std::int64_t party = bill->customer != 0 ? bill->customer : bill->supplier;
            rows.push_back(
                head + std::to_string(bill->day) + "|" + bill->number + "|" +
                std::string(RowOf(bill->kind).name) + "|" + std::to_string(std::max<std::int64_t>(flow, 0)) +
                "|" + std::to_string(std::max<std::int64_t>(-flow, 0)) + "|" +
                std::to_string(begin + in - out) + "|" + bill->explanation + "|" + book.Item(party).name +
                "|" + book.Item(bill->department).name + "|" + book.Item(bill->employee).name + "|");
        }
        if (asked.hidesZero && begin + in - out == 0) continue;
        if (asked.hidesUnmoved && moving.empty()) continue;
        reports.journal.insert(reports.journal.end(), rows.begin(), rows.end());
        const std::int64_t sums[4] = {begin, in, out, begin + in - out};
        std::string row = head;
        for (int i = 0; i < 4; ++i) {
            row += std::to_string(sums[i]) + "|";
            all[i] += sums[i];
        }
        reports.ledger.push_back(row + "0|");
    }
    if (!reports.ledger.empty()) {
        std::string total = "|合计|";
        for (const std::int64_t sum : all) {
            total += std::to_string(sum) + "|";
        }
        reports.ledger.push_back(total + "1|");
    }
    return reports;
}

const Asked kShapes[] = {
    {},
    {.firstDay = 45000, .lastDay = 45200},
    {.firstDay = 45809, .lastDay = 45838, .checkState = 2},
    {.firstDay = 45809, .lastDay = 45838, .checkState = 1, .hidesUnmoved = true},
    {.firstDay = 45000, .lastDay = 45400, .firstAccount = "01", .lastAccount = "01"},
    {.firstDay = 45000, .lastDay = 45400, .firstAccount = "02.01", .lastAccount = "02.01"},
    {.firstDay = 45000, .lastDay = 45400, .firstDepartment = "01", .lastDepartment = "02"},
    {.firstDay = 45000, .lastDay = 45400, .firstEmployee = "003", .lastEmployee = "006", .hidesZero = true},
    {.firstDay = 45000, .lastDay = 45400, .user = "16"},
    {.firstDay = 45837, .lastDay = 45837, .hidesUnmoved = true},
    {.firstDay = 44000, .lastDay = 44100},
    {.firstDay = 45000, .lastDay = 45400, .accountName = "银行"},
    {.firstDay = 45000, .lastDay = 45400, .withOtherClaims = true},
};

TEST(Cash, JournalAndLedgerAreThoseOfTheSlowBooksInEveryShapeOfFilter) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const Asked& asked : kShapes) {
            const SlowReports slow = Slow(book, asked);
            EXPECT_EQ(test::FirstDifference(RowsOf(*CashJournal(set, *FilterOf(asked))), slow.journal), "")
                << seed << " " << asked.firstDay;
            EXPECT_EQ(test::FirstDifference(RowsOf(*CashLedger(set, *FilterOf(asked))), slow.ledger), "")
                << seed << " " << asked.firstDay;
        }
    }
}

TEST(Cash, TheBillerIsFoundByAPartOfHisName) {
    AccountSet set(test::SampleFile());
    const PlainBook book(set);
    const std::string whole = book.users.rbegin()->second;
    for (const std::string& name : {whole, whole.substr(0, 3), std::string("%"), std::string("'")}) {
        const Asked asked{.firstDay = 45000, .lastDay = 45838, .biller = name};
        EXPECT_EQ(
            test::FirstDifference(RowsOf(*CashJournal(set, *FilterOf(asked))), Slow(book, asked).journal), "")
            << name;
    }
    EXPECT_GT(CashJournal(set, *FilterOf({.biller = whole}))->RowCount(), 100);
}

TEST(Cash, ALedgerRowIsItsJournal) {
    test::ServedHost host;
    host.InDialog([](Form& dialog) { User(dialog).Click(test::ControlOf<Button>(dialog, "cmdOK")); });
    const Ref<Object> ledger = host.Create("Rpt10529");
    ledger->Call("ShowFilter");
    ledger->Call("GetReportData");
    ASSERT_EQ(test::Entry(*ledger, "Result", "OK"), Value(true))
        << ToText(test::Entry(*ledger, "Result", "Error"));
    const Ref<RecordSet> rows = As<RecordSet>(ledger->Get("Rs"));
    const std::int32_t accounts = rows->RowCount() - 1;
    ASSERT_GT(accounts, 3);
    for (std::int32_t row = 0; row < accounts; ++row) {
        const Value opened = ledger->Call("GetDetailReport", row);
        ASSERT_TRUE(opened.IsObject() && !opened.IsNothing()) << row;
        const Ref<RecordSet> journal = As<RecordSet>(ObjectIn(opened).Get("Rs"));
        rows->MoveFirst();
        rows->Move(row);
        EXPECT_EQ(Cents(*journal, "FBalanceAmount"), Cents(*rows, "FBeginAmount"));
        std::int64_t in = 0, out = 0, balance = 0;
        for (; !journal->Eof(); journal->Move(1)) {
            EXPECT_EQ(journal->Field("FAcctNumber"), rows->Field("FAcctNumber"));
            in += Cents(*journal, "FInAmount");
            out += Cents(*journal, "FOutAmount");
            balance = Cents(*journal, "FBalanceAmount");
        }
        EXPECT_EQ(in, Cents(*rows, "FInAmount"));
        EXPECT_EQ(out, Cents(*rows, "FOutAmount"));
        EXPECT_EQ(balance, Cents(*rows, "FEndAmount"));
    }
    EXPECT_TRUE(ledger->Call("GetDetailReport", accounts).IsNothing()) << "the total opens nothing";
}

TEST(Cash, TheClosingBalanceIsTheOpeningOfTheNextPeriod) {
    for (const std::uint64_t seed : {1u, 4u}) {
        AccountSet set(test::SampleFile(seed));
        for (const char* user : {"", "16"}) {
            const auto earlier =
                CashLedger(set, *FilterOf({.firstDay = 45000, .lastDay = 45300, .user = user}));
            const auto later =
                CashLedger(set, *FilterOf({.firstDay = 45301, .lastDay = 45500, .user = user}));
            ASSERT_EQ(earlier->RowCount(), later->RowCount());
            for (; !earlier->Eof(); earlier->Move(1), later->Move(1)) {
                EXPECT_EQ(earlier->Field("FEndAmount"), later->Field("FBeginAmount"));
            }
        }
    }
}

TEST(Cash, LaterBillsLeaveAPeriodAsItWas) {
    BuiltFirm firm(2);
    const Asked asked{.firstDay = kDay - 100, .lastDay = kDay};
    const auto reports = [&] {
        AccountSet set = firm.Open();
        auto rows = RowsOf(*CashJournal(set, *FilterOf(asked)));
        const auto ledger = RowsOf(*CashLedger(set, *FilterOf(asked)));
        rows.insert(rows.end(), ledger.begin(), ledger.end());
        return rows;
    };
    const auto before = reports();
    firm.Add({.kind = BillKind::Receipt,
              .day = kDay + 1,
              .customer = firm.Customer(0),
              .account = firm.Account(0),
              .amount = 12345});
    firm.database().Run("UPDATE t_Bill SET FState=2 WHERE FBillID%2=0 AND FDate>" + std::to_string(kDay));
    EXPECT_EQ(reports(), before);
}

/// The journal of one account over all bills of the firm, each row as in, out, balance.
std::vector<std::string> AmountsOf(BuiltFirm& firm, std::size_t account, bool withOtherClaims = false) {
    const std::string code = firm.NumberOf(firm.Account(account));
    const auto filter = FilterOf({.firstDay = kDay, .firstAccount = code, .lastAccount = code});
    filter->Put("IncludARAP", withOtherClaims ? "1" : "0");
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = CashJournal(set, *filter);
    const std::int64_t begin = Cents(*rows, "FBalanceAmount");
    std::vector<std::string> amounts;
    for (rows->Move(1); !rows->Eof(); rows->Move(1)) {
        amounts.push_back(std::to_string(Cents(*rows, "FInAmount")) + " " +
                          std::to_string(Cents(*rows, "FOutAmount")) + " " +
                          std::to_string(Cents(*rows, "FBalanceAmount") - begin));
    }
    return amounts;
}

TEST(Cash, OnlyMoneyMoves) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0), supplier = firm.Supplier(0), account = firm.Account(0);
    const Bill customers[] = {
        {.kind = BillKind::Sale, .amount = 1000, .settled = 300},
        {.kind = BillKind::Receipt, .amount = 500, .discount = 20},
        {.kind = BillKind::AdvanceReceipt, .amount = 70},
        {.kind = BillKind::AdvanceToReceivable, .amount = 60},
        {.kind = BillKind::SaleReturn, .amount = -40, .settled = -40},
        {.kind = BillKind::SaleRebate, .amount = 50, .settled = 25},
        {.kind = BillKind::Sale, .amount = 9000},
    };
    for (Bill bill : customers) {
        bill.day = kDay;
        bill.customer = customer;
        bill.account = account;
        firm.Add(bill);
    }
    const Bill suppliers[] = {
        {.kind = BillKind::Purchase, .amount = 800, .settled = 100},
        {.kind = BillKind::PurchaseReturn, .amount = -30, .settled = -30},
        {.kind = BillKind::Payment, .amount = 200, .discount = 5},
    };
    for (Bill bill : suppliers) {
        bill.day = kDay + 1;
        bill.supplier = supplier;
        bill.account = account;
        firm.Add(bill);
    }
    EXPECT_THAT(AmountsOf(firm, 0), ElementsAre("300 0 300", "500 0 800", "70 0 870", "0 40 830", "0 25 805",
                                                "0 100 705", "30 0 735", "0 200 535"));
}

TEST(Cash, ATransferLeavesOneAccountForAnother) {
    BuiltFirm firm;
    firm.Add({.kind = BillKind::BankTransfer,
              .day = kDay,
              .account = firm.Account(0),
              .toAccount = firm.Account(1),
              .amount = 700});
    EXPECT_THAT(AmountsOf(firm, 0), ElementsAre("0 700 -700"));
    EXPECT_THAT(AmountsOf(firm, 1), ElementsAre("700 0 700"));
}

TEST(Cash, WhatOtherClaimsHadSettledAtOnceComesOnRequest) {
    BuiltFirm firm;
    firm.Add({.kind = BillKind::OtherReceivable,
              .day = kDay,
              .customer = firm.Customer(0),
              .account = firm.Account(0),
              .amount = 900,
              .settled = 200});
    firm.Add({.kind = BillKind::OtherPayable,
              .day = kDay,
              .supplier = firm.Supplier(0),
              .account = firm.Account(0),
              .amount = 900,
              .settled = 50});
    EXPECT_THAT(AmountsOf(firm, 0), ElementsAre());
    EXPECT_THAT(AmountsOf(firm, 0, true), ElementsAre("200 0 200", "0 50 150"));
}

TEST(Cash, ForeignRightClausesAreRefused) {
    AccountSet set(test::SampleFile());
    const auto filter =
        Filter({{"DataRightWhere", " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) "}});
    for (const auto report : {CashJournal, CashLedger}) {
        EXPECT_TRUE(test::ErrorOf([&] { report(set, *filter); }));
    }
}

TEST(Cash, AFirmWithoutBillsHasItsOpeningBalances) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    const PlainBook book(set);
    const auto ledger = RowsOf(*CashLedger(set, *Filter({})));
    EXPECT_EQ(ledger, Slow(book, {}).ledger);
    EXPECT_GT(ledger.size(), 3u);
    EXPECT_EQ(CashJournal(set, *Filter({}))->RowCount(), static_cast<std::int32_t>(ledger.size()) - 1);
    EXPECT_TRUE(CashLedger(set, *Filter({{"NotShowBillZero", "1"}}))->Eof());
    EXPECT_TRUE(CashLedger(set, *Filter({{"BAcctNumber", "zz"}}))->Eof()) << "no accounts, no total";
}

TEST(Cash, TheFieldsAreThoseOfTheColumns) {
    AccountSet set(test::SampleFile());
    EXPECT_EQ(test::FieldsOf(*CashJournal(set, *Filter({}))),
              "FAcctNumber FAcctName FDate FBillNo FBillTypeName FInAmount FOutAmount FBalanceAmount "
              "FExplanation FName FDeptName FEmpName ");
    EXPECT_EQ(test::FieldsOf(*CashLedger(set, *Filter({}))),
              "FAcctNumber FAcctName FBeginAmount FInAmount FOutAmount FEndAmount FSumSort ");
}

}  // namespace
}  // namespace qor
