#include "reports/income/category_detail.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/plain_dialog_fixture.h"

namespace qor {
namespace {

using test::Columns;
using test::Entry;
using test::Keys;
using test::Log;
using test::Person;
using test::Shown;
using testing::ElementsAre;

struct Twin {
    std::string_view reportClass, name, dialog;
    std::string_view typeCaption, partyCaption, forbiddenCaption;
    std::int32_t typeClass, partyClass;
    std::string_view beginParty, endParty;
    std::string_view clause;  // of a user 16
    Log columns;              // for application type 2
    std::string settled;      // the settled amount for application type 1
};

void PrintTo(const Twin& twin, std::ostream* out) { *out << twin.reportClass; }

const Twin kTwins[] = {
    {"Rpt10522",
     "收入类别明细表",
     "frmFilter10522",
     "收入类别:",
     "客户代码:",
     "显示禁用收入类别",
     1121,
     1,
     "BCustNumber",
     "ECustNumber",
     " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
     {
         R"("收入类别$" "" "1" "FName" int16(1) False)",
         R"("日期$" "" "0" "FDate" int16(1) False)",
         R"("客户代码$" "" "1" "FCustNumber" int16(1) False)",
         R"("客户名称$" "" "1" "FCustName" int16(1) False)",
         R"("结算账户$" "" "1" "FAcctName" int16(1) False)",
         R"("应收金额$" "" "6" "FReceiveAmount" int16(0) False)",
         R"("收款结算$" "" "6" "FSettleAmount" int16(0) False)",
         R"("总金额$" "" "6" "FAmount" int16(1) False)",
         R"("经手人代码$" "" "1" "FEmpNumber" int16(0) False)",
         R"("经手人$" "" "1" "FEmpName" int16(0) False)",
         R"("部门代码$" "" "1" "FDeptNumber" int16(0) False)",
         R"("部门$" "" "1" "FDeptName" int16(0) False)",
         R"("单据编号$" "" "1" "FBillNo" int16(1) False)",
         R"("备注$" "" "1" "FNote" int16(1) False)",
     },
     R"("收款结算$" "" "6" "FSettleAmount" int16(1) False)"},
    {"Rpt10524",
     "支出类别明细表",
     "frmFilter10524",
     "支出类别:",
     "供应商代码:",
     "显示禁用支出类别",
     1122,
     8,
     "BSupplyNumber",
     "ESupplyNumber",
     " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
     {
         R"("支出类别$" "" "1" "FName" int16(1) False)",
         R"("日期$" "" "0" "FDate" int16(1) False)",
         R"("供应商代码$" "" "1" "FSupplyNumber" int16(1) False)",
         R"("供应商名称$" "" "1" "FSupplyName" int16(1) False)",
         R"("结算账户$" "" "1" "FAcctName" int16(1) False)",
         R"("应付金额$" "" "6" "FReceiveAmount" int16(0) False)",
         R"("费用结算$" "" "6" "FSettleAmount" int16(0) False)",
         R"("总金额$" "" "6" "FAmount" int16(1) False)",
         R"("经手人代码$" "" "1" "FEmpNumber" int16(0) False)",
         R"("经手人$" "" "1" "FEmpName" int16(0) False)",
         R"("部门代码$" "" "1" "FDeptNumber" int16(0) False)",
         R"("部门$" "" "1" "FDeptName" int16(0) False)",
         R"("单据编号$" "" "1" "FBillNo" int16(1) False)",
         R"("备注$" "" "1" "FNote" int16(1) False)",
     },
     R"("费用结算$" "" "6" "FSettleAmount" int16(1) False)"},
};

class CategoryDetail : public test::PlainDialogTest, public testing::WithParamInterface<Twin> {
 protected:
    void Run() { PlainDialogTest::Run(GetParam().reportClass, ConfirmAtOnce); }
    void Filter(std::function<void(Person&)> person) {
        PlainDialogTest::Filter(GetParam().reportClass, std::move(person));
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, CategoryDetail, testing::ValuesIn(kTwins),
                         [](const auto& twin) { return std::string(twin.param.reportClass); });

TEST_P(CategoryDetail, SaysWhatItIs) {
    report = host.Create(GetParam().reportClass);
    const std::string fields =
        "{hasVect: True, prefixValue: \"FBillNo\", classType: \"\", DisplayFields: \"\"}";
    EXPECT_EQ(Shown(report->Get("Property")), "{Name: \"" + std::string(GetParam().name) +
                                                  "\", RptProperty: int16(4), UserDefinedBillHead: " +
                                                  fields + ", UserDefinedBillEntry: " + fields + "}");
    EXPECT_EQ(report->FindMember("GetDetailReport"), kNoMember);
    EXPECT_EQ(report->FindMember("AddDataRight"), kNoMember);
}

TEST_P(CategoryDetail, TheDialogNamesItsBoxes) {
    Filter([](Person& user) {
        EXPECT_EQ(user.form().ClassName(), GetParam().dialog);
        EXPECT_EQ(user.Caption("Label4"), GetParam().typeCaption);
        EXPECT_EQ(user.Caption("Label3"), GetParam().partyCaption);
        EXPECT_EQ(user.Caption("Label7"), "部门代码:");
        EXPECT_EQ(user.Caption("Label12"), "经手人代码:");
        for (const std::string_view label : {"Label9", "Label8", "Label6", "Label10"}) {
            EXPECT_EQ(user.Caption(label), "至: ") << label;
        }
        EXPECT_EQ(user.Caption("chkForbiddenTypeInclude"), GetParam().forbiddenCaption);
        for (const std::string_view inner : {"cmbCheckState", "chkForbiddenTypeInclude"}) {
            EXPECT_EQ(user.Any(inner).container()->name(), "Frame1");
        }
        EXPECT_EQ(user.Any("txtItem(7)").container()->name(), "fraItem");
    });
}

TEST_P(CategoryDetail, PickerAndNameListServeTheSameClasses) {
    const std::string type = std::to_string(GetParam().typeClass),
                      party = std::to_string(GetParam().partyClass);
    Filter([&](Person& user) {
        EXPECT_THAT(ItemClasses(user), ElementsAre(type + " " + type, type + " " + type, party + " " + party,
                                                   party + " " + party, "2 2", "2 2", "3 3", "3 3"));
    });
}

TEST_P(CategoryDetail, TheFilterHoldsEveryKeyInOrder) {
    Run();
    const std::string party = std::string(GetParam().beginParty) + " " + std::string(GetParam().endParty);
    EXPECT_EQ(Keys(report->Get("Filter")), "DtpBDate DtpEDate BTypeIn ETypeIn " + party +
                                               " BDeptNumber EDeptNumber BEmpNumber EEmpNumber "
                                               "chkForbiddenTypeInclude CheckState UserID OK RptID "
                                               "DataRightWhere bLongNumber");
}

TEST_P(CategoryDetail, EmptyBoxesSendEmptyTexts) {
    Run();
    const std::int16_t number = static_cast<std::int16_t>(ToInt32(GetParam().reportClass.substr(3)));
    EXPECT_EQ(Entry(*report, "Filter", "DtpBDate"), Value("2020-09-01"));
    EXPECT_EQ(Entry(*report, "Filter", "DtpEDate"), Value("2020-09-15"));
    for (const std::string_view key :
         {std::string_view("BTypeIn"), std::string_view("ETypeIn"), GetParam().beginParty,
          GetParam().endParty, std::string_view("BDeptNumber"), std::string_view("EEmpNumber")}) {
        EXPECT_EQ(Entry(*report, "Filter", key), Value("")) << key;
    }
    EXPECT_EQ(Entry(*report, "Filter", "chkForbiddenTypeInclude"), Value("0"));
    EXPECT_EQ(Entry(*report, "Filter", "CheckState"), Value(std::int16_t{0}));
    EXPECT_EQ(Entry(*report, "Filter", "UserID"), Value(16));
    EXPECT_EQ(Entry(*report, "Filter", "OK"), Value(true));
    EXPECT_EQ(Entry(*report, "Filter", "RptID"), Value(number));
    EXPECT_EQ(Entry(*report, "Filter", "DataRightWhere"), Value(""));
    EXPECT_EQ(Entry(*report, "Filter", "bLongNumber"), Value(true));
}

TEST_P(CategoryDetail, TheReportNumberInTheFilterIsItsOwnWhateverTheIdentifier) {
    host.InDialog(test::Confirm);
    report = host.Create(GetParam().reportClass);
    report->Put("ExtFirter", 10999);
    report->Call("ShowFilter");
    EXPECT_EQ(Entry(*report, "Filter", "RptID"),
              Value(static_cast<std::int16_t>(ToInt32(GetParam().reportClass.substr(3)))));
}

TEST_P(CategoryDetail, ColumnsFollowTheApplicationType) {
    Run();
    EXPECT_EQ(Columns(*report), GetParam().columns);

    host.platform.Bag().Put("AppType", 1);
    report->Call("Refresh");
    Log first = GetParam().columns;
    first[5].replace(first[5].rfind("False"), 5, "True");
    first[6] = GetParam().settled;
    first[7].replace(first[7].rfind("False"), 5, "True");
    EXPECT_EQ(Columns(*report), first);
}

TEST_P(CategoryDetail, TheTitleHasTheDatesAndTheConditions) {
    Filter([](Person& user) {
        user.Text("txtItem(0)", "01");
        user.Text("txtItem(7)", "09");
        user.Click("cmdOK");
    });
    report->Call("GetReportData");
    EXPECT_EQ(Shown(Entry(*report, "Result", "RptTitleObject")),
              "{ShowDateDiff: \"DtpBDate,2020-09-01|DtpEDate,2020-09-15\"}");
    const Ref<Vector> title = As<Vector>(report->Get("Title"));
    ASSERT_EQ(title->Count(), 4);
    const std::string type(GetParam().typeCaption.substr(0, GetParam().typeCaption.size() - 1));
    EXPECT_EQ(Shown(title->Item(1)), "{FCaption: \"" + type + "从[01]到[]\", FIndex: int16(0)}");
    EXPECT_EQ(Entry(*report, "Property", "ShowInPreview"), Value(std::int16_t{1}));
}

TEST_P(CategoryDetail, TheFetchTalksToTheServerInThisOrder) {
    Filter(ConfirmAtOnce);
    ExpectUsualFetch("QORMArApRpt.Data", "Get" + std::string(GetParam().reportClass) +
                                             "Data(\"UserID=16;UserName=demo;\", &{DtpBDate: ");
}

TEST_P(CategoryDetail, TheUsersRightsLimitTheParties) {
    host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    host.platform.Component("QOREBCGLView.GLData")
        .Answers("GetAuthItemClassList", std::to_string(GetParam().partyClass));
    Run();
    EXPECT_EQ(Entry(*report, "Filter", "DataRightWhere"), Value(GetParam().clause));
}

TEST_P(CategoryDetail, RunsWithTheFilterOfADrillDown) {
    report = host.Create(GetParam().reportClass);
    const Ref<Dictionary> filter = host.platform.NewDictionary();
    filter->Put("DtpBDate", "2020-09-01");
    filter->Put("DtpEDate", "2020-09-15");
    filter->Put("BEmpNumber", "");
    filter->Put("EEmpNumber", "");
    report->Put("Filter", filter);
    report->Call("GetReportData");
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(true));
    EXPECT_EQ(As<Vector>(report->Get("Title"))->Count(), 1);
    EXPECT_EQ(Shown(As<Vector>(report->Get("Title"))->Item(1)),
              "{FCaption: \"业务员代码[全部]\", FIndex: int16(0)}");
}

}  // namespace
}  // namespace qor
