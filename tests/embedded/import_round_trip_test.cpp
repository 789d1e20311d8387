// A whole firm goes out as CSV files and comes back: nothing is lost, nothing comes twice.
#include <gtest/gtest.h>

#include "embedded/firm_csv.h"
#include "embedded/import_folder.h"
#include "embedded/sample_fixture.h"
#include "platform/conversions.h"

namespace qor {
namespace {

namespace fs = std::filesystem;
using test::ContentOf;
using test::TempFolder;

std::string FirstMistakes(const ImportOutcome& outcome) {
    std::string text;
    for (const ImportMistake& mistake : outcome.mistakes.kept()) {
        text += mistake.Text() + "\n";
    }
    return text.substr(0, 2000);
}

/// The rows of a report with all its cells, by a filter without conditions.
std::string ReportText(const fs::path& file, const char* member) {
    MiddleTier tier(file, 1);
    const Ref<RecordSet> rows = test::AskReport(tier, "QORMArApRpt.Data", member, test::Filter({}));
    std::string text;
    for (; !rows->Eof(); rows->Move(1)) {
        for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
            text += ToText(rows->FieldAt(i)) + "|";
        }
        text += "\n";
    }
    return text;
}

void ExpectEqualFolders(const fs::path& a, const fs::path& b) {
    int files = 0;
    for (const auto& entry : fs::directory_iterator(a)) {
        EXPECT_EQ(ContentOf(entry.path()), ContentOf(b / entry.path().filename())) << entry.path();
        ++files;
    }
    EXPECT_EQ(files, 18);
}

TEST(ImportRoundTrip, AFirmThatWentOutComesBackTheSame) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        const TempFolder folder;
        AccountSet sample(test::SampleFile(seed));
        test::WriteFirmCsv(sample, folder / "out");
        const ImportOutcome outcome = ImportFolder(folder / "out", folder / "books.db");
        ASSERT_EQ(outcome.mistakes.count(), 0u) << FirstMistakes(outcome);
        EXPECT_EQ(outcome.bills.added, test::kFirmBills);
        EXPECT_EQ(outcome.bills.changed + outcome.bills.same, 0);
        AccountSet books(folder / "books.db");
        test::WriteFirmCsv(books, folder / "back");
        ExpectEqualFolders(folder / "out", folder / "back");
        for (const char* member : {"GetRpt10522Data", "GetRpt10524Data"}) {
            const std::string rows = ReportText(folder / "books.db", member);
            EXPECT_GT(rows.size(), 10000u);
            EXPECT_EQ(rows, ReportText(test::SampleFile(seed), member)) << member << ", seed " << seed;
        }
    }
}

TEST(ImportRoundTrip, TheSameFilesAgainChangeNothing) {
    const TempFolder folder;
    AccountSet sample(test::SampleFile());
    test::WriteFirmCsv(sample, folder / "out");
    ASSERT_EQ(ImportFolder(folder / "out", folder / "books.db").mistakes.count(), 0u);
    const std::string before = ContentOf(folder / "books.db");
    const ImportOutcome again = ImportFolder(folder / "out", folder / "books.db");
    ASSERT_EQ(again.mistakes.count(), 0u) << FirstMistakes(again);
    EXPECT_EQ(again.bills.added + again.bills.changed, 0);
    EXPECT_EQ(again.bills.same, test::kFirmBills);
    EXPECT_EQ(again.baseData.added + again.baseData.changed, 0);
    EXPECT_EQ(ContentOf(folder / "books.db"), before);
}

TEST(ImportRoundTrip, IntoTheFirmItselfItAddsNothing) {
    const TempFolder folder;
    AccountSet sample(test::SampleFile());
    test::WriteFirmCsv(sample, folder / "out");
    fs::copy_file(test::SampleFile(), folder / "books.db");
    const ImportOutcome outcome = ImportFolder(folder / "out", folder / "books.db");
    ASSERT_EQ(outcome.mistakes.count(), 0u) << FirstMistakes(outcome);
    EXPECT_FALSE(outcome.bills.HasNews() || outcome.baseData.HasNews());
    EXPECT_EQ(ContentOf(folder / "books.db"), ContentOf(test::SampleFile()));
}

}  // namespace
}  // namespace qor
