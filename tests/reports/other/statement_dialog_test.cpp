// The filter of the statement of account.
#include "reports/other/statement_dialog.h"

#include <gmock/gmock.h>

#include "support/scheme_user.h"

namespace qor {
namespace {

using test::ControlOf;
using test::Entry;
using test::Log;
using test::Person;
using test::SchemeUser;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(StatementDialog, ConfirmedDefaultsAreWrittenInTheOrderOfTheTable) {
    SchemeUser user("Rpt10506");
    user.Filter();
    EXPECT_EQ(
        Shown(user.report->Get("Filter")),
        "{BDate: #2020-09-15#, EDate: #2020-09-15#, BItemNumber: \"\", EItemNumber: \"\", "
        "BDeptNumber: \"\", EDeptNumber: \"\", BEmpNumber: \"\", EEmpNumber: \"\", ShowDetail: int16(0), "
        "ShowCheckBill: int16(1), NotShowBalZero: int16(1), NotShowBillZero: int16(1), "
        "IncludeGJ: int16(0), PrintByPg: int16(0), ByItem: int16(0), NotShowZero: int16(0), UserID: 16, "
        "RptID: int16(10506), CheckState: int16(0), OK: True}");
    EXPECT_EQ(Entry(*user.report, "Property", "PrintByPg"), Value(std::int16_t{0}));
}

TEST(StatementDialog, SaysTheCaptionsOfItsControls) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"Label1", "起始日期:"},
        {"Label2", "截至日期:"},
        {"lblByItem", "核算项目:"},
        {"lblByCItem", "核算项目:"},
        {"Label3", "往来单位:"},
        {"Label4", "至: "},
        {"Label6", "部门代码:"},
        {"Label11", "经手人代码:"},
        {"Label10", "往来单位:"},
        {"lblFrom", "日期范围:"},
        {"lblStatus", "单据状态:"},
        {"ChkShowDetail", "包括货品明细项"},
        {"ChkShowCheckBill", "包括核销单"},
        {"chkIncludeGJ", "包括估价业务"},
        {"chkNotShowBalZero", "余额为零不显示"},
        {"chkNotShowBillZero", "发生额为零不显示"},
        {"chkNotShowZero", "无发生额且余额为零不显示"},
        {"chkPrintByPage", "分页打印"},
    };
    SchemeUser user("Rpt10506");
    user.Show([&](Person& person) {
        for (const auto& [control, caption] : rows) {
            EXPECT_EQ(person.Caption(control), caption);
        }
        for (const char* list : {"cboByItem", "cboByCItem"}) {
            EXPECT_THAT(ControlOf<DropDown>(person.form(), list).items(), ElementsAre("客户", "供应商"));
        }
    });
}

TEST(StatementDialog, ChoosingASideEmptiesItsCodesAndTurnsTheEstimates) {
    SchemeUser user("Rpt10506");
    user.Show([](Person& person) {
        EXPECT_FALSE(person.Any("chkIncludeGJ").enabled());
        person.Text("txtItem(0)", "01");
        person.Text("txtItem(1)", "02");
        person.Text("txtItem(2)", "d");
        person.Select("cboByItem", 1);
        EXPECT_EQ(person.Reads("txtItem(0)") + person.Reads("txtItem(1)"), "");
        EXPECT_EQ(person.Reads("txtItem(2)"), "d");
        EXPECT_TRUE(person.Check("chkIncludeGJ", 1));

        person.Text("txtItem(0)", "01");
        person.Select("cboByItem", 0);
        EXPECT_EQ(person.Reads("txtItem(0)"), "");
        EXPECT_EQ(person.Reads("chkIncludeGJ"), "0");
        EXPECT_FALSE(person.Check("chkIncludeGJ", 1));
    });
}

TEST(StatementDialog, TheShortPanelsSideDoesTheSameToItsOwnCodes) {
    SchemeUser user("Rpt10506");
    user.Filter([](Person& person) {
        person.Select("cboByItem", 1);
        person.Check("chkIncludeGJ", 1);
        person.Text("txtItem(0)", "s1");
        person.Text("txtItem(1)", "s2");
        person.schemeFrame().SwitchPanel(false);
        EXPECT_TRUE(person.Sees("cboByCItem"));
        EXPECT_EQ(person.Reads("cboByCItem"), "1");
        EXPECT_EQ(person.Reads("txtItem(6)") + person.Reads("txtItem(7)"), "s1s2");
        EXPECT_EQ(person.Reads("chkIncludeGJ"), "1");
        person.Select("cboByCItem", 0);
        EXPECT_EQ(person.Reads("txtItem(6)") + person.Reads("txtItem(7)"), "");
        EXPECT_EQ(person.Reads("chkIncludeGJ"), "0");
        EXPECT_EQ(person.Reads("txtItem(0)"), "s1");
        person.Text("txtItem(6)", " c1");
        person.Date("BEGDate", "2020-01-01");
    });
    EXPECT_EQ(user.FilterValue("BItemNumber"), Value(" c1"));
    EXPECT_EQ(user.FilterValue("EItemNumber"), Value(""));
    EXPECT_EQ(user.FilterValue("ByItem"), Value(std::int16_t{0}));
    EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2020-01-01")));
}

TEST(StatementDialog, ASchemeBringsItsSideAndItsCodesBack) {
    struct Case {
        Value byItem;
        std::string_view index, estimates;
    };
    const Case cases[] = {
        {0, "0", "0"}, {1, "1", "1"}, {5, "1", "1"}, {"0", "0", "0"}, {-1, "1", "1"}, {"x", "0", "1"},
    };
    for (const Case& row : cases) {
        SchemeUser user("Rpt10506");
        user.Keep(10506, {{"BItemNumber", "01"},
                          {"EItemNumber", "02"},
                          {"IncludeGJ", 1},
                          {"ByItem", row.byItem},
                          {"CheckState", 2}});
        user.Filter([&](Person& person) {
            EXPECT_EQ(person.Reads("cboByItem"), row.index) << Shown(row.byItem);
            EXPECT_EQ(person.Reads("chkIncludeGJ"), row.estimates) << Shown(row.byItem);
        });
        EXPECT_EQ(user.FilterValue("BItemNumber"), Value("01")) << Shown(row.byItem);
        EXPECT_EQ(user.FilterValue("EItemNumber"), Value("02")) << Shown(row.byItem);
        EXPECT_EQ(user.FilterValue("CheckState"), Value(std::int16_t{2})) << Shown(row.byItem);
    }
}

TEST(StatementDialog, WithoutASideNoCodesAreWritten) {
    SchemeUser user("Rpt10506");
    user.Filter([](Person& person) {
        person.Select("cboByItem", -1);
        person.Text("txtItem(0)", "01");
    });
    EXPECT_EQ(user.FilterKeys().find("ItemNumber"), std::string::npos);
    EXPECT_EQ(user.FilterValue("ByItem"), Value(std::int16_t{-1}));
}

TEST(StatementDialog, ThePickerButtonsGoByTheSideOfTheirPanel) {
    const std::int32_t classes[][8] = {{1, 1, 2, 2, 3, 3, 8, 8}, {8, 8, 2, 2, 3, 3, 1, 1}};
    for (const std::int32_t side : {0, 1}) {
        SchemeUser user("Rpt10506");
        std::int32_t asked = 0;
        user.host.platform.Component("QOREBCGLView.GLView").Answers("ItemLookUp", [&](Arguments a) {
            asked = ToInt32(*a[0]);
            return Value::Nothing();
        });
        user.Show([&](Person& person) {
            ControlOf<DropDown>(person.form(), "cboByItem").SetListIndex(side);
            ControlOf<DropDown>(person.form(), "cboByCItem").SetListIndex(1 - side);
            for (std::size_t i = 0; i < 8; ++i) {
                ControlOf<Button>(person.form(), "cmdItem(" + std::to_string(i) + ")").Click();
                EXPECT_EQ(asked, classes[side][i]) << side << " " << i;
            }
        });
    }
}

TEST(StatementDialog, ApplicationType1HasNoEstimatesAndHidesTheCheckState) {
    SchemeUser user("Rpt10506", 1);
    user.Filter([](Person& person) {
        EXPECT_FALSE(person.Sees("chkIncludeGJ"));
        EXPECT_FALSE(person.Sees("cmbCheckState"));
        person.Select("cboByItem", 1);
        ControlOf<CheckBox>(person.form(), "chkIncludeGJ").SetValue(1);
        person.form().Activate();
        EXPECT_EQ(person.Reads("chkIncludeGJ"), "0");
    });
    EXPECT_EQ(user.FilterValue("CheckState"), Value(std::int16_t{0}));
}

// The usage record of paged printing.
Log UsageOf(SchemeUser& user, const SchemeUser::Play& play, bool confirm = true) {
    Log usage;
    for (const std::string& line : user.host.LogOf([&] { confirm ? user.Filter(play) : user.Show(play); })) {
        if (line.find("FrameData") != std::string::npos) usage.push_back(line);
    }
    return usage;
}

std::vector<std::string> Record(std::string_view code) {
    return {"create ZEP_APFC.FrameData", "put ZEP_APFC.FrameData.PropString = \"UserID=16;UserName=demo;\"",
            "call ZEP_APFC.FrameData.WriteMGLog(\"C001C032\", \"" + std::string(code) + "\")",
            "release ZEP_APFC.FrameData"};
}

TEST(StatementDialog, PagedPrintingIsRecordedOnceItWasTouched) {
    const auto leave = [](Person&) {};
    SchemeUser user("Rpt10506");
    EXPECT_THAT(UsageOf(user, leave), IsEmpty());
    const auto tick = [](Person& person) { person.Check("chkPrintByPage", 1); };
    EXPECT_EQ(UsageOf(user, tick, false), Log{});  // cancelled
    EXPECT_EQ(UsageOf(user, leave), Record("RPT1050601"));
    EXPECT_EQ(Entry(*user.report, "Property", "PrintByPg"), Value(std::int16_t{1}));
    EXPECT_EQ(UsageOf(user, [](Person& person) { person.Check("chkPrintByPage", 0); }), Record("RPT1050602"));
    EXPECT_EQ(UsageOf(user, leave), Record("RPT1050602"));
    EXPECT_EQ(Entry(*user.report, "Property", "PrintByPg"), Value(std::int16_t{0}));
}

TEST(StatementDialog, AMissingUsageRecordDoesNotHoldTheConfirmation) {
    SchemeUser user("Rpt10506");
    user.host.platform.Remove("ZEP_APFC.FrameData");
    user.Filter([](Person& person) { person.Check("chkPrintByPage", 1); });
    EXPECT_EQ(user.ResultValue("OK"), Value(true));
    EXPECT_EQ(user.FilterValue("PrintByPg"), Value(std::int16_t{1}));
    EXPECT_THAT(user.host.platform.windows().boxes, IsEmpty());
}

TEST(StatementDialog, IsNotHandedTheReportsFilterAndKeepsItsOwnValues) {
    SchemeUser user("Rpt10506");
    user.SetFilter({{"BDeptNumber", "handed"}});
    user.Filter([](Person& person) {
        EXPECT_EQ(person.Reads("txtItem(2)"), "");
        person.Text("txtItem(0)", "mine");
    });
    user.Filter();
    EXPECT_EQ(user.FilterValue("BItemNumber"), Value("mine"));
}

}  // namespace
}  // namespace qor
