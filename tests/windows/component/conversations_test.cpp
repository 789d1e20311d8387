// A script host under wine plays conversations with the built component; what it sees must be, line by line,
// what `qorview play` says of the same conversation.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "tests/windows/component/script_writer.h"
#include "tests/windows/component/wine_run.h"

namespace qor::component {
namespace {

namespace fs = std::filesystem;
using viewer::Json;

Json ReadJson(const fs::path& file) { return Json::parse(std::ifstream(file)); }

void WriteText(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

/// What a user does to a grid's cells, and what no user does.
bool IsLeftOut(const Json& action) {
    return std::ranges::any_of(std::array{"dump", "activate", "cell", "row"},
                               [&](const char* key) { return action.contains(key); });
}

/// The golden conversation as a host's process can have it: at the machine's date, under the process's own
/// number.
Json ForHosts(Json conversation) {
    conversation.erase("today");
    for (Json& step : conversation["steps"]) {
        if (!step.contains("user")) continue;
        for (Json& entry : step["user"]) {
            Json kept = Json::array();
            for (const Json& action : entry["do"]) {
                if (!IsLeftOut(action)) kept.push_back(action);
            }
            entry["do"] = kept;
        }
    }
    return conversation;
}

/// The class of an object that is neither a dictionary, a list nor a report is not told; a window's number is
/// the system's.
void HideInnerNames(Json& value) {
    if (!value.is_structured()) return;
    if (value.is_object() && value.contains("$object")) value["$object"] = "Object";
    for (Json& part : value) {
        HideInnerNames(part);
    }
}

/// What can be seen from outside the component. From there a read is a call without arguments, a message box
/// has no style, and a report's own reports are its own affair.
std::string SeenFromOutside(const std::string& transcript) {
    static const std::set<std::string> kSeen = {"step",        "create",    "call",   "read",
                                                "put",         "release",   "result", "error",
                                                "message-box", "left-open", "unused"};
    std::istringstream lines(transcript);
    std::string seen;
    for (std::string text; std::getline(lines, text);) {
        Json line = Json::parse(text);
        std::string event = line["event"];
        if (event == "closing") break;
        if (event == "read") {
            line["event"] = "call";
            line["args"] = Json::array();
        }
        if (event == "create" && line["component"].get<std::string>().starts_with("QORArApRpt.")) continue;
        if (event == "message-box") line.erase("style");
        if (event == "call" && line["member"] == "AttachByHWnd") line["args"][0] = "a window";
        HideInnerNames(line);
        if (kSeen.contains(event)) seen += line.dump() + "\n";
    }
    return seen;
}

/// How many of the server's components were created by name and never released.
std::map<std::string, int> NeverReleased(const std::string& transcript) {
    std::istringstream lines(transcript);
    std::map<std::string, int> alive;
    for (std::string text; std::getline(lines, text);) {
        const Json line = Json::parse(text);
        if (line["event"] == "create" && !line.contains("failed")) ++alive[line["component"]];
        if (line["event"] == "release" && alive.contains(line["component"])) --alive[line["component"]];
    }
    std::erase_if(alive, [](const auto& known) { return known.second == 0; });
    return alive;
}

struct Played {
    std::string transcript;
    std::int64_t process = 0;
    Json end;
};

Played PlayUnderWine(const fs::path& folder, const Json& conversation) {
    WriteText(folder / "conversation.json", conversation.dump());
    WriteText(folder / "play.vbs", WriteScript(conversation, WindowsPath(folder / "conversation.json"),
                                               WindowsPath(folder / "seen.jsonl")));
    const RunResult run = RunUnderWine(folder, "cscript //nologo play.vbs");
    EXPECT_EQ(run.output, "played\n") << run.errors;
    Played played;
    std::ifstream lines(folder / "seen.jsonl");
    for (std::string text; std::getline(lines, text);) {
        const Json line = Json::parse(text);
        if (line["event"] == "process") played.process = line["number"];
        if (line["event"] == "end") played.end = line;
        played.transcript += text + "\n";
    }
    return played;
}

std::string PlayPortably(const fs::path& folder, Json conversation, std::int64_t process) {
    conversation["process"] = process;
    WriteText(folder / "portable.json", conversation.dump());
    return RunCommand("'" QORVIEW_PROGRAM "' play '" + (folder / "portable.json").string() + "'").output;
}

Played ExpectTheSame(const std::string& name) {
    const fs::path folder = TestFolder(name);
    const Json conversation =
        ForHosts(ReadJson(fs::path(QOR_SOURCE_DIR) / "tests/goldens" / (name + ".json")));
    const Played played = PlayUnderWine(folder, conversation);
    const std::string expected = PlayPortably(folder, conversation, played.process);
    WriteText(folder / "expected.jsonl", SeenFromOutside(expected));
    WriteText(folder / "actual.jsonl", SeenFromOutside(played.transcript));
    EXPECT_EQ(SeenFromOutside(played.transcript), SeenFromOutside(expected));
    EXPECT_EQ(NeverReleased(played.transcript), (std::map<std::string, int>()));
    EXPECT_EQ(played.end, Json({{"event", "end"}, {"component-can-go", true}}));
    return played;
}

class Conversation : public testing::TestWithParam<const char*> {};

TEST_P(Conversation, IsTheSameForAScriptHost) { ExpectTheSame(GetParam()); }

std::string NameOf(const testing::TestParamInfo<const char*>& info) {
    std::string name = info.param;
    std::ranges::replace(name, '/', '_');
    return name;
}

// clang-format off
constexpr const char* kConversations[] = {
    "10501/plain_run", "10501/failed_fetches",
    "10502/plain_run", "10502/failed_fetch",
    "10503/plain_run", "10503/drill_down", "10503/failed_detail",
    "10504/plain_run",
    "10505/plain_run", "10505/drill_down",
    "10506/plain_run", "10506/paged_data", "10506/filter_replaced_by_server",
    "10507/plain_run", "10507/failed_fetch", "10507/access_refused",
    "10508/plain_run", "10508/failed_fetch",
    "10521/plain_run", "10521/filter_of_a_host",
    "10522/plain_run", "10522/fetch_failures",
    "10523/plain_run", "10523/filter_of_a_host",
    "10524/plain_run", "10524/fetch_failures",
    "10525/plain_run", "10525/fetch_fails",
    "10526/plain_run", "10526/fetch_fails",
    "10527/plain_run", "10527/failed_fetch",
    "10528/plain_run", "10528/failed_fetch",
    "10529/plain_run", "10529/failed_fetch", "10529/drill_down",
    "10530/plain_run", "10530/failed_fetch_keeps_the_data",
    "10531/plain_run", "10531/drill_down",
    "10532/plain_run", "10532/drill_down",
};
// clang-format on

/// With the foundation library's own dictionaries and lists in the registry, reports use those.
TEST(FoundationLibrary, ItsObjectsAreUsedWhereItIsRegistered) {
    ASSERT_EQ(RunUnderWine(BuiltFolder(), "regsvr32 /s /n /i:foundation qor_stage.dll").status, 0);
    for (const char* name : {"10522/plain_run", "10503/drill_down", "10530/plain_run"}) {
        const Played played = ExpectTheSame(name);
        EXPECT_NE(played.transcript.find("\"event\":\"foundation\""), std::string::npos) << name;
    }
    EXPECT_EQ(RunUnderWine(BuiltFolder(), "regsvr32 /s /u /n /i:foundation qor_stage.dll").status, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, Conversation, testing::ValuesIn(kConversations), NameOf);

}  // namespace
}  // namespace qor::component
