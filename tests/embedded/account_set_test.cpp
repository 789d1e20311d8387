#include "embedded/account_set.h"

#include <gtest/gtest.h>

#include "embedded/sample.h"
#include "support/raises.h"
#include "support/temp_folder.h"

namespace qor {
namespace {

using test::TempFolder;

std::string Refusal(const std::filesystem::path& file) {
    const auto error = test::ErrorOf([&] { AccountSet set(file); });
    if (!error) return "";
    EXPECT_EQ(error->number(), kAccountSetError);
    return error->description();
}

TEST(AccountSet, AMissingFileIsNamed) {
    const TempFolder folder;
    EXPECT_EQ(Refusal(folder / "none"), "账套文件不存在：" + (folder / "none").string());
    EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST(AccountSet, AnotherFileIsNoAccountSet) {
    const TempFolder folder;
    test::PutContent(folder / "text", "these are no books, only words, and quite a few of them at that");
    test::PutContent(folder / "empty", "");
    Database(folder / "other", Database::Mode::Create).Run("CREATE TABLE t_Bill(FBillID)");
    for (const char* name : {"text", "empty", "other"}) {
        EXPECT_EQ(Refusal(folder / name), "不是账套文件：" + (folder / name).string());
    }
    EXPECT_EQ(Refusal(folder.path()), "不是账套文件：" + folder.path().string());
}

TEST(AccountSet, AnotherVersionIsRefused) {
    const TempFolder folder;
    const auto file = folder / "a";
    MakeSample(file, {.bills = 5});
    Database(file, Database::Mode::Create).Run("PRAGMA user_version=99");
    EXPECT_EQ(Refusal(file), "账套文件的版本是 99，需要的版本是 1：" + file.string());
}

TEST(AccountSet, IsOnlyRead) {
    const TempFolder folder;
    MakeSample(folder / "a", {.bills = 5});
    AccountSet set(folder / "a");
    EXPECT_THROW(set.database().Run("DELETE FROM t_Bill"), Error);
}

TEST(AccountSet, KnowsItsFirmAndItsUsers) {
    const TempFolder folder;
    MakeSample(folder / "a", {.bills = 5});
    AccountSet set(folder / "a");
    EXPECT_EQ(set.Name(), "示例商贸有限公司");
    EXPECT_EQ(set.UserName(16), "王芳");
    EXPECT_EQ(set.UserName(999), std::nullopt);
    EXPECT_TRUE(set.HasAllRights(1));
    EXPECT_FALSE(set.HasAllRights(16));
    EXPECT_FALSE(set.HasAllRights(999));
    EXPECT_EQ(set.Profile("IC", "StartPeriod"), "1");
    EXPECT_EQ(set.Profile("IC", "no such key"), std::nullopt);
    EXPECT_EQ(set.DeepestLevel(1121), 3);
    EXPECT_EQ(set.DeepestLevel(77), 0);
}

}  // namespace
}  // namespace qor
