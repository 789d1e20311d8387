// From a row of the income or the expense summary to the detail report of its class.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/income/category_summary_twins.h"

namespace qor {
namespace {

using test::Entry;
using test::Shown;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kData = "QORMArApRpt.Data";

class CategorySummaryDetail : public test::SummaryTest {
 protected:
    /// A summary that has run: a row of party 01.07, one without a party, and a subtotal.
    void RunSummary(std::string_view grouped) {
        host.platform.Component(kData).Answers(
            "Get" + GetParam().reportClass + "Data", [](Arguments) -> Value {
                auto rows = MakeRef<ColumnarRecordSet>(
                    std::vector<std::string>{"FSumSort", GetParam().partyField, "FTypeNumber"});
                rows->AddRow({0, "01.07", "5.1"});
                rows->AddRow({0, Value::Null(), "5.2"});
                rows->AddRow({1, "01.07", "5"});
                rows->AddRow({Value::Null(), "", "5.3"});
                return rows;
            });
        const Ref<Dictionary> filter = host.platform.NewDictionary();
        filter->Put("DtpBDate", "2020-09-01");
        filter->Put("DtpEDate", "2020-09-15");
        filter->Put("BLevel", "1");
        filter->Put("ELevel", "1");
        filter->Put(GetParam().groupKey, grouped);
        filter->Put("chkForbiddenTypeInclude", "1");
        filter->Put("chkIncludeOther", "1");
        filter->Put("CheckState", std::int16_t{2});
        report = host.Create(GetParam().reportClass);
        report->Put("Filter", filter);
        report->Call("GetReportData");
        host.platform.log().clear();
    }
    Value Detail(std::int32_t row) { return report->Call("GetDetailReport", row); }
    /// The filter that a row's detail ran with.
    std::string FilterOf(std::int32_t row) { return Shown(ObjectIn(Detail(row)).Get("Filter")); }
    std::string ExpectedFilter(std::string_view party, std::string_view type) const {
        const std::string p = "\"" + std::string(party) + "\"", t = "\"" + std::string(type) + "\"";
        return "{DtpBDate: \"2020-09-01\", DtpEDate: \"2020-09-15\", " + GetParam().beginParty + ": " + p +
               ", " + GetParam().endParty + ": " + p + ", BTypeIn: " + t + ", ETypeIn: " + t +
               ", BDeptNumber: \"\", EDeptNumber: \"\", BEmpNumber: \"\", EEmpNumber: \"\", "
               "chkForbiddenTypeInclude: \"1\", CheckState: int16(2), DataRightWhere: \"\", bLongNumber: "
               "True}";
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, CategorySummaryDetail, testing::ValuesIn(test::kSummaryTwins),
                         [](const auto& twin) { return twin.param.reportClass; });

TEST_P(CategorySummaryDetail, ARowOpensTheDetailOfItsClassAndParty) {
    RunSummary("1");
    EXPECT_EQ(FilterOf(0), ExpectedFilter("01.07", "5.1"));
    EXPECT_THAT(host.platform.log(), Contains("create QORArApRpt." + GetParam().detailClass));
    EXPECT_THAT(Lines("box "), IsEmpty());
}

TEST_P(CategorySummaryDetail, TheDetailHasRunUnderItsOwnNumber) {
    RunSummary("1");
    const Value detail = Detail(0);
    EXPECT_EQ(ObjectIn(detail).ClassName(), GetParam().detailClass);
    EXPECT_EQ(ObjectIn(detail).Get("RptID"), Value(ToInt32(GetParam().detailClass.substr(3))));
    EXPECT_EQ(Entry(ObjectIn(detail), "Result", "OK"), Value(true));
    EXPECT_FALSE(ObjectIn(detail).Get("Rs").IsNothing());
}

TEST_P(CategorySummaryDetail, NotSummedByPartyTheDetailShowsAllParties) {
    RunSummary("0");
    EXPECT_EQ(FilterOf(0), ExpectedFilter("", "5.1"));
    EXPECT_EQ(FilterOf(1), ExpectedFilter("", "5.2"));
    EXPECT_EQ(FilterOf(3), ExpectedFilter("", "5.3")) << "a sort that is Null is no subtotal";
}

TEST_P(CategorySummaryDetail, SummedByPartyARowWithoutAPartyOpensNothing) {
    RunSummary("1");
    for (const std::int32_t row : {1, 3}) {
        EXPECT_TRUE(Detail(row).IsNothing()) << row;
    }
    EXPECT_THAT(host.platform.log(), IsEmpty());
}

TEST_P(CategorySummaryDetail, ASubtotalOpensNothing) {
    for (const std::string_view grouped : {"0", "1"}) {
        RunSummary(grouped);
        EXPECT_TRUE(Detail(2).IsNothing());
        EXPECT_THAT(host.platform.log(), IsEmpty());
    }
}

TEST_P(CategorySummaryDetail, TheSummaryKeepsItsFilterAndItsRows) {
    RunSummary("1");
    const std::string before = Shown(report->Get("Filter"));
    Detail(0);
    EXPECT_EQ(Shown(report->Get("Filter")), before);
    EXPECT_FALSE(report->Get("Rs").IsNothing());
}

TEST_P(CategorySummaryDetail, ADetailThatFailsWithAMessageIsTold) {
    RunSummary("1");
    host.platform.Component(kData).Raises("Get" + GetParam().detailClass + "Data",
                                          Error(-7, "Server", "没有权限"));
    EXPECT_TRUE(Detail(0).IsNothing());
    EXPECT_THAT(Lines("box "), ElementsAre("box \"没有权限\" \"信息提示\" 64"));
    EXPECT_THAT(Lines("pointer"), IsEmpty());
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(true)) << "the summary itself has not failed";
}

TEST_P(CategorySummaryDetail, ADetailThatFailsWithoutAMessageIsPassedOverInSilence) {
    RunSummary("1");
    report->Get("Filter").object()->Put("Value", "DtpBDate", Value::Nothing());
    EXPECT_TRUE(Detail(0).IsNothing());
    EXPECT_THAT(Lines("box "), IsEmpty());
    EXPECT_THAT(Lines("pointer"), ElementsAre("pointer default"));
}

TEST_P(CategorySummaryDetail, EveryOtherErrorIsToldToo) {
    const auto told = [this](std::int32_t row) {
        host.platform.log().clear();
        EXPECT_TRUE(Detail(row).IsNothing());
        return Lines("box ");
    };
    const auto box = [](Automation error) {
        return "box \"" + std::string(Describe(error)) + "\" \"信息提示\" 64";
    };
    RunSummary("1");
    EXPECT_THAT(told(9), ElementsAre(box(Automation::NoCurrentRecord)));
    report->Get("Filter").object()->Put("Value", GetParam().groupKey, "maybe");
    EXPECT_THAT(told(1), ElementsAre(box(Automation::TypeMismatch)));
    report = host.Create(GetParam().reportClass);
    EXPECT_THAT(told(0), ElementsAre(box(Automation::ObjectNotSet))) << "nothing has run yet";
}

}  // namespace
}  // namespace qor
