#include "embedded/statement_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "embedded/built_firm.h"
#include "embedded/plain_book.h"
#include "embedded/record_rows.h"
#include "embedded/served_host.h"
#include "embedded/slow_statement.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::BuiltFirm;
using test::Cents;
using test::PlainBook;
using test::RowsOf;
using test::SlowStatement;
using test::StatementFilter;
using Asked = test::StatementAsked;
using testing::ElementsAre;

constexpr std::int64_t kDay = 45500;

std::vector<std::string> Rows(AccountSet& set, const Asked& asked) {
    return RowsOf(*StatementOfAccount(set, asked.side, *StatementFilter(asked)).rows);
}

const Asked kShapes[] = {
    {},
    {.side = PartySide::Supplier, .withEstimates = true},
    {.firstDay = 45000, .lastDay = 45200, .hidesZeroBalance = true, .hidesZeroBills = true},
    {.side = PartySide::Supplier, .firstDay = 45000, .lastDay = 45300, .withWriteOffs = false},
    {.firstDay = 45809, .lastDay = 45838, .checkState = 1, .hidesZero = true},
    {.firstDay = 45700, .lastDay = 45838, .first = "01", .last = "02", .checkState = 2, .withGoods = true},
    {.side = PartySide::Supplier,
     .firstDay = 45500,
     .lastDay = 45700,
     .first = "",
     .last = "02",
     .withGoods = true,
     .withEstimates = true},
    {.firstDay = 45000, .lastDay = 45400, .firstDepartment = "01", .lastDepartment = "02"},
    {.firstDay = 45000, .lastDay = 45400, .firstEmployee = "003", .lastEmployee = "006", .hidesZero = true},
    {.firstDay = 45000, .lastDay = 45838, .withWriteOffs = false, .user = "16"},
    {.side = PartySide::Supplier, .firstDay = 45830, .lastDay = 45838, .hidesZeroBills = true, .user = "16"},
    {.first = "01.002", .last = "01.002", .withGoods = true},
};

TEST(StatementOfAccount, IsThatOfTheSlowBooksInEveryShapeOfFilter) {
    std::size_t found = 0;
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const Asked& asked : kShapes) {
            const auto slow = SlowStatement(book, asked);
            EXPECT_EQ(test::FirstDifference(Rows(set, asked), slow), "")
                << seed << " " << asked.firstDay << " " << asked.first;
            found += slow.size();
        }
    }
    EXPECT_GT(found, 5000u);
}

/// The code of the party whose statement begins with the row; "" for a row that is a bill.
std::string OpeningOf(const RecordSet& rows) {
    const std::string heading = rows.Field("FExplanation").text();
    return rows.Field("FBillTypeName") == Value("期初余额") ? heading.substr(0, heading.find(' ')) : "";
}

/// The closing balance of each statement, by the party's code.
std::map<std::string, std::int64_t> Closing(RecordSet& rows) {
    std::map<std::string, std::int64_t> closing;
    std::string code;
    for (; !rows.Eof(); rows.Move(1)) {
        if (const std::string opened = OpeningOf(rows); !opened.empty()) code = opened;
        closing[code] = Cents(rows, "FBalanceAmount");
    }
    return closing;
}

TEST(StatementOfAccount, ClosesOnTheBalanceOfTheParty) {
    for (const std::uint64_t seed : {1u, 4u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const PartySide side : {PartySide::Customer, PartySide::Supplier}) {
            std::map<std::string, std::int64_t> balances;
            for (const auto& [party, balance] : book.Balances(side, 0, 45600)) {
                if (balance != 0) balances[book.Item(party).number] = balance;
            }
            const auto filter = StatementFilter(
                {.side = side, .firstDay = 45300, .lastDay = 45600, .hidesZeroBalance = true});
            EXPECT_EQ(Closing(*StatementOfAccount(set, side, *filter).rows), balances);
            filter->Put("ShowDetail", std::int16_t{1});
            EXPECT_EQ(Closing(*StatementOfAccount(set, side, *filter).rows), balances) << "with goods";
        }
    }
}

TEST(StatementOfAccount, TheClosingBalanceIsTheOpeningOfTheNextPeriod) {
    AccountSet set(test::SampleFile(2));
    const auto earlier = StatementFilter({.firstDay = 45000, .lastDay = 45300, .user = "16"});
    const auto later = StatementFilter({.firstDay = 45301, .lastDay = 45301, .user = "16"});
    const Ref<RecordSet> next = StatementOfAccount(set, PartySide::Customer, *later).rows;
    std::map<std::string, std::int64_t> opening;
    for (; !next->Eof(); next->Move(1)) {
        const std::string code = OpeningOf(*next);
        if (!code.empty()) opening[code] = Cents(*next, "FBalanceAmount");
    }
    EXPECT_EQ(Closing(*StatementOfAccount(set, PartySide::Customer, *earlier).rows), opening);
    EXPECT_GT(opening.size(), 5u);
}

TEST(StatementOfAccount, LaterBillsLeaveAPeriodAsItWas) {
    BuiltFirm firm(2);
    const auto statements = [&] {
        AccountSet set = firm.Open();
        auto rows = Rows(set, {.firstDay = kDay - 100, .lastDay = kDay});
        const auto suppliers =
            Rows(set, {.side = PartySide::Supplier, .firstDay = kDay - 100, .lastDay = kDay});
        rows.insert(rows.end(), suppliers.begin(), suppliers.end());
        return rows;
    };
    const auto before = statements();
    firm.Add({.kind = BillKind::Receipt, .day = kDay + 1, .customer = firm.Customer(0), .amount = 12345});
    firm.database().Run("UPDATE t_Bill SET FState=2 WHERE FBillID%2=0 AND FDate>" + std::to_string(kDay));
    EXPECT_EQ(statements(), before);
}

/// The rows of a firm's only active customer as raised, real, discount, balance.
std::vector<std::string> AmountsOf(BuiltFirm& firm, std::int64_t customer, const Asked& shape = {}) {
    Asked asked = shape;
    asked.first = asked.last = firm.NumberOf(customer);
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = StatementOfAccount(set, PartySide::Customer, *StatementFilter(asked)).rows;
    std::vector<std::string> amounts;
    for (; !rows->Eof(); rows->Move(1)) {
        std::string row;
        for (const char* field : {"FReceivableAmount", "FRealAmount", "FDiscountAmount", "FBalanceAmount"}) {
            row += std::to_string(Cents(*rows, field)) + " ";
        }
        amounts.push_back(row);
    }
    return amounts;
}

TEST(StatementOfAccount, EachKindOfBillStandsInItsColumns) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    const Bill bills[] = {
        {.kind = BillKind::Sale, .amount = 1000, .settled = 300},
        {.kind = BillKind::SaleReturn, .amount = -100},
        {.kind = BillKind::SaleRebate, .amount = 50, .settled = 20},
        {.kind = BillKind::Receipt, .amount = 200, .discount = 5},
        {.kind = BillKind::AdvanceReceipt, .amount = 70},
        {.kind = BillKind::AdvanceToReceivable, .amount = 60},
        {.kind = BillKind::ReceivableToPayable, .amount = 40},
        {.kind = BillKind::ReceivableTransfer, .toParty = firm.Customer(1), .amount = 30},
    };
    for (Bill bill : bills) {
        bill.day = kDay;
        bill.customer = customer;
        firm.Add(bill);
    }
    EXPECT_THAT(AmountsOf(firm, customer),
                ElementsAre("0 0 0 0 ", "1000 300 0 700 ", "-100 0 0 600 ", "-50 -20 0 570 ", "0 200 5 365 ",
                            "0 70 0 295 ", "0 0 0 295 ", "0 40 0 255 ", "0 30 0 225 "));
    EXPECT_THAT(AmountsOf(firm, customer, {.withWriteOffs = false, .hidesZeroBills = true}),
                ElementsAre("0 0 0 0 ", "1000 300 0 700 ", "-100 0 0 600 ", "-50 -20 0 570 ", "0 200 5 365 ",
                            "0 70 0 295 "));
    EXPECT_THAT(AmountsOf(firm, firm.Customer(1)), ElementsAre("0 0 0 0 ", "30 0 0 30 "));
}

TEST(StatementOfAccount, TheLastGoodsLineCarriesWhatTheOthersLeave) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    const auto sale =
        firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = customer, .amount = 1000, .settled = 300});
    for (const int index : {1, 2, 3}) {
        firm.AddLine(sale, index,
                     GoodsLine{.item = firm.Goods(0),
                               .quantity = 120000,
                               .price = 5000,
                               .amount = index * 100,
                               .showUnit = firm.Goods(1),
                               .showRate = 12});
    }
    EXPECT_THAT(AmountsOf(firm, customer, {.withGoods = true}),
                ElementsAre("0 0 0 0 ", "100 0 0 100 ", "200 0 0 300 ", "700 300 0 700 "));
    AccountSet set = firm.Open();
    const auto filter = StatementFilter({.first = firm.NumberOf(customer), .withGoods = true});
    const Ref<RecordSet> rows = StatementOfAccount(set, PartySide::Customer, *filter).rows;
    EXPECT_TRUE(rows->Field("FQty").IsNull()) << "the opening row has no goods";
    rows->Move(1);
    EXPECT_EQ(rows->Field("FQty"), Value(12.0));
    EXPECT_EQ(rows->Field("FPrice"), Value(0.5));
    EXPECT_EQ(rows->Field("FShowQty"), Value(1.0));
    EXPECT_EQ(rows->Field("FShowPrice"), Value(6.0));
}

TEST(StatementOfAccount, AFilterWithoutTheKeyTakesWriteOffsIn) {
    AccountSet set(test::SampleFile());
    const auto filter = StatementFilter({});
    const auto with = RowsOf(*StatementOfAccount(set, PartySide::Customer, *filter).rows);
    filter->Remove("ShowCheckBill");
    EXPECT_EQ(RowsOf(*StatementOfAccount(set, PartySide::Customer, *filter).rows), with);
    EXPECT_NE(Rows(set, {.withWriteOffs = false}), with);
}

TEST(StatementOfAccount, BreaksAndPagesComeOnlyWhenAskedForAndCoverTheRows) {
    AccountSet set(test::SampleFile());
    const auto filter = StatementFilter({.firstDay = 45700, .lastDay = 45838, .hidesZeroBalance = true});
    const StatementAnswer plain = StatementOfAccount(set, PartySide::Customer, *filter);
    EXPECT_FALSE(plain.pages);
    EXPECT_FALSE(plain.rowBreaks);
    filter->Put("PrintByPg", std::int16_t{1});
    const StatementAnswer paged = StatementOfAccount(set, PartySide::Customer, *filter);
    EXPECT_EQ(RowsOf(*paged.rows), RowsOf(*plain.rows));
    EXPECT_EQ(test::FieldsOf(*paged.rowBreaks), "FPage FItemNumber FFirstRow FRowCount ");
    EXPECT_EQ(test::FieldsOf(*paged.pages),
              "FPage FItemNumber FItemName FContact FPhone FInitAmount FReceivableAmount FRealAmount "
              "FDiscountAmount FBalanceAmount ");
    ASSERT_EQ(paged.pages->RowCount(), paged.rowBreaks->RowCount());
    EXPECT_GT(paged.pages->RowCount(), 5);
    std::int32_t next = 0;
    for (RecordSet *page = &*paged.pages, *rowBreak = &*paged.rowBreaks; !page->Eof();
         page->Move(1), rowBreak->Move(1)) {
        EXPECT_EQ(page->Field("FPage"), rowBreak->Field("FPage"));
        ASSERT_EQ(rowBreak->Field("FFirstRow"), Value(next));
        const std::int32_t count = rowBreak->Field("FRowCount").int32();
        paged.rows->MoveFirst();
        paged.rows->Move(next);
        EXPECT_EQ(paged.rows->Field("FExplanation"),
                  Value(page->Field("FItemNumber").text() + " " + page->Field("FItemName").text()));
        EXPECT_EQ(paged.rows->Field("FBalanceAmount"), page->Field("FInitAmount"));
        std::int64_t raised = 0, real = 0, discount = 0, balance = 0;
        for (std::int32_t i = 0; i < count; ++i, paged.rows->Move(1)) {
            raised += Cents(*paged.rows, "FReceivableAmount");
            real += Cents(*paged.rows, "FRealAmount");
            discount += Cents(*paged.rows, "FDiscountAmount");
            balance = Cents(*paged.rows, "FBalanceAmount");
        }
        EXPECT_EQ(raised, Cents(*page, "FReceivableAmount"));
        EXPECT_EQ(real, Cents(*page, "FRealAmount"));
        EXPECT_EQ(discount, Cents(*page, "FDiscountAmount"));
        EXPECT_EQ(balance, Cents(*page, "FBalanceAmount"));
        next += count;
    }
    EXPECT_EQ(next, paged.rows->RowCount());
}

TEST(StatementOfAccount, AReportKeepsThePagesOfItsServer) {
    test::ServedHost host;
    const Ref<Object> report = host.Create("Rpt10506");
    const auto filter = StatementFilter({.firstDay = 45700, .lastDay = 45838});
    for (const bool paged : {true, false}) {
        filter->Put("ByItem", std::int16_t{1});
        filter->Put("PrintByPg", static_cast<std::int16_t>(paged ? 1 : 0));
        report->Put("Filter", filter);
        report->Call("GetReportData");
        ASSERT_EQ(test::Entry(*report, "Result", "OK"), Value(true));
        EXPECT_EQ(report->Get("MutilPageRs").IsNothing(), !paged);
        EXPECT_EQ(report->Get("RowBreakRs").IsNothing(), !paged);
        EXPECT_GT(As<RecordSet>(report->Get("Rs"))->RowCount(), 10);
    }
}

TEST(StatementOfAccount, ShortNumbersAreTheLastPartOfACode) {
    AccountSet set(test::SampleFile());
    const auto filter = StatementFilter({.first = "01.001", .last = "01.001", .withGoods = true});
    filter->Put("bLongNumber", false);
    const Ref<RecordSet> rows = StatementOfAccount(set, PartySide::Supplier, *filter).rows;
    EXPECT_TRUE(rows->Field("FExplanation").text().starts_with("001 "));
    for (; !rows->Eof(); rows->Move(1)) {
        EXPECT_EQ(rows->Field("FItemNumber").text().find('.'), std::string::npos);
    }
}

TEST(StatementOfAccount, HostileCodesFindNobodyAndForeignClausesAreRefused) {
    AccountSet set(test::SampleFile());
    for (const char* text : {"' OR 1=1 --", "%", "_", "01'; DROP TABLE t_Bill; --"}) {
        EXPECT_TRUE(Rows(set, {.first = text, .last = text}).empty()) << text;
    }
    const auto filter = StatementFilter({});
    filter->Put("DataRightWhere", " (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) ");
    EXPECT_TRUE(test::ErrorOf([&] { StatementOfAccount(set, PartySide::Customer, *filter); }));
}

TEST(StatementOfAccount, AFirmWithoutBillsHasItsPartiesUnlessZerosAreHidden) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    const PlainBook book(set);
    EXPECT_EQ(Rows(set, {}), SlowStatement(book, {}));
    EXPECT_FALSE(Rows(set, {}).empty());
    EXPECT_TRUE(Rows(set, {.hidesZeroBalance = true}).empty());
    EXPECT_TRUE(Rows(set, {.side = PartySide::Supplier, .hidesZero = true}).empty());
}

TEST(StatementOfAccount, TheFieldsAreThoseOfTheColumns) {
    AccountSet set(test::SampleFile());
    EXPECT_EQ(test::FieldsOf(*StatementOfAccount(set, PartySide::Customer, *StatementFilter({})).rows),
              "FDate FBillTypeName FBillNo FVchNumber FExplanation FReceivableAmount FRealAmount "
              "FDiscountAmount FBalanceAmount FDeptName FEmpName FInvoiceNo ");
    EXPECT_EQ(
        test::FieldsOf(
            *StatementOfAccount(set, PartySide::Supplier, *StatementFilter({.withGoods = true})).rows),
        "FDate FBillTypeName FBillNo FVchNumber FItemName FItemNumber FModel FAuxName FBatchNo FUnitName "
        "FQty "
        "FPrice FShowUnitName FShowQty FShowPrice FExplanation FReceivableAmount FRealAmount "
        "FDiscountAmount FBalanceAmount FDeptName FEmpName FInvoiceNo ");
}

}  // namespace
}  // namespace qor
