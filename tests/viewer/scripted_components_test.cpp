#include "viewer/scripted_components.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "viewer/playing.h"

namespace qor::test {
namespace {

TEST(ServerComponents, AnswerByDefaultSoThatARunSucceeds) {
    constexpr std::tuple<const char*, const char*, const char*, const char*> kDefaults[] = {
        {"QOREBCGLView.GLData", "AccessCheck", "[]", "true"},
        {"QOREBSBase.SecurityInfo", "NeedAutorized", R"(["UserID=1;"])", "false"},
        {"QOREBCGLView.GLData", "GetAuthItemClassList", "[]", R"("")"},
        {"QOREBSBase.SystemProfile", "GetProfile", R"(["", "IC", "UseShortNumber"])", "null"},
        {"QORMAppConnection.AppConnection", "Execute", "[]", R"({"$recordset":{"fields":[],"rows":[]}})"},
        {"QORMArApRpt.Data", "GetData", "[]", R"({"$recordset":{"fields":[],"rows":[]}})"},
        {"QORMArApRpt.Data", "GetRpt10506DataByCust", "[]", R"({"$recordset":{"fields":[],"rows":[]}})"},
        {"QORMArApRpt.Data10525", "GetRptData", "[]", R"({"$recordset":{"fields":[],"rows":[]}})"},
        {"QORMArApRpt.Data", "GetItemMaxLevel", R"(["", 1121])", "1"},
        {"QOREBCGLView.GLView", "ItemLookUp", "[1]", R"({"$nothing":true})"},
        {"QOREBCGLView.GLView", "UnitLookup", "[]", R"({"$nothing":true})"},
        {"QOREBCGLView.GLView", "SubMesLookup", "[]", R"({"$nothing":true})"},
        {"QOREBCGLView.GLView", "CurrencyLookup", "[]", R"({"$nothing":true})"},
        {"QOREBCGLView.GLView", "SettTypeLookup", "[]", R"({"$nothing":true})"},
        {"QOREBCGLView.GLView", "AccountLookup", "[]", R"({"$nothing":true})"},
        {"QOREBCGLView.GLData", "Refresh", "[]", R"({"$empty":true})"},
        {"ZEP_APFC.FrameData", "WriteMGLog", "[]", R"({"$empty":true})"},
        {"QORFrmRes.FrmResLoader", "LoadFrmResStrings", "[]", R"({"$empty":true})"},
        {"QORMArApRpt.Data10526", "Anything", "[]", R"({"$empty":true})"},
        {"QORMArApRpt.Data10530", "getrpt10530data", "[]", R"({"$recordset":{"fields":[],"rows":[]}})"},
    };
    for (const auto& [component, member, arguments, answer] : kDefaults) {
        const Lines lines =
            PlayedSteps(std::string(R"([{"create": ")") + component + R"(", "as": "c"}, {"call": "c.)" +
                        member + R"(", "args": )" + arguments + "}]");
        EXPECT_EQ(ResultOf(lines, 1).dump(), answer) << component << "." << member;
    }
}

TEST(ServerComponents, TheAccountSetIsInThePeriodOfToday) {
    const Lines lines = PlayedSteps(R"([{"invoke": "GetSystemProfileObject", "as": "p"},
        {"call": "p.GetSystemProfile", "args": ["IC", "CurrentYear", {"$int16": 0}]},
        {"call": "p.GetSystemProfile", "args": ["IC", "CurrentPeriod", {"$int16": 0}]},
        {"call": "p.GetSystemProfile", "args": ["Base", "DisplayDeleted", {"$int16": 1}]},
        {"today": "2021-12-01"},
        {"invoke": "CurrentPeriodFirstDay"}])");
    EXPECT_EQ(ResultOf(lines, 0).dump(), R"({"$object":"QOREBCGLView.GLData.SystemProfile"})");
    EXPECT_EQ(ResultOf(lines, 1), 2020);
    EXPECT_EQ(ResultOf(lines, 2), 9);
    EXPECT_EQ(ResultOf(lines, 3).dump(), R"({"$int16":1})");
    EXPECT_EQ(ResultOf(lines, 5), "2021-12-01");
    EXPECT_EQ(EventsOf(lines, "create").size(), 1u) << "the profile object is a part of GLData";
    EXPECT_EQ(EventsOf(lines, "read")[0].dump(),
              R"({"event":"read","component":"QOREBCGLView.GLData","member":"SystemProfile"})");
}

TEST(ServerComponents, AnswerAsTheFileSays) {
    const Lines lines = PlayedSteps(R"([{"create": "X.Y", "as": "c"},
        {"call": "c.V"}, {"get": "c.v"}, {"call": "c.R"}, {"call": "c.O", "as": "o"}, {"get": "o.ReturnObject"},
        {"call": "c.N"}, {"call": "c.E"}, {"call": "c.S"}, {"call": "c.S"}, {"call": "c.S"}, {"call": "c.S"},
        {"call": "c.W", "args": ["a", {"$int16": 1}, "more"]}, {"call": "c.W", "args": ["a", 2]},
        {"call": "c.W", "args": ["b"]}, {"call": "c.W"}, {"call": "c.GetData", "args": ["b"]}])",
                                    R"({"X.Y": {
        "V": {"value": {"$double": 2}},
        "R": {"recordset": {"fields": ["F"], "rows": [[1]]}},
        "O": {"object": {"ReturnObject": {"$object": {"Number": "01"}}}},
        "N": {"nothing": true},
        "E": {"error": {"number": -2147221504, "source": "X", "description": "失败"}},
        "S": {"sequence": [{"value": 1}, {"error": {"number": 5}}, {"value": 3}]},
        "W": {"when": [[["a", 1], {"value": "a1"}], [["a"], {"value": "a"}]], "else": {"value": "else"}},
        "GetData": {"when": [[["a"], {"value": "a"}]]}}})");
    const char* const kResults[] = {R"({"$double":2})",
                                    R"({"$double":2})",
                                    R"({"$recordset":{"fields":["F"],"rows":[[1]]}})",
                                    R"({"$object":"Object"})",
                                    R"({"$object":"Object"})",
                                    R"({"$nothing":true})",
                                    nullptr,
                                    "1",
                                    nullptr,
                                    "3",
                                    "3",
                                    R"("a1")",
                                    R"("a")",
                                    R"("else")",
                                    R"("else")",
                                    R"({"$recordset":{"fields":[],"rows":[]}})"};
    for (std::size_t i = 0; i < std::size(kResults); ++i) {
        if (!kResults[i]) continue;
        EXPECT_EQ(ResultOf(lines, i + 1).dump(), kResults[i]) << i + 1;
    }
    EXPECT_EQ(ErrorOfStep(lines, 7), -2147221504);
    EXPECT_EQ(EventsOf(lines, "error")[0]["description"], "失败");
    EXPECT_EQ(ErrorOfStep(lines, 9), 5);
}

TEST(ServerComponents, EveryAnswerIsANewObject) {
    const Lines lines = PlayedSteps(R"([{"create": "X.Y", "as": "c"}, {"call": "c.D", "as": "first"},
        {"create": "QORArApRpt.Rpt10522", "as": "r"}, {"set": "r.Filter", "to": {"$ref": "first"}},
        {"put": "r.Filter", "key": "K", "to": 1}, {"call": "c.D"}])",
                                    R"({"X.Y": {"D": {"value": {"$dictionary": {}}}}})");
    EXPECT_EQ(ResultOf(lines, 5).dump(), R"({"$dictionary":{}})");
}

TEST(ServerComponents, LeaveValuesInByReferenceArguments) {
    const Lines lines = PlayedSteps(
        R"([{"create": "QORArApRpt.Rpt10522", "as": "r"}, {"set": "r.Filter", "to": {"$dictionary": {}}},
            {"call": "r.GetReportData"}, {"get": "r.Filter"}, {"create": "QORMArApRpt.Data", "as": "d"},
            {"call": "d.GetRpt10522Data", "args": ["s", 1]}])",
        R"({"QORMArApRpt.Data": {"GetRpt10522Data": {"recordset": {"fields": []},
            "args": {"2": {"$dictionary": {"Replaced": true}}}},
            "M": {"error": {"number": 5}, "args": {"1": "left"}}}})");
    EXPECT_EQ(ResultOf(lines, 3).dump(), R"({"$dictionary":{"Replaced":true}})");
    EXPECT_EQ(lines.back()["args"].dump(), R"(["s",{"$dictionary":{"Replaced":true}}])");
}

TEST(ServerComponents, ArgumentsAreWrittenAsTheyGoOut) {
    const Lines lines = PlayedSteps(R"([{"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"set": "r.Filter", "to": {"$dictionary": {"N": {"$int16": 3}}}}, {"call": "r.GetReportData"}])");
    const Lines check = EventsOf(lines, "call", "member", "AccessCheck");
    ASSERT_EQ(check.size(), 1u);
    EXPECT_EQ(check[0]["args"].dump(), R"([{"$int16":1006},{"$int16":2},{"$int16":4}])");
    const Lines data = EventsOf(lines, "call", "member", "GetRpt10522Data");
    ASSERT_EQ(data.size(), 1u);
    EXPECT_EQ(data[0]["args"].dump(),
              R"(["UserID=1;",{"$dictionary":{"N":{"$int16":3},"DataRightWhere":"","bLongNumber":true}}])");
}

TEST(ServerComponents, ARemovedComponentCannotBeCreated) {
    const Lines lines =
        PlayedSteps(R"([{"create": "qormarAPrpt.data", "as": "d"}, {"components": {"QORMArApRpt.Data": {}}},
            {"create": "QORMArApRpt.Data", "as": "d"}, {"components": {"QORMArApRpt.Data": null}},
            {"create": "QORMArApRpt.Data", "as": "d"}])",
                    R"({"QORMArApRpt.Data": null})");
    EXPECT_EQ(ErrorOfStep(lines, 0), 429);
    EXPECT_EQ(ErrorOfStep(lines, 2), 0);
    EXPECT_EQ(ErrorOfStep(lines, 4), 429);
}

TEST(ServerComponents, AStepLaysAnswersOverThoseThatStand) {
    const Lines lines = PlayedSteps(
        R"([{"create": "X.Y", "as": "c"}, {"components": {"X.Y": {"B": {"value": 3}}}}, {"call": "c.A"},
            {"call": "c.B"}, {"components": {"x.y": {"b": null}}}, {"call": "c.B"}])",
        R"({"X.Y": {"A": {"value": 1}, "B": {"value": 2}}})");
    EXPECT_EQ(ResultOf(lines, 2), 1);
    EXPECT_EQ(ResultOf(lines, 3), 3);
    EXPECT_EQ(ResultOf(lines, 5).dump(), R"({"$empty":true})");
}

TEST(ServerComponents, PropertiesAreReadAndPut) {
    const Lines lines = PlayedSteps(R"([{"create": "ZEP_APFC.FrameData", "as": "f"},
        {"set": "f.PropString", "to": "UserID=1;"}, {"get": "f.PropString"}])");
    EXPECT_EQ(
        EventsOf(lines, "put")[0].dump(),
        R"({"event":"put","component":"ZEP_APFC.FrameData","member":"PropString","value":"UserID=1;"})");
    EXPECT_EQ(EventsOf(lines, "read")[0].dump(),
              R"({"event":"read","component":"ZEP_APFC.FrameData","member":"PropString"})");
}

TEST(ServerComponents, APutCanFailAsTheFileSays) {
    const Lines lines = PlayedSteps(R"([{"create": "ZEP_APFC.FrameData", "as": "f"},
        {"set": "f.PropString", "to": ""}])",
                                    R"({"ZEP_APFC.FrameData": {"PropString": {"error": {"number": 7}}}})");
    EXPECT_EQ(ErrorOfStep(lines, 1), 7);
}

}  // namespace
}  // namespace qor::test
