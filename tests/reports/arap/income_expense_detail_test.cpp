// The income and expense detail, as a host drives it.
#include "reports/arap/income_expense_detail.h"

#include <gmock/gmock.h>

#include "support/scheme_user.h"

namespace qor {
namespace {

using test::Columns;
using test::ControlOf;
using test::Log;
using test::Person;
using test::SchemeUser;
using test::Shown;
using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(IncomeExpenseDetail, SaysWhatItIs) {
    EXPECT_EQ(Shown(SchemeUser("Rpt10501").report->Get("Property")),
              "{Name: \"收支明细表\", RptProperty: int16(1)}");
}

TEST(IncomeExpenseDetail, OneAccountHasABalanceAndADataMemberOfItsOwn) {
    for (const bool oneAccount : {false, true}) {
        SchemeUser user("Rpt10501");
        user.SetFilter({{"AcctNumber", oneAccount ? "1001" : ""}});
        const Log log = user.host.LogOf([&] { user.report->Call("GetReportData"); });
        EXPECT_THAT(log, testing::Contains(testing::StartsWith(
                             oneAccount ? "call QORMArApRpt.Data.GetRpt10501DataRollUp(\"UserID=16;"
                                        : "call QORMArApRpt.Data.GetRpt10501Data(\"UserID=16;")));
        Log rows = {"\"日期$\" \"\" \"1\" \"FDate\" int16(1) False",
                    "\"单据号$\" \"\" \"1\" \"FBillNo\" int16(1) False",
                    "\"单据类型$\" \"\" \"1\" \"FBillTypeName\" int16(1) False",
                    "\"收入$\" \"\" \"6\" \"FInAmount\" int16(1) False",
                    "\"支出$\" \"\" \"6\" \"FOutAmount\" int16(1) False"};
        if (oneAccount) rows.push_back("\"账户余额$\" \"\" \"6\" \"FBalanceAmount\" int16(1) False");
        rows.insert(rows.end(), {"\"摘要$\" \"\" \"1\" \"FExplanation\" int16(1) False",
                                 "\"往来单位$\" \"\" \"1\" \"FName\" int16(1) False",
                                 "\"部门$\" \"\" \"1\" \"FDeptName\" int16(1) False",
                                 "\"业务员$\" \"\" \"1\" \"FEmpName\" int16(1) False"});
        EXPECT_THAT(Columns(*user.report), ElementsAreArray(rows));
    }
}

TEST(IncomeExpenseDetail, ReadsTheMessageFirstThenTheRightsThenTheLongNumber) {
    SchemeUser user("Rpt10501");
    user.host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    user.host.platform.Component("QOREBCGLView.GLData").Answers("GetAuthItemClassList", "1");
    user.SetFilter({});
    Log order;
    for (const std::string& line : user.host.LogOf([&] { user.report->Call("GetReportData"); })) {
        if (line.find("NeedAutorized") != std::string::npos || line.find("QORMArApRpt") != std::string::npos)
            order.push_back(line);
    }
    EXPECT_THAT(
        order,
        ElementsAre("create QORMArApRpt.Data",
                    "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                    "call QORMArApRpt.Data.GetRpt10501Data(\"UserID=16;UserName=demo;\", &{DataRightWhere: "
                    "\" (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) \", bLongNumber: True})",
                    "release QORMArApRpt.Data"));
}

TEST(IncomeExpenseDetail, ItsFilterNamesTheReportSoThatTheEmployeeIsAHandler) {
    SchemeUser user("Rpt10501");
    user.Filter([](Person& person) { person.Text("txtItem(3)", "7"); });
    EXPECT_EQ(user.FilterValue("RptID"), Value(std::int16_t{10501}));
    user.report->Call("GetReportData");
    const Ref<Vector> title = As<Vector>(user.report->Get("Title"));
    ASSERT_EQ(title->Count(), 2);
    EXPECT_EQ(Shown(title->Item(1)), "{FCaption: \"部门代码[全部]\", FIndex: int16(0)}");
    EXPECT_EQ(Shown(title->Item(2)), "{FCaption: \"经手人代码从[7]到[]\", FIndex: int16(1)}");
}

TEST(IncomeExpenseDetail, SaysTheCaptionsOfItsBoxes) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"ChkIncludePurchase", "包括现款采购"},
        {"ChkIncludeSale", "包括现款销售"},
        {"ChkIncludeReceive", "包括收款单"},
        {"ChkIncludePay", "包括付款单"},
        {"chkIncludeXSFL", "包括销售返利单"},
        {"chkIncludeCGFL", "包括采购返利单"},
        {"chkIncludeBank", "包括银行存取款单"},
        {"lblStatus", "单据状态："},
        {"Label5", "（包含）"},
        {"Label8", "结算账户:"},
        {"lblFrom", "日期范围:"},
        {"lblTo", "至"},
        {"chkPrintByPage", "分页打印"},
        {"ChkShowDetail", "包括货品明细项"},
        {"ChkShowCheckBill", "包括核销单"},
        {"chkIncludeGJ", "包括估价业务"},
        {"chkNotShowBalZero", "余额为零不显示"},
        {"chkNotShowBillZero", "发生额为零不显示"},
    };
    SchemeUser user("Rpt10501");
    user.Show([&](Person& person) {
        for (const auto& [control, caption] : rows) {
            EXPECT_EQ(person.Caption(control), caption);
        }
    });
}

TEST(IncomeExpenseDetail, ApplicationType1ClosesTheGapOfTheBankBox) {
    SchemeUser user("Rpt10501", 1);
    user.Filter([](Person& person) {
        EXPECT_FALSE(person.Sees("fraBillStatus"));
        const Bounds& pay = person.Any("ChkIncludePay").bounds();
        const Bounds& purchase = person.Any("ChkIncludePurchase").bounds();
        EXPECT_EQ(std::pair(pay.left, pay.top), std::pair(3440, 225));
        EXPECT_EQ(std::pair(purchase.left, purchase.top), std::pair(3440, 600));
    });
    EXPECT_EQ(user.FilterValue("IncludeBank"), Value(std::int16_t{0}));
}

TEST(IncomeExpenseDetail, ASchemeCanStillSetTheHiddenBankBox) {
    SchemeUser user("Rpt10501", 1);
    user.Keep(10501, {{"IncludeBank", 1}});
    user.Filter([](Person& person) { person.schemeFrame().LoadSavedScheme("kept"); });
    EXPECT_EQ(user.FilterValue("IncludeBank"), Value(std::int16_t{1}));
    user.Filter();
    EXPECT_EQ(user.FilterValue("IncludeBank"), Value(std::int16_t{0}));
}

TEST(IncomeExpenseDetail, ApplicationType4HasRebatesInTradeAlone) {
    for (const std::int32_t appType : {1, 2, 4}) {
        for (const std::int32_t industry : {0, 3}) {
            SchemeUser user("Rpt10501", appType);
            user.host.platform.Bag().Put("IndustryType", industry);
            user.Show([&](Person& person) {
                for (const char* box : {"chkIncludeXSFL", "chkIncludeCGFL"}) {
                    EXPECT_EQ(person.Sees(box), appType != 4 || industry == 0) << appType << " " << industry;
                }
                user.host.platform.Bag().Put("IndustryType", 0);
                person.form().Activate();
                EXPECT_TRUE(person.Sees("chkIncludeXSFL"));
            });
        }
    }
}

}  // namespace
}  // namespace qor
