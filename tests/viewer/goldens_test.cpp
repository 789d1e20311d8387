// The golden conversations: a folder a report in tests/goldens, each conversation beside the transcript that
// it must give. `tools/goldens` shows what has changed and takes it over.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "library.h"
#include "viewer/command_play.h"

namespace qor::viewer {
namespace {

namespace fs = std::filesystem;

const fs::path kGoldens = fs::path(QOR_SOURCE_DIR) / "tests" / "goldens";

std::vector<fs::path> Conversations() {
    std::vector<fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(kGoldens)) {
        if (entry.path().extension() == ".json") found.push_back(entry.path());
    }
    std::ranges::sort(found);
    return found;
}

std::string ReadText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// The first line in which two transcripts differ, with its number.
std::string FirstDifference(const std::string& expected, const std::string& played) {
    const auto wanted = Lines(expected), got = Lines(played);
    for (std::size_t i = 0; i < std::max(wanted.size(), got.size()); ++i) {
        const std::string want = i < wanted.size() ? wanted[i] : "(the end)";
        const std::string have = i < got.size() ? got[i] : "(the end)";
        if (want != have)
            return "line " + std::to_string(i + 1) + "\n  wanted " + want + "\n  played " + have;
    }
    return "only in line ends";
}

class Goldens : public testing::TestWithParam<fs::path> {};

TEST_P(Goldens, PlayAsTheyDid) {
    const fs::path conversation = GetParam();
    const fs::path transcript = fs::path(conversation).replace_extension(".jsonl");
    std::istringstream noInput;
    std::ostringstream played, errors;
    ASSERT_EQ(PlayConversation(conversation.string(), noInput, played, errors), 0) << errors.str();
    ASSERT_TRUE(fs::exists(transcript))
        << "no transcript yet: look at it and take it over with tools/goldens "
        << conversation.parent_path().filename() << "/" << conversation.stem();
    const std::string expected = ReadText(transcript);
    EXPECT_EQ(expected, played.str())
        << FirstDifference(expected, played.str()) << "\nif this is meant, take it over with tools/goldens";
}

std::string NameOf(const testing::TestParamInfo<fs::path>& info) {
    std::string name = info.param.parent_path().filename().string() + "_" + info.param.stem().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, Goldens, testing::ValuesIn(Conversations()), NameOf);

TEST(GoldenFolders, EveryReportHasOne) {
    for (const ReportEntry& report : Reports()) {
        const fs::path folder = kGoldens / std::to_string(report.description.number);
        EXPECT_TRUE(fs::exists(folder / "plain_run.json"))
            << report.description.name << " has no golden conversation: write " << folder / "plain_run.json";
    }
}

TEST(GoldenFolders, NoTranscriptStandsAlone) {
    for (const auto& entry : fs::recursive_directory_iterator(kGoldens)) {
        if (entry.path().extension() != ".jsonl") continue;
        EXPECT_TRUE(fs::exists(fs::path(entry.path()).replace_extension(".json"))) << entry.path();
    }
}

}  // namespace
}  // namespace qor::viewer
