#include "viewer/player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "viewer/playing.h"

namespace qor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Player, AConversationWithoutStepsHasAnEmptyTranscript) { EXPECT_THAT(PlayedSteps("[]"), IsEmpty()); }

TEST(Player, AStepIsWrittenAsItIsGivenAndEndsInItsResult) {
    const Lines lines = PlayedSteps(R"([{"invoke": "ResText", "args": ["文字$"]}])");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].dump(), R"({"event":"step","index":0,"step":{"invoke":"ResText","args":["文字$"]}})");
    EXPECT_EQ(lines[1].dump(), R"({"event":"result","index":0,"value":"文字$"})");
}

TEST(Player, AStepThatFailsWritesItsErrorAndThePlayGoesOn) {
    const Lines lines =
        PlayedSteps(R"([{"invoke": "CInt", "args": [70000]}, {"invoke": "CInt", "args": ["2.5"]}])");
    EXPECT_THAT(Events(lines), ElementsAre("step", "error", "step", "result"));
    EXPECT_EQ(lines[1].dump(),
              R"({"event":"error","index":0,"number":6,"source":"QORArApRpt","description":"溢出"})");
    EXPECT_EQ(ResultOf(lines, 1).dump(), R"({"$int16":2})");
}

TEST(Player, AnUnknownMemberRaises438AndAnUnknownClass429) {
    const Lines lines = PlayedSteps(
        R"([{"create": "QORArApRpt.Rpt10522", "as": "r"}, {"call": "r.Nope"}, {"get": "r.Nope"},
            {"set": "r.Nope", "to": 1}, {"set": "r.Rs", "to": 1}, {"create": "QORArApRpt.Rpt99999", "as": "q"},
            {"call": "q.ShowFilter"}])");
    for (const std::size_t step : {1u, 2u, 3u, 4u}) {
        EXPECT_EQ(ErrorOfStep(lines, step), 438) << step;
    }
    EXPECT_EQ(ErrorOfStep(lines, 5), 429);
    EXPECT_EQ(ErrorOfStep(lines, 6), 91) << "the name was never filled";
    const Lines creates = EventsOf(lines, "create", "component", "QORArApRpt.Rpt99999");
    ASSERT_EQ(creates.size(), 1u);
    EXPECT_EQ(creates[0]["failed"], true);
}

TEST(Player, AKeptReportIsWrittenByItsNameFromTheNextStepOn) {
    const Lines lines = PlayedSteps(R"([
        {"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"create": "QRB.Dictionary", "as": "d"},
        {"call": "d.Value", "args": ["x"]},
        {"set": "r.Filter", "to": {"$ref": "d"}},
        {"put": "r.Filter", "key": "Report", "to": {"$ref": "r"}},
        {"get": "r.Filter"}])");
    EXPECT_EQ(ResultOf(lines, 0).dump(), R"({"$report":"Rpt10522"})");
    EXPECT_EQ(ResultOf(lines, 1).dump(), R"({"$dictionary":{}})");
    EXPECT_EQ(ResultOf(lines, 5).dump(), R"({"$dictionary":{"Report":{"$ref":"r"}}})");
}

TEST(Player, StepsWithoutAValueHaveNoResult) {
    const Lines lines = PlayedSteps(R"([
        {"create": "QRB.Dictionary", "as": "d"},
        {"today": "2021-01-01"}, {"bag": {"AppType": 4}}, {"session": null}, {"components": {}},
        {"release": "d"}])");
    EXPECT_THAT(Events(lines), ElementsAre("step", "result", "step", "step", "step", "step", "step"));
}

TEST(Player, SettingTheFilterToNothingIsTheReportsOwnAffair) {
    const Lines lines = PlayedSteps(R"([{"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"set": "r.Filter", "to": {"$nothing": true}}, {"get": "r.Result"}, {"get": "r.Filter"}])");
    EXPECT_EQ(ResultOf(lines, 2).dump(), R"({"$dictionary":{"OK":false,"Error":"请选择过滤条件！"}})");
    EXPECT_EQ(ResultOf(lines, 3).dump(), R"({"$nothing":true})");
}

TEST(Player, ACallOfAPropertyReadsItAndHandsArgumentsOn) {
    const Lines lines = PlayedSteps(R"([{"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"call": "r.Property", "args": ["Name"]}, {"call": "r.Property", "as": "p"},
        {"call": "p.GetValue", "args": ["ShowFilter", {"$int16": -1}]}])");
    EXPECT_EQ(ResultOf(lines, 1), "收入类别明细表");
    EXPECT_EQ(ResultOf(lines, 3).dump(), R"({"$int16":-1})");
}

TEST(Player, ReleasingTheLastReferenceIsSeen) {
    const Lines lines = PlayedSteps(R"([{"create": "QORMArApRpt.Data", "as": "a"},
        {"create": "QORMArApRpt.Data", "as": "b"}, {"release": "a"}])");
    EXPECT_THAT(Events(lines),
                ElementsAre("step", "create", "result", "step", "create", "result", "step", "release"));
    EXPECT_EQ(lines.back()["component"], "QORMArApRpt.Data");
}

TEST(Player, TheProgressWindowIsToldInItsOwnEvents) {
    const Lines lines = PlayedSteps(R"([{"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"set": "r.Filter", "to": {"$dictionary": {}}}, {"call": "r.GetReportData"}])");
    EXPECT_THAT(Values(EventsOf(lines, "progress"), "action"),
                ElementsAre("show", "message", "hide-bar", "message", "unload", "shown"));
    EXPECT_THAT(Values(EventsOf(lines, "progress", "action", "message"), "text"),
                ElementsAre("正在连接服务器", "正在从服务器读取数据，请稍候..."));
    EXPECT_THAT(EventsOf(lines, "dialog"), IsEmpty());
}

TEST(Player, AProgressWindowThatNobodyClosesIsLeftOpen) {
    const Lines lines = PlayedSteps(R"([{"create": "QORArApRpt.Bar", "as": "b"}, {"call": "b.Show"}])");
    EXPECT_EQ(EventsOf(lines, "left-open")[0]["dialog"], "frmProgBar");
    EXPECT_THAT(Values(EventsOf(lines, "progress"), "action"), ElementsAre("show", "unload", "shown"));
}

TEST(Player, NothingIsRecordedWhenTheConversationHasEnded) {
    const Lines lines =
        PlayedSteps(R"([{"invoke": "GetGLData"}, {"create": "QORMArApRpt.Data", "as": "d"}])");
    EXPECT_THAT(EventsOf(lines, "release"), IsEmpty());
}

TEST(Player, ByReferenceArgumentsOfARoutineComeBack) {
    const Lines lines = PlayedSteps(
        R"([{"invoke": "GetStartPeriodDates", "args": ["a", "b"]}, {"invoke": "ResText", "args": ["t"]},
            {"invoke": "BuildConditionCaptions", "args": [{"$dictionary": {}}, {"$nothing": true}]}])",
        R"({"QORMAppConnection.AppConnection": {"Execute": {"recordset": {"fields": ["FStartDate", "FEndDate"],
            "rows": [[{"$date": "2020-01-01"}, {"$date": "2020-01-31"}]]}}}})");
    const Lines results = EventsOf(lines, "result");
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[0]["args"].dump(), R"(["2020-01-01","2020-01-31"])");
    EXPECT_FALSE(results[1].contains("args"));
    EXPECT_EQ(results[2]["args"].dump(),
              R"([{"$dictionary":{}},{"$dictionary":{"ShowInPreview":{"$int16":1}}}])");
}

TEST(Player, ARoutineWithTheWrongNumberOfArgumentsRaises449Or450) {
    const Lines lines =
        PlayedSteps(R"([{"invoke": "CStr"}, {"invoke": "CStr", "args": [1, 2]}, {"invoke": "GetAppType"}])");
    EXPECT_EQ(ErrorOfStep(lines, 0), 449);
    EXPECT_EQ(ErrorOfStep(lines, 1), 450);
    EXPECT_EQ(ResultOf(lines, 2), 2);
}

TEST(Player, EveryConversionAnswersInItsOwnType) {
    constexpr std::tuple<const char*, const char*, const char*> kConversions[] = {
        {"CBool", R"("True")", "true"},
        {"CInt", "2.5", R"({"$int16":2})"},
        {"CLng", R"("70000")", "70000"},
        {"CDbl", "7", R"({"$double":7})"},
        {"CStr", R"({"$date": "2020-09-01"})", R"("2020-09-01")"},
        {"CDate", R"("2020-09-01 10:30:00")", R"({"$date":"2020-09-01 10:30:00"})"},
        {"Val", R"(" 12.5天")", "12.5"},
        {"IsNumeric", R"("1e3")", "true"},
        {"IsDate", R"("abc")", "false"},
    };
    for (const auto& [routine, argument, answer] : kConversions) {
        const Lines lines =
            PlayedSteps(std::string(R"([{"invoke": ")") + routine + R"(", "args": [)" + argument + "]}]");
        EXPECT_EQ(ResultOf(lines, 0).dump(), answer) << routine;
    }
}

}  // namespace
}  // namespace qor::test
