// The receivable and the payable detail, as a host drives them.
#include "reports/arap/detail.h"

#include <gmock/gmock.h>

#include "support/scheme_user.h"

namespace qor {
namespace {

using test::Columns;
using test::Log;
using test::Person;
using test::SchemeUser;
using test::Shown;
using testing::ElementsAre;

constexpr std::string_view kDetails[] = {"Rpt10502", "Rpt10504"};

TEST(Detail, SaysWhatItIs) {
    const std::string head =
        "UserDefinedBillHead: {hasVect: True, prefixValue: \"FBillNo\", classType: \"\", DisplayFields: "
        "\"\"}}";
    EXPECT_EQ(Shown(SchemeUser("Rpt10502").report->Get("Property")),
              "{Name: \"应收账款明细表\", RptProperty: int16(0), " + head);
    EXPECT_EQ(Shown(SchemeUser("Rpt10504").report->Get("Property")),
              "{Name: \"应付账款明细表\", RptProperty: int16(0), " + head);
}

TEST(Detail, HasItsTenColumnsWhateverTheFilterAndTheApplicationTypeSay) {
    for (const std::int32_t appType : {1, 2, 4}) {
        for (const std::string_view report : kDetails) {
            const bool receivable = report == "Rpt10502";
            SchemeUser user(report, appType);
            user.SetFilter({{"MultiLevel", 1}, {"GroupBy", "FDeptNumber"}});
            user.report->Call("GetReportData");
            EXPECT_THAT(
                Columns(*user.report),
                ElementsAre("\"日期$\" \"\" \"1\" \"FDate\" int16(1) False",
                            "\"单据类型$\" \"\" \"1\" \"FBillTypeName\" int16(1) False",
                            "\"单据编号$\" \"\" \"1\" \"FBillNo\" int16(1) False",
                            "\"摘要$\" \"\" \"1\" \"FExplanation\" int16(1) False",
                            receivable ? "\"预收金额$\" \"\" \"6\" \"FPreAmount\" int16(1) False"
                                       : "\"预付金额$\" \"\" \"6\" \"FPreAmount\" int16(1) False",
                            receivable ? "\"应收金额$\" \"\" \"6\" \"FReceivableAmount\" int16(1) False"
                                       : "\"应付金额$\" \"\" \"6\" \"FPayableAmount\" int16(1) False",
                            receivable ? "\"实收金额$\" \"\" \"6\" \"FReceiveAmount\" int16(1) False"
                                       : "\"实付金额$\" \"\" \"6\" \"FPayAmount\" int16(1) False",
                            "\"期末余额$\" \"\" \"6\" \"FBalanceAmount\" int16(1) False",
                            "\"部门$\" \"\" \"1\" \"FDeptName\" int16(1) False",
                            "\"业务员$\" \"\" \"1\" \"FEmpName\" int16(1) False"))
                << report << " in application type " << appType;
        }
    }
}

TEST(Detail, WritesTheRightsAheadOfItsComponentAndNoLongNumber) {
    for (const std::string_view report : kDetails) {
        SchemeUser user(report);
        user.host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
        user.host.platform.Component("QOREBCGLView.GLData")
            .Answers("GetAuthItemClassList", report == "Rpt10502" ? "1" : "8");
        user.SetFilter({{"NotShowBillZero", "0"}});
        Log order;
        for (const std::string& line : user.host.LogOf([&] { user.report->Call("GetReportData"); })) {
            if (line.find("NeedAutorized") != std::string::npos ||
                line.find("QORMArApRpt") != std::string::npos)
                order.push_back(line);
        }
        EXPECT_THAT(
            order,
            ElementsAre("call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                        "create QORMArApRpt.Data",
                        "call QORMArApRpt.Data.Get" + std::string(report) +
                            "Data(\"UserID=16;UserName=demo;\", &{NotShowBillZero: \"0\", DataRightWhere: "
                            "\" (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) \"})",
                        "release QORMArApRpt.Data"))
            << report;
    }
}

TEST(Detail, TheUserFormulasGoIntoTheFilterAsTheyStand) {
    SchemeUser user("Rpt10502");
    user.Filter([](Person& person) {
        for (int i = 0; i < 6; ++i) {
            const std::string index = "(" + std::to_string(i) + ")";
            EXPECT_EQ(person.Caption("Label5" + index), "表头自定义" + std::to_string(i + 1) + ":");
            EXPECT_EQ(person.Caption("chk_Include" + index), "包含");
            person.Text("txt_UserFormula1" + index, " f" + std::to_string(i) + " ");
            person.Check("chk_Include" + index, static_cast<std::int16_t>(i % 2));
        }
        person.schemeFrame().ShowDefaults();  // which do not touch them
    });
    for (int i = 0; i < 6; ++i) {
        const std::string number = std::to_string(i + 1);
        EXPECT_EQ(user.FilterValue("UserFormula" + number), Value(" f" + std::to_string(i) + " "));
        EXPECT_EQ(user.FilterValue("CheckFormula" + number), Value(static_cast<std::int16_t>(i % 2)));
    }
}

TEST(Detail, OnlyTheReceivableDialogAsksForUserFormulas) {
    SchemeUser user("Rpt10504");
    user.Filter([](Person& person) { EXPECT_EQ(person.form().Find("Frame3"), nullptr); });
    EXPECT_EQ(user.FilterKeys().find("Formula"), std::string::npos);
}

TEST(Detail, HasNoDetailOfItsOwn) {
    for (const std::string_view report : kDetails) {
        EXPECT_EQ(SchemeUser(report).report->FindMember("GetDetailReport"), kNoMember) << report;
    }
}

TEST(Detail, SaysTheCaptionsOfItsBoxes) {
    const std::vector<std::pair<std::string_view, std::string_view>> receivable = {
        {"chkNotShowBalZero", "余额为零不显示"},
        {"chkNotShowBillZero", "发生额为零不显示"},
        {"chkIncludeOtherR", "包括其他应收"},
        {"chkIncludeWT", "包含委托代销未结算"},
        {"chkIncludeFL", "包括返利单"}};
    const std::vector<std::pair<std::string_view, std::string_view>> payable = {
        {"chkNotShowBalZero", "余额为零不显示"},
        {"chkNotShowBillZero", "发生额为零不显示"},
        {"chkIncludeOtherP", "包括其他应付"},
        {"chkIncludeGJ", "包括估价业务"},
        {"chkIncludeFL", "包括返利单"}};
    for (const std::string_view report : kDetails) {
        SchemeUser user(report);
        user.Show([&](Person& person) {
            for (const auto& [box, caption] : report == "Rpt10502" ? receivable : payable) {
                EXPECT_EQ(person.Caption(box), caption) << report;
            }
        });
    }
}

}  // namespace
}  // namespace qor
