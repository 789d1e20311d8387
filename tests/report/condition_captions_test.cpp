#include "report/condition_captions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/conversions.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::TestProcess;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNoCaption = "(no caption)";

class ConditionCaptions : public testing::Test {
 protected:
    using Entries = std::vector<std::pair<std::string_view, Value>>;

    /// The captions of a filter with these entries; checks that the rows are numbered from 0.
    std::vector<std::string> Of(const Entries& entries) {
        const Ref<Dictionary> filter = test.platform.NewDictionary();
        for (const auto& [key, value] : entries) {
            filter->Put(key, value);
        }
        return Build(filter.get());
    }

    std::vector<std::string> Build(Dictionary* filter) {
        const Ref<Vector> rows = BuildConditionCaptions(test.process, filter, property);
        std::vector<std::string> captions;
        for (std::int32_t i = 1; i <= rows->Count(); ++i) {
            const Ref<Dictionary> row = As<Dictionary>(rows->Item(i));
            EXPECT_EQ(row->Get("FIndex"), Value(static_cast<std::int16_t>(i - 1)));
            captions.push_back(row->Lookup("FCaption") ? ToText(row->Get("FCaption")) : kNoCaption);
        }
        return captions;
    }

    /// The one caption of a filter that holds only a report number and two empty range keys, or "".
    std::string OfRange(std::int32_t report, std::string_view begin, std::string_view end) {
        const std::vector<std::string> captions = Of({{"RptID", report}, {begin, ""}, {end, ""}});
        EXPECT_LE(captions.size(), 1U) << report << " " << begin;
        return captions.empty() ? "" : captions.front();
    }

    TestProcess test;
    Ref<Dictionary> property;
};

TEST_F(ConditionCaptions, OfAnEmptyFilterAreNoneAndStillMarkThePreview) {
    EXPECT_THAT(Of({}), IsEmpty());
    ASSERT_TRUE(property);
    EXPECT_EQ(test::Shown(property), "{ShowInPreview: int16(1)}");
}

TEST_F(ConditionCaptions, KeepThePropertiesThatAreThere) {
    property = test.platform.NewDictionary();
    property->Put("Name", "收入类别明细表");
    const Ref<Dictionary> before = property;
    Of({});
    EXPECT_EQ(property, before);
    EXPECT_EQ(test::Shown(property), R"({Name: "收入类别明细表", ShowInPreview: int16(1)})");
}

TEST_F(ConditionCaptions, WithoutAFilterAreThoseOfGoodsAndStock) {
    EXPECT_THAT(Build(nullptr), ElementsAre("商品代码[全部]", "仓库代码[全部]"));
    EXPECT_TRUE(property);
}

TEST_F(ConditionCaptions, WriteNothingToTheFilter) {
    const Ref<Dictionary> filter = test.platform.NewDictionary();
    filter->Put("RptID", 10414);
    filter->Put("SumBy", "商品|FItemID");
    Build(filter.get());
    EXPECT_EQ(test::Shown(filter), R"({RptID: 10414, SumBy: "商品|FItemID"})");
}

TEST_F(ConditionCaptions, OfARangeNameItsEndsOrAllOfIt) {
    const struct {
        Value begin, end;
        const char* caption;
    } rows[] = {
        {"01", "09", "部门代码从[01]到[09]"},
        {"01", "", "部门代码从[01]到[]"},
        {"", "09", "部门代码从[]到[09]"},
        {"", "", "部门代码[全部]"},
        {"  ", " ", "部门代码[全部]"},
        {" 01 ", "  ", "部门代码从[ 01 ]到[  ]"},
        {1, 2.5, "部门代码从[1]到[2.5]"},
        {Value(), Value::Null(), "部门代码[全部]"},
        {"01", Value::Null(), "部门代码从[01]到[]"},
        {*DateFromCalendar(2020, 9, 1), "", "部门代码从[2020-09-01]到[]"},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(Of({{"BDeptNumber", row.begin}, {"EDeptNumber", row.end}}), ElementsAre(row.caption));
    }
}

TEST_F(ConditionCaptions, NeedBothKeysOfARange) {
    EXPECT_THAT(Of({{"BDeptNumber", "01"}}), IsEmpty());
    EXPECT_THAT(Of({{"EDeptNumber", "01"}}), IsEmpty());
}

TEST_F(ConditionCaptions, SkipAStatementThatFails) {
    const Value object = MakeRef<OrderedDictionary>();
    EXPECT_THAT(Of({{"BDeptNumber", object}, {"EDeptNumber", "09"}, {"BBatchNo", ""}, {"EBatchNo", ""}}),
                ElementsAre(kNoCaption, "批号[全部]"));
    EXPECT_THAT(Of({{"RptID", "abc"}, {"BDeptNumber", ""}, {"EDeptNumber", ""}}),
                ElementsAre("部门代码[全部]"));
    test.platform.Bag().Put("AppType", "two");
    EXPECT_THAT(Of({{"BDeptNumber", ""}, {"EDeptNumber", ""}}), ElementsAre("部门代码[全部]"));
}

TEST_F(ConditionCaptions, WordARangeByTheReport) {
    const struct {
        std::int32_t report;
        const char *begin, *end;
        const char* label;  // "" where the report has no such row
    } rows[] = {
        {0, "BTypeIn", "ETypeIn", "收入类别"},
        {10522, "BTypeIn", "ETypeIn", "收入类别"},
        {10524, "BTypeIn", "ETypeIn", "支出类别"},
        {0, "BItemNumber", "EItemNumber", "商品代码"},
        {10506, "BItemNumber", "EItemNumber", "往来单位"},
        {12015, "BItemNo", "EItemNo", "商品代码"},
        {12016, "BItemNo", "EItemNo", "商品代码"},
        {12015, "BItemNumber", "EItemNumber", ""},
        {12016, "BItemNumber", "EItemNumber", ""},
        {10506, "BItemNo", "EItemNo", ""},
        {0, "BCustNumber", "ECustNumber", "客户代码"},
        {10219, "BCustNumber", "ECustNumber", "供应商代码"},
        {10220, "BCustNumber", "ECustNumber", "供应商代码"},
        {0, "BDeptNumber", "EDeptNumber", "部门代码"},
        {0, "BEmpNumber", "EEmpNumber", "业务员代码"},
        {10502, "BEmpNumber", "EEmpNumber", "业务员代码"},
        {10501, "BEmpNumber", "EEmpNumber", "经手人代码"},
        {10506, "BEmpNumber", "EEmpNumber", "经手人代码"},
        {10522, "BEmpNumber", "EEmpNumber", "经手人代码"},
        {10524, "BEmpNumber", "EEmpNumber", "经手人代码"},
        {10413, "BEmpNumber", "EEmpNumber", ""},
        {0, "BStockNumber", "EStockNumber", "仓库代码"},
        {10354, "BStockNo", "EStockNo", "仓库代码"},
        {10354, "BStockNumber", "EStockNumber", ""},
        {0, "BStockNo", "EStockNo", ""},
        {0, "BSupplyNumber", "ESupplyNumber", "供应商代码"},
        {10229, "BSupply", "ESupply", "供应商代码"},
        {10229, "BSupplyNumber", "ESupplyNumber", ""},
        {10219, "BSupplyNumber", "ESupplyNumber", ""},
        {10220, "BSupplyNumber", "ESupplyNumber", ""},
        {0, "BSupply", "ESupply", ""},
        {0, "BAuxPropNumber", "EAuxPropNumber", "辅助属性"},
        {0, "BAuxNumber", "EAuxNumber", ""},
        {0, "BBatchNo", "EBatchNo", "批号"},
        {0, "BBillNumber", "EBillNumber", "订单编号"},
        {0, "BBillNo", "EBillNo", ""},
        {10351, "BBillNo", "EBillNo", "订单编号"},
        {10352, "BBillNo", "EBillNo", "订单编号"},
        {10357, "BBillNo", "EBillNo", "订单编号"},
        {10325, "BBillNo", "EBillNo", "订单编号"},
        {10227, "BBillNo", "EBillNo", "订单编号"},
        {10354, "BBillNo", "EBillNo", "单据编号"},
        {10354, "BBillNumber", "EBillNumber", ""},
        {10351, "BBillNumber", "EBillNumber", ""},
    };
    for (const auto& row : rows) {
        const std::string expected = *row.label ? std::string(row.label) + "[全部]" : "";
        EXPECT_EQ(OfRange(row.report, row.begin, row.end), expected) << row.report << " " << row.begin;
    }
}

TEST_F(ConditionCaptions, OfTheStockReportHaveOtherAuxiliaryKeys) {
    EXPECT_THAT(Of({{"RptID", 10422}, {"BAuxNumber", ""}, {"EAuxNumber", ""}}),
                ElementsAre("辅助属性[全部]", "汇总依据[商品]"));
    EXPECT_THAT(Of({{"RptID", 10422}, {"BAuxPropNumber", ""}, {"EAuxPropNumber", ""}}),
                ElementsAre("汇总依据[商品]"));
}

TEST_F(ConditionCaptions, TakeTheReportNumberInEveryNumericForm) {
    for (const Value& number : {Value(10501), Value(std::int16_t{10501}), Value("10501"), Value(10501.0)}) {
        EXPECT_THAT(Of({{"RptID", number}, {"BEmpNumber", ""}, {"EEmpNumber", ""}}),
                    ElementsAre("经手人代码[全部]"));
    }
    EXPECT_THAT(Of({{"BEmpNumber", ""}, {"EEmpNumber", ""}}), ElementsAre("业务员代码[全部]"));
}

TEST_F(ConditionCaptions, StandInTheirOrderWhateverTheFiltersOrder) {
    EXPECT_THAT(
        Of({{"SumBy", "客户"},     {"EBillNumber", ""},    {"BBillNumber", ""},    {"BBatchNo", ""},
            {"EBatchNo", ""},      {"BAuxPropNumber", ""}, {"EAuxPropNumber", ""}, {"BSupplyNumber", ""},
            {"ESupplyNumber", ""}, {"BStockNumber", ""},   {"EStockNumber", ""},   {"BEmpNumber", ""},
            {"EEmpNumber", ""},    {"BDeptNumber", ""},    {"EDeptNumber", ""},    {"BCustNumber", ""},
            {"ECustNumber", ""},   {"BItemNumber", ""},    {"EItemNumber", ""},    {"BTypeIn", ""},
            {"ETypeIn", ""}}),
        ElementsAre("收入类别[全部]", "商品代码[全部]", "客户代码[全部]", "部门代码[全部]",
                    "业务员代码[全部]", "仓库代码[全部]", "供应商代码[全部]", "辅助属性[全部]", "批号[全部]",
                    "订单编号[全部]", "汇总依据[客户]"));
}

TEST_F(ConditionCaptions, InAppTypeOneHaveNeitherAuxiliaryPropertyNorOrderNumber) {
    test.platform.Bag().Put("AppType", 1);
    EXPECT_EQ(OfRange(0, "BAuxPropNumber", "EAuxPropNumber"), "");
    EXPECT_EQ(OfRange(0, "BBillNumber", "EBillNumber"), "");
    EXPECT_EQ(OfRange(10351, "BBillNo", "EBillNo"), "");
    EXPECT_EQ(OfRange(10354, "BBillNo", "EBillNo"), "单据编号[全部]");
    EXPECT_EQ(OfRange(0, "BBatchNo", "EBatchNo"), "批号[全部]");
}

TEST_F(ConditionCaptions, OfTheStockReportNameItsDate) {
    const std::string goods = "汇总依据[商品]", printed = "打印日期[2020-09-15]";
    const auto of = [&](Entries entries) {
        entries.emplace_back("RptID", 10422);
        return Of(entries);
    };
    for (const Value& now :
         {Value(1), Value("1"), Value(-1), Value(true), Value(""), Value("abc"), Value(" 2 ")}) {
        EXPECT_THAT(of({{"OnTime", now}}), ElementsAre("日期[即时库存]", printed, goods)) << test::Shown(now);
    }
    for (const Value& later : {Value(0), Value("0"), Value(" 0 ")}) {
        EXPECT_THAT(of({{"OnTime", later}, {"EDate", " 2020-09-30 "}}),
                    ElementsAre("截止日期[2020-09-30]", printed, goods));
        EXPECT_THAT(of({{"OnTime", later}, {"EDate", "  "}}), ElementsAre(kNoCaption, printed, goods));
        EXPECT_THAT(of({{"OnTime", later}}), ElementsAre(goods));
    }
    EXPECT_THAT(of({{"EDate", "2020-09-30"}}), ElementsAre(goods));
    EXPECT_THAT(of({{"OnTime", 1},
                    {"BItemNumber", ""},
                    {"EItemNumber", ""},
                    {"BDeptNumber", ""},
                    {"EDeptNumber", ""}}),
                ElementsAre("日期[即时库存]", "商品代码[全部]", printed, "部门代码[全部]", goods));
}

TEST_F(ConditionCaptions, OfOtherReportsNeverNameADate) {
    EXPECT_THAT(Of({{"RptID", 10522}, {"OnTime", 1}, {"EDate", "2020-09-30"}, {"BDate", "2020-09-01"}}),
                IsEmpty());
}

TEST_F(ConditionCaptions, NameWhatIsSummedBy) {
    const std::string fifty(50, ' ');
    const struct {
        std::int32_t report;
        Value sumBy;
        const char* name;  // "" for no row
    } rows[] = {
        {0, "客户" + fifty + "|FCustID", "客户"},
        {0, "客户", "客户"},
        {0, " 客户 | a|b", "客户"},
        {0, "|FCustID", "(empty)"},
        {0, "a_b|c", "a_b"},
        {10901, "a_b|c", "a"},
        {10903, " a _b", "a"},
        {10902, "a_b", "a_b"},
        {0, "", ""},
        {0, "   ", ""},
        {0, Value(), ""},
        {0, Value::Null(), ""},
        {0, 3, "3"},
    };
    for (const auto& row : rows) {
        const std::vector<std::string> captions = Of({{"RptID", row.report}, {"SumBy", row.sumBy}});
        if (!*row.name) {
            EXPECT_THAT(captions, IsEmpty());
        } else {
            const std::string name = row.name == std::string("(empty)") ? "" : row.name;
            EXPECT_THAT(captions, ElementsAre("汇总依据[" + name + "]"));
        }
    }
}

TEST_F(ConditionCaptions, NameTheLevelsOfASummaryOverSeveral) {
    const struct {
        Entries entries;
        const char* caption;
    } rows[] = {
        {{{"MultiLevel", true}}, "汇总依据[客户(1-1级)]"},
        {{{"MultiLevel", 1}, {"MultiLevelBegin", "2"}, {"MultiLevelEnd", 4}}, "汇总依据[客户(2-4级)]"},
        {{{"MultiLevel", "True"}, {"MultiLevelBegin", " 2 "}}, "汇总依据[客户( 2 -1级)]"},
        {{{"MultiLevel", 0}, {"MultiLevelBegin", "2"}}, "汇总依据[客户]"},
        {{{"MultiLevel", ""}, {"MultiLevelBegin", "2"}}, "汇总依据[客户]"},
        {{{"MultiLevel", "perhaps"}}, "汇总依据[客户]"},
        {{{"MultiLevelBegin", "2"}}, "汇总依据[客户]"},
    };
    for (const auto& row : rows) {
        Entries entries = row.entries;
        entries.emplace_back("SumBy", "客户|FCustID");
        EXPECT_THAT(Of(entries), ElementsAre(row.caption));
    }
}

TEST_F(ConditionCaptions, OfTheStockReportSumByGoodsToo) {
    EXPECT_THAT(Of({{"RptID", 10422}, {"SumBy", "仓库|FStockID"}, {"MultiLevel", 1}, {"MultiLevelEnd", "3"}}),
                ElementsAre("汇总依据[仓库(1-3级)]", "汇总依据[商品(1-3级)]"));
}

TEST_F(ConditionCaptions, OfTheReceivableAndPayableReportsFollowTheirKeys) {
    const Entries ranges = {
        {"BDeptNumber", "01"}, {"EDeptNumber", "02"}, {"BEmpNumber", ""}, {"EEmpNumber", ""}};
    const auto with = [&](Entries more) {
        more.insert(more.end(), ranges.begin(), ranges.end());
        return more;
    };
    EXPECT_THAT(Of(with({{"RptID", 10501}, {"AcctNumber", "1001"}, {"BillerName", "demo"}})),
                ElementsAre("部门代码从[01]到[02]", "经手人代码[全部]"));
    EXPECT_THAT(Of(with({{"BCustNumber", ""}, {"ECustNumber", ""}, {"SumBy", "客户|F"}})),
                ElementsAre("客户代码[全部]", "部门代码从[01]到[02]", "业务员代码[全部]", "汇总依据[客户]"));
    EXPECT_THAT(
        Of(with({{"BSupplyNumber", ""}, {"ESupplyNumber", ""}, {"SumBy", "供应商|F"}})),
        ElementsAre("部门代码从[01]到[02]", "业务员代码[全部]", "供应商代码[全部]", "汇总依据[供应商]"));
}

}  // namespace
}  // namespace qor
