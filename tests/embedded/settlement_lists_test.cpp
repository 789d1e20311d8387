#include "embedded/settlement_lists.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <tuple>

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

constexpr std::int64_t kDay = 45500;
const std::string kOfUser16 = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";
constexpr const char* kKindKeys[] = {"chkIncludeBill", "chkIncludeOther", "chkIncludePre",
                                     "chkIncludeRebate"};

/// What the slow computation is asked for; "" and the widest days are open.
struct Asked {
    std::int64_t firstDay = 0, lastDay = 1 << 20;
    std::string firstParty, lastParty, firstDepartment, lastDepartment, firstEmployee, lastEmployee;
    bool onlyOpen = false;
    std::set<std::string> kinds = {"chkIncludeBill", "chkIncludeOther", "chkIncludePre", "chkIncludeRebate"};
    int checkState = 2;
    int sortBy = 0;
    bool down = false;
    std::string user;
};

/// One side of the books under test.
struct Case {
    const char* name;
    PartySide side;
    const char* reportClass;
    Ref<RecordSet> (*report)(AccountSet&, const Dictionary&);
    const char* firstParty;
    const char* lastParty;
    std::map<BillKind, std::string> kinds;
};

const Case kSides[] = {
    {"receipts",
     PartySide::Customer,
     "Rpt10525",
     ReceiptList,
     "BCustNumber",
     "ECustNumber",
     {{BillKind::Sale, "chkIncludeBill"},
      {BillKind::SaleReturn, "chkIncludeBill"},
      {BillKind::ConsignmentSale, "chkIncludeBill"},
      {BillKind::OpeningReceivable, "chkIncludeBill"},
      {BillKind::OtherReceivable, "chkIncludeOther"},
      {BillKind::OtherIncome, "chkIncludeOther"},
      {BillKind::ReceivableTransfer, "chkIncludeOther"},
      {BillKind::AdvanceReceipt, "chkIncludePre"},
      {BillKind::SaleRebate, "chkIncludeRebate"}}},
    {"payments",
     PartySide::Supplier,
     "Rpt10526",
     PaymentList,
     "BSupplyNumber",
     "ESupplyNumber",
     {{BillKind::Purchase, "chkIncludeBill"},
      {BillKind::PurchaseReturn, "chkIncludeBill"},
      {BillKind::OpeningPayable, "chkIncludeBill"},
      {BillKind::OtherPayable, "chkIncludeOther"},
      {BillKind::Expense, "chkIncludeOther"},
      {BillKind::PayableTransfer, "chkIncludeOther"},
      {BillKind::AdvancePayment, "chkIncludePre"},
      {BillKind::PurchaseRebate, "chkIncludeRebate"}}},
};

class SettlementListOf : public ::testing::TestWithParam<Case> {
 protected:
    Ref<OrderedDictionary> FilterOf(const Asked& asked) {
        const auto day = [](std::int64_t number) { return FormatIsoDate(Date{static_cast<double>(number)}); };
        auto filter = Filter({{"BDate", asked.firstDay == 0 ? "" : day(asked.firstDay)},
                              {"EDate", day(asked.lastDay)},
                              {GetParam().firstParty, asked.firstParty},
                              {GetParam().lastParty, asked.lastParty},
                              {"BDeptNumber", asked.firstDepartment},
                              {"EDeptNumber", asked.lastDepartment},
                              {"BEmpNumber", asked.firstEmployee},
                              {"EEmpNumber", asked.lastEmployee},
                              {"chkShowNonZero", asked.onlyOpen ? "1" : "0"},
                              {"cboSortBy", std::to_string(asked.sortBy)},
                              {"cmbCheckState", std::to_string(asked.checkState)},
                              {"OptSortAsc", asked.down ? "False" : "True"},
                              {"OptSortDesc", asked.down ? "True" : "False"},
                              {"DataRightWhere", asked.user.empty() ? "" : kOfUser16}});
        for (const char* key : kKindKeys) {
            filter->Put(key, asked.kinds.contains(key) ? "1" : "0");
        }
        return filter;
    }

    /// The party in whose account the bill is listed; 0 for none.
    std::int64_t PartyOf(const BookBill& bill) const {
        const bool moves =
            bill.kind == BillKind::ReceivableTransfer || bill.kind == BillKind::PayableTransfer;
        return moves ? bill.toParty : bill.Party(GetParam().side);
    }

    static std::int64_t Raised(const BookBill& bill) {
        const bool lowers = bill.kind == BillKind::AdvanceReceipt || bill.kind == BillKind::AdvancePayment ||
                            bill.kind == BillKind::SaleRebate || bill.kind == BillKind::PurchaseRebate;
        return lowers ? -bill.amount : bill.amount;
    }

    std::vector<std::string> Slow(const PlainBook& book, const Asked& asked) {
        const auto open = book.Open(GetParam().side, asked.checkState, asked.lastDay);
        struct Row {
            std::string code;
            std::int64_t number;
            const BookBill* bill;
            std::string text;
        };
        std::vector<Row> rows;
        for (const BookBill& bill : book.bills) {
            const auto kind = GetParam().kinds.find(bill.kind);
            if (kind == GetParam().kinds.end() || !asked.kinds.contains(kind->second)) continue;
            const std::int64_t party = PartyOf(bill);
            if (party == 0 || !PlainBook::Counts(bill, asked.checkState, asked.lastDay)) continue;
            if (bill.day < asked.firstDay || !book.Lies(party, asked.firstParty, asked.lastParty)) continue;
            if (!book.Lies(bill.department, asked.firstDepartment, asked.lastDepartment)) continue;
            if (!book.Lies(bill.employee, asked.firstEmployee, asked.lastEmployee)) continue;
            if (!book.Sees(asked.user, party)) continue;
            const std::int64_t left = open.at({bill.id, party});
            if (asked.onlyOpen && left == 0) continue;
            const std::int64_t items[] = {0, party, bill.department, bill.employee};
            Row row{.code = asked.sortBy >= 1 && asked.sortBy <= 3
                                ? book.Item(items[static_cast<std::size_t>(asked.sortBy)]).number
                                : "",
                    .number = asked.sortBy == 0   ? bill.day
                              : asked.sortBy == 4 ? left
                                                  : 0,
                    .bill = &bill,
                    .text = std::to_string(bill.day) + "|" + bill.number + "|"};
            row.text += std::string(RowOf(bill.kind).name) + "|" + std::to_string(Raised(bill)) + "|" +
                        std::to_string(Raised(bill) - left) + "|" + std::to_string(left) + "|";
            for (const std::int64_t item : {bill.department, bill.employee}) {
                row.text += book.Item(item).number + "|" + book.Item(item).name + "|";
            }
            row.text += bill.explanation + "|";
            rows.push_back(row);
        }
        std::ranges::stable_sort(rows, [&](const Row& a, const Row& b) {
            const auto key = [](const Row& row) { return std::tie(row.code, row.number); };
            if (key(a) != key(b)) return asked.down ? key(a) > key(b) : key(a) < key(b);
            return std::tie(a.bill->day, a.bill->number) < std::tie(b.bill->day, b.bill->number);
        });
        std::vector<std::string> texts;
        for (const Row& row : rows) {
            texts.push_back(row.text);
        }
        return texts;
    }

    std::vector<std::string> Rows(AccountSet& set, const Asked& asked) {
        return RowsOf(*GetParam().report(set, *FilterOf(asked)));
    }

    std::int64_t OpenIn(AccountSet& set, const Asked& asked) {
        const Ref<RecordSet> rows = GetParam().report(set, *FilterOf(asked));
        std::int64_t open = 0;
        for (; !rows->Eof(); rows->Move(1)) {
            EXPECT_EQ(Cents(*rows, "FAllAmount") - Cents(*rows, "FCheckAmount"),
                      Cents(*rows, "FUnCheckAmount"));
            open += Cents(*rows, "FUnCheckAmount");
        }
        return open;
    }
};

INSTANTIATE_TEST_SUITE_P(BothSides, SettlementListOf, ::testing::ValuesIn(kSides),
                         [](const auto& side) { return std::string(side.param.name); });

const Asked kShapes[] = {
    {},
    {.firstDay = 45000, .lastDay = 45400},
    {.firstDay = 45000, .lastDay = 45400, .onlyOpen = true},
    {.firstDay = 45700, .lastDay = 45838, .checkState = 0, .down = true},
    {.firstDay = 45700, .lastDay = 45838, .checkState = 1},
    {.lastDay = 44561},
    {.firstDay = 45000, .lastDay = 45400, .kinds = {"chkIncludeBill"}},
    {.firstDay = 45000, .lastDay = 45400, .kinds = {"chkIncludeOther"}},
    {.firstDay = 44000, .lastDay = 45838, .kinds = {"chkIncludePre"}},
    {.firstDay = 44000, .lastDay = 45838, .kinds = {"chkIncludeRebate"}},
    {.firstDay = 45000, .lastDay = 45400, .kinds = {}},
    {.firstDay = 45000, .lastDay = 45838, .firstParty = "01", .lastParty = "03"},
    {.firstDay = 45000, .lastDay = 45838, .firstDepartment = "01", .lastDepartment = "02"},
    {.firstDay = 45000, .lastDay = 45838, .firstEmployee = "003", .lastEmployee = "006"},
    {.firstDay = 45000, .lastDay = 45838, .user = "16"},
    {.firstDay = 44000, .lastDay = 44100},
};

TEST_P(SettlementListOf, AgreesWithTheSlowBooksInEveryShapeOfFilter) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const Asked& asked : kShapes) {
            EXPECT_EQ(test::FirstDifference(Rows(set, asked), Slow(book, asked)), "")
                << seed << " " << asked.firstDay << " " << asked.lastDay;
        }
    }
}

TEST_P(SettlementListOf, EachSortKeyOrdersUpAndDown) {
    AccountSet set(test::SampleFile(2));
    const PlainBook book(set);
    std::set<std::vector<std::string>> orders;
    for (int sortBy = 0; sortBy < 5; ++sortBy) {
        for (const bool down : {false, true}) {
            const Asked asked{.firstDay = 45000, .lastDay = 45838, .sortBy = sortBy, .down = down};
            const auto rows = Rows(set, asked);
            EXPECT_EQ(test::FirstDifference(rows, Slow(book, asked)), "") << sortBy << down;
            orders.insert(rows);
        }
    }
    EXPECT_EQ(orders.size(), 10u);
    for (const char* order : {"5", "-1"}) {
        const auto error = test::ErrorOf([&] { GetParam().report(set, *Filter({{"cboSortBy", order}})); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->description(), std::string("排序方式无效：") + order);
    }
}

TEST_P(SettlementListOf, AllThatIsListedAndMoneyNotUsedIsTheBalance) {
    for (const std::uint64_t seed : {1u, 5u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const std::int64_t day : {44561, 45200, 45838}) {
            std::int64_t balance = 0, unused = 0;
            for (const auto& [party, amount] : book.Balances(GetParam().side, 0, day)) {
                balance += amount;
            }
            for (const auto& [bill, open] : book.Open(GetParam().side, 0, day)) {
                const BookBill& settling = *book.Bill(bill.first);
                const bool listed =
                    GetParam().kinds.contains(settling.kind) && bill.second == PartyOf(settling);
                if (!listed) unused += open;
            }
            EXPECT_EQ(OpenIn(set, {.lastDay = day, .checkState = 0}) + unused, balance) << day;
            EXPECT_EQ(OpenIn(set, {.lastDay = day, .onlyOpen = true, .checkState = 0}) + unused, balance);
        }
    }
}

TEST_P(SettlementListOf, WhatComesLaterLeavesTheListAsItWas) {
    BuiltFirm firm(2);
    const auto list = [&] {
        AccountSet set = firm.Open();
        return Rows(set, {.firstDay = kDay - 100, .lastDay = kDay});
    };
    const auto before = list();
    EXPECT_GT(before.size(), 20u);
    firm.database().Run("UPDATE t_Bill SET FState=2 WHERE FBillID%2=0 AND FDate>" + std::to_string(kDay));
    firm.database().Run("UPDATE t_Settlement SET FAmount=FAmount+7 WHERE FDate>" + std::to_string(kDay));
    EXPECT_EQ(test::FirstDifference(list(), before), "");
    firm.database().Run("UPDATE t_Settlement SET FAmount=FAmount+7 WHERE FDate<=" + std::to_string(kDay));
    EXPECT_NE(test::FirstDifference(list(), before), "") << "what was settled before is seen";
}

TEST_P(SettlementListOf, ABillIsSettledInPartsAndThenLeftOut) {
    BuiltFirm firm;
    const bool selling = GetParam().side == PartySide::Customer;
    Bill bill{
        .kind = selling ? BillKind::Sale : BillKind::Purchase, .day = kDay, .amount = 1000, .settled = 100};
    Bill money{.kind = selling ? BillKind::Receipt : BillKind::Payment, .day = kDay + 1, .amount = 900};
    (selling ? bill.customer : bill.supplier) = selling ? firm.Customer(0) : firm.Supplier(0);
    money.customer = bill.customer;
    money.supplier = bill.supplier;
    const std::int64_t target = firm.Add(bill), source = firm.Add(money);
    const auto settle = [&](std::int64_t day, std::int64_t amount, std::int64_t discount) {
        firm.Settle({.bill = source,
                     .source = source,
                     .target = target,
                     .day = day,
                     .amount = amount,
                     .discount = discount});
    };
    settle(kDay + 1, 600, 50);
    settle(kDay + 2, 250, 0);
    const auto amounts = [&](std::int64_t day, bool onlyOpen) {
        AccountSet set = firm.Open();
        const Ref<RecordSet> rows = GetParam().report(set, *FilterOf({.lastDay = day, .onlyOpen = onlyOpen}));
        std::string text;
        for (; !rows->Eof(); rows->Move(1)) {
            text += std::to_string(Cents(*rows, "FAllAmount")) + " " +
                    std::to_string(Cents(*rows, "FCheckAmount")) + " " +
                    std::to_string(Cents(*rows, "FUnCheckAmount"));
        }
        return text;
    };
    EXPECT_EQ(amounts(kDay - 1, false), "");
    EXPECT_EQ(amounts(kDay, true), "1000 100 900");
    EXPECT_EQ(amounts(kDay + 1, true), "1000 750 250");
    EXPECT_EQ(amounts(kDay + 2, true), "");
    EXPECT_EQ(amounts(kDay + 2, false), "1000 1000 0");
}

TEST_P(SettlementListOf, OddCodesAreCodesLikeAnyOther) {
    BuiltFirm firm;
    const bool selling = GetParam().side == PartySide::Customer;
    const std::int64_t party = selling ? firm.Customer(0) : firm.Supplier(0);
    Bill bill{.kind = selling ? BillKind::Sale : BillKind::Purchase, .day = kDay, .amount = 1000};
    (selling ? bill.customer : bill.supplier) = party;
    firm.Add(bill);
    for (const char* code : {"A%", "A_B", "O'N", "\"x\"", "[1]", "; --"}) {
        Statement rename(firm.database(), "UPDATE t_Item SET FNumber=? WHERE FItemID=?");
        rename.With(code, party).Run();
        AccountSet set = firm.Open();
        EXPECT_EQ(Rows(set, {.firstParty = code, .lastParty = code}).size(), 1u) << code;
        EXPECT_EQ(Rows(set, {.firstParty = "A%%", .lastParty = "A%%"}).size(), 0u) << code;
    }
}

TEST_P(SettlementListOf, ShortNumbersAreTheLastPartOfACode) {
    AccountSet set(test::SampleFile());
    const auto filter = FilterOf({});
    filter->Put("bLongNumber", false);
    for (const Ref<RecordSet> rows = GetParam().report(set, *filter); !rows->Eof(); rows->Move(1)) {
        EXPECT_EQ(rows->Field("FDeptNumber").text().find('.'), std::string::npos);
    }
}

TEST_P(SettlementListOf, AFirmWithoutBillsHasNoRows) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    EXPECT_TRUE(GetParam().report(set, *FilterOf({}))->Eof());
    EXPECT_TRUE(GetParam().report(set, *Filter({}))->Eof());
}

TEST_P(SettlementListOf, TheWholeRunShowsWhatIsOpenInTheNewestBillsFirst) {
    test::ServedHost host;
    host.InDialog([](Form& dialog) { User(dialog).Click(test::ControlOf<Button>(dialog, "cmdOK")); });
    const Ref<Object> report = host.Create(GetParam().reportClass);
    report->Call("ShowFilter");
    report->Call("GetReportData");
    ASSERT_EQ(test::Entry(*report, "Result", "OK"), Value(true))
        << ToText(test::Entry(*report, "Result", "Error"));
    const Ref<RecordSet> rows = As<RecordSet>(report->Get("Rs"));
    const PlainBook book(host.tier.accountSet());
    const Asked asked{.firstDay = 45809,
                      .lastDay = 45838,
                      .onlyOpen = true,
                      .kinds = {"chkIncludeBill", "chkIncludeOther", "chkIncludeRebate"},
                      .checkState = GetParam().side == PartySide::Customer ? 0 : 2,
                      .down = true};
    EXPECT_EQ(test::FirstDifference(RowsOf(*rows), Slow(book, asked)), "");
    EXPECT_GT(rows->RowCount(), 5);
    EXPECT_EQ(
        test::FieldsOf(*rows),
        "FDate FBillNo FBillType FAllAmount FCheckAmount FUnCheckAmount FDeptNumber FDeptName FEmpNumber "
        "FEmpName FExplanation ");
}

}  // namespace
}  // namespace qor
