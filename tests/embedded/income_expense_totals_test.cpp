#include "embedded/income_expense_totals.h"

#include <gtest/gtest.h>

#include "embedded/built_firm.h"
#include "embedded/income_expense_rows.h"
#include "embedded/record_rows.h"
#include "embedded/served_host.h"
#include "embedded/slow_totals.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::BuiltFirm;
using test::Cents;
using test::Filter;
using test::PlainFilter;
using test::RowsOf;
using test::SlowBooks;
using Asked = test::AskedTotals;

const std::string kOfUser16 = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";

/// One side of the books under test.
struct Case {
    const char* name;
    BillKind kind, otherKind;
    const char* reportClass;
    Ref<RecordSet> (*summary)(AccountSet&, const Dictionary&);
    Ref<RecordSet> (*detail)(AccountSet&, const Dictionary&);
    const char* groupKey;
    const char* partyField;
    const char* firstParty;
    const char* lastParty;
};

constexpr Case kSides[] = {
    {"income", BillKind::OtherIncome, BillKind::OtherReceivable, "Rpt10521", IncomeSummary, IncomeDetail,
     "chkGrouyByCust", "FCustNumber", "BCustNumber", "ECustNumber"},
    {"expense", BillKind::Expense, BillKind::OtherPayable, "Rpt10523", ExpenseSummary, ExpenseDetail,
     "chkGrouyBySupply", "FSupplyNumber", "BSupplyNumber", "ESupplyNumber"},
};

struct Amounts {
    std::int64_t amount = 0, settled = 0;
};

class CategoryTotalsOf : public ::testing::TestWithParam<Case> {
 protected:
    Ref<OrderedDictionary> FilterOf(const Asked& asked) {
        const PlainFilter& plain = asked.plain;
        return Filter({{"DtpBDate", Date{static_cast<double>(plain.firstDay)}},
                       {"DtpEDate", Date{static_cast<double>(std::min<std::int64_t>(plain.lastDay, 60000))}},
                       {"BTypeIn", plain.classes.first},
                       {"ETypeIn", plain.classes.last},
                       {"BLevel", std::to_string(asked.firstLevel)},
                       {"ELevel", std::to_string(asked.lastLevel)},
                       {GetParam().groupKey, asked.byParty ? "1" : "0"},
                       {"chkForbiddenTypeInclude", plain.withDisabled ? "1" : "0"},
                       {"chkIncludeOther", asked.withOther ? "1" : "0"},
                       {"chkOccurNotZero", asked.withIdle ? "0" : "1"},
                       {"CheckState", static_cast<std::int16_t>(plain.checkState)},
                       {"DataRightWhere", plain.rightUser.empty() ? "" : kOfUser16}});
    }

    static std::vector<std::string> Slow(const SlowBooks& books, const Asked& asked) {
        return test::SlowTotals(books, GetParam().kind, GetParam().otherKind, asked);
    }
    std::vector<std::string> Rows(AccountSet& set, const Asked& asked) {
        return RowsOf(*GetParam().summary(set, *FilterOf(asked)));
    }
};

INSTANTIATE_TEST_SUITE_P(BothSides, CategoryTotalsOf, ::testing::ValuesIn(kSides),
                         [](const auto& side) { return std::string(side.param.name); });

const Asked kShapes[] = {
    {},
    {.firstLevel = 1, .lastLevel = 2},
    {.firstLevel = 1, .lastLevel = 3},
    {.firstLevel = 2, .lastLevel = 3},
    {.firstLevel = 3, .lastLevel = 3},
    {.firstLevel = 2, .lastLevel = 1},
    {.firstLevel = 0, .lastLevel = 0},
    {.firstLevel = 0, .lastLevel = 2, .byParty = true},
    {.firstLevel = 1, .lastLevel = 1, .byParty = true},
    {.firstLevel = 1, .lastLevel = 3, .byParty = true, .withIdle = true},
    {.firstLevel = 2, .lastLevel = 2, .byParty = true, .plain = {.firstDay = 45000, .lastDay = 45300}},
    {.firstLevel = 1, .lastLevel = 2, .withOther = true},
    {.firstLevel = 1, .lastLevel = 2, .withOther = true, .plain = {.checkState = 0, .rightUser = "16"}},
    {.firstLevel = 1, .lastLevel = 3, .withIdle = true, .plain = {.firstDay = 45800, .withDisabled = true}},
    {.firstLevel = 1, .lastLevel = 2, .withIdle = true, .plain = {.firstDay = 50000}},
    {.firstLevel = 1, .lastLevel = 2, .plain = {.firstDay = 50000}},
    {.firstLevel = 1, .lastLevel = 1, .plain = {.classes = {"01.002", "03"}}},
    {.firstLevel = 1, .lastLevel = 1, .plain = {.classes = {"01.002", "01.002"}}},
    {.firstLevel = 1, .lastLevel = 2, .plain = {.classes = {"01.003", "02.001"}, .withDisabled = true}},
    {.firstLevel = 1, .lastLevel = 1, .byParty = true, .plain = {.classes = {"02", "02"}}},
    {.firstLevel = 1, .lastLevel = 3, .plain = {.checkState = 1}},
    {.firstLevel = 1, .lastLevel = 2, .byParty = true, .plain = {.checkState = 0, .rightUser = "16"}},
};

TEST_P(CategoryTotalsOf, AgreeWithTheSlowBooksInEveryShapeOfFilter) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const SlowBooks books(set);
        for (const Asked& asked : kShapes) {
            EXPECT_EQ(test::FirstDifference(Rows(set, asked), Slow(books, asked)), "")
                << seed << " levels " << asked.firstLevel << " to " << asked.lastLevel << " by party "
                << asked.byParty << " classes " << asked.plain.classes.first;
        }
    }
}

/// The sums of the detail report that a row of the summary opens.
Amounts DetailOf(const Ref<Object>& report, std::int32_t row) {
    const Value opened = report->Call("GetDetailReport", row);
    EXPECT_TRUE(opened.IsObject() && !opened.IsNothing()) << row;
    Amounts sums;
    const Ref<RecordSet> rows = As<RecordSet>(ObjectIn(opened).Get("Rs"));
    for (; !rows->Eof(); rows->Move(1)) {
        sums.amount += Cents(*rows, "FAmount");
        sums.settled += Cents(*rows, "FSettleAmount");
        EXPECT_EQ(Cents(*rows, "FAmount"), Cents(*rows, "FReceiveAmount") + Cents(*rows, "FSettleAmount"));
    }
    return sums;
}

TEST_P(CategoryTotalsOf, ARowIsTheSumOfTheDetailThatItOpens) {
    const Asked shapes[] = {
        {.plain = {.firstDay = 45000, .lastDay = 45600}},
        {.firstLevel = 1, .lastLevel = 3, .plain = {.checkState = 0}},
        {.firstLevel = 1, .lastLevel = 2, .byParty = true, .plain = {.firstDay = 45600, .checkState = 2}},
        {.firstLevel = 1, .lastLevel = 1, .plain = {.classes = {"01.002", "03.001"}, .withDisabled = true}},
    };
    for (const std::int32_t user : {1, 16}) {
        for (const Asked& asked : shapes) {
            test::ServedHost host(user);
            const Ref<Object> report = host.Create(GetParam().reportClass);
            report->Put("Filter", FilterOf(asked));
            report->Call("GetReportData");
            ASSERT_EQ(test::Entry(*report, "Result", "OK"), Value(true))
                << ToText(test::Entry(*report, "Result", "Error"));
            const Ref<RecordSet> rows = As<RecordSet>(report->Get("Rs"));
            ASSERT_GT(rows->RowCount(), 3);
            int opened = 0;
            for (std::int32_t row = 0; row < rows->RowCount(); ++row) {
                rows->MoveFirst();
                rows->Move(row);
                const bool isTotal = rows->Field("FSumSort").int32() > 0;
                const bool nobody = asked.byParty && rows->Field(GetParam().partyField) == Value("");
                const std::int64_t amount = Cents(*rows, "FAmount"), settled = Cents(*rows, "FSettleAmount");
                if (isTotal || nobody) {
                    EXPECT_TRUE(report->Call("GetDetailReport", row).IsNothing()) << row;
                    continue;
                }
                const Amounts detail = DetailOf(report, row);
                EXPECT_EQ(detail.amount, amount) << row;
                EXPECT_EQ(detail.settled, settled) << row;
                ++opened;
            }
            EXPECT_GT(opened, 2);
        }
    }
}

TEST_P(CategoryTotalsOf, TheTotalIsThatOfTheDetail) {
    AccountSet set(test::SampleFile(3));
    for (const bool byParty : {false, true}) {
        Asked asked{.firstLevel = 1, .lastLevel = 2, .byParty = byParty};
        asked.plain.rightUser = "16";
        const auto filter = FilterOf(asked);
        std::int64_t detail = 0;
        for (const Ref<RecordSet> rows = GetParam().detail(set, *filter); !rows->Eof(); rows->Move(1)) {
            detail += Cents(*rows, "FAmount");
        }
        const Ref<RecordSet> rows = GetParam().summary(set, *filter);
        rows->Move(rows->RowCount() - 1);
        EXPECT_EQ(Cents(*rows, "FAmount"), detail);
    }
}

TEST_P(CategoryTotalsOf, OddCodesOpenTheirOwnBillsAndNoOthers) {
    BuiltFirm firm;
    const bool income = GetParam().kind == BillKind::OtherIncome;
    const char* const odd[] = {"9%", "9_", "9'", "9\"", "9", "99", "9[1]", "9-1", "9 1", "9;--"};
    std::int64_t id = 900000, amount = 1;
    for (const char* code : odd) {
        Statement item(firm.database(), "INSERT INTO t_Item VALUES(?,?,?,?,1,NULL,1,0)");
        const std::int64_t itemClass = ++id, party = ++id;
        item.With(itemClass, income ? item_class::kIncome : item_class::kExpense, code,
                  std::string("类") + code)
            .Run();
        item.With(party, income ? item_class::kCustomer : item_class::kSupplier, code,
                  std::string("户") + code)
            .Run();
        Bill bill{.kind = GetParam().kind, .day = 45500, .amount = amount};
        (income ? bill.customer : bill.supplier) = party;
        firm.AddLine(firm.Add(bill), 1, ClassLine{.itemClass = itemClass, .amount = amount});
        amount *= 2;
    }
    AccountSet set = firm.Open();
    const auto filter = FilterOf({.byParty = true});
    const Ref<RecordSet> rows = GetParam().summary(set, *filter);
    int opened = 0;
    for (; !rows->Eof(); rows->Move(1)) {
        if (rows->Field("FSumSort").int32() > 0) continue;
        const Value code = rows->Field("FTypeNumber"), party = rows->Field(GetParam().partyField);
        EXPECT_EQ(code, party);
        const Ref<RecordSet> detail = GetParam().detail(set, *Filter({{"BTypeIn", code},
                                                                      {"ETypeIn", code},
                                                                      {GetParam().firstParty, party},
                                                                      {GetParam().lastParty, party}}));
        ASSERT_EQ(detail->RowCount(), 1) << code.text();
        EXPECT_EQ(Cents(*detail, "FAmount"), Cents(*rows, "FAmount"));
        ++opened;
    }
    EXPECT_EQ(opened, static_cast<int>(std::size(odd)));
}

TEST_P(CategoryTotalsOf, AClassWhoseCategoryIsGoneStandsAtTheTop) {
    BuiltFirm firm(2);
    const bool income = GetParam().kind == BillKind::OtherIncome;
    const auto total = [&] {
        AccountSet set = firm.Open();
        const Ref<RecordSet> rows = GetParam().summary(set, *FilterOf({}));
        rows->Move(rows->RowCount() - 1);
        return Cents(*rows, "FAmount");
    };
    const std::int64_t before = total();
    Statement lose(firm.database(),
                   "UPDATE t_Item SET FParentID=4711 WHERE FItemClassID=? AND FNumber='01.002'");
    lose.With(income ? item_class::kIncome : item_class::kExpense).Run();
    EXPECT_EQ(total(), before);
}

TEST_P(CategoryTotalsOf, AFirmWithoutBillsHasItsClassesOnRequestAndNothingElse) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    EXPECT_TRUE(GetParam().summary(set, *FilterOf({}))->Eof());
    const auto idle = Rows(set, {.firstLevel = 1, .lastLevel = 2, .withIdle = true});
    EXPECT_GT(idle.size(), 5u);
    EXPECT_EQ(idle, Slow(SlowBooks(set), {.firstLevel = 1, .lastLevel = 2, .withIdle = true}));
}

TEST_P(CategoryTotalsOf, ForeignRightsAndLevelsWithoutAnEndAreRefused) {
    AccountSet set(test::SampleFile());
    const auto errorOf = [&](test::FilterEntries entries) {
        const auto error = test::ErrorOf([&] { GetParam().summary(set, *Filter(entries)); });
        return error ? error->description() : "";
    };
    EXPECT_EQ(errorOf({{"DataRightWhere", "1=1"}}), "无法识别的数据权限条件");
    EXPECT_EQ(errorOf({{"BLevel", "1"}, {"ELevel", "101"}}), "类别级次无效：1 至 101");
    EXPECT_EQ(errorOf({{"BLevel", "1"}, {"ELevel", "100"}}), "");
}

TEST_P(CategoryTotalsOf, ShortNumbersPlayNoPartForTheyOpenTheDetail) {
    AccountSet set(test::SampleFile());
    const Asked asked{.byParty = true};
    const auto filter = FilterOf(asked);
    filter->Put("bLongNumber", false);
    EXPECT_EQ(RowsOf(*GetParam().summary(set, *filter)), Rows(set, asked));
}

TEST(CategoryTotals, TheFieldsAreThoseOfTheColumns) {
    AccountSet set(test::SampleFile());
    const auto filter = Filter({{"BLevel", "2"}, {"ELevel", "3"}});
    EXPECT_EQ(test::FieldsOf(*IncomeSummary(set, *filter)),
              "FCustNumber FCustName FTypeName2 FTypeName3 FReceiveAmount FSettleAmount FAmount FTypeNumber "
              "FSumSort ");
    EXPECT_EQ(
        test::FieldsOf(*ExpenseSummary(set, *filter)),
        "FSupplyNumber FSupplyName FTypeName2 FTypeName3 FReceiveAmount FSettleAmount FAmount FTypeNumber "
        "FSumSort ");
}

}  // namespace
}  // namespace qor
