#include "viewer/command_play.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "support/temp_folder.h"
#include "viewer/json.h"
#include "viewer/program.h"

namespace qor::viewer {
namespace {

using test::Outcome;
using test::RunProgram;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

Outcome PlayText(const std::string& text) {
    std::istringstream in(text);
    std::ostringstream out, errors;
    const int status = PlayConversation("-", in, out, errors);
    return {status, out.str(), errors.str()};
}

std::ptrdiff_t LinesIn(const std::string& text) { return std::ranges::count(text, '\n'); }

TEST(PlayCommand, WritesOneObjectALineAndEndsWithZero) {
    const Outcome outcome = PlayText(
        R"({"steps": [{"invoke": "ResText", "args": ["两行\n"]}, {"invoke": "CInt", "args": ["x"]}]})");
    EXPECT_EQ(outcome.status, 0) << "a step that fails is no failure of the play";
    EXPECT_EQ(outcome.errors, "");
    std::istringstream lines(outcome.out);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        EXPECT_TRUE(Json::parse(line).contains("event"));
    }
    EXPECT_EQ(count, 4);
    EXPECT_THAT(outcome.out, HasSubstr("\"两行\\n\"")) << "text is not escaped beyond need";
}

TEST(PlayCommand, ARefusedFileLeavesOneLineAndNoTranscript) {
    const Outcome outcome = PlayText(R"({"steps": [{"invoke": "GetPropsString"}, {"call": "r.Refresh"}]})");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.errors, "-: steps[1].call: no object is kept under the name \"r\"\n");
}

TEST(PlayCommand, AMistakeThatOnlyTheOpenDialogShowsIsRefusedInTheSameWay) {
    const Outcome outcome = PlayText(R"({"steps": [{"create": "QORArApRpt.Rpt10522", "as": "r"},
        {"call": "r.ShowFilter", "user": [{"dialog": "frmFilter10522", "do": [{"click": "cmdYes"}]}]}]})");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.errors, "-: steps[1].user[0].do[0]: frmFilter10522 has no control \"cmdYes\"\n");
}

TEST(PlayCommand, ANameWithALineBreakStaysInItsLine) {
    const Outcome outcome = PlayText("{\"steps\": [], \"a\\nb\": 1}");
    EXPECT_EQ(outcome.errors, "-: unknown key \"a\\nb\"\n");
}

TEST(PlayCommand, AFileThatCannotBeReadIsRefused) {
    std::istringstream in;
    std::ostringstream out, errors;
    EXPECT_EQ(PlayConversation("/nonexistent.json", in, out, errors), 2);
    EXPECT_EQ(errors.str(), "/nonexistent.json: cannot be read\n");
    errors.str("");
    EXPECT_EQ(PlayConversation("/tmp", in, out, errors), 2);
    EXPECT_EQ(errors.str(), "/tmp: cannot be read\n");
}

TEST(PlayCommand, ReadsAFileByItsName) {
    const std::string file = testing::TempDir() + "conversation.json";
    std::ofstream(file) << R"({"steps": [{"invoke": "GetAppType"}]})";
    const Outcome outcome = RunProgram("play " + file);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, EndsWith("{\"event\":\"result\",\"index\":0,\"value\":2}\n"));
    std::remove(file.c_str());
}

TEST(Program, AMistakeInTheArgumentsGivesOneLineThatSaysWhatWasExpected) {
    const std::pair<const char*, const char*> kMistakes[] = {
        {"", "qorview: a command was expected: "},
        {"bogus", "qorview: a command was expected: "},
        {"--bogus", "qorview: a command was expected: "},
        {"play", "qorview play: FILE is required"},
        {"play a b", "qorview play: The following argument was not expected: b"},
        {"play --bogus a", "qorview play: The following argument was not expected: --bogus"},
    };
    for (const auto& [arguments, line] : kMistakes) {
        const Outcome outcome = RunProgram(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.errors, StartsWith(line)) << arguments;
        EXPECT_EQ(LinesIn(outcome.errors), 1) << outcome.errors;
    }
}

TEST(Program, AReportsNumberAloneRunsIt) {
    const test::TempFolder home;
    const std::string firm = (home / "firm.db").string();
    RunProgram("sample " + firm + " --bills 300", home.path());
    const std::string rest =
        " --account-set " + firm + " --format csv --columns all --set DtpBDate=2022-01-01";
    for (const char* number : {"10521", "10522", "10523", "10524"}) {
        const Outcome outcome = RunProgram(number + rest, home.path());
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_GT(LinesIn(outcome.out), 3) << number;
        EXPECT_EQ(outcome.out, RunProgram("run " + (number + rest), home.path()).out);
    }
    EXPECT_THAT(RunProgram("10521" + rest + " --drill 0", home.path()).out, HasSubstr("SR-"))
        << "the bills of a class";
    EXPECT_EQ(RunProgram("10499" + rest).status, 2);
    EXPECT_THAT(RunProgram("--help").out, HasSubstr("qorview run 10522"));
}

TEST(Program, HelpStandsForTheProgramAndForEachCommand) {
    for (const char* arguments : {"--help", "play --help"}) {
        const Outcome outcome = RunProgram(arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, HasSubstr("Usage: qorview")) << arguments;
    }
    EXPECT_THAT(RunProgram("--help").out, HasSubstr("play"));
}

}  // namespace
}  // namespace qor::viewer
