#include "embedded/connection.h"

#include <gtest/gtest.h>

#include "embedded/sample_fixture.h"
#include "platform/conversions.h"
#include "support/raises.h"

namespace qor {
namespace {

TEST(Connection, RunsTheBatchOfTheStartPeriodAsItStands) {
    AccountSet set(test::SampleFile());
    const Ref<RecordSet> rows = ExecuteStatement(
        set,
        "Declare @Year int,@Period int \r\n"
        "SELECT @Year=CONVERT(INT,FValue) FROM t_SystemProfile WHERE FCategory='IC' AND FKey='StartYear'\n"
        "SELECT @Period = CONVERT(INT,FValue) FROM t_SystemProfile WHERE FCategory='IC' AND "
        "FKey='StartPeriod'\n"
        "SELECT CONVERT(DATETIME,FStartDate)as FStartDate,CONVERT(DATETIME,FEndDate)as FEndDate FROM "
        "t_PeriodDate \n"
        "WHERE FYear=@Year AND FPeriod=@Period \n");
    ASSERT_EQ(rows->RowCount(), 1);
    EXPECT_EQ(rows->Field("FStartDate"), Value(*DateFromCalendar(2022, 1, 1)));
    EXPECT_EQ(rows->Field("FEndDate"), Value(*DateFromCalendar(2022, 1, 31)));
}

TEST(Connection, RunsTheQuestionForTheDeepestCategoryAsItStands) {
    AccountSet set(test::SampleFile());
    const auto deepest = [&](int itemClass) {
        return ExecuteStatement(
                   set,
                   "select (max(FLevel) - 1) as MaxLevel from t_Item, t_ItemClass where "
                   "t_Item.FItemClassID = t_ItemClass.FItemClassID and t_ItemClass.FItemClassID=" +
                       std::to_string(itemClass) + "\n")
            ->Field("MaxLevel");
    };
    EXPECT_EQ(deepest(1), Value(std::int32_t{2}));
    EXPECT_EQ(deepest(8), Value(std::int32_t{1}));
    EXPECT_EQ(deepest(77), Value::Null());
}

TEST(Connection, FindsThePartiesThatAreCustomerAndSupplierAtOnce) {
    AccountSet set(test::SampleFile());
    const Ref<RecordSet> rows = ExecuteStatement(set, "select * from t_Organization where FMatchSupplyID<>0");
    ASSERT_FALSE(rows->Eof());
    EXPECT_NE(rows->Field("FMatchSupplyID"), Value(std::int32_t{0}));
    EXPECT_TRUE(rows->Field("FName").IsText());
    EXPECT_EQ(rows->Field("FCreditLimit").type(), Value::Type::Double);
}

TEST(Connection, ColumnsComeBackAsWhatTheyAre) {
    AccountSet set(test::SampleFile());
    const Ref<RecordSet> rows = ExecuteStatement(
        set, "SELECT FDate, FAmount, FBillNo, FBillID, 3000000000, 1.5, NULL FROM t_Bill WHERE FBillID=1;");
    Statement stored(set.database(), "SELECT FDate, FAmount, FBillNo FROM t_Bill WHERE FBillID=1");
    stored.Step();
    EXPECT_EQ(rows->FieldAt(0), Value(Date{static_cast<double>(stored.Int(0))}));
    EXPECT_EQ(rows->FieldAt(1), Value(static_cast<double>(stored.Int(1)) / 100));
    EXPECT_EQ(rows->FieldAt(2), Value(stored.Text(2)));
    EXPECT_EQ(rows->FieldAt(3), Value(std::int32_t{1}));
    EXPECT_EQ(rows->FieldAt(4), Value(3e9));
    EXPECT_EQ(rows->FieldAt(5), Value(1.5));
    EXPECT_EQ(rows->FieldAt(6), Value::Null());
}

TEST(Connection, NothingButASingleSelectRuns) {
    AccountSet set(test::SampleFile());
    for (const char* statement : {
             "",
             "   ",
             "DELETE FROM t_Bill",
             "PRAGMA user_version=2",
             "ATTACH 'x' AS y",
             "WITH a AS (SELECT 1) DELETE FROM t_Bill",
             "SELECT 1; DELETE FROM t_Bill",
             "SELECT 1; SELECT 2",
             "SELECT 1 -- more\n; SELECT 2",
             "INSERT INTO t_User SELECT 2,'x',1",
         }) {
        const auto error = test::ErrorOf([&] { ExecuteStatement(set, statement); });
        ASSERT_TRUE(error) << statement;
        EXPECT_EQ(error->description(), "内置账套只执行单条 SELECT 语句") << statement;
    }
}

TEST(Connection, WhatTheDatabaseRefusesIsToldInItsWords) {
    AccountSet set(test::SampleFile());
    const auto error = test::ErrorOf([&] { ExecuteStatement(set, "SELECT x FROM t_Nowhere"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), kAccountSetError);
    EXPECT_EQ(error->description(), "账套数据库出错：no such table: t_Nowhere");
}

}  // namespace
}  // namespace qor
