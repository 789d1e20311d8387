#include "frames/file_scheme_store.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "frames/durable_file.h"
#include "platform/conversions.h"
#include "support/raises.h"
#include "support/temp_folder.h"

namespace qor {
namespace {

using test::ContentOf;
using test::ErrorOf;
using test::PutContent;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

const SavedScheme kScheme{{"BDate", DateFromCalendar(2020, 9, 1).value()},
                          {"BCustNumber", "客户“甲”|a=b;c\r\n\\"},
                          {"UserID", std::int32_t{16}},
                          {"CheckState", std::int16_t{2}},
                          {"Rate", 7.0},
                          {"Share", 0.1F},
                          {"OptByCust", true},
                          {"Nothing", Value::Null()},
                          {"Unset", Value()},
                          {"", ""}};
const SavedScheme kOther{{"K", "V"}};

std::string Numbered(int number) { return "方案" + std::to_string(number); }

class SchemeFile : public testing::Test {
 protected:
    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(file.parent_path())) {
            names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }
    std::string MessageOf(auto&& step) const {
        const auto error = ErrorOf(step);
        return error ? error->description() : "";
    }

    test::TempFolder folder;
    const fs::path file = folder / "schemes.json";
    FileSchemeStore store{file};
};

/// Runs `work` in a process of its own and answers its exit status; -1 where it did not come to its end.
int InOwnProcess(auto&& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        int status = 99;
        IgnoringErrors([&] { status = work(); });
        ::_exit(status);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(SchemeFile, WithoutAFileThereIsNoScheme) {
    EXPECT_THAT(store.Names(10522), IsEmpty());
    EXPECT_EQ(store.LastUsed(10522), "");
    EXPECT_FALSE(store.Find(10522, "方案"));
    EXPECT_FALSE(store.MarkUsed(10522, "方案"));
    EXPECT_FALSE(store.Remove(10522, "方案"));
    EXPECT_FALSE(fs::exists(file)) << "asking writes nothing";
}

TEST_F(SchemeFile, EveryKindOfValueComesBack) {
    store.Save(10522, "月末“对账”; a=b|c", kScheme);
    EXPECT_EQ(FileSchemeStore(file).Find(10522, "月末“对账”; a=b|c"), kScheme);
}

TEST_F(SchemeFile, NamesStandInTheOrderOfTheirFirstSaving) {
    for (const char* name : {"丙", "甲", "乙", "甲"}) {
        store.Save(10522, name, kOther);
    }
    EXPECT_THAT(FileSchemeStore(file).Names(10522), ElementsAre("丙", "甲", "乙"));
}

TEST_F(SchemeFile, SavingUnderTheSameNameReplaces) {
    store.Save(10522, "甲", kScheme);
    store.Save(10522, "甲", kOther);
    EXPECT_EQ(store.Find(10522, "甲"), kOther);
}

TEST_F(SchemeFile, ReportsDoNotShareSchemes) {
    store.Save(10522, "甲", kScheme);
    store.Save(10524, "甲", kOther);
    store.Save(10524, "乙", kOther);
    EXPECT_EQ(store.Find(10522, "甲"), kScheme);
    EXPECT_EQ(store.LastUsed(10522), "甲");
    EXPECT_TRUE(store.Remove(10524, "甲"));
    EXPECT_THAT(store.Names(10522), ElementsAre("甲"));
}

TEST_F(SchemeFile, TheLastOneSavedOrUsedIsRemembered) {
    store.Save(10522, "甲", kScheme);
    store.Save(10522, "乙", kOther);
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "乙");
    EXPECT_TRUE(store.MarkUsed(10522, "甲"));
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "甲");
    EXPECT_FALSE(store.MarkUsed(10522, "丙"));
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "甲");
}

TEST_F(SchemeFile, RemovingTheLastUsedOneLeavesNone) {
    store.Save(10522, "甲", kScheme);
    store.Save(10522, "乙", kOther);
    EXPECT_TRUE(store.Remove(10522, "乙"));
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "");
    EXPECT_THAT(FileSchemeStore(file).Names(10522), ElementsAre("甲"));
    EXPECT_FALSE(store.Remove(10522, "乙"));
}

TEST_F(SchemeFile, AMissingFolderIsMade) {
    const fs::path deep = folder / "a/b/c/schemes.json";
    FileSchemeStore(deep).Save(10522, "甲", kScheme);
    EXPECT_EQ(FileSchemeStore(deep).Find(10522, "甲"), kScheme);
}

TEST_F(SchemeFile, OnlyItsUserCanReadIt) {
    store.Save(10522, "甲", kScheme);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SchemeFile, AnObjectInASchemeIsRefusedAndNothingIsWritten) {
    store.Save(10522, "甲", kScheme);
    const std::string before = ContentOf(file);
    EXPECT_THAT(MessageOf([&] { store.Save(10522, "甲", {{"Vect", Value::Nothing()}}); }), HasSubstr("Vect"));
    EXPECT_EQ(MessageOf([&] {
                  store.Save(10522, "甲", {{"Text", "\xff"}});
              }),
              "过滤方案含有不能保存的字符。");
    EXPECT_EQ(ContentOf(file), before);
}

// What a crash can leave.

TEST_F(SchemeFile, AHalfWrittenNewFileIsNeitherReadNorInTheWay) {
    store.Save(10522, "甲", kScheme);
    PutContent(folder / "schemes.json.new", R"({"version": 1, "reports": {"105)");
    EXPECT_EQ(store.Find(10522, "甲"), kScheme);
    store.Save(10522, "乙", kOther);
    EXPECT_THAT(store.Names(10522), ElementsAre("甲", "乙"));
    EXPECT_THAT(FilesInFolder(), ElementsAre("schemes.json", "schemes.json.lock"));
}

TEST_F(SchemeFile, AKilledWriterLeavesEverySchemeThatItReported) {
    for (int round = 0; round < 6; ++round) {
        fs::remove(file);
        int reported[2];
        ASSERT_EQ(::pipe(reported), 0);
        const pid_t writer = ::fork();
        if (writer == 0) {
            for (int number = 0;; ++number) {
                store.Save(10522, Numbered(number), kScheme);
                if (::write(reported[1], "x", 1) != 1) ::_exit(1);
            }
        }
        ::close(reported[1]);
        std::size_t saved = 0;
        char mark = 0;
        for (int wanted = 1 + round * 2; wanted > 0 && ::read(reported[0], &mark, 1) == 1; --wanted) {
            ++saved;
        }
        ::usleep(static_cast<useconds_t>(300 * round));
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        while (::read(reported[0], &mark, 1) == 1) {
            ++saved;
        }
        ::close(reported[0]);

        const auto names = store.Names(10522);
        EXPECT_GE(names.size(), saved);
        EXPECT_LE(names.size(), saved + 1) << "one more may be written and not yet reported";
        for (const std::string& name : names) {
            EXPECT_EQ(store.Find(10522, name), kScheme);
        }
        store.Save(10522, "后来的", kOther);  // the dead writer's lock is gone with it
        EXPECT_EQ(store.Names(10522).size(), names.size() + 1);
    }
}

TEST_F(SchemeFile, AFullDiskLeavesTheOldState) {
    store.Save(10522, "甲", kScheme);
    const std::string before = ContentOf(file);
    const int status = InOwnProcess([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit little{before.size() / 2, before.size() / 2};
        ::setrlimit(RLIMIT_FSIZE, &little);
        const std::string message = MessageOf([&] { store.Save(10522, "乙", kOther); });
        return message.find(file.string()) != std::string::npos ? 7 : 8;
    });
    EXPECT_EQ(status, 7) << "the message names the file";
    EXPECT_EQ(ContentOf(file), before);
    EXPECT_THAT(FilesInFolder(), ElementsAre("schemes.json", "schemes.json.lock"));
}

// Files that cannot be understood.

class DamagedSchemeFile : public SchemeFile, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(
    Each, DamagedSchemeFile,
    testing::Values("", "garbage", "{", "[]", "null", "7", "{}", R"({"version": 1})",
                    R"({"version": "1", "reports": {}})", R"({"version": 0, "reports": {}})",
                    R"({"version": 1, "reports": []})", R"({"version": 1, "reports": {"x": {}}})",
                    R"({"version": 1, "reports": {"10522": 7}})",
                    R"({"version": 1, "reports": {"10522": {"lastUsed": "", "schemes": {"a": {"K": [1]}}}}})",
                    R"({"version": 1, "reports": {"10522": {"lastUsed": "甲")"));

TEST_P(DamagedSchemeFile, IsSetAsideWithAMessageThatSaysWhere) {
    PutContent(file, GetParam());
    const std::string message = MessageOf([&] { store.Names(10522); });
    EXPECT_THAT(message, HasSubstr("“" + file.string() + "”已损坏"));
    EXPECT_THAT(message, HasSubstr("“" + (folder / "schemes.damaged-1.json").string() + "”"));
    EXPECT_EQ(ContentOf(folder / "schemes.damaged-1.json"), GetParam());
    EXPECT_FALSE(fs::exists(file));

    EXPECT_THAT(store.Names(10522), IsEmpty()) << "told once; then an empty list";
    store.Save(10522, "甲", kScheme);
    EXPECT_EQ(store.Find(10522, "甲"), kScheme);
}

TEST_P(DamagedSchemeFile, IsNeverWrittenOver) {
    PutContent(file, GetParam());
    EXPECT_NE(MessageOf([&] { store.Save(10522, "甲", kScheme); }), "");
    EXPECT_EQ(ContentOf(folder / "schemes.damaged-1.json"), GetParam());
    PutContent(file, "again");
    EXPECT_NE(MessageOf([&] { store.Remove(10522, "甲"); }), "");
    EXPECT_EQ(ContentOf(folder / "schemes.damaged-1.json"), GetParam());
    EXPECT_EQ(ContentOf(folder / "schemes.damaged-2.json"), "again");
}

TEST_F(SchemeFile, CutAtAnyPlaceItIsSetAsideOrWhole) {
    store.Save(10522, "甲", kScheme);
    const std::string whole = ContentOf(file);
    const std::size_t end = whole.find_last_not_of('\n') + 1;
    for (std::size_t length = 0; length < end; ++length) {
        PutContent(file, whole.substr(0, length));
        EXPECT_NE(MessageOf([&] { store.Names(10522); }), "") << "cut at " << length;
        EXPECT_FALSE(fs::exists(file));
    }
    EXPECT_EQ(ContentOf(folder / ("schemes.damaged-" + std::to_string(end) + ".json")),
              whole.substr(0, end - 1));
}

TEST_F(SchemeFile, ALaterVersionIsRefusedAndLeftAsItIs) {
    for (const char* text :
         {R"({"version": 2, "reports": {}, "more": 1})",
          R"({"version": 99999999999999999999999999, "anything": true})", R"({"version": 3000000000})"}) {
        PutContent(file, text);
        for (const std::string& message :
             {MessageOf([&] { store.Names(10522); }), MessageOf([&] { store.Find(10522, "甲"); }),
              MessageOf([&] { store.Save(10522, "甲", kScheme); }),
              MessageOf([&] { store.Remove(10522, "甲"); })}) {
            EXPECT_THAT(message, HasSubstr("“" + file.string() + "”由更新版本的程序写成"));
        }
        EXPECT_EQ(ContentOf(file), text);
    }
    EXPECT_THAT(FilesInFolder(), ElementsAre("schemes.json", "schemes.json.lock"));
}

TEST_F(SchemeFile, ALastUsedNameWithoutItsSchemeCountsAsNone) {
    PutContent(file,
               R"({"version": 1, "reports": {"10522": {"lastUsed": "乙", "schemes": {"甲": {"K": 1}}}}})");
    EXPECT_EQ(store.LastUsed(10522), "");
    EXPECT_THAT(store.Names(10522), ElementsAre("甲"));
}

// Places that cannot be used.

TEST_F(SchemeFile, AFolderThatIsAFileIsSaid) {
    PutContent(folder / "blocked", "");
    FileSchemeStore blocked(folder / "blocked/schemes.json");
    EXPECT_THAT(MessageOf([&] { blocked.Save(10522, "甲", kScheme); }), HasSubstr("blocked"));
    EXPECT_THAT(MessageOf([&] { blocked.Names(10522); }), HasSubstr("blocked"));
}

/// As a user to whom permissions mean something.
int WithoutPrivileges(auto&& work) {
    return InOwnProcess([&] {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) return 98;
        return work();
    });
}

TEST_F(SchemeFile, AReadOnlyFolderIsReadAndRefusesToSave) {
    store.Save(10522, "甲", kScheme);
    const std::string before = ContentOf(file);
    fs::permissions(file, fs::perms::owner_read | fs::perms::others_read);
    fs::permissions(folder / "schemes.json.lock", fs::perms::owner_read | fs::perms::others_read);
    fs::permissions(folder.path(), fs::perms(0555));
    const int status = WithoutPrivileges([&] {
        if (store.Find(10522, "甲") != kScheme) return 1;
        if (!store.MarkUsed(10522, "甲")) return 2;
        const std::string message = MessageOf([&] { store.Save(10522, "乙", kOther); });
        return message.find("没有权限") != std::string::npos ? 7 : 3;
    });
    EXPECT_EQ(status, 7);
    EXPECT_EQ(ContentOf(file), before);
}

TEST_F(SchemeFile, ADamagedFileThatCannotBeRenamedIsToldAndLeft) {
    PutContent(file, "garbage");
    fs::permissions(file, fs::perms(0444));
    fs::permissions(folder.path(), fs::perms(0555));
    const int status = WithoutPrivileges([&] {
        for (int time = 0; time < 2; ++time) {
            if (MessageOf([&] { store.Names(10522); }).find("”已损坏") == std::string::npos) return 1;
        }
        return 7;
    });
    EXPECT_EQ(status, 7);
    EXPECT_EQ(ContentOf(file), "garbage");
}

TEST_F(SchemeFile, ALinkStaysALink) {
    const fs::path real = folder / "elsewhere.json";
    PutContent(real, R"({"version": 1, "reports": {}})");
    fs::create_symlink(real, file);
    store.Save(10522, "甲", kScheme);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(FileSchemeStore(real).Find(10522, "甲"), kScheme);
}

// More than one at work.

TEST_F(SchemeFile, TwoStoresOnOneFileKeepEachOthersSchemes) {
    FileSchemeStore second(file);
    store.Save(10522, "甲", kScheme);
    second.Save(10522, "乙", kOther);
    store.Save(10524, "丙", kOther);
    EXPECT_TRUE(second.MarkUsed(10522, "甲"));
    EXPECT_TRUE(store.Remove(10522, "乙"));
    second.Save(10522, "丁", kOther);
    for (FileSchemeStore* each : {&store, &second}) {
        EXPECT_THAT(each->Names(10522), ElementsAre("甲", "丁"));
        EXPECT_THAT(each->Names(10524), ElementsAre("丙"));
        EXPECT_EQ(each->LastUsed(10522), "丁");
    }
}

TEST_F(SchemeFile, ProcessesAtTheSameTimeLoseNothing) {
    constexpr int kProcesses = 4, kEach = 12;
    std::vector<pid_t> writers;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t writer = ::fork();
        if (writer == 0) {
            int status = 1;
            IgnoringErrors([&] {
                for (int i = 0; i < kEach; ++i) {
                    store.Save(10522, Numbered(process * kEach + i), kScheme);
                }
                status = 0;
            });
            ::_exit(status);
        }
        writers.push_back(writer);
    }
    for (const pid_t writer : writers) {
        int status = 0;
        ::waitpid(writer, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(store.Names(10522).size(), static_cast<std::size_t>(kProcesses * kEach));
}

TEST_F(SchemeFile, AnotherProgramsLockEndsInAMessageAndNotInAWait) {
    store.Save(10522, "甲", kScheme);
    const FileLock held(folder / "schemes.json.lock", std::chrono::seconds(1));
    EXPECT_EQ(store.Find(10522, "甲"), kScheme) << "reading needs no lock";
    EXPECT_THAT(
        MessageOf([&] { FileSchemeStore(file, std::chrono::milliseconds(30)).Save(10522, "乙", kOther); }),
        HasSubstr("另一个程序正在使用"));
}

// Where the file lies.

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
