// The four summaries of receivables and payables, as a host drives them.
#include "reports/arap/summary.h"

#include <gmock/gmock.h>

#include "support/scheme_user.h"

namespace qor {
namespace {

using test::Columns;
using test::ControlOf;
using test::Entry;
using test::Log;
using test::Person;
using test::SchemeUser;
using test::Shown;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::string_view kSummaries[] = {"Rpt10503", "Rpt10505", "Rpt10531", "Rpt10532"};

std::string Row(std::string_view caption, std::string_view second, std::string_view type,
                std::string_view field, bool visible = true, bool forceHidden = false) {
    const auto quoted = [](std::string_view text) { return "\"" + std::string(text) + "\" "; };
    return quoted(caption) + quoted(second) + quoted(type) + quoted(field) +
           (visible ? "int16(1) " : "int16(0) ") + (forceHidden ? "True" : "False");
}

Log PartyColumns(bool customers) {
    const std::string party = customers ? "客户" : "供应商", field = customers ? "FCust" : "FSupply";
    return {Row(party + "内码$", "", "1", field + "Id", false, true),
            Row(party + "代码$", "", "1", field + "Number"), Row(party + "名称$", "", "1", field + "Name")};
}

Log FixedColumns(std::string_view report) {
    const bool customers = report == "Rpt10503" || report == "Rpt10531";
    const std::string arose = customers ? "应收" : "应付", paid = customers ? "收款" : "付款";
    const std::string suffix = customers ? "收" : "付";
    const std::string arising = customers ? "FReceivableAmount" : "FPayableAmount";
    const std::string paying = customers ? "FReceiveAmount" : "FPayAmount";
    Log rows = PartyColumns(customers);
    if (report == "Rpt10503" || report == "Rpt10505") {
        rows.insert(rows.end(),
                    {Row("期初余额$", "", "6", "FInitAmount"), Row("本期" + arose + "$", "", "6", arising),
                     Row("本期" + paid + "$", "", "6", paying), Row("期末余额$", "", "6", "FBalanceAmount")});
        return rows;
    }
    rows.insert(rows.end(),
                {Row("期初余额+|+|", "预" + suffix, "6", "FInitPreAmount"),
                 Row("", "应" + suffix, "6", "FInitSuppAmount"), Row("", "小计", "6", "FInitAmount"),
                 Row("本期" + arose + "$", "", "6", arising),
                 Row("本期" + paid + "+|+|", "预" + suffix, "6", "FCurPreAmount"),
                 Row("", "实" + suffix, "6", "FCurSuppAmount"), Row("", "小计", "6", paying),
                 Row("期末余额+|+|", "预" + suffix, "6", "FEndPreAmount"),
                 Row("", "应" + suffix, "6", "FEndSuppAmount"), Row("", "小计", "6", "FBalanceAmount")});
    return rows;
}

TEST(Summary, SaysWhatItIs) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"Rpt10503", "{Name: \"应收账款汇总表\", RptProperty: int16(2), DetailRptID: int16(10502)}"},
        {"Rpt10505", "{Name: \"应付账款汇总表\", RptProperty: int16(2), DetailRptID: int16(10504)}"},
        {"Rpt10531", "{Name: \"应收预收账款汇总表\", RptProperty: int16(2), DetailRptID: int16(10502)}"},
        {"Rpt10532", "{Name: \"应付预付账款汇总表\", RptProperty: int16(2), DetailRptID: int16(10504)}"},
    };
    for (const auto& [report, property] : rows) {
        SchemeUser user(report);
        EXPECT_EQ(Shown(user.report->Get("Property")), property) << report;
        EXPECT_EQ(user.report->Get("RptID"), Value(0)) << report;
        EXPECT_EQ(Shown(user.report->Get("Result")), "{OK: False, Error: \"\"}") << report;
    }
}

TEST(Summary, RunsFromTheRightsToTheDataWithoutTheLongNumber) {
    for (const std::string_view report : kSummaries) {
        SchemeUser user(report);
        user.SetFilter({{"BDate", "2020-09-01"}});
        const Log log = user.host.LogOf([&] { user.report->Call("GetReportData"); });
        Log calls;
        for (const std::string& line : log) {
            if (line != "pump") calls.push_back(line);
        }
        EXPECT_THAT(
            calls,
            ElementsAre(
                "create QOREBCGLView.GLData",
                "call QOREBCGLView.GLData.AccessCheck(int16(1006), int16(2), int16(4))",
                "create QOREBSBase.SecurityInfo",
                "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                "release QOREBSBase.SecurityInfo", "create QORMArApRpt.Data",
                "call QORMArApRpt.Data.Get" + std::string(report) +
                    "Data(\"UserID=16;UserName=demo;\", &{BDate: \"2020-09-01\", DataRightWhere: \"\"})",
                "release QORMArApRpt.Data"))
            << report;
        EXPECT_EQ(Shown(user.report->Get("Result")),
                  "{OK: True, Error: \"\", RptTitleObject: {ShowDateDiff: \"BDate,2020-09-01|EDate,\"}}");
        EXPECT_FALSE(user.report->Get("Rs").IsNothing());
    }
}

TEST(Summary, LimitsItsPartiesToWhatTheUserMaySee) {
    for (const std::string_view report : kSummaries) {
        const bool customers = report == "Rpt10503" || report == "Rpt10531";
        SchemeUser user(report);
        user.host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
        user.host.platform.Component("QOREBCGLView.GLData")
            .Answers("GetAuthItemClassList", customers ? "1" : "8");
        user.SetFilter({});
        user.report->Call("GetReportData");
        EXPECT_EQ(user.FilterValue("DataRightWhere"),
                  Value(" (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) "))
            << report;
    }
}

TEST(Summary, WithoutLevelsItHasItsFixedColumns) {
    for (const std::string_view report : kSummaries) {
        SchemeUser user(report);
        user.SetFilter({{"MultiLevel", 0}, {"MultiLevelBegin", 2}, {"MultiLevelEnd", 3}});
        user.report->Call("GetReportData");
        EXPECT_THAT(Columns(*user.report), ElementsAreArray(FixedColumns(report))) << report;
    }
}

Log WithLevelsAndGroup(std::initializer_list<int> levels, const Log& group, std::string_view report) {
    Log rows;
    for (const int level : levels) {
        const std::string n = std::to_string(level);
        rows.push_back(Row("类别级次" + n + "$", "", "1", "FItemLevel0" + n + "Name"));
    }
    rows.insert(rows.end(), group.begin(), group.end());
    const Log fixed = FixedColumns(report);
    rows.insert(rows.end(), fixed.begin(), fixed.end());
    return rows;
}

TEST(Summary, LevelsAndGroupStandAheadOfTheFixedColumns) {
    const Log department = {Row("部门代码$", "", "1", "FDeptNumber", false),
                            Row("部门$", "", "1", "FDeptName")};
    const Log employee = {Row("业务员代码$", "", "1", "FEmpNumber", false),
                          Row("业务员$", "", "1", "FEmpName")};
    struct Case {
        Value multiLevel, begin, end;
        std::string_view groupBy;
        std::initializer_list<int> levels;
        Log group;
    };
    const Case cases[] = {
        {std::int16_t{1}, "1", "2", "FDeptNumber", {1, 2}, department},
        {std::int16_t{1}, "1", "2", "FEmpNumber", {1, 2}, employee},
        {std::int16_t{1}, "2", "2", "party", {2}, {}},
        {std::int16_t{1}, "9", "11", "party", {9, 10, 11}, {}},
        {true, 3, 2, "FDeptNumber", {}, department},
        {std::int16_t{0}, std::int16_t{0}, std::int16_t{0}, "FDeptNumber", {}, {}},
        {std::int16_t{0}, "1", "2", "FDeptNumber", {}, department},
        {std::int16_t{0}, "1", "2", "", {}, {}},
        {Value(), Value(), Value(), "FEmpNumber", {}, {}},
    };
    for (const std::string_view report : kSummaries) {
        const bool customers = report == "Rpt10503" || report == "Rpt10531";
        for (const Case& row : cases) {
            SchemeUser user(report);
            const std::string_view party = customers ? "FCustNumber" : "FSupplyNumber";
            user.SetFilter({{"MultiLevel", row.multiLevel},
                            {"MultiLevelBegin", row.begin},
                            {"MultiLevelEnd", row.end},
                            {"GroupBy", row.groupBy == "party" ? party : row.groupBy}});
            user.report->Call("GetReportData");
            EXPECT_THAT(Columns(*user.report),
                        ElementsAreArray(WithLevelsAndGroup(row.levels, row.group, report)))
                << report << " " << row.groupBy;
        }
    }
}

TEST(Summary, ALevelThatIsNoNumberFailsTheFetchBeforeTheRightsAreAsked) {
    for (const char* key : {"MultiLevelBegin", "MultiLevelEnd", "MultiLevel"}) {
        SchemeUser user("Rpt10503");
        user.SetFilter({{key, "x"}});
        const Log log = user.host.LogOf([&] { user.report->Call("GetReportData"); });
        EXPECT_THAT(log, Each(testing::StrEq("pump"))) << key;
        EXPECT_EQ(user.ResultValue("OK"), Value(false)) << key;
        EXPECT_EQ(user.ResultValue("Error"), Value(Describe(Automation::TypeMismatch))) << key;
        EXPECT_EQ(user.ResultValue("ErrorSource"), Value("QORArApRpt")) << key;
        EXPECT_TRUE(user.report->Get("Header").IsNothing()) << key;
    }
}

TEST(Summary, ASecondRunHasTheColumnsOfItsOwnFilter) {
    SchemeUser user("Rpt10505");
    user.SetFilter({{"MultiLevel", 1}, {"MultiLevelBegin", 1}, {"MultiLevelEnd", 3}});
    user.report->Call("GetReportData");
    user.SetFilter({});
    user.report->Call("Refresh");
    EXPECT_THAT(Columns(*user.report), ElementsAreArray(FixedColumns("Rpt10505")));
}

TEST(Summary, RefreshWithoutAFilterFailsAndShowsTwoConditions) {
    SchemeUser user("Rpt10531");
    user.report->Call("Refresh");
    EXPECT_EQ(user.ResultValue("OK"), Value(false));
    EXPECT_EQ(user.ResultValue("Error"), Value(Describe(Automation::ObjectNotSet)));
    EXPECT_EQ(Entry(*user.report, "Result", "RptTitleObject").IsObject(), true);
    EXPECT_EQ(As<Vector>(user.report->Get("Title"))->Count(), 2);
}

TEST(Summary, SaysWhatItWasRestrictedTo) {
    const auto captions = [](Object& report) {
        Log texts;
        const Ref<Vector> title = As<Vector>(report.Get("Title"));
        for (std::int32_t i = 1; i <= title->Count(); ++i) {
            texts.push_back(ToText(ObjectIn(title->Item(i)).Get("Value", "FCaption")));
        }
        return texts;
    };
    SchemeUser receivable("Rpt10503");
    receivable.host.platform.Component("QORMAppConnection.AppConnection").Answers("Execute", [](Arguments) {
        const auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"MaxLevel"});
        rows->AddRow({Value(3)});
        return Value(rows);
    });
    receivable.Filter([](Person& person) {
        person.Text("txtItem(1)", "C9");
        person.Text("txtItem(2)", "D1");
        person.Check("chkMultiLevel", 1);
        person.Select("cboTotal", 1);
        person.Text("txtMultiLevelEnd", "2");
    });
    receivable.report->Call("GetReportData");
    EXPECT_THAT(captions(*receivable.report), ElementsAre("客户代码从[]到[C9]", "部门代码从[D1]到[]",
                                                          "业务员代码[全部]", "汇总依据[部门(1-2级)]"));

    SchemeUser payable("Rpt10532");
    payable.Filter();
    payable.report->Call("GetReportData");
    EXPECT_THAT(captions(*payable.report),
                ElementsAre("部门代码[全部]", "业务员代码[全部]", "供应商代码[全部]", "汇总依据[供应商]"));
}

// The group of category levels in the dialog.
TEST(Summary, TheGroupOfLevelsIsShownWhereItIsAskedFor) {
    for (const std::string_view report : kSummaries) {
        SchemeUser user(report);
        user.Show([&](Person& person) {
            EXPECT_FALSE(person.Sees("cboTotal")) << report;
            person.Check("chkMultiLevel", 1);
            EXPECT_TRUE(person.Sees("cboTotal")) << report;
            person.form().Activate();
            EXPECT_TRUE(person.Sees("cboTotal")) << report;
            person.schemeFrame().ShowDefaults();
            EXPECT_FALSE(person.Sees("cboTotal")) << report;
        });
    }
}

TEST(Summary, LevelsGoIntoTheFilterWhereTheyAreAskedFor) {
    SchemeUser user("Rpt10503");
    user.Filter([](Person& person) { EXPECT_EQ(person.Reads("txtMultiLevelBegin"), "1"); });
    EXPECT_EQ(user.FilterValue("MultiLevelBegin"), Value(std::int16_t{0}));
    EXPECT_EQ(user.FilterValue("MultiLevelEnd"), Value(std::int16_t{0}));
    user.Filter([](Person& person) { person.Check("chkMultiLevel", 1); });
    EXPECT_EQ(user.FilterValue("MultiLevelBegin"), Value("1"));
    EXPECT_EQ(user.FilterValue("MultiLevelEnd"), Value("1"));
    EXPECT_EQ(user.FilterValue("MultiLevel"), Value(std::int16_t{1}));
}

TEST(Summary, TheTotalRowAndTheWayOfSummingGoUnderBothTheirNames) {
    SchemeUser user("Rpt10505");
    user.Filter([](Person& person) {
        person.Check("chkMultiLevel", 1);
        person.Check("chkShowTotalRow", 1);
        person.Select("cboTotal", 2);
    });
    EXPECT_EQ(user.FilterValue("chkShowTotalRow"), Value(std::int16_t{1}));
    EXPECT_EQ(user.FilterValue("ShowTotalRow"), Value(std::int16_t{1}));
    EXPECT_EQ(user.FilterValue("cboTotal"), Value(std::int16_t{2}));
    EXPECT_EQ(user.FilterValue("GroupBy"), Value("FEmpNumber"));
    EXPECT_EQ(user.FilterValue("SumBy"), Value("业务员" + std::string(50, ' ') + "|FEmpNumber"));
}

TEST(Summary, MissingLevelsOfASchemeBecomeTheFirst) {
    SchemeUser user("Rpt10503");
    user.SetFilter({{"MultiLevel", 1}, {"cboTotal", 1}, {"MultiLevelEnd", 0}});
    user.Show([](Person& person) {
        EXPECT_EQ(person.Reads("cboTotal"), "1");
        EXPECT_EQ(person.Reads("txtMultiLevelBegin"), "1");
        EXPECT_EQ(person.Reads("txtMultiLevelEnd"), "1");
        EXPECT_TRUE(person.Sees("txtMultiLevelEnd"));
    });
}

}  // namespace
}  // namespace qor
