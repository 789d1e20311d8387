// The pages of docs/reports tell what the reports do: their tables are those of the code.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "library.h"
#include "viewer/pages/report_tables.h"

namespace qor::viewer {
namespace {

namespace fs = std::filesystem;

const fs::path kPages = fs::path(QOR_SOURCE_DIR) / "docs" / "reports";

std::string ReadText(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

TEST(ReportPages, TheirTablesAreCurrent) {
    for (const auto& entry : fs::directory_iterator(kPages)) {
        const std::string page = ReadText(entry.path());
        EXPECT_EQ(page, WithCurrentTables(page))
            << "write it anew: build/qor_pages docs/reports/" << entry.path().filename().string();
    }
}

TEST(ReportPages, EveryReportHasItsTables) {
    std::string all;
    for (const auto& entry : fs::directory_iterator(kPages)) {
        all += ReadText(entry.path());
    }
    for (const ReportEntry& report : Reports()) {
        const std::string mark = "<!-- tables of " + std::to_string(report.description.number) + " -->";
        EXPECT_NE(all.find(mark), std::string::npos) << "put " << mark << " into a page of docs/reports";
    }
}

TEST(ReportPages, AMarkWithoutItsEndIsRefused) {
    EXPECT_THROW(WithCurrentTables("<!-- tables of 10522 -->\n"), std::runtime_error);
}

}  // namespace
}  // namespace qor::viewer
