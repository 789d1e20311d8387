#include "reports/other/cash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/conversions.h"
#include "support/person.h"

namespace qor {
namespace {

using test::Columns;
using test::Entry;
using test::Log;
using test::Shown;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

/// What the two reports have of their own.
struct Kind {
    const char* report;
    const char* property;
    bool hasDetail;
    const char* filter;  // of a dialog confirmed as it comes up, without the bracket at its end
    std::vector<const char*> columns;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.report; }

class CashReport : public testing::TestWithParam<Kind> {
 protected:
    CashReport() { host.InDialog(test::Confirm); }

    test::ReportHost host;
    Ref<Object> report = host.Create(GetParam().report);
};

TEST_P(CashReport, TellsTheHostWhatItIs) {
    EXPECT_EQ(Shown(report->Get("Property")), GetParam().property);
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: False, Error: \"\"}");
    EXPECT_EQ(report->FindMember("GetDetailReport") != kNoMember, GetParam().hasDetail);
    EXPECT_NE(report->FindMember("AddDataRight"), kNoMember);
}

TEST_P(CashReport, AConfirmedDialogIsTheFilter) {
    report->Call("ShowFilter");
    EXPECT_EQ(Shown(report->Get("Filter")), std::string(GetParam().filter) + "}");
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: True, Error: \"\"}");
}

TEST_P(CashReport, AFetchWritesTheDataRightBehindTheSecondMessage) {
    report->Call("ShowFilter");
    const std::string data =
        "call QORMArApRpt.Data.Get" + std::string(GetParam().report) + "Data(\"UserID=16;UserName=demo;\", &";
    EXPECT_THAT(
        host.LogOf([&] { report->Call("GetReportData"); }),
        ElementsAre("pump", "pump",                             // ahead of the run, and the first message
                    "create QORMArApRpt.Data", "pump", "pump",  // the bar goes, the second message
                    "create QOREBSBase.SecurityInfo",
                    "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                    "release QOREBSBase.SecurityInfo", data + GetParam().filter + ", DataRightWhere: \"\"})",
                    "release QORMArApRpt.Data", "pump", "pump", "pump"));
    EXPECT_EQ(
        Shown(report->Get("Result")),
        "{OK: True, Error: \"\", RptTitleObject: {ShowDateDiff: \"BDate,2020-09-01|EDate,2020-09-15\"}}");
}

TEST_P(CashReport, HasTheseColumns) {
    report->Call("ShowFilter");
    report->Call("GetReportData");
    Log expected;
    for (const char* column : GetParam().columns) {
        expected.push_back(std::string(column) + " int16(1) False");
    }
    EXPECT_EQ(Columns(*report), expected);
}

TEST_P(CashReport, TheDataRightGoesWhereverThereIsADictionary) {
    host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    host.platform.Bag().Put("AuthrizeItemClassList", "1");
    const Value clause = " (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) ";
    const Ref<Dictionary> target = MakeRef<OrderedDictionary>();

    report->Call("AddDataRight");
    report->Call("AddDataRight", Value::Nothing());
    EXPECT_TRUE(report->Get("Filter").IsNothing());
    report->Call("AddDataRight", target);
    EXPECT_EQ(target->Get("DataRightWhere"), clause);

    target->Remove("DataRightWhere");
    report->Put("Filter", MakeRef<OrderedDictionary>());
    report->Call("AddDataRight", Value::Nothing());
    EXPECT_EQ(Entry(*report, "Filter", "DataRightWhere"), clause);
    EXPECT_FALSE(target->Lookup("DataRightWhere"));
    report->Call("AddDataRight", target);
    EXPECT_EQ(target->Get("DataRightWhere"), clause);
}

TEST_P(CashReport, AFailedFetchLeavesNoDataAndTellsTheSource) {
    report->Call("ShowFilter");
    report->Call("GetReportData");
    host.platform.Component("QORMArApRpt.Data")
        .Raises("Get" + std::string(GetParam().report) + "Data", Error(-7, "server", "no such period"));
    const Log log = host.LogOf([&] { report->Call("Refresh"); });
    EXPECT_THAT(Log(log.end() - 4, log.end()),
                ElementsAre("release QORMArApRpt.Data", "pump", "pump", "pump"));
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(false));
    EXPECT_EQ(Entry(*report, "Result", "Error"), Value("no such period"));
    EXPECT_EQ(Entry(*report, "Result", "ErrorSource"), Value("server"));
    EXPECT_TRUE(report->Get("Rs").IsNothing());
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cash, CashReport, testing::Values(
    Kind{"Rpt10528", "{Name: \"现金银行日记账\", RptProperty: int16(1)}", false,
         "{BDate: \"2020-09-01\", EDate: \"2020-09-15\", BAcctNumber: \"\", EAcctNumber: \"\", BDeptNumber: \"\", "
         "EDeptNumber: \"\", BEmpNumber: \"\", EEmpNumber: \"\", BillerName: \"\", NotShowBalZero: \"0\", "
         "NotShowBillZero: \"0\", CheckState: int16(0), IncludARAP: \"0\", UserID: 16, OK: True, RptID: int16(10528)",
         {R"("账户代码$" "" "1" "FAcctNumber")",
          R"("账户名称$" "" "1" "FAcctName")",
          R"("日期$" "" "1" "FDate")",
          R"("单据编号$" "" "1" "FBillNo")",
          R"("单据类型$" "" "1" "FBillTypeName")",
          R"("收入$" "" "6" "FInAmount")",
          R"("支出$" "" "6" "FOutAmount")",
          R"("账户余额$" "" "6" "FBalanceAmount")",
          R"("摘要$" "" "1" "FExplanation")",
          R"("往来单位$" "" "1" "FName")",
          R"("部门$" "" "1" "FDeptName")",
          R"("业务员$" "" "1" "FEmpName")"}},
    Kind{"Rpt10529", "{Name: \"现金银行总账\", RptProperty: int16(2), DetailRptID: int16(10528)}", true,
         "{BDate: \"2020-09-01\", EDate: \"2020-09-15\", BAcctNumber: \"\", EAcctNumber: \"\", AcctName: \"\", "
         "NotShowBalZero: \"0\", NotShowBillZero: \"0\", CheckState: int16(0), IncludARAP: \"0\", UserID: 16, "
         "OK: True, RptID: int16(10529)",
         {R"("账户代码$" "" "1" "FAcctNumber")",
          R"("账户名称$" "" "1" "FAcctName")",
          R"("期初余额$" "" "6" "FBeginAmount")",
          R"("本期收入$" "" "6" "FInAmount")",
          R"("本期支出$" "" "6" "FOutAmount")",
          R"("期末余额$" "" "6" "FEndAmount")"}}));
// clang-format on

/// A ledger with rows, whose journal is about to be opened.
class CashLedgerRow : public testing::Test {
 protected:
    CashLedgerRow() {
        host.InDialog(test::Confirm);
        host.platform.Component("QORMArApRpt.Data").Answers("GetRpt10529Data", [](Arguments) -> Value {
            const auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FAcctNumber", "FSumSort"});
            rows->AddRow({" 1001 ", 0});
            rows->AddRow({"1002", 1});
            rows->AddRow({"", 0});
            rows->AddRow({Value::Null(), 0});
            rows->AddRow({"1003", Value::Null()});
            return rows;
        });
        ledger->Call("ShowFilter");
        ledger->Call("GetReportData");
    }
    Value Open(std::int32_t row) { return ledger->Call("GetDetailReport", row); }
    std::string Told() {
        const auto& boxes = host.platform.windows().boxes;
        return boxes.empty() ? ""
                             : boxes.back().text + " / " + boxes.back().title + " / " +
                                   std::to_string(boxes.back().style);
    }

    test::ReportHost host;
    Ref<Object> ledger = host.Create("Rpt10529");
};

TEST_F(CashLedgerRow, OpensTheJournalOfItsAccount) {
    Value journal;
    const Log log = host.LogOf([&] { journal = Open(0); });
    EXPECT_EQ(ObjectIn(journal).ClassName(), "Rpt10528");
    EXPECT_EQ(ObjectIn(journal).Get("RptID"), Value(10528));
    EXPECT_EQ(Shown(ObjectIn(journal).Get("Filter")),
              "{BDate: \"2020-09-01\", EDate: \"2020-09-15\", BAcctNumber: \"1001\", EAcctNumber: \"1001\", "
              "BDeptNumber: \"\", EDeptNumber: \"\", BEmpNumber: \"\", EEmpNumber: \"\", BillerName: \"\", "
              "NotShowBalZero: \"0\", NotShowBillZero: \"0\", CheckState: int16(0), IncludARAP: \"0\", "
              "DataRightWhere: \"\"}");
    EXPECT_THAT(log, Contains("create QORArApRpt.Rpt10528"));
    EXPECT_EQ(Entry(ObjectIn(journal), "Result", "OK"), Value(true));
    EXPECT_EQ(Told(), "");
}

TEST_F(CashLedgerRow, CountsANullSumMarkAsAPlainRow) { EXPECT_TRUE(Open(4).IsObject() && Open(4).object()); }

TEST_F(CashLedgerRow, TotalsAndRowsWithoutAnAccountOpenNothing) {
    for (const std::int32_t row : {1, 2, 3}) {
        EXPECT_TRUE(Open(row).IsNothing()) << row;
    }
    EXPECT_EQ(Told(), "");
    EXPECT_THAT(host.platform.log(), Not(Contains("create QORArApRpt.Rpt10528")));
}

TEST_F(CashLedgerRow, AFailedJournalIsToldAndOpensNothing) {
    host.platform.Component("QORMArApRpt.Data")
        .Raises("GetRpt10528Data", Error(-7, "server", "no such account"));
    EXPECT_TRUE(Open(0).IsNothing());
    EXPECT_EQ(Told(), "no such account / 信息提示 / 64");
}

TEST_F(CashLedgerRow, AJournalThatFailsWithoutAWordResetsThePointerAndOpensNothing) {
    host.platform.Component("QORMArApRpt.Data").Raises("GetRpt10528Data", Error(-7, "server", ""));
    const Log log = host.LogOf([&] { EXPECT_TRUE(Open(0).IsNothing()); });
    EXPECT_THAT(log, Contains("pointer default"));
    EXPECT_EQ(Told(), "");
}

TEST_F(CashLedgerRow, ARowOutsideTheDataIsTold) {
    EXPECT_TRUE(Open(5).IsNothing());
    EXPECT_NE(Told(), "");
}

TEST_F(CashLedgerRow, ALedgerWithoutDataIsTold) {
    ledger = host.Create("Rpt10529");
    EXPECT_TRUE(Open(0).IsNothing());
    EXPECT_NE(Told(), "");
}

}  // namespace
}  // namespace qor
