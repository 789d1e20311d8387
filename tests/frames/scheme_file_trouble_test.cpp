#include <sys/resource.h>

#include <csignal>

#include "frames/scheme_file_fixture.h"

namespace qor {
namespace {

using test::ContentOf;
using test::InOwnProcess;
using test::kOther;
using test::kScheme;
using test::Numbered;
using test::PutContent;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;
using SchemeFileTrouble = test::SchemeFile;

// What a crash can leave.

TEST_F(SchemeFileTrouble, AHalfWrittenNewFileIsNeitherReadNorInTheWay) {
    store.Save(10522, "甲", kScheme);
    PutContent(folder / "schemes.json.new", R"({"version": 1, "reports": {"105)");
    EXPECT_EQ(store.Find(10522, "甲"), kScheme);
    store.Save(10522, "乙", kOther);
    EXPECT_THAT(store.Names(10522), ElementsAre("甲", "乙"));
    EXPECT_THAT(FilesInFolder(), ElementsAre("schemes.json", "schemes.json.lock"));
}

TEST_F(SchemeFileTrouble, AKilledWriterLeavesEverySchemeThatItReported) {
    for (int round = 0; round < 6; ++round) {
        fs::remove(file);
        int reported[2];
        ASSERT_EQ(::pipe(reported), 0);
        const pid_t writer = ::fork();
        if (writer == 0) {
            IgnoringErrors([&] {
                for (int number = 0;; ++number) {
                    store.Save(10522, Numbered(number), kScheme);
                    if (::write(reported[1], "x", 1) != 1) ::_exit(1);
                }
            });
            ::_exit(1);
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

TEST_F(SchemeFileTrouble, AFullDiskLeavesTheOldState) {
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

class DamagedSchemeFile : public test::SchemeFile, public testing::WithParamInterface<const char*> {};

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

TEST_F(SchemeFileTrouble, CutAtAnyPlaceItIsSetAsideOrWhole) {
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

TEST_F(SchemeFileTrouble, ALaterVersionIsRefusedAndLeftAsItIs) {
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

TEST_F(SchemeFileTrouble, ALastUsedNameWithoutItsSchemeCountsAsNone) {
    PutContent(file,
               R"({"version": 1, "reports": {"10522": {"lastUsed": "乙", "schemes": {"甲": {"K": 1}}}}})");
    EXPECT_EQ(store.LastUsed(10522), "");
    EXPECT_THAT(store.Names(10522), ElementsAre("甲"));
}

// Places that cannot be used.

TEST_F(SchemeFileTrouble, AFolderThatIsAFileIsSaid) {
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

TEST_F(SchemeFileTrouble, AReadOnlyFolderIsReadAndRefusesToSave) {
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

TEST_F(SchemeFileTrouble, ADamagedFileThatCannotBeRenamedIsToldAndLeft) {
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

TEST_F(SchemeFileTrouble, ALinkStaysALink) {
    const fs::path real = folder / "elsewhere.json";
    PutContent(real, R"({"version": 1, "reports": {}})");
    fs::create_symlink(real, file);
    store.Save(10522, "甲", kScheme);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(FileSchemeStore(real).Find(10522, "甲"), kScheme);
}

}  // namespace
}  // namespace qor
