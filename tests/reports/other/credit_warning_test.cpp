#include "reports/other/credit_warning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/report_host.h"

namespace qor {
namespace {

using test::Columns;
using test::Entry;
using test::Log;
using test::ReportHost;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

struct Twin {
    std::string reportClass, name, rightClass;
    Log columns;
};

void PrintTo(const Twin& twin, std::ostream* out) { *out << twin.reportClass; }

const Twin kTwins[] = {
    {
        .reportClass = "Rpt10507",
        .name = "客户信用预警表",
        .rightClass = "1",
        .columns =
            {
                R"("客户代码$" "" "1" "FCustNumber" int16(1) False)",
                R"("客户名称$" "" "1" "FCustName" int16(1) False)",
                R"("日期$" "" "1" "FDate" int16(1) False)",
                R"("单据编号$" "" "1" "FBillNo" int16(1) False)",
                R"("收款期限$" "" "1" "FDeadLine" int16(1) False)",
                R"("已超期(天)$" "" "6" "FOverDate" int16(1) False)",
                R"("即将到期(天)$" "" "6" "FSoonDate" int16(1) False)",
                R"("应收金额$" "" "6" "FAmount" int16(1) False)",
                R"("已收金额$" "" "6" "FCheckAmount" int16(1) False)",
                R"("未收金额$" "" "6" "FUnCheckAmount" int16(1) False)",
                R"("往来余额$" "" "6" "FCurComeGoBalance" int16(1) False)",
                R"("信用额度$" "" "6" "FCreditAmount" int16(1) False)",
                R"("超额比率$" "" "999" "FRate" int16(1) False)",
                R"("部门$" "" "1" "FDeptName" int16(1) False)",
                R"("业务员$" "" "1" "FEmpName" int16(1) False)",
            },
    },
    {
        .reportClass = "Rpt10508",
        .name = "供应商信用预警表",
        .rightClass = "8",
        .columns =
            {
                R"("供应商代码$" "" "1" "FSupplyNumber" int16(1) False)",
                R"("供应商名称$" "" "1" "FSupplyName" int16(1) False)",
                R"("日期$" "" "1" "FDate" int16(1) False)",
                R"("单据编号$" "" "1" "FBillNo" int16(1) False)",
                R"("付款期限$" "" "1" "FDeadLine" int16(1) False)",
                R"("已超期(天)$" "" "6" "FOverDate" int16(1) False)",
                R"("即将到期(天)$" "" "6" "FSoonDate" int16(1) False)",
                R"("应付金额$" "" "6" "FAmount" int16(1) False)",
                R"("已付金额$" "" "6" "FCheckAmount" int16(1) False)",
                R"("未付金额$" "" "6" "FUnCheckAmount" int16(1) False)",
                R"("往来余额$" "" "6" "FCurComeGoBalance" int16(1) False)",
                R"("信用额度$" "" "6" "FCreditAmount" int16(1) False)",
                R"("超额比率$" "" "999" "FRate" int16(1) False)",
                R"("部门名称$" "" "1" "FDeptName" int16(1) False)",
                R"("业务员名称$" "" "1" "FEmpName" int16(1) False)",
            },
    },
};

class CreditWarning : public testing::TestWithParam<Twin> {
 protected:
    std::string Member() const { return "Get" + GetParam().reportClass + "Data"; }
    void Run() {
        report->Call("ShowFilter");
        report->Call("GetReportData");
    }

    ReportHost host;
    Ref<Object> report = host.Create(GetParam().reportClass);
};

INSTANTIATE_TEST_SUITE_P(Twins, CreditWarning, testing::ValuesIn(kTwins),
                         [](const auto& twin) { return twin.param.reportClass; });

TEST_P(CreditWarning, SaysWhatItIs) {
    EXPECT_EQ(Shown(report->Get("Property")), "{Name: \"" + GetParam().name + "\", RptProperty: int16(0)}");
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: False, Error: \"\"}");
    EXPECT_EQ(report->FindMember("GetDetailReport"), kNoMember);
    EXPECT_EQ(report->FindMember("AddDataRight"), kNoMember);
}

TEST_P(CreditWarning, WithoutShowFilterNothingRuns) {
    EXPECT_THAT(host.LogOf([this] { report->Call("GetReportData"); }), IsEmpty());
    EXPECT_TRUE(report->Get("Header").IsNothing());
}

TEST_P(CreditWarning, ShowFilterOpensNoWindowAndIsReady) {
    EXPECT_THAT(host.LogOf([this] { report->Call("ShowFilter"); }), IsEmpty());
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: True, Error: \"\"}");
}

TEST_P(CreditWarning, TheResultItselfIsTheFilter) {
    report->Call("ShowFilter");
    EXPECT_EQ(report->Get("Filter").object(), report->Get("Result").object());
    report->Call("GetReportData");
    EXPECT_EQ(Shown(report->Get("Filter")), "{OK: True, Error: \"\", DataRightWhere: \"\"}");
    EXPECT_EQ(report->Get("Filter").object(), report->Get("Result").object());
}

TEST_P(CreditWarning, AFilterThatTheServerReplacesIsNoLongerTheResult) {
    host.platform.Component("QORMArApRpt.Data").Answers(Member(), [this](Arguments arguments) -> Value {
        const Ref<Dictionary> other = host.platform.NewDictionary();
        other->Put("Server", "was here");
        *arguments[1] = other;
        return MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FBillNo"});
    });
    Run();
    EXPECT_EQ(Shown(report->Get("Filter")), "{Server: \"was here\"}");
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: True, Error: \"\", DataRightWhere: \"\"}");
}

TEST_P(CreditWarning, TheFetchTalksToTheServerInThisOrder) {
    report->Call("ShowFilter");
    Log log = host.LogOf([this] { report->Call("GetReportData"); });
    EXPECT_EQ(log.at(0), "pump");
    std::erase(log, "pump");
    EXPECT_THAT(log, ElementsAre("create QOREBCGLView.GLData",
                                 "call QOREBCGLView.GLData.AccessCheck(int16(1006), int16(2), int16(4))",
                                 "create QOREBSBase.SecurityInfo",
                                 "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                                 "release QOREBSBase.SecurityInfo", "create QORMArApRpt.Data",
                                 "call QORMArApRpt.Data." + Member() +
                                     "(\"UserID=16;UserName=demo;\", "
                                     "&{OK: True, Error: \"\", DataRightWhere: \"\"})",
                                 "release QORMArApRpt.Data"));
}

TEST_P(CreditWarning, DescribesItsColumns) {
    Run();
    EXPECT_EQ(Columns(*report), GetParam().columns);
}

TEST_P(CreditWarning, HasNoTitle) {
    Run();
    EXPECT_TRUE(report->Get("Title").IsNothing());
    EXPECT_TRUE(Entry(*report, "Result", "RptTitleObject").IsEmpty());
    EXPECT_TRUE(Entry(*report, "Property", "ShowInPreview").IsEmpty());
}

TEST_P(CreditWarning, TheUsersRightsStandInFilterAndResult) {
    host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    host.platform.Bag().Put("AuthrizeItemClassList", GetParam().rightClass);
    Run();
    const Value clause = " (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) ";
    EXPECT_EQ(Entry(*report, "Filter", "DataRightWhere"), clause);
    EXPECT_EQ(Entry(*report, "Result", "DataRightWhere"), clause);
}

TEST_P(CreditWarning, AFailedFetchEndsInResult) {
    host.platform.Component("QORMArApRpt.Data").Raises(Member(), Error(-7, "Server", "没有权限"));
    Run();
    EXPECT_EQ(Shown(report->Get("Result")),
              "{OK: False, Error: \"没有权限\", DataRightWhere: \"\", ErrorSource: \"Server\"}");
    EXPECT_TRUE(report->Get("Rs").IsNothing());

    host.platform.Component("QORMArApRpt.Data").Answers(Member(), [](Arguments) -> Value {
        return MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FBillNo"});
    });
    Run();
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(true));
    EXPECT_FALSE(report->Get("Rs").IsNothing());
}

}  // namespace
}  // namespace qor
