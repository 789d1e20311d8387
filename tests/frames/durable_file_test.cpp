#include "frames/durable_file.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "frames/file_scheme_store.h"

namespace qor {
namespace {

namespace fs = std::filesystem;

class UserData : public testing::Test {
 protected:
    void SetUp() override {
        for (std::size_t i = 0; i < std::size(kNames); ++i) {
            if (const char* value = std::getenv(kNames[i])) kept_[i] = value;
        }
    }
    void TearDown() override {
        for (std::size_t i = 0; i < std::size(kNames); ++i) {
            Set(kNames[i], kept_[i] ? kept_[i]->c_str() : nullptr);
        }
    }
    static void Set(const char* name, const char* value) {
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    static std::string FolderWith(const char* own, const char* shared, const char* home) {
        Set("QORVIEW_HOME", own);
        Set("XDG_DATA_HOME", shared);
        Set("HOME", home);
        return UserDataFolder();
    }

 private:
    static constexpr const char* kNames[] = {"QORVIEW_HOME", "XDG_DATA_HOME", "HOME"};
    std::optional<std::string> kept_[3];
};

TEST_F(UserData, LiesInTheFolderThatTheEnvironmentNames) {
    EXPECT_EQ(FolderWith("/own", "/shared", "/home/a"), "/own");
    EXPECT_EQ(FolderWith(nullptr, "/shared", "/home/a"), "/shared/qorview");
    EXPECT_EQ(FolderWith("", "", "/home/a"), "/home/a/.local/share/qorview");
    EXPECT_EQ(FolderWith(nullptr, "relative", "/home/a"), "/home/a/.local/share/qorview");
    EXPECT_EQ(FolderWith("here", nullptr, nullptr), fs::current_path() / "here");
    EXPECT_TRUE(fs::path(FolderWith(nullptr, nullptr, nullptr)).is_absolute());
    FolderWith("/own", nullptr, nullptr);
    EXPECT_EQ(UserSchemeFile(), "/own/schemes.json");
}

}  // namespace
}  // namespace qor
