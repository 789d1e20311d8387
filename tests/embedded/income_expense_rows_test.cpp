#include "embedded/income_expense_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "embedded/record_rows.h"
#include "embedded/sample_fixture.h"
#include "embedded/slow_books.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::Filter;
using test::PlainFilter;
using test::RowsOf;
using test::SlowBooks;

const std::string kOfUser16 = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";

/// One side of the books under test: the report and its slow counterpart.
struct Case {
    const char* name;
    BillKind kind;
    Ref<RecordSet> (*report)(AccountSet&, const Dictionary&);
    const char* firstParty;
    const char* lastParty;
};

constexpr Case kSides[] = {
    {"income", BillKind::OtherIncome, IncomeDetail, "BCustNumber", "ECustNumber"},
    {"expense", BillKind::Expense, ExpenseDetail, "BSupplyNumber", "ESupplyNumber"},
};

class IncomeExpenseRowsOf : public ::testing::TestWithParam<Case> {
 protected:
    std::vector<std::string> Rows(const Ref<OrderedDictionary>& filter) {
        return RowsOf(*GetParam().report(set, *filter));
    }
    std::vector<std::string> Slow(const PlainFilter& filter) { return books.Detail(GetParam().kind, filter); }
    std::string ErrorWith(test::FilterEntries entries) {
        const auto error = test::ErrorOf([&] { Rows(Filter(entries)); });
        return error ? error->description() : "";
    }

    AccountSet set{test::SampleFile()};
    SlowBooks books{set};
};

INSTANTIATE_TEST_SUITE_P(BothSides, IncomeExpenseRowsOf, ::testing::ValuesIn(kSides),
                         [](const auto& side) { return std::string(side.param.name); });

TEST_P(IncomeExpenseRowsOf, AnEmptyFilterIsEverythingButVoidBillsAndDisabledClasses) {
    const auto rows = Rows(Filter({}));
    EXPECT_GT(rows.size(), 300u);
    EXPECT_EQ(rows, Slow({}));
}

TEST_P(IncomeExpenseRowsOf, DatesAreIncludedAndMayBeTextsOrDates) {
    const Date first = *DateFromCalendar(2024, 2, 1), last = *DateFromCalendar(2024, 5, 31);
    const auto slow = Slow({.firstDay = static_cast<std::int64_t>(first.serial),
                            .lastDay = static_cast<std::int64_t>(last.serial)});
    EXPECT_GT(slow.size(), 10u);
    EXPECT_EQ(Rows(Filter({{"DtpBDate", "2024-02-01"}, {"DtpEDate", "2024-05-31"}})), slow);
    EXPECT_EQ(Rows(Filter({{"DtpBDate", first}, {"DtpEDate", last}})), slow);
    EXPECT_EQ(Rows(Filter({{"DtpBDate", "2024-02-01"}, {"DtpEDate", Date{last.serial + 0.75}}})), slow)
        << "a time of day plays no part";
    EXPECT_EQ(Rows(Filter({{"DtpBDate", ""}, {"DtpEDate", Value::Null()}})), Slow({}));
}

TEST_P(IncomeExpenseRowsOf, ADateThatIsNoneIsAnError) {
    EXPECT_EQ(ErrorWith({{"DtpBDate", "yesterday"}}), "日期无效：yesterday");
}

TEST_P(IncomeExpenseRowsOf, TheCheckStateChoosesAuditedNotAuditedOrBoth) {
    for (const int state : {0, 1, 2}) {
        const auto slow = Slow({.checkState = state});
        EXPECT_GT(slow.size(), 5u) << state;
        EXPECT_EQ(Rows(Filter({{"CheckState", std::int32_t{state}}})), slow);
        EXPECT_EQ(Rows(Filter({{"CheckState", static_cast<std::int16_t>(state)}})), slow);
        EXPECT_EQ(Rows(Filter({{"CheckState", std::to_string(state)}})), slow);
    }
    EXPECT_EQ(ErrorWith({{"CheckState", std::int32_t{3}}}), "单据状态无效：3");
    EXPECT_EQ(ErrorWith({{"CheckState", std::int32_t{-1}}}), "单据状态无效：-1");
}

TEST_P(IncomeExpenseRowsOf, DisabledClassesComeOnlyWhenAskedFor) {
    const auto with = Rows(Filter({{"chkForbiddenTypeInclude", "1"}}));
    EXPECT_EQ(with, Slow({.withDisabled = true}));
    EXPECT_GT(with.size(), Slow({}).size());
    EXPECT_EQ(Rows(Filter({{"chkForbiddenTypeInclude", "0"}})), Slow({}));
}

TEST_P(IncomeExpenseRowsOf, EachCodeRangeIsOpenAtEitherEndAndHoldsWhatStandsBelowItsEnd) {
    const char* const partyFirst = GetParam().firstParty;
    const char* const partyLast = GetParam().lastParty;
    struct Keys {
        const char* first;
        const char* last;
        test::Codes PlainFilter::*codes;
    };
    const Keys keys[] = {{"BTypeIn", "ETypeIn", &PlainFilter::classes},
                         {partyFirst, partyLast, &PlainFilter::parties},
                         {"BDeptNumber", "EDeptNumber", &PlainFilter::departments},
                         {"BEmpNumber", "EEmpNumber", &PlainFilter::employees}};
    const test::Codes ranges[] = {{"01", "02"},
                                  {"", "01"},
                                  {"02", ""},
                                  {"01.002", "01.004"},
                                  {"01.004", "01.004"},
                                  {"02", "01"},
                                  {"0", "0"},
                                  {"", "zz"},
                                  {"003", "007"},
                                  {"02.01", "02"},
                                  {"01.004.01", "01.004.01"}};
    std::set<std::size_t> counts;
    for (const Keys& key : keys) {
        for (const test::Codes& range : ranges) {
            PlainFilter plain;
            plain.*key.codes = range;
            const auto slow = Slow(plain);
            counts.insert(slow.size());
            EXPECT_EQ(Rows(Filter({{key.first, range.first}, {key.last, range.last}})), slow)
                << key.first << " " << range.first << " to " << range.last;
            EXPECT_EQ(Rows(Filter({{key.first, " " + range.first + " "}, {key.last, range.last}})), slow);
        }
    }
    EXPECT_GT(counts.size(), 10u) << "the ranges must tell the rows apart";
}

TEST_P(IncomeExpenseRowsOf, HostileTextsAreCodesLikeAnyOther) {
    for (const char* text : {"' OR 1=1 --", "%", "_", "01%", "\"", "01'; DROP TABLE t_Bill; --", "?", "\\"}) {
        for (const char* key : {"BTypeIn", "ETypeIn", "BDeptNumber", "EEmpNumber"}) {
            PlainFilter plain;
            auto& codes = std::string_view(key).ends_with("TypeIn") ? plain.classes
                          : std::string_view(key) == "BDeptNumber"  ? plain.departments
                                                                    : plain.employees;
            (key[0] == 'B' ? codes.first : codes.last) = text;
            EXPECT_EQ(Rows(Filter({{key, text}})), Slow(plain)) << key << " " << text;
        }
        EXPECT_EQ(Rows(Filter({{GetParam().firstParty, text}, {GetParam().lastParty, text}})).size(), 0u);
    }
    EXPECT_GT(Rows(Filter({})).size(), 300u) << "the bills are still there";
}

TEST_P(IncomeExpenseRowsOf, DataRightsLeaveTheAllowedPartiesAndTheRowsWithout) {
    const auto rows = Rows(Filter({{"DataRightWhere", kOfUser16}}));
    EXPECT_EQ(rows, Slow({.rightUser = "16"}));
    EXPECT_LT(rows.size(), Slow({}).size());
    EXPECT_GT(rows.size(), 50u);
    EXPECT_EQ(Rows(Filter({{"DataRightWhere", ""}})), Slow({}));
    EXPECT_EQ(Rows(Filter({{"DataRightWhere", kOfUser16 + " And " + kOfUser16}})), rows);
}

TEST_P(IncomeExpenseRowsOf, AForeignRightClauseIsRefused) {
    EXPECT_EQ(ErrorWith({{"DataRightWhere", "1=1"}}), "无法识别的数据权限条件");
    EXPECT_EQ(
        ErrorWith({{"DataRightWhere", " (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) "}}),
        "数据权限条件的表别名不符：o");
}

TEST_P(IncomeExpenseRowsOf, ShortNumbersAreTheLastPartOfACode) {
    const Ref<RecordSet> rows = GetParam().report(set, *Filter({{"bLongNumber", false}}));
    const Ref<RecordSet> whole = GetParam().report(set, *Filter({{"bLongNumber", true}}));
    ASSERT_EQ(rows->RowCount(), whole->RowCount());
    int parted = 0;
    for (; !rows->Eof(); rows->Move(1), whole->Move(1)) {
        const std::string number = whole->FieldAt(2).text(), shown = rows->FieldAt(2).text();
        EXPECT_TRUE(number.ends_with(shown) && shown.find('.') == std::string::npos)
            << number << " " << shown;
        parted += number != shown;
    }
    EXPECT_GT(parted, 50);
}

TEST_P(IncomeExpenseRowsOf, EveryKeyAtOnceOnSeveralFirms) {
    for (const std::uint64_t seed : {1u, 2u, 3u, 4u}) {
        AccountSet firm(test::SampleFile(seed));
        const PlainFilter plain{.firstDay = 44700,
                                .lastDay = 45700,
                                .classes = {"01", "04"},
                                .parties = {"", "05"},
                                .departments = {"01", "06"},
                                .employees = {"002", ""},
                                .checkState = 0,
                                .withDisabled = true,
                                .rightUser = "16"};
        const auto filter = Filter({{"DtpBDate", Date{44700}},
                                    {"DtpEDate", Date{45700}},
                                    {"BTypeIn", "01"},
                                    {"ETypeIn", "04"},
                                    {GetParam().firstParty, ""},
                                    {GetParam().lastParty, "05"},
                                    {"BDeptNumber", "01"},
                                    {"EDeptNumber", "06"},
                                    {"BEmpNumber", "002"},
                                    {"EEmpNumber", ""},
                                    {"chkForbiddenTypeInclude", "1"},
                                    {"CheckState", std::int16_t{0}},
                                    {"UserID", std::int32_t{16}},
                                    {"DataRightWhere", kOfUser16},
                                    {"bLongNumber", true}});
        const auto slow = SlowBooks(firm).Detail(GetParam().kind, plain);
        EXPECT_GT(slow.size(), 20u);
        EXPECT_EQ(RowsOf(*GetParam().report(firm, *filter)), slow) << "seed " << seed;
    }
}

TEST_P(IncomeExpenseRowsOf, AFirmWithoutBillsHasNoRows) {
    const test::TempFolder folder;
    MakeSample(folder / "empty", {.bills = 0});
    AccountSet empty(folder / "empty");
    EXPECT_TRUE(GetParam().report(empty, *Filter({}))->Eof());
}

TEST(IncomeExpenseRows, TheFieldsAreThoseOfTheColumns) {
    AccountSet set(test::SampleFile());
    const auto fields = [](const RecordSet& rows) {
        std::string names;
        for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
            names += rows.FieldName(i) + " ";
        }
        return names;
    };
    EXPECT_EQ(fields(*IncomeDetail(set, *Filter({}))),
              "FName FDate FCustNumber FCustName FAcctName FReceiveAmount FSettleAmount FAmount FEmpNumber "
              "FEmpName FDeptNumber FDeptName FBillNo FNote ");
    EXPECT_EQ(
        fields(*ExpenseDetail(set, *Filter({}))),
        "FName FDate FSupplyNumber FSupplyName FAcctName FReceiveAmount FSettleAmount FAmount FEmpNumber "
        "FEmpName FDeptNumber FDeptName FBillNo FNote ");
}

TEST(IncomeExpenseRows, EqualCodesAndNamesAreOneText) {
    AccountSet set(test::SampleFile());
    const Ref<RecordSet> rows = IncomeDetail(set, *Filter({}));
    std::map<std::string, std::set<const std::string*>> byName;
    for (; !rows->Eof(); rows->Move(1)) {
        byName[rows->Field("FName").text()].insert(&rows->Field("FName").text());
    }
    for (const auto& [name, places] : byName) {
        EXPECT_EQ(places.size(), 1u) << name;
    }
}

}  // namespace
}  // namespace qor
