#include "frames/durable_file.h"
#include "frames/scheme_file_fixture.h"

namespace qor {
namespace {

using test::ContentOf;
using test::kOther;
using test::kScheme;
using test::Numbered;
using test::PutContent;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;
using FileSchemes = test::SchemeFile;

TEST_F(FileSchemes, WithoutAFileThereIsNoScheme) {
    EXPECT_THAT(store.Names(10522), IsEmpty());
    EXPECT_EQ(store.LastUsed(10522), "");
    EXPECT_FALSE(store.Find(10522, "方案"));
    EXPECT_FALSE(store.MarkUsed(10522, "方案"));
    EXPECT_FALSE(store.Remove(10522, "方案"));
    EXPECT_FALSE(fs::exists(file)) << "asking writes nothing";
}

TEST_F(FileSchemes, EveryKindOfValueComesBack) {
    store.Save(10522, "月末“对账”; a=b|c", kScheme);
    EXPECT_EQ(FileSchemeStore(file).Find(10522, "月末“对账”; a=b|c"), kScheme);
}

TEST_F(FileSchemes, NamesStandInTheOrderOfTheirFirstSaving) {
    for (const char* name : {"丙", "甲", "乙", "甲"}) {
        store.Save(10522, name, kOther);
    }
    EXPECT_THAT(FileSchemeStore(file).Names(10522), ElementsAre("丙", "甲", "乙"));
}

TEST_F(FileSchemes, SavingUnderTheSameNameReplaces) {
    store.Save(10522, "甲", kScheme);
    store.Save(10522, "甲", kOther);
    EXPECT_EQ(store.Find(10522, "甲"), kOther);
}

TEST_F(FileSchemes, ReportsDoNotShareSchemes) {
    store.Save(10522, "甲", kScheme);
    store.Save(10524, "甲", kOther);
    store.Save(10524, "乙", kOther);
    EXPECT_EQ(store.Find(10522, "甲"), kScheme);
    EXPECT_EQ(store.LastUsed(10522), "甲");
    EXPECT_TRUE(store.Remove(10524, "甲"));
    EXPECT_THAT(store.Names(10522), ElementsAre("甲"));
}

TEST_F(FileSchemes, TheLastOneSavedOrUsedIsRemembered) {
    store.Save(10522, "甲", kScheme);
    store.Save(10522, "乙", kOther);
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "乙");
    EXPECT_TRUE(store.MarkUsed(10522, "甲"));
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "甲");
    EXPECT_FALSE(store.MarkUsed(10522, "丙"));
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "甲");
}

TEST_F(FileSchemes, RemovingTheLastUsedOneLeavesTheOneSavedLast) {
    store.Save(10522, "甲", kScheme);
    store.Save(10522, "乙", kOther);
    EXPECT_TRUE(store.Remove(10522, "乙"));
    EXPECT_EQ(FileSchemeStore(file).LastUsed(10522), "甲");
    EXPECT_THAT(FileSchemeStore(file).Names(10522), ElementsAre("甲"));
    EXPECT_FALSE(store.Remove(10522, "乙"));
}

TEST_F(FileSchemes, AMissingFolderIsMade) {
    const fs::path deep = folder / "a/b/c/schemes.json";
    FileSchemeStore(deep).Save(10522, "甲", kScheme);
    EXPECT_EQ(FileSchemeStore(deep).Find(10522, "甲"), kScheme);
}

TEST_F(FileSchemes, OnlyItsUserCanReadIt) {
    store.Save(10522, "甲", kScheme);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FileSchemes, AnObjectInASchemeIsRefusedAndNothingIsWritten) {
    store.Save(10522, "甲", kScheme);
    const std::string before = ContentOf(file);
    EXPECT_THAT(MessageOf([&] { store.Save(10522, "甲", {{"Vect", Value::Nothing()}}); }), HasSubstr("Vect"));
    EXPECT_EQ(MessageOf([&] {
                  store.Save(10522, "甲", {{"Text", "\xff"}});
              }),
              "过滤方案含有不能保存的字符。");
    EXPECT_EQ(ContentOf(file), before);
}

// More than one at work.

TEST_F(FileSchemes, TwoStoresOnOneFileKeepEachOthersSchemes) {
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

TEST_F(FileSchemes, ProcessesAtTheSameTimeLoseNothing) {
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

TEST_F(FileSchemes, AnotherProgramsLockEndsInAMessageAndNotInAWait) {
    store.Save(10522, "甲", kScheme);
    const FileLock held(folder / "schemes.json.lock", std::chrono::seconds(1));
    EXPECT_EQ(store.Find(10522, "甲"), kScheme) << "reading needs no lock";
    EXPECT_THAT(
        MessageOf([&] { FileSchemeStore(file, std::chrono::milliseconds(30)).Save(10522, "乙", kOther); }),
        HasSubstr("另一个程序正在使用"));
}

}  // namespace
}  // namespace qor
