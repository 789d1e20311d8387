// The statement of account, as a host drives it.
#include "reports/other/statement.h"

#include <gmock/gmock.h>

#include "support/scheme_user.h"

namespace qor {
namespace {

using test::Columns;
using test::Log;
using test::SchemeUser;
using test::Shown;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

Ref<RecordSet> Rows(std::string_view field) {
    return MakeRef<ColumnarRecordSet>(std::vector<std::string>{std::string(field)});
}

/// A server that answers pages and breaks beside the rows.
void AnswerPages(SchemeUser& user, std::string_view member = "GetRpt10506DataByCust") {
    user.host.platform.Component("QORMArApRpt.Data").Answers(member, [](Arguments a) -> Value {
        *a[2] = Rows("breaks");
        *a[3] = Rows("pages");
        return Rows("rows");
    });
}

std::string FirstField(const Value& rows) {
    return rows.IsNothing() ? "nothing" : As<RecordSet>(rows)->FieldName(0);
}

std::string Sets(SchemeUser& user) {
    return FirstField(user.report->Get("Rs")) + " " + FirstField(user.report->Get("MutilPageRs")) + " " +
           FirstField(user.report->Get("RowBreakRs"));
}

TEST(Statement, SaysWhatItIs) {
    SchemeUser user("Rpt10506");
    EXPECT_EQ(Shown(user.report->Get("Property")), "{Name: \"往来对账单\", RptProperty: int16(0)}");
    EXPECT_EQ(Shown(user.report->Get("Result")), "{OK: False, Error: \"\"}");
    EXPECT_EQ(Sets(user), "nothing nothing nothing");
    EXPECT_EQ(user.report->FindMember("AddDataRight"), kNoMember);
}

constexpr std::string_view kBills[] = {
    "\"日期$\" \"\" \"1\" \"FDate\" int16(1) False",
    "\"单据类型$\" \"\" \"1\" \"FBillTypeName\" int16(1) False",
    "\"单据编号$\" \"\" \"1\" \"FBillNo\" int16(1) False",
};
constexpr std::string_view kGoods[] = {
    "\"商品名称$\" \"\" \"1\" \"FItemName\" int16(1) False",
    "\"商品编码$\" \"\" \"1\" \"FItemNumber\" int16(1) False",
    "\"规格型号$\" \"\" \"1\" \"FModel\" int16(1) False",
    "\"辅助属性$\" \"\" \"1\" \"FAuxName\" int16(1) False",
    "\"批号$\" \"\" \"1\" \"FBatchNo\" int16(1) False",
    "\"基本单位$\" \"\" \"1\" \"FUnitName\" int16(0) False",
    "\"基本单位数量$\" \"\" \"2\" \"FQty\" int16(0) False",
    "\"基本单位单价$\" \"\" \"4\" \"FPrice\" int16(0) False",
    "\"单位$\" \"\" \"1\" \"FShowUnitName\" int16(1) False",
    "\"数量$\" \"\" \"2\" \"FShowQty\" int16(1) False",
    "\"单价$\" \"\" \"4\" \"FShowPrice\" int16(1) False",
};
constexpr std::string_view kReceived[] = {
    "\"应收金额$\" \"\" \"6\" \"FReceivableAmount\" int16(1) False",
    "\"收款金额+|\" \"实收金额\" \"6\" \"FRealAmount\" int16(1) False",
    "\"\" \"折扣额\" \"6\" \"FDiscountAmount\" int16(1) False",
    "\"期末应收$\" \"\" \"6\" \"FBalanceAmount\" int16(1) False",
};
constexpr std::string_view kPaid[] = {
    "\"应付金额$\" \"\" \"6\" \"FReceivableAmount\" int16(1) False",
    "\"付款金额+|\" \"实付金额\" \"6\" \"FRealAmount\" int16(1) False",
    "\"\" \"折扣额\" \"6\" \"FDiscountAmount\" int16(1) False",
    "\"期末应付$\" \"\" \"6\" \"FBalanceAmount\" int16(1) False",
};
constexpr std::string_view kTrailing[] = {
    "\"部门$\" \"\" \"1\" \"FDeptName\" int16(1) False",
    "\"业务员$\" \"\" \"1\" \"FEmpName\" int16(1) False",
    "\"发票号码$\" \"\" \"1\" \"FInvoiceNo\" int16(1) False",
};

TEST(Statement, ItsColumnsGoByTheGoodsTheSideAndTheLedger) {
    struct Case {
        Value showDetail, byItem;
        bool united, goods, customers;
    };
    const Case cases[] = {
        {std::int16_t{0}, std::int16_t{0}, true, false, true},
        {std::int16_t{1}, std::int16_t{1}, true, true, false},
        {"1", "0", false, true, true},
        {" 1x", "2", true, true, false},
        {"x", "", true, false, true},
        {Value(), Value(), true, false, true},
        {2, 7, false, false, false},
    };
    for (const Case& row : cases) {
        SchemeUser user("Rpt10506");
        user.host.platform.Bag().Put("GLAndICUnite", row.united);
        user.SetFilter({{"ShowDetail", row.showDetail}, {"ByItem", row.byItem}});
        user.report->Call("GetReportData");
        std::vector<std::string> columns;
        const auto add = [&](const auto& rows) {
            columns.insert(columns.end(), std::begin(rows), std::end(rows));
        };
        add(kBills);
        columns.push_back(std::string("\"凭证字号$\" \"\" \"1\" \"FVchNumber\" int16(1) ") +
                          (row.united ? "False" : "True"));
        if (row.goods) add(kGoods);
        columns.emplace_back("\"摘要$\" \"\" \"1\" \"FExplanation\" int16(1) False");
        if (row.customers) {
            add(kReceived);
        } else {
            add(kPaid);
        }
        add(kTrailing);
        EXPECT_THAT(Columns(*user.report), ElementsAreArray(columns)) << Shown(row.byItem);
    }
}

TEST(Statement, AsksTheSideThatTheFilterNames) {
    const std::pair<Value, std::string_view> rows[] = {
        {std::int16_t{0}, "ByCust"}, {std::int16_t{1}, "BySupply"}, {"0", "ByCust"}, {Value(), "ByCust"},
        {"-1", "BySupply"},
    };
    for (const auto& [byItem, side] : rows) {
        SchemeUser user("Rpt10506");
        user.SetFilter({{"ByItem", byItem}});
        const Log log = user.host.LogOf([&] { user.report->Call("GetReportData"); });
        EXPECT_THAT(log, Contains("call QORMArApRpt.Data.GetRpt10506Data" + std::string(side) +
                                  "(\"UserID=16;UserName=demo;\", &{ByItem: " + Shown(byItem) +
                                  ", DataRightWhere: \"\", bLongNumber: True}, &Nothing, &Nothing)"));
    }
}

TEST(Statement, LimitsTheSideToWhatTheUserMaySee) {
    for (const std::int16_t byItem : {std::int16_t{0}, std::int16_t{1}}) {
        SchemeUser user("Rpt10506");
        user.host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
        user.host.platform.Component("QOREBCGLView.GLData")
            .Answers("GetAuthItemClassList", byItem == 0 ? "1" : "8");
        user.SetFilter({{"ByItem", byItem}});
        user.report->Call("GetReportData");
        EXPECT_EQ(user.FilterValue("DataRightWhere"),
                  Value(" (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) "));
    }
}

TEST(Statement, PagesAndBreaksAreTheHostsOnlyWithPagedPrinting) {
    const std::pair<Value, std::string_view> rows[] = {
        {std::int16_t{1}, "rows pages breaks"},
        {"1", "rows pages breaks"},
        {2, "rows pages breaks"},
        {std::int16_t{0}, "rows nothing nothing"},
        {"0", "rows nothing nothing"},
        {Value(), "rows nothing nothing"},
    };
    for (const auto& [printByPage, sets] : rows) {
        SchemeUser user("Rpt10506");
        AnswerPages(user);
        user.SetFilter({{"PrintByPg", printByPage}});
        user.report->Call("GetReportData");
        EXPECT_EQ(Sets(user), sets) << Shown(printByPage);
        EXPECT_EQ(user.ResultValue("OK"), Value(true));
    }
}

TEST(Statement, HandsTheServerTheSetsThatItHolds) {
    SchemeUser user("Rpt10506");
    AnswerPages(user);
    user.SetFilter({{"PrintByPg", 1}});
    user.report->Call("GetReportData");
    const Log log = user.host.LogOf([&] { user.report->Call("Refresh"); });
    EXPECT_THAT(log, Contains(HasSubstr("bLongNumber: True}, &<ADODB.Recordset>, &<ADODB.Recordset>)")));
}

TEST(Statement, ReadsThePagesAgainWithoutAnyProgress) {
    SchemeUser user("Rpt10506");
    user.SetFilter({{"PrintByPg", 1}});
    user.report->Call("GetReportData");
    const Value title = user.report->Get("Title");
    AnswerPages(user);
    const Log log = user.host.LogOf([&] { EXPECT_TRUE(user.report->Call("GetMutilPageData").IsEmpty()); });
    EXPECT_EQ(Sets(user), "rows pages breaks");
    EXPECT_EQ(user.report->Get("Title"), title);
    EXPECT_THAT(log, Not(Contains("pump")));
    EXPECT_THAT(log, Contains("call QOREBCGLView.GLData.AccessCheck(int16(1006), int16(2), int16(4))"));
}

TEST(Statement, PagesBeforeTheFirstRunEndInTheErrorPath) {
    SchemeUser user("Rpt10506");
    AnswerPages(user);
    user.SetFilter({});
    const Log log = user.host.LogOf([&] { EXPECT_TRUE(user.report->Call("GetMutilPageData").IsEmpty()); });
    EXPECT_EQ(user.ResultValue("OK"), Value(false));
    EXPECT_EQ(user.ResultValue("Error"), Value(Describe(Automation::ObjectNotSet)));
    EXPECT_EQ(Sets(user), "nothing nothing nothing");
    EXPECT_EQ(log.back(), "release QORMArApRpt.Data");
}

TEST(Statement, PagesOfARefusedFilterAreNotRead) {
    SchemeUser user("Rpt10506");
    const Log log = user.host.LogOf([&] { user.report->Call("GetMutilPageData"); });
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(Shown(user.report->Get("Result")), "{OK: False, Error: \"\"}");
}

TEST(Statement, AFailedFetchLeavesNoRowsAndSaysWhy) {
    SchemeUser user("Rpt10506");
    AnswerPages(user);
    user.SetFilter({{"PrintByPg", 1}});
    user.report->Call("GetReportData");
    user.host.platform.Component("QORMArApRpt.Data")
        .Raises("GetRpt10506DataByCust", Error(-5, "Server", "没有权限"));
    user.report->Call("GetMutilPageData");
    EXPECT_EQ(Sets(user), "nothing pages breaks");
    EXPECT_EQ(user.ResultValue("OK"), Value(false));
    EXPECT_EQ(user.ResultValue("Error"), Value("没有权限"));
    EXPECT_EQ(user.ResultValue("ErrorSource"), Value("Server"));
}

TEST(Statement, SaysWhatItWasRestrictedTo) {
    SchemeUser user("Rpt10506");
    user.Filter([](test::Person& person) {
        person.Text("txtItem(0)", "01");
        person.Text("txtItem(5)", "e9");
    });
    user.report->Call("GetReportData");
    const Ref<Vector> title = As<Vector>(user.report->Get("Title"));
    Log captions;
    for (std::int32_t i = 1; i <= title->Count(); ++i) {
        captions.push_back(ToText(ObjectIn(title->Item(i)).Get("Value", "FCaption")));
    }
    EXPECT_THAT(captions, ElementsAre("往来单位从[01]到[]", "部门代码[全部]", "经手人代码从[]到[e9]"));
    EXPECT_EQ(Shown(user.ResultValue("RptTitleObject")),
              "{ShowDateDiff: \"BDate,2020-09-15|EDate,2020-09-15\"}");
}

}  // namespace
}  // namespace qor
