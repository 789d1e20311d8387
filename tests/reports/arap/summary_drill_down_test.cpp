// From a row of a summary to the detail of its party.
#include <gmock/gmock.h>

#include "reports/arap/summary.h"
#include "support/scheme_user.h"

namespace qor {
namespace {

using test::Entry;
using test::Log;
using test::SchemeUser;
using test::Shown;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct Summaries {
    std::string_view report, party, field, detail, includes;
};

constexpr Summaries kSummaries[] = {
    {"Rpt10503", "Cust", "FCustNumber", "Rpt10502", "IncludeOtherR: 5, IncludeWT: 6, IncludeFL: 7, "},
    {"Rpt10531", "Cust", "FCustNumber", "Rpt10502", "IncludeOtherR: 5, IncludeWT: 6, IncludeFL: 7, "},
    {"Rpt10505", "Supply", "FSupplyNumber", "Rpt10504", "IncludeOtherP: 8, IncludeGJ: 9, "},
    {"Rpt10532", "Supply", "FSupplyNumber", "Rpt10504", "IncludeOtherP: 8, IncludeGJ: 9, "},
};

/// A summary that has run with a full filter, over rows of (party, FSumSort).
struct Ran : SchemeUser {
    Ran(const Summaries& row, std::vector<std::pair<Value, Value>> rows) : SchemeUser(row.report) {
        host.platform.Component("QORMArApRpt.Data")
            .Answers(
                "Get" + std::string(row.report) + "Data",
                [field = std::string(row.field), rows = std::move(rows)](Arguments) -> Value {
                    const auto set = MakeRef<ColumnarRecordSet>(std::vector<std::string>{field, "FSumSort"});
                    for (const auto& [party, sort] : rows) {
                        set->AddRow({party, sort});
                    }
                    return set;
                });
        SetFilter({{"BDate", ToDate("2020-09-01")},
                   {"EDate", "2020-09-30"},
                   {"BDeptNumber", "d1"},
                   {"EDeptNumber", "d2"},
                   {"BEmpNumber", "e1"},
                   {"EEmpNumber", "e2"},
                   {"BCustNumber", "c1"},
                   {"BSupplyNumber", "s1"},
                   {"NotShowBalZero", 4},
                   {"IncludeOtherR", 5},
                   {"IncludeWT", 6},
                   {"IncludeFL", 7},
                   {"IncludeOtherP", 8},
                   {"IncludeGJ", 9},
                   {"CheckState", 1},
                   {"UserID", 16},
                   {"UserFormula1", "f"},
                   {"GroupBy", row.field},
                   {"MultiLevel", 0}});
        report->Call("GetReportData");
    }
    Value Detail(std::int32_t row) { return report->Call("GetDetailReport", row); }
    Log& Boxes() {
        boxes.clear();
        for (const auto& box : host.platform.windows().boxes) {
            boxes.push_back(box.text + "/" + box.title + "/" + std::to_string(box.style));
        }
        return boxes;
    }
    Log boxes;
};

TEST(SummaryDrillDown, OpensTheDetailOfTheRowsParty) {
    for (const Summaries& row : kSummaries) {
        Ran summary(row, {{"other", 0}, {" P7 ", Value::Null()}});
        bool shown = false;
        summary.host.InDialog([&](Form&) { shown = true; });
        const Value detail = summary.Detail(1);
        ASSERT_FALSE(detail.IsNothing()) << row.report;
        EXPECT_FALSE(shown) << row.report;
        EXPECT_EQ(detail.object()->ClassName(), row.detail);
        EXPECT_EQ(Shown(detail.object()->Get("RptID")), std::string(row.detail.substr(3)));
        EXPECT_EQ(Entry(*detail.object(), "Filter", "E" + std::string(row.party) + "Number"), Value("P7"));
        EXPECT_EQ(Entry(*detail.object(), "Filter", "EEmpNumber"), Value("e2")) << row.report;
        EXPECT_EQ(Entry(*detail.object(), "Filter", "NotShowBillZero"), Value(std::int16_t{0})) << row.report;
        EXPECT_EQ(Entry(*detail.object(), "Filter", "UserID"), Value(16)) << row.report;
        EXPECT_EQ(Entry(*detail.object(), "Property", "ShowFilter"), Value(-2)) << row.report;
        EXPECT_EQ(Entry(*detail.object(), "Result", "OK"), Value(true)) << row.report;
        EXPECT_FALSE(detail.object()->Get("Rs").IsNothing()) << row.report;
        EXPECT_THAT(summary.Boxes(), IsEmpty()) << row.report;
    }
}

TEST(SummaryDrillDown, TheServerGetsNoMoreThanTheRowSays) {
    for (const Summaries& row : kSummaries) {
        Ran summary(row, {{"P7", 0}});
        const Log log = summary.host.LogOf([&] { summary.Detail(0); });
        const std::string party(row.party);
        EXPECT_THAT(log, Contains("create QORArApRpt." + std::string(row.detail))) << row.report;
        EXPECT_THAT(
            log,
            Contains("call QORMArApRpt.Data.Get" + std::string(row.detail) +
                     "Data(\"UserID=16;UserName=demo;\", &{BDate: #2020-09-01#, EDate: \"2020-09-30\", B" +
                     party + "Number: \"P7\", E" + party +
                     "Number: \"P7\", BDeptNumber: \"d1\", EDeptNumber: \"d2\", BEmpNumber: \"e1\", "
                     "EEmpNumber: \"e2\", NotShowBalZero: 4, NotShowBillZero: \"0\", " +
                     std::string(row.includes) + "CheckState: 1, DataRightWhere: \"\"})"))
            << row.report;
    }
}

TEST(SummaryDrillDown, TotalsAndRowsWithoutAPartyOpenNothing) {
    const std::pair<Value, Value> rows[] = {
        {"P7", 1}, {"P7", 0.5}, {"P7", "2"}, {"", 0}, {Value::Null(), 0}, {Value::Null(), Value::Null()},
    };
    for (const Summaries& row : kSummaries) {
        for (const auto& opened : rows) {
            Ran summary(row, {opened});
            const Log log = summary.host.LogOf([&] { EXPECT_TRUE(summary.Detail(0).IsNothing()); });
            EXPECT_THAT(log, IsEmpty()) << row.report << " " << Shown(opened.first);
        }
    }
}

TEST(SummaryDrillDown, ARowOfBlanksIsAParty) {
    Ran summary(kSummaries[0], {{"  ", 0}});
    const Value detail = summary.Detail(0);
    ASSERT_FALSE(detail.IsNothing());
    EXPECT_EQ(Entry(*detail.object(), "Filter", "BCustNumber"), Value(""));
}

/// The detail's data call fails from now on.
void FailTheDetail(Ran& summary, const Summaries& row) {
    summary.host.platform.Component("QORMArApRpt.Data")
        .Raises("Get" + std::string(row.detail) + "Data", Error(-5, "Server", "没有权限"));
}

TEST(SummaryDrillDown, ADetailWithoutDataIsHandedOverOnceItsDialogHasConfirmed) {
    for (const Summaries& row : kSummaries) {
        Ran summary(row, {{"P7", 0}});
        FailTheDetail(summary, row);
        const Value detail = summary.Detail(0);
        ASSERT_FALSE(detail.IsNothing()) << row.report;
        EXPECT_TRUE(detail.object()->Get("Rs").IsNothing()) << row.report;
        EXPECT_EQ(Entry(*detail.object(), "Result", "ErrorSource"), Value("Server")) << row.report;
        EXPECT_THAT(summary.Boxes(), IsEmpty()) << row.report;
    }
}

TEST(SummaryDrillDown, AFailingDetailWithoutADialogSaysWhyAndOpensNothing) {
    for (const Summaries& row : kSummaries) {
        Ran summary(row, {{"P7", 0}});
        FailTheDetail(summary, row);
        summary.host.platform.makeSchemeFrame = nullptr;
        EXPECT_TRUE(summary.Detail(0).IsNothing()) << row.report;
        EXPECT_THAT(summary.Boxes(), ElementsAre("没有权限/信息提示/64")) << row.report;
    }
}

TEST(SummaryDrillDown, ARowThatIsNotThereSaysWhy) {
    Ran summary(kSummaries[0], {{"P7", 0}});
    EXPECT_TRUE(summary.Detail(5).IsNothing());
    EXPECT_EQ(summary.Boxes().size(), 1u);

    SchemeUser fresh("Rpt10505");
    EXPECT_TRUE(fresh.report->Call("GetDetailReport", 0).IsNothing());
    EXPECT_EQ(fresh.host.platform.windows().boxes.at(0).text, Describe(Automation::ObjectNotSet));
    EXPECT_EQ(fresh.host.platform.windows().boxes.at(0).title, "信息提示");
}

}  // namespace
}  // namespace qor
