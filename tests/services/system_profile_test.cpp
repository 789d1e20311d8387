#include "services/system_profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/conversions.h"
#include "support/foreign.h"
#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::ErrorOf;
using test::RaisedBy;
using test::TestProcess;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;

constexpr const char* kData = "QOREBCGLView.GLData";
constexpr const char* kDataProfile = "QOREBCGLView.GLData.SystemProfile";
constexpr const char* kProfile = "QOREBSBase.SystemProfile";
constexpr const char* kConnection = "QORMAppConnection.AppConnection";

TEST(SystemProfile, HoldsItsServerObjects) {
    TestProcess test;
    SystemProfile& profile = test.process.systemProfile;
    EXPECT_EQ(&profile.GetGLData(), &profile.GetGLData());
    EXPECT_EQ(&profile.GetGLView(), &profile.GetGLView());
    EXPECT_EQ(&profile.GetSystemProfileObject(), &profile.GetSystemProfileObject());
    EXPECT_THAT(test.platform.log(), ElementsAre("create QOREBCGLView.GLData", "create QOREBCGLView.GLView",
                                                 "read QOREBCGLView.GLData.SystemProfile"));
}

TEST(SystemProfile, TriesAgainWhereAServerObjectCouldNotBeMade) {
    TestProcess test;
    test.platform.Remove("QOREBCGLView.GLView");
    EXPECT_EQ(RaisedBy([&] { test.process.systemProfile.GetGLView(); }), Automation::CannotCreate);
    test.platform.Component("QOREBCGLView.GLView");
    test.process.systemProfile.GetGLView();

    test.platform.Component(kData).Answers("SystemProfile", Value::Nothing());
    EXPECT_EQ(RaisedBy([&] { test.process.systemProfile.DisplayDeleted(); }), Automation::ObjectNotSet);
    test.platform.Component(kData).Answers("SystemProfile", test::Readable({{"GetSystemProfile", 0}}));
    EXPECT_FALSE(test.process.systemProfile.DisplayDeleted());
}

TEST(ExecuteSql, HandsTheStatementToTheConnection) {
    TestProcess test;
    const auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FName"});
    test.platform.Component(kConnection).Answers("Execute", rows);
    EXPECT_EQ(test.process.systemProfile.ExecuteSql("SELECT 1"), Ref<RecordSet>(rows));
    const test::Log& log = test.platform.log();
    EXPECT_EQ(log.front(), "create QORMAppConnection.AppConnection");
    EXPECT_THAT(log, Contains("call QORMAppConnection.AppConnection.Execute(\"UserID=16;UserName=demo;\", "
                              "&\"SELECT 1\")"));
    EXPECT_EQ(log.back(), "release QORMAppConnection.AppConnection");
}

TEST(ExecuteSql, RaisesTheServersErrorUnderTheConnectionsName) {
    TestProcess test;
    test.platform.Component(kConnection).Raises("Execute", Error(-2147217900, "SQL", "语法错误"));
    const auto error = ErrorOf([&] { test.process.systemProfile.ExecuteSql("SELECT"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), -2147217900);
    EXPECT_EQ(error->source(), "QORMAppConnection.AppConnection:Execute");
    EXPECT_EQ(error->description(), "语法错误");
    EXPECT_EQ(test.platform.log().back(), "release QORMAppConnection.AppConnection");

    test.platform.Remove(kConnection);
    const auto missing = ErrorOf([&] { test.process.systemProfile.ExecuteSql("SELECT"); });
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->number(), static_cast<std::int32_t>(Automation::CannotCreate));
    EXPECT_EQ(missing->source(), "QORMAppConnection.AppConnection:Execute");
}

class GetStartPeriodDates : public testing::Test {
 protected:
    void ServerAnswers(std::vector<std::vector<Value>> cells) {
        const auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FStartDate", "FEndDate"});
        for (auto& row : cells) {
            rows->AddRow(std::move(row));
        }
        test.platform.Component(kConnection).Answers("Execute", rows);
    }
    void Ask() { test.process.systemProfile.GetStartPeriodDates(start, end); }

    TestProcess test;
    std::string start = "s", end = "e";
};

TEST_F(GetStartPeriodDates, RunsOneBatch) {
    Ask();
    EXPECT_THAT(
        test.platform.log(),
        Contains(
            "call QORMAppConnection.AppConnection.Execute(\"UserID=16;UserName=demo;\", &\""
            "Declare @Year int,@Period int \r\n"
            "SELECT @Year=CONVERT(INT,FValue) FROM t_SystemProfile WHERE FCategory='IC' AND "
            "FKey='StartYear'\n"
            "SELECT @Period = CONVERT(INT,FValue) FROM t_SystemProfile WHERE FCategory='IC' AND "
            "FKey='StartPeriod'\n"
            "SELECT CONVERT(DATETIME,FStartDate)as FStartDate,CONVERT(DATETIME,FEndDate)as FEndDate FROM "
            "t_PeriodDate \n"
            "WHERE FYear=@Year AND FPeriod=@Period \n\")"));
}

TEST_F(GetStartPeriodDates, TakesTheDatesOfTheFirstRow) {
    ServerAnswers({{*DateFromCalendar(2019, 1, 1), Date{DateFromCalendar(2019, 1, 31)->serial + 0.5}},
                   {*DateFromCalendar(2020, 1, 1), *DateFromCalendar(2020, 1, 31)}});
    Ask();
    EXPECT_EQ(start, "2019-01-01");
    EXPECT_EQ(end, "2019-01-31");
}

TEST_F(GetStartPeriodDates, ReadsDatesThatComeAsText) {
    ServerAnswers({{"2019/1/1", "no date"}});
    Ask();
    EXPECT_EQ(start, "2019-01-01");
    EXPECT_EQ(end, "no date");
}

TEST_F(GetStartPeriodDates, ReadsARecordSetOfSomebodyElse) {
    const auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FStartDate", "FEndDate"});
    rows->AddRow({"2019-01-01", "2019-01-31"});
    test.platform.Component(kConnection).Answers("Execute", MakeRef<test::Foreign>(rows));
    Ask();
    EXPECT_EQ(start, "2019-01-01");
    EXPECT_EQ(end, "2019-01-31");
}

TEST_F(GetStartPeriodDates, LeavesBothWhereTheServerHasNoSuchPeriod) {
    ServerAnswers({});
    Ask();
    EXPECT_EQ(start + end, "se");
    test.platform.Component(kConnection).Answers("Execute", Value::Nothing());
    Ask();
    EXPECT_EQ(start + end, "se");
}

TEST_F(GetStartPeriodDates, PassesErrorsOn) {
    test.platform.Component(kConnection).Raises("Execute", Error(77, "SQL", "no table"));
    const auto error = ErrorOf([&] { Ask(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 77);
    EXPECT_EQ(error->source(), "QORMAppConnection.AppConnection:Execute");
    EXPECT_EQ(error->description(), "no table");

    ServerAnswers({{Value::Null(), "2019-01-31"}});
    EXPECT_EQ(RaisedBy([&] { Ask(); }), Automation::InvalidUseOfNull);
    EXPECT_EQ(start + end, "se");
}

TEST_F(GetStartPeriodDates, SwallowsAnErrorWithoutANumber) {
    test.platform.Component(kConnection).Raises("Execute", Error(0, "", ""));
    Ask();
    EXPECT_EQ(start + end, "se");
}

TEST(CurrentPeriodFirstDay, IsTheMonthNumberedLikeThePeriod) {
    const struct {
        Value year, period;
        const char* day;
    } rows[] = {
        {2020, 9, "2020-09-01"},
        {2020, 10, "2020-10-01"},
        {2020, 0, "2020-00-01"},
        {"2020", "13", "2020-13-01"},
        {2020.0, std::int16_t{1}, "2020-01-01"},
    };
    for (const auto& row : rows) {
        TestProcess test;
        test.platform.Component(kDataProfile).Answers("GetSystemProfile", [&row](Arguments a) {
            return *a[1] == Value("CurrentYear") ? row.year : row.period;
        });
        EXPECT_EQ(test.process.systemProfile.CurrentPeriodFirstDay(), row.day);
    }
}

TEST(CurrentPeriodFirstDay, AsksForYearAndPeriod) {
    TestProcess test;
    test.process.systemProfile.CurrentPeriodFirstDay();
    EXPECT_THAT(
        test.platform.log(),
        ElementsAre(
            "create QOREBCGLView.GLData", "read QOREBCGLView.GLData.SystemProfile",
            "call QOREBCGLView.GLData.SystemProfile.GetSystemProfile(\"IC\", \"CurrentYear\", int16(0))",
            "call QOREBCGLView.GLData.SystemProfile.GetSystemProfile(\"IC\", \"CurrentPeriod\", int16(0))"));
}

TEST(CurrentPeriodFirstDay, LetsErrorsThrough) {
    TestProcess test;
    test.platform.Component(kDataProfile).Answers("GetSystemProfile", Value::Null());
    EXPECT_EQ(RaisedBy([&] { test.process.systemProfile.CurrentPeriodFirstDay(); }),
              Automation::InvalidUseOfNull);
}

TEST(UseLongNumber, IsTrueForOneAndNullAndOnFailure) {
    const struct {
        Value answer;
        bool isLong;
    } rows[] = {
        {0, false},   {Value::Null(), true}, {1, true},     {2, false},          {"1", true},
        {"0", false}, {Value(), false},      {true, false}, {"no number", true}, {Value::Nothing(), true},
    };
    for (const auto& row : rows) {
        TestProcess test;
        test.platform.Component(kProfile).Answers("GetProfile", row.answer);
        EXPECT_EQ(test.process.systemProfile.UseLongNumber(), row.isLong) << test::Shown(row.answer);
    }
    TestProcess test;
    test.platform.Component(kProfile).Raises("GetProfile", Error(-1, "Profile", "down"));
    EXPECT_TRUE(test.process.systemProfile.UseLongNumber());
    test.platform.Remove(kProfile);
    EXPECT_TRUE(test.process.systemProfile.UseLongNumber());
}

TEST(UseLongNumber, MakesItsServerObjectEveryTime) {
    TestProcess test;
    test.process.systemProfile.UseLongNumber();
    const test::Log first = test.platform.log();
    EXPECT_EQ(first.front(), "create QOREBSBase.SystemProfile");
    EXPECT_THAT(first,
                Contains("call QOREBSBase.SystemProfile.GetProfile(\"UserID=16;UserName=demo;\", \"IC\", "
                         "\"UseShortNumber\")"));
    EXPECT_EQ(first.back(), "release QOREBSBase.SystemProfile");
    test.platform.log().clear();
    test.process.systemProfile.UseLongNumber();
    EXPECT_EQ(test.platform.log(), first);
}

TEST(DisplayDeleted, IsTheProfilesValueAsABoolean) {
    TestProcess test;
    EXPECT_TRUE(test.process.systemProfile.DisplayDeleted());
    EXPECT_THAT(test.platform.log().back(),
                EndsWith(".GetSystemProfile(\"Base\", \"DisplayDeleted\", int16(1))"));
    test.platform.Component(kDataProfile).Answers("GetSystemProfile", "0");
    EXPECT_FALSE(test.process.systemProfile.DisplayDeleted());
    test.platform.Component(kDataProfile).Answers("GetSystemProfile", "perhaps");
    EXPECT_EQ(RaisedBy([&] { test.process.systemProfile.DisplayDeleted(); }), Automation::TypeMismatch);
}

}  // namespace
}  // namespace qor
