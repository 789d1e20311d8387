#include "report/column_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::RaisedBy;
using test::TestProcess;

class ColumnTable : public testing::Test {
 protected:
    ColumnTable() { SetHeaderList(test.process, list); }

    void SetAppType(std::int32_t appType) { test.platform.Bag().Put("AppType", appType); }
    Ref<Dictionary> Column(std::int32_t index) { return As<Dictionary>(list->Item(index)); }

    TestProcess test;
    Ref<Vector> list = test.platform.NewVector();
};

TEST_F(ColumnTable, DescribesAColumnBySixKeysInOrder) {
    AddHeader(test.process, "收款金额+|", "实收金额", "6", "FRealAmount", 1, 7);
    ASSERT_EQ(list->Count(), 1);
    EXPECT_EQ(
        test::Shown(list->Item(1)),
        R"({FColCaption: "收款金额+|", FHeadSecond: "实收金额", FColType: "6", FColName: "FRealAmount", )"
        R"(FVisible: int16(1), FForceHide: False})");
}

TEST_F(ColumnTable, KeepsTheTypeAsText) {
    for (const char* type : {"0", "1", "2", "4", "6", "999"}) {
        AddHeader(test.process, "日期$", "", type, "FDate", 1, 7);
        EXPECT_EQ(Column(list->Count())->Get("FColType"), Value(type));
    }
}

TEST_F(ColumnTable, ShowsAColumnForEveryNumberButZero) {
    const struct { std::int16_t visible, stored; } rows[] = {{-1, 1}, {1, 1}, {2, 1}, {0, 0}};
    for (const auto& row : rows) {
        AddHeader(test.process, "日期$", "", "0", "FDate", row.visible, 7);
        EXPECT_EQ(Column(list->Count())->Get("FVisible"), Value(row.stored)) << row.visible;
    }
}

TEST_F(ColumnTable, ForcesAColumnHiddenUnlessAllBitsOfTheAppTypeAreInItsMask) {
    const struct {
        std::int32_t appType;
        std::int16_t mask;
        bool forceHide;
    } rows[] = {
        {1, 7, false}, {2, 7, false}, {4, 7, false}, {1, 6, true},     {2, 6, false},
        {4, 6, false}, {3, 6, true},  {6, 6, false}, {1, 0, true},     {2, 0, true},
        {4, 0, true},  {0, 0, false}, {8, 7, true},  {65538, 7, true},
    };
    for (const auto& row : rows) {
        SetAppType(row.appType);
        AddHeader(test.process, "日期$", "", "0", "FDate", 1, row.mask);
        EXPECT_EQ(Column(list->Count())->Get("FForceHide"), Value(row.forceHide))
            << row.appType << " " << row.mask;
    }
}

TEST_F(ColumnTable, TakesAppTypeTwoWithoutABag) {
    test.platform.bag = nullptr;
    AddHeader(test.process, "日期$", "", "0", "FDate", 1, 2);
    AddHeader(test.process, "日期$", "", "0", "FDate", 1, 1);
    EXPECT_EQ(Column(1)->Get("FForceHide"), Value(false));
    EXPECT_EQ(Column(2)->Get("FForceHide"), Value(true));
}

TEST_F(ColumnTable, KeepsAGroupAndItsFollowersInOrder) {
    AddHeader(test.process, "期初余额+|+|", "预收", "6", "FBeginPre", 1, 7);
    AddHeader(test.process, "", "应收", "6", "FBegin", 1, 7);
    AddHeader(test.process, "", "小计", "6", "FBeginSum", 1, 7);
    const char* captions[] = {"期初余额+|+|", "", ""};
    const char* seconds[] = {"预收", "应收", "小计"};
    ASSERT_EQ(list->Count(), 3);
    for (std::int32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(Column(i + 1)->Get("FColCaption"), Value(captions[i]));
        EXPECT_EQ(Column(i + 1)->Get("FHeadSecond"), Value(seconds[i]));
    }
}

TEST_F(ColumnTable, FillsTheListThatWasNamedLast) {
    AddHeader(test.process, "日期$", "", "0", "FDate", 1, 7);
    const Ref<Vector> next = test.platform.NewVector();
    SetHeaderList(test.process, next);
    AddHeader(test.process, "单号$", "", "1", "FBillNo", 1, 7);
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(next->Count(), 1);
}

TEST_F(ColumnTable, MakesAListOfItsOwnWhereNoneIsNamed) {
    SetHeaderList(test.process, nullptr);
    AddHeader(test.process, "日期$", "", "0", "FDate", 1, 7);
    AddHeader(test.process, "单号$", "", "1", "FBillNo", 1, 7);
    EXPECT_EQ(list->Count(), 0);
    ASSERT_TRUE(test.process.currentColumnList);
    EXPECT_EQ(test.process.currentColumnList->Count(), 2);
}

TEST_F(ColumnTable, LetsGoOfItsListAlsoTwice) {
    SetHeaderList(test.process, nullptr);
    EXPECT_FALSE(test.process.currentColumnList);
    SetHeaderList(test.process, nullptr);
    EXPECT_FALSE(test.process.currentColumnList);
}

TEST_F(ColumnTable, AddsNothingWhereTheAppTypeCannotBeRead) {
    test.platform.Bag().Put("AppType", "two");
    EXPECT_EQ(RaisedBy([&] { AddHeader(test.process, "日期$", "", "0", "FDate", 1, 7); }),
              Automation::TypeMismatch);
    EXPECT_EQ(list->Count(), 0);
}

}  // namespace
}  // namespace qor
