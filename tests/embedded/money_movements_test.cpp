#include "embedded/money_movements.h"

#include <gtest/gtest.h>

#include "embedded/built_firm.h"
#include "embedded/cash_rows.h"
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
const std::string kOfUser16 = " (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) ";
constexpr const char* kIncludeKeys[] = {"IncludeR",    "IncludeP",    "IncludePurchase", "IncludeSale",
                                        "IncludeBank", "IncludeXSFL", "IncludeCGFL"};

/// What the slow computation is asked for; "" and the widest days are open.
struct Asked {
    std::int64_t firstDay = 0, lastDay = 1 << 20;
    std::string account;
    std::string firstDepartment, lastDepartment, firstEmployee, lastEmployee, biller;
    int checkState = 0;
    std::string leftOut;  // an Include key that is off
    std::string user;
};

Ref<OrderedDictionary> FilterOf(const Asked& asked) {
    auto filter = Filter({{"EDate", Date{static_cast<double>(asked.lastDay)}},
                          {"AcctNumber", asked.account},
                          {"BDeptNumber", asked.firstDepartment},
                          {"EDeptNumber", asked.lastDepartment},
                          {"BEmpNumber", asked.firstEmployee},
                          {"EEmpNumber", asked.lastEmployee},
                          {"BillerName", asked.biller},
                          {"CheckState", static_cast<std::int16_t>(asked.checkState)},
                          {"DataRightWhere", asked.user.empty() ? "" : kOfUser16}});
    if (asked.firstDay != 0) filter->Put("BDate", Date{static_cast<double>(asked.firstDay)});
    for (const char* key : kIncludeKeys) {
        filter->Put(key, static_cast<std::int16_t>(asked.leftOut != key));
    }
    return filter;
}

/// The key that a kind of bill comes with, and what it brings into its account.
std::string KeyOf(BillKind kind) {
    switch (kind) {
        case BillKind::Receipt:
        case BillKind::AdvanceReceipt:
            return "IncludeR";
        case BillKind::Payment:
        case BillKind::AdvancePayment:
            return "IncludeP";
        case BillKind::Purchase:
        case BillKind::PurchaseReturn:
            return "IncludePurchase";
        case BillKind::Sale:
        case BillKind::SaleReturn:
        case BillKind::ConsignmentSale:
            return "IncludeSale";
        case BillKind::BankTransfer:
            return "IncludeBank";
        case BillKind::SaleRebate:
            return "IncludeXSFL";
        case BillKind::PurchaseRebate:
            return "IncludeCGFL";
        default:
            return "";
    }
}

std::int64_t FlowOf(const BookBill& bill) {
    const std::string key = KeyOf(bill.kind);
    if (key == "IncludeR") return bill.amount;
    if (key == "IncludeP" || key == "IncludeBank") return -bill.amount;
    if (key == "IncludeSale" || key == "IncludeCGFL" || bill.kind == BillKind::OtherIncome)
        return bill.settled;
    if (key == "IncludePurchase" || key == "IncludeXSFL" || bill.kind == BillKind::Expense)
        return -bill.settled;
    return 0;
}

bool IsListed(const PlainBook& book, const BookBill& bill, const Asked& asked) {
    if (!PlainBook::Counts(bill, asked.checkState, asked.lastDay) || FlowOf(bill) == 0) return false;
    const std::string key = KeyOf(bill.kind);
    if (!key.empty() && key == asked.leftOut) return false;
    if (!asked.biller.empty()) {
        const auto biller = book.users.find(bill.biller);
        if (biller == book.users.end() || biller->second.find(asked.biller) == std::string::npos)
            return false;
    }
    return book.Lies(bill.department, asked.firstDepartment, asked.lastDepartment) &&
           book.Lies(bill.employee, asked.firstEmployee, asked.lastEmployee) &&
           book.Sees(asked.user, bill.customer);
}

/// The listed bills by day and number of entry.
std::vector<const BookBill*> Listed(const PlainBook& book, const Asked& asked) {
    std::vector<const BookBill*> listed;
    for (const BookBill& bill : book.bills) {
        if (IsListed(book, bill, asked)) listed.push_back(&bill);
    }
    std::ranges::stable_sort(listed, {}, &BookBill::day);
    return listed;
}

std::string RowOfBill(const PlainBook& book, const BookBill& bill, const std::string& amounts) {
    const std::int64_t party = bill.customer != 0 ? bill.customer : bill.supplier;
    return std::to_string(bill.day) + "|" + bill.number + "|" + std::string(RowOf(bill.kind).name) + "|" +
           amounts + bill.explanation + "|" + book.Item(party).name + "|" + book.Item(bill.department).name +
           "|" + book.Item(bill.employee).name + "|";
}

std::string InAndOut(std::int64_t in, std::int64_t out) {
    return std::to_string(in) + "|" + std::to_string(out) + "|";
}

std::vector<std::string> SlowPeriod(const PlainBook& book, const Asked& asked) {
    std::vector<std::string> rows;
    for (const BookBill* bill : Listed(book, asked)) {
        if (bill->day < asked.firstDay) continue;
        const std::int64_t flow = FlowOf(*bill);
        std::string amounts = InAndOut(std::max<std::int64_t>(flow, 0), std::max<std::int64_t>(-flow, 0));
        if (bill->kind == BillKind::BankTransfer) amounts = InAndOut(bill->amount, bill->amount);
        rows.push_back(RowOfBill(book, *bill, amounts));
    }
    return rows;
}

std::vector<std::string> SlowAccount(const PlainBook& book, const Asked& asked) {
    const auto isAsked = [&](std::int64_t account) {
        return account != 0 && book.Lies(account, asked.account, asked.account);
    };
    std::int64_t balance = 0;
    for (const auto& [id, item] : book.items) {
        if (item.itemClass == item_class::kAccount && isAsked(id)) balance += item.begin;
    }
    std::vector<std::string> rows;
    const auto enter = [&](const BookBill& bill, std::int64_t flow) {
        balance += flow;
        if (bill.day < asked.firstDay) return;
        rows.push_back(RowOfBill(book, bill,
                                 InAndOut(std::max<std::int64_t>(flow, 0), std::max<std::int64_t>(-flow, 0)) +
                                     std::to_string(balance) + "|"));
    };
    const std::vector<const BookBill*> listed = Listed(book, asked);
    const auto move = [&](const BookBill& bill) {
        if (isAsked(bill.account)) enter(bill, FlowOf(bill));
        if (isAsked(bill.toAccount)) enter(bill, -FlowOf(bill));
    };
    for (const BookBill* bill : listed) {
        if (bill->day < asked.firstDay) move(*bill);
    }
    rows.push_back((asked.firstDay == 0 ? "-" : std::to_string(asked.firstDay)) + "|||0|0|" +
                   std::to_string(balance) + "|期初余额||||");
    for (const BookBill* bill : listed) {
        if (bill->day >= asked.firstDay) move(*bill);
    }
    return rows;
}

const Asked kShapes[] = {
    {},
    {.firstDay = 45000, .lastDay = 45400},
    {.firstDay = 45809, .lastDay = 45838, .checkState = 2},
    {.firstDay = 45809, .lastDay = 45838, .checkState = 1},
    {.firstDay = 45000, .lastDay = 45900, .firstDepartment = "01", .lastDepartment = "02"},
    {.firstDay = 45000, .lastDay = 45400, .firstEmployee = "003", .lastEmployee = "006"},
    {.firstDay = 45000, .lastDay = 45400, .biller = "李"},
    {.firstDay = 45000, .lastDay = 45400, .biller = "%"},
    {.firstDay = 45000, .lastDay = 45400, .user = "16"},
    {.firstDay = 45000, .lastDay = 45400, .leftOut = "IncludeR"},
    {.firstDay = 45000, .lastDay = 45400, .leftOut = "IncludeP"},
    {.firstDay = 45000, .lastDay = 45400, .leftOut = "IncludePurchase"},
    {.firstDay = 45000, .lastDay = 45400, .leftOut = "IncludeSale"},
    {.firstDay = 44562, .lastDay = 45838, .leftOut = "IncludeBank"},
    {.firstDay = 44562, .lastDay = 45838, .leftOut = "IncludeXSFL"},
    {.firstDay = 44562, .lastDay = 45838, .leftOut = "IncludeCGFL"},
    {.firstDay = 45837, .lastDay = 45837},
    {.firstDay = 44000, .lastDay = 44100},
};

TEST(MoneyMovements, AreThoseOfTheSlowBooksInEveryShapeOfFilter) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const Asked& asked : kShapes) {
            EXPECT_EQ(test::FirstDifference(RowsOf(*MoneyMovements(set, *FilterOf(asked))),
                                            SlowPeriod(book, asked)),
                      "")
                << seed << " " << asked.firstDay << " " << asked.leftOut;
        }
    }
}

TEST(MoneyMovements, OfAnAccountAreThoseOfTheSlowBooksInEveryShapeOfFilter) {
    for (const std::uint64_t seed : {1u, 2u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const char* account : {"01", "02", "02.001"}) {
            for (Asked asked : kShapes) {
                asked.account = account;
                EXPECT_EQ(test::FirstDifference(RowsOf(*AccountMovements(set, *FilterOf(asked))),
                                                SlowAccount(book, asked)),
                          "")
                    << seed << " " << account << " " << asked.firstDay << " " << asked.leftOut;
            }
        }
    }
}

TEST(MoneyMovements, EachKeyTakesItsBillsInAndNothingElse) {
    AccountSet set(test::SampleFile());
    const std::int32_t always = MoneyMovements(set, *Filter({}))->RowCount();
    EXPECT_GT(always, 500) << "other income and expenses";
    std::int32_t all = always;
    for (const char* key : kIncludeKeys) {
        const std::int32_t with = MoneyMovements(set, *Filter({{key, std::int16_t{1}}}))->RowCount();
        EXPECT_GT(with, always) << key;
        EXPECT_EQ(MoneyMovements(set, *Filter({{key, "1"}}))->RowCount(), with) << "as a text";
        all += with - always;
    }
    EXPECT_EQ(MoneyMovements(set, *FilterOf({.checkState = 2}))->RowCount(), all);
}

TEST(MoneyMovements, TheAccountsBalanceGoesOnFromPeriodToPeriod) {
    for (const Asked& shape : {Asked{}, Asked{.user = "16"}, Asked{.leftOut = "IncludeR"}}) {
        AccountSet set(test::SampleFile(4));
        std::int64_t closing = 0;
        for (std::int64_t day = 45000; day < 45800; day += 100) {
            Asked asked = shape;
            asked.firstDay = day;
            asked.lastDay = day + 99;
            asked.account = "02.001";
            const Ref<RecordSet> rows = AccountMovements(set, *FilterOf(asked));
            EXPECT_TRUE(day == 45000 || Cents(*rows, "FBalanceAmount") == closing) << day;
            std::int64_t balance = Cents(*rows, "FBalanceAmount");
            for (; !rows->Eof(); rows->Move(1)) {
                balance += Cents(*rows, "FInAmount") - Cents(*rows, "FOutAmount");
                EXPECT_EQ(Cents(*rows, "FBalanceAmount"), balance);
            }
            closing = balance;
        }
    }
}

TEST(MoneyMovements, OfAnAccountAreItsCashJournal) {
    AccountSet set(test::SampleFile(2));
    const Asked asked{.firstDay = 45000, .lastDay = 45700, .account = "02.001"};
    const auto filter = FilterOf(asked);
    filter->Put("BAcctNumber", asked.account);
    filter->Put("EAcctNumber", asked.account);
    const Ref<RecordSet> rows = AccountMovements(set, *filter), journal = CashJournal(set, *filter);
    ASSERT_EQ(rows->RowCount(), journal->RowCount());
    ASSERT_GT(rows->RowCount(), 50);
    for (; !rows->Eof(); rows->Move(1), journal->Move(1)) {
        for (std::size_t field = 0; field < rows->FieldCount(); ++field) {
            EXPECT_EQ(rows->FieldAt(field), journal->Field(rows->FieldName(field))) << rows->FieldName(field);
        }
    }
}

TEST(MoneyMovements, ATransferIsOneRowOfAllAccountsAndHalfARowOfEach) {
    BuiltFirm firm;
    firm.Add({.kind = BillKind::BankTransfer,
              .day = kDay,
              .account = firm.Account(0),
              .toAccount = firm.Account(1),
              .amount = 700});
    const auto amounts = [&](auto report, const std::string& account) {
        AccountSet set = firm.Open();
        const Ref<RecordSet> rows = report(set, *FilterOf({.firstDay = kDay, .account = account}));
        std::string text;
        for (; !rows->Eof(); rows->Move(1)) {
            if (rows->Field("FExplanation") == Value("期初余额")) continue;
            text += std::to_string(Cents(*rows, "FInAmount")) + " " +
                    std::to_string(Cents(*rows, "FOutAmount")) + ";";
        }
        return text;
    };
    EXPECT_EQ(amounts(MoneyMovements, ""), "700 700;");
    EXPECT_EQ(amounts(AccountMovements, firm.NumberOf(firm.Account(0))), "0 700;");
    EXPECT_EQ(amounts(AccountMovements, firm.NumberOf(firm.Account(1))), "700 0;");
    EXPECT_EQ(amounts(AccountMovements, ""), "0 700;700 0;") << "all accounts in one";
}

TEST(MoneyMovements, AShortPeriodIsTheSameAsItsPartOfALongOne) {
    AccountSet set(test::SampleFile());
    std::vector<std::string> parts;
    for (std::int64_t day = 44550; day < 45850; day += 20) {
        const auto rows = RowsOf(*MoneyMovements(set, *FilterOf({.firstDay = day, .lastDay = day + 19})));
        parts.insert(parts.end(), rows.begin(), rows.end());
    }
    EXPECT_EQ(test::FirstDifference(parts, RowsOf(*MoneyMovements(set, *FilterOf({})))), "");
}

TEST(MoneyMovements, ABillOfAnUnknownKindPlaysNoPart) {
    BuiltFirm firm(2);
    const auto rows = [&] {
        AccountSet set = firm.Open();
        auto all = RowsOf(*MoneyMovements(set, *FilterOf({})));
        const auto account = RowsOf(*AccountMovements(set, *FilterOf({.account = "01"})));
        all.insert(all.end(), account.begin(), account.end());
        return all;
    };
    const auto before = rows();
    for (const std::int32_t kind : {0, 27, 4711, -1}) {
        firm.database().Run("INSERT INTO t_BillType SELECT " + std::to_string(kind) +
                            ",'ZZ','?',0,0,0,0,0,0,0,1 WHERE NOT EXISTS (SELECT 1 FROM t_BillType WHERE "
                            "FBillType=" +
                            std::to_string(kind) + ")");
        firm.Add({.kind = static_cast<BillKind>(kind),
                  .day = kDay,
                  .account = firm.Account(0),
                  .amount = 700,
                  .settled = 700});
    }
    EXPECT_EQ(test::FirstDifference(rows(), before), "");
}

TEST(MoneyMovements, AnAccountThatIsNotThereHasNoRows) {
    AccountSet set(test::SampleFile());
    for (const char* code : {"zz", "%", "0_", "'", "01' OR 1=1 --"}) {
        EXPECT_TRUE(AccountMovements(set, *FilterOf({.account = code}))->Eof()) << code;
    }
}

TEST(MoneyMovements, AFirmWithoutBillsHasTheOpeningBalanceAlone) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    EXPECT_TRUE(MoneyMovements(set, *FilterOf({}))->Eof());
    EXPECT_EQ(AccountMovements(set, *FilterOf({.account = "01"}))->RowCount(), 1);
}

TEST(MoneyMovements, AForeignRightClauseIsRefused) {
    AccountSet set(test::SampleFile());
    const auto filter =
        Filter({{"DataRightWhere", " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) "}});
    EXPECT_TRUE(test::ErrorOf([&] { MoneyMovements(set, *filter); }));
    EXPECT_TRUE(test::ErrorOf([&] { AccountMovements(set, *filter); }));
}

TEST(MoneyMovements, TheFieldsAreThoseOfTheColumns) {
    AccountSet set(test::SampleFile());
    EXPECT_EQ(test::FieldsOf(*MoneyMovements(set, *Filter({}))),
              "FDate FBillNo FBillTypeName FInAmount FOutAmount FExplanation FName FDeptName FEmpName ");
    EXPECT_EQ(test::FieldsOf(*AccountMovements(set, *Filter({}))),
              "FDate FBillNo FBillTypeName FInAmount FOutAmount FBalanceAmount FExplanation FName FDeptName "
              "FEmpName ");
}

/// The run of the report with its dialog; with an account it asks the other member.
TEST(MoneyMovements, TheReportAsksForTheAccountWhereItIsGivenOne) {
    test::ServedHost host;
    for (const char* account : {"", "01"}) {
        const Ref<Object> report = host.Create("Rpt10501");
        report->Put("Filter", FilterOf({.firstDay = 45800, .lastDay = 45838, .account = account}));
        report->Call("GetReportData");
        ASSERT_EQ(test::Entry(*report, "Result", "OK"), Value(true));
        const Ref<RecordSet> rows = As<RecordSet>(report->Get("Rs"));
        EXPECT_GT(rows->RowCount(), 1);
        EXPECT_EQ(rows->FieldCount(), *account == 0 ? 9u : 10u);
    }
}

}  // namespace
}  // namespace qor
