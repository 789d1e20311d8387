// What the documents show is played: every example ends without an error.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "viewer/command_play.h"

namespace qor::viewer {
namespace {

namespace fs = std::filesystem;

const fs::path kDocuments = fs::path(QOR_SOURCE_DIR) / "docs";

TEST(Documentation, ItsExamplesPlayWithoutAnError) {
    std::size_t played = 0;
    for (const auto& entry : fs::directory_iterator(kDocuments / "examples")) {
        if (entry.is_directory()) continue;
        std::istringstream noInput;
        std::ostringstream transcript, errors;
        EXPECT_EQ(PlayConversation(entry.path().string(), noInput, transcript, errors), 0) << errors.str();
        for (const char* trouble : {"\"event\":\"error\"", "left-open", "\"unused\"", "\"lost\":true"}) {
            EXPECT_EQ(transcript.str().find(trouble), std::string::npos)
                << entry.path() << " has " << trouble;
        }
        ++played;
    }
    EXPECT_GE(played, 2u);
}

TEST(Documentation, EveryExampleIsSpokenOf) {
    std::ostringstream guide;
    guide << std::ifstream(kDocuments / "hosting.md").rdbuf();
    for (const auto& entry : fs::directory_iterator(kDocuments / "examples")) {
        if (entry.is_directory()) continue;
        EXPECT_NE(guide.str().find(entry.path().filename().string()), std::string::npos) << entry.path();
    }
}

}  // namespace
}  // namespace qor::viewer
