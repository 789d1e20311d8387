#include "viewer/command_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "embedded/import_files.h"
#include "support/temp_folder.h"

namespace qor::viewer {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const fs::path kExample = fs::path(QOR_SOURCE_DIR) / "docs" / "examples" / "firm";

struct Told {
    int status;
    std::string out, errors;
};

Told Import(const fs::path& folder, const fs::path& file) {
    std::ostringstream out, errors;
    const int status = ImportBooksInto(folder.string(), file.string(), out, errors);
    return {status, out.str(), errors.str()};
}

TEST(ImportCommand, TellsWhatIsNewAndWhatStood) {
    const test::TempFolder folder;
    const Told first = Import(kExample, folder / "books.db");
    EXPECT_EQ(first.status, 0) << first.errors;
    EXPECT_EQ(first.out,
              "base data: 70 new, 0 changed, 0 as they were\nbills: 50 new, 0 changed, 0 as they were\n");
    const Told again = Import(kExample, folder / "books.db");
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.out,
              "base data: 0 new, 0 changed, 70 as they were\nbills: 0 new, 0 changed, 50 as they were\n");
    EXPECT_EQ(again.errors, "");
}

TEST(ImportCommand, ListsAHundredMistakesAndCountsTheRest) {
    const test::TempFolder folder;
    fs::create_directory(folder / "firm");
    std::string bills = "kind,number,date,amount\n";
    for (int i = 0; i < 120; ++i) {
        bills += "YH," + std::to_string(i) + ",2025-01-01,\"1,000\"\n";
    }
    test::PutContent(folder / "firm/bills.csv", bills);
    const Told told = Import(folder / "firm", folder / "books.db");
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(told.out, "");
    EXPECT_THAT(told.errors, StartsWith("bills.csv:2: amount: \"1,000\" has thousands commas; write 1000\n"));
    EXPECT_THAT(told.errors, HasSubstr("\nbills.csv:101: amount: "));
    EXPECT_THAT(told.errors, EndsWith("\nand 20 more\nqorview import: 120 mistakes; nothing was imported\n"));
    EXPECT_FALSE(fs::exists(folder / "books.db"));
}

TEST(ImportCommand, SaysWhyItCannotBegin) {
    const test::TempFolder folder;
    const Told told = Import(folder / "nowhere", folder / "books.db");
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(told.errors, "qorview import: 文件夹不存在：" + (folder / "nowhere").string() + "\n");
}

TEST(ImportCommand, ItsPageNamesEveryFileColumnAndKind) {
    const std::string page = test::ContentOf(fs::path(QOR_SOURCE_DIR) / "docs" / "account-set.md");
    const auto expectNamed = [&](const CsvFile& file) {
        EXPECT_THAT(page, HasSubstr("`" + std::string(file.name) + "`"));
        for (const CsvColumn& column : file.columns) {
            const std::string name = "`" + std::string(column.name) + "`";
            EXPECT_THAT(page, HasSubstr(column.required ? "**" + name + "**" : name)) << file.name;
        }
    };
    for (const CsvFile& file : kOtherFiles) {
        expectNamed(file);
    }
    for (const ItemFile& row : kItemFiles) {
        expectNamed(row.file);
    }
    for (const BillKindRow& row : kBillKinds) {
        EXPECT_THAT(page, HasSubstr("| " + std::string(row.prefix) + " | " + std::string(row.name) + " |"));
    }
}

}  // namespace
}  // namespace qor::viewer
