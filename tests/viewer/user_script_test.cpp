#include "viewer/user_script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "viewer/playing.h"

namespace qor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

/// What the user does in a dialog of a new report that is shown once; steps may follow.
Lines Done(std::string_view report, std::string_view dialog, std::string_view actions,
           std::string_view furtherSteps = "") {
    return PlayedSteps(R"j([{"create": "QORArApRpt.)j" + std::string(report) +
                       R"j(", "as": "r"}, {"call": "r.ShowFilter", "user": [{"dialog": ")j" +
                       std::string(dialog) + R"j(", "do": )j" + std::string(actions) + "}]}" +
                       std::string(furtherSteps) + "]");
}

/// A plain dialog with text boxes, dates, a list and a check box.
Lines DoneInPlain(std::string_view actions, std::string_view furtherSteps = "") {
    return Done("Rpt10522", "frmFilter10522", actions, furtherSteps);
}

/// A scheme dialog with both panels.
Lines DoneInScheme(std::string_view actions, std::string_view furtherSteps = "") {
    return Done("Rpt10503", "frmFilter10503", actions, furtherSteps);
}

/// Which actions were lost, in their order.
std::vector<bool> Lost(const Lines& lines) {
    std::vector<bool> lost;
    for (const Json& line : EventsOf(lines, "action")) {
        lost.push_back(line.contains("lost"));
    }
    return lost;
}

Json ControlAtEnd(const Lines& lines, const std::string& name) {
    const Lines dumps = EventsOf(lines, "controls");
    return dumps.empty() ? Json() : dumps.back()["controls"][name];
}

constexpr const char* kFilter = R"j(, {"get": "r.Filter"})j";

TEST(UserScript, AnActionsLineStandsAheadOfWhatItSetsOff) {
    const Lines lines = DoneInPlain(R"j([{"click": "cmdCacel"}])j");
    const auto click = std::ranges::find(lines, "action", [](const Json& line) { return line["event"]; });
    ASSERT_NE(click, lines.end());
    EXPECT_EQ(click->dump(),
              R"j({"event":"action","dialog":"frmFilter10522","action":{"click":"cmdCacel"}})j");
    ASSERT_NE(click + 1, lines.end());
    EXPECT_EQ((click + 1)->dump(), R"j({"event":"dialog","dialog":"frmFilter10522","action":"hide"})j");
}

TEST(UserScript, ADialogIsToldFromLoadToUnload) {
    EXPECT_THAT(Values(EventsOf(DoneInPlain(R"j([{"click": "cmdOK"}])j"), "dialog"), "action"),
                ElementsAre("load", "show", "activate", "hide", "unload"));
}

TEST(UserScript, EveryKindOfControlTakesItsAction) {
    const Lines lines = DoneInPlain(R"j([
        {"text": "txtItem(0)", "to": "A1"},
        {"type": "txtItem(2)", "characters": "K'9"},
        {"date": "DtpBDate", "to": "2020-02-29"},
        {"select": "cmbCheckState", "to": 2},
        {"check": "chkForbiddenTypeInclude", "to": 1},
        {"focus": "txtItem(3)"},
        {"dump": true}])j");
    EXPECT_THAT(Lost(lines), testing::Each(false));
    EXPECT_EQ(ControlAtEnd(lines, "txtItem(0)")["text"], "A1");
    EXPECT_EQ(ControlAtEnd(lines, "txtItem(2)")["text"], "K9") << "plain dialogs swallow the apostrophe";
    EXPECT_EQ(ControlAtEnd(lines, "DtpBDate")["value"].dump(), R"j({"$date":"2020-02-29"})j");
    EXPECT_EQ(ControlAtEnd(lines, "cmbCheckState")["index"], 2);
    EXPECT_EQ(ControlAtEnd(lines, "chkForbiddenTypeInclude")["value"], 1);
    EXPECT_EQ(EventsOf(lines, "controls")[0]["focus"], "txtItem(3)");
}

TEST(UserScript, AKeyRunsTheFormsAndTheBoxesKeyHandling) {
    const Lines enter = DoneInPlain(R"j([{"key": "txtItem(0)", "code": 13}, {"dump": true}])j");
    EXPECT_EQ(EventsOf(enter, "controls")[0]["focus"], "cmdItem(0)") << "Enter goes to the next control";
    const Lines lookup = DoneInPlain(R"j([{"key": "txtItem(0)", "code": 118
    }])j");
    EXPECT_EQ(EventsOf(lookup, "call", "member", "ItemLookUp").size(), 1u) << "F7 opens the lookup";
}

TEST(UserScript, ADumpTellsAllThatAControlHolds) {
    const Lines lines = DoneInPlain(R"j([{"dump": true}])j");
    const Lines dumps = EventsOf(lines, "controls");
    ASSERT_EQ(dumps.size(), 1u);
    EXPECT_EQ(dumps[0]["dialog"], "frmFilter10522");
    EXPECT_EQ(dumps[0]["caption"], "过滤");
    const Json& controls = dumps[0]["controls"];
    EXPECT_EQ(controls["cmbCheckState"]["items"].dump(), R"j(["已审核","未审核","全部"])j");
    EXPECT_EQ(controls["cmbCheckState"]["kind"], "list");
    EXPECT_EQ(controls["cmdOK"]["caption"], "确定(&O)");
    EXPECT_EQ(controls["cmdOK"]["kind"], "button");
    EXPECT_EQ(controls["fraPeriod"]["kind"], "frame");
    EXPECT_EQ(controls["Label1"]["caption"], "起始日期:");
    EXPECT_EQ(controls["DtpEDate"]["value"].dump(), R"j({"$date":"2020-09-15"})j");
    EXPECT_EQ(controls["DtpEDate"]["max"].dump(), R"j({"$date":"9999-12-31"})j");
    EXPECT_EQ(controls["cmlISIC"]["kind"], "inert");
    for (const char* key : {"kind", "visible", "enabled", "left", "top", "width", "height"}) {
        for (const auto& [name, control] : controls.items()) {
            EXPECT_TRUE(control.contains(key)) << name << " " << key;
        }
    }
}

TEST(UserScript, AnActionOnWhatCannotBeReachedIsLost) {
    const Lines lines =
        PlayedSteps(R"j([{"bag": {"AppType": 1}}, {"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"call": "r.ShowFilter", "user": [{"dialog": "frmFilter10522", "do": [
            {"select": "cmbCheckState", "to": 1},
            {"select": "cmbCheckState", "to": 0},
            {"click": "cmdOK"}]}]}, {"get": "r.Filter"}])j");
    EXPECT_THAT(Lost(lines), ElementsAre(true, true, false)) << "the list is hidden in application type 1";
}

TEST(UserScript, WhatAControlDoesNotOfferCannotBePicked) {
    const Lines lines = DoneInPlain(R"j([
        {"select": "cmbCheckState", "to": 3}, {"select": "cmbCheckState", "to": -1},
        {"date": "DtpBDate", "to": "1600-12-31"}, {"dump": true}])j");
    EXPECT_THAT(Lost(lines), ElementsAre(true, true, true, false));
    EXPECT_EQ(ControlAtEnd(lines, "cmbCheckState")["index"], 0);
}

TEST(UserScript, AnActionIsLostWhereTheFocusIsTakenBack) {
    const Lines lines = DoneInPlain(R"j([
        {"date": "DtpBDate", "to": "2020-12-01"}, {"click": "cmdOK"}, {"click": "cmdOK"}])j",
                                    kFilter);
    EXPECT_THAT(Lost(lines), ElementsAre(false, true, false));
    const Lines boxes = EventsOf(lines, "message-box");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].dump(),
              R"j({"event":"message-box","text":"[起始日期]不能大于[截至日期]。","title":"","style":64})j");
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["DtpEDate"], "2020-12-01");
}

TEST(UserScript, WhatFollowsTheClosingActionIsLost) {
    EXPECT_THAT(Lost(DoneInPlain(R"j([{"click": "cmdOK"}, {"click": "cmdCacel"}, {"activate": true},
        {"text": "txtItem(0)", "to": "x"}, {"frame": "defaults"}])j")),
                ElementsAre(false, true, true, true, true));
}

TEST(UserScript, ADialogThatStaysOpenIsReportedAndCancelled) {
    const Lines lines = DoneInPlain("[]", R"j(, {"get": "r.Result"})j");
    EXPECT_EQ(EventsOf(lines, "left-open")[0]["dialog"], "frmFilter10522");
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["OK"], false);
}

TEST(UserScript, ADialogWithoutAnEntryIsCancelled) {
    const Lines lines = PlayedSteps(
        R"j([{"create": "QORArApRpt.Rpt10522", "as": "r"}, {"call": "r.ShowFilter"}, {"get": "r.Result"}])j");
    EXPECT_THAT(EventsOf(lines, "left-open"), IsEmpty());
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["OK"], false);
}

TEST(UserScript, AnEntryWhoseDialogDidNotOpenIsReportedAheadOfTheResult) {
    const Lines lines = PlayedSteps(R"j([{"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"call": "r.ShowFilter", "user": [{"dialog": "frmFilter10524", "do": []},
            {"dialog": "frmFilter10522", "do": [{"click": "cmdOK"}]},
            {"dialog": "frmFilter10522", "do": []}]}])j");
    EXPECT_THAT(Values(EventsOf(lines, "unused"), "dialog"), ElementsAre("frmFilter10524", "frmFilter10522"));
    EXPECT_EQ(lines.back()["event"], "result");
    EXPECT_THAT(EventsOf(lines, "left-open"), IsEmpty());
}

TEST(UserScript, AnotherActivationReachesTheForm) {
    const Lines lines = DoneInPlain(R"j([{"activate": true}])j");
    EXPECT_EQ(EventsOf(lines, "dialog", "action", "activate").size(), 2u);
}

TEST(UserScript, AControlThatTheDialogDoesNotHaveIsAMistakeInTheFile) {
    constexpr std::pair<const char*, const char*> kActions[] = {
        {R"j({"click": "cmdOk"})j", "frmFilter10522 has no control \"cmdOk\""},
        {R"j({"click": "txtItem(0)"})j",
         R"j("txtItem(0)" is a control of the kind "text"; "click" takes one of the kind "button")j"},
        {R"j({"check": "cmbCheckState", "to": 1})j",
         R"j("cmbCheckState" is a control of the kind "list"; "check" takes one of the kind "check")j"},
        {R"j({"row": "cmdOK", "to": 1})j",
         R"j("cmdOK" is a control of the kind "button"; "row" takes one of the kind "grid")j"},
        {R"j({"frame": "ok"})j", "frmFilter10522 has no frame that takes \"ok\""},
    };
    for (const auto& [action, message] : kActions) {
        EXPECT_EQ(RefusalOfSteps(R"j([{"create": "QORArApRpt.Rpt10522", "as": "r"}, {"call": "r.ShowFilter",
            "user": [{"dialog": "frmFilter10522", "do": [{"dump": true}, )j" +
                                 std::string(action) + "]}]}]"),
                  std::string("steps[1].user[0].do[1]: ") + message);
    }
}

// The frames.

TEST(UserScript, ThePlainFrameAnswersDefaultsAndSchemes) {
    const Lines lines = DoneInPlain(R"j([
        {"text": "txtItem(0)", "to": "A1"}, {"frame": "save", "name": "mine"},
        {"text": "txtItem(0)", "to": "B2"}, {"frame": "load", "name": "mine"}, {"click": "cmdOK"}])j",
                                    kFilter);
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["BTypeIn"], "A1");
    const Lines defaults = DoneInPlain(
        R"j([{"text": "txtItem(0)", "to": "A1"
    }, {"frame": "defaults"}, {"click": "cmdOK"}])j",
        kFilter);
    EXPECT_EQ(ResultOf(defaults, 2)["$dictionary"]["BTypeIn"], "");
}

TEST(UserScript, ASchemeThatIsNotThereIsToldToTheUser) {
    const Lines lines = DoneInPlain(R"j([{"frame": "load", "name": "nobody"}, {"frame": "save", "name": ""},
        {"frame": "delete", "name": "nobody"}, {"click": "cmdOK"}])j");
    EXPECT_EQ(EventsOf(lines, "message-box").size(), 3u);
    EXPECT_THAT(Lost(lines), testing::Each(false));
}

TEST(UserScript, TheLastSavedSchemeOfAReportComesUpFirst) {
    const Lines lines = Played(R"j({"today": "2020-09-15",
        "schemes": {"10522": {"first": {"BTypeIn": "A"}, "last": {"BTypeIn": "B"}}, "10524": {"x": {"BTypeIn": "C"}}},
        "steps": [{"create": "QORArApRpt.Rpt10522", "as": "r"},
            {"call": "r.ShowFilter", "user": [{"dialog": "frmFilter10522", "do": [{"click": "cmdOK"}]}]},
            {"get": "r.Filter"}]})j");
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["BTypeIn"], "B");
}

TEST(UserScript, TheSchemeFrameConfirmsAndCancels) {
    const Lines confirmed =
        DoneInScheme(R"j([{"text": "txtItem(0)", "to": "C1"}, {"frame": "ok"}])j", kFilter);
    EXPECT_EQ(ResultOf(confirmed, 2)["$dictionary"]["BCustNumber"], "C1");
    EXPECT_EQ(ResultOf(confirmed, 2)["$dictionary"]["OK"], true);
    const Lines cancelled = DoneInScheme(R"j([{"frame": "cancel"}])j", R"j(, {"get": "r.Result"})j");
    EXPECT_EQ(ResultOf(cancelled, 2)["$dictionary"]["OK"], false);
    EXPECT_THAT(EventsOf(cancelled, "left-open"), IsEmpty());
}

TEST(UserScript, TheCommonPanelsKeysAreLaidOverTheWholeOnes) {
    const Lines lines =
        DoneInScheme(R"j([{"text": "txtItem(2)", "to": "D1"}, {"frame": "panel", "to": "common"},
        {"text": "txtItem(6)", "to": "C9"}, {"text": "txtItem(0)", "to": "hidden"}, {"frame": "ok"}])j",
                     kFilter);
    EXPECT_THAT(Lost(lines), ElementsAre(false, false, false, true, false));
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["BCustNumber"], "C9");
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["BDeptNumber"], "D1");
}

TEST(UserScript, AClickOnAPickerOfASchemeDialogFillsItsBox) {
    const Lines lines = PlayedSteps(
        R"j([{"create": "QORArApRpt.Rpt10503", "as": "r"}, {"call": "r.ShowFilter", "user": [
            {"dialog": "frmFilter10503", "do": [{"click": "cmdItem(2)"}, {"frame": "ok"}]
}]
}, {"get": "r.Filter"}])j",
        R"j({"QOREBCGLView.GLView": {"ItemLookUp": {"when": [[[2],
            {"object": {"ReturnObject": {"$object": {"Number": "D-05"}}}}]]}}})j");
    EXPECT_EQ(ResultOf(lines, 2)["$dictionary"]["BDeptNumber"], "D-05");
}

TEST(UserScript, AnErrorInWhatAnActionSetsOffEndsTheDialog) {
    const Lines lines = PlayedSteps(R"j([{"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"call": "r.ShowFilter", "user": [{"dialog": "frmFilter10522", "do": [
            {"click": "cmdOK"}, {"click": "cmdCacel"}]}]}, {"get": "r.Result"}])j");
    ASSERT_EQ(EventsOf(lines, "error").size(), 0u);
    const Lines failing = Played(R"j({"session": {"PropsString": "A=1;A=2;"}, "steps": [
        {"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"call": "r.ShowFilter", "user": [{"dialog": "frmFilter10522", "do": [
            {"click": "cmdOK"}, {"click": "cmdCacel"}]}]}, {"get": "r.Result"}]})j");
    EXPECT_EQ(EventsOf(failing, "action").size(), 1u) << "the report's own handler ended the dialog";
    EXPECT_EQ(ResultOf(failing, 2)["$dictionary"]["OK"], false);
}

}  // namespace
}  // namespace qor::test
