// `qorview run` as people type it: every report on a sample firm, and each mistake.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <regex>
#include <string>

#include "embedded/sample.h"
#include "library.h"
#include "support/temp_folder.h"
#include "viewer/program.h"

namespace qor::viewer {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using testing::HasSubstr;
using testing::StartsWith;

/// A user's folder with a sample firm in it; schemes go there too.
class RunCommand : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        home_ = new test::TempFolder;
        MakeSample(*home_ / "sample.db", {.bills = 20000});
    }
    static void TearDownTestSuite() {
        delete home_;
        home_ = nullptr;
    }

    static Outcome Run(const std::string& arguments) { return test::RunProgram(arguments, home_->path()); }

    static inline test::TempFolder* home_ = nullptr;
};

int RowsIn(const std::string& out) {
    std::smatch found;
    return std::regex_search(out, found, std::regex("\n(\\d+) rows? in \\d+[.]\\d+ s\n"))
               ? std::stoi(found[1])
               : -1;
}

TEST_F(RunCommand, EveryReportHasFiguresOnTheSampleFirm) {
    for (const ReportEntry& report : Reports()) {
        const Outcome told = Run(std::to_string(report.description.number));
        EXPECT_EQ(told.status, 0) << told.errors;
        EXPECT_THAT(told.out, StartsWith(std::string(report.description.name) + "\n"));
        EXPECT_GT(RowsIn(told.out), 0) << told.out << told.errors;
    }
}

TEST_F(RunCommand, TheSampleFirmLivesOnItsLastDay) {
    EXPECT_THAT(Run("10522").out, HasSubstr("\n2025-06-01 至 2025-06-30\n"));
}

TEST_F(RunCommand, EverySummaryOpensTheDetailOfItsFirstRow) {
    for (const ReportEntry& report : Reports()) {
        const ReportDescription& summary = report.description;
        if (summary.detailRptID == 0) continue;
        const Outcome told = Run(std::to_string(summary.number) + " --drill 0");
        EXPECT_EQ(told.status, 0) << told.errors;
        EXPECT_THAT(told.out,
                    StartsWith(std::string(FindReport(summary.detailRptID)->description.name) + "\n"));
        EXPECT_GT(RowsIn(told.out), 0) << told.out;
    }
}

TEST_F(RunCommand, RunWithTheNumberIsTheSameAsTheNumberAlone) {
    const auto untimed = [](const Outcome& told) { return told.out.substr(0, told.out.rfind(" in ")); };
    EXPECT_EQ(untimed(Run("run 10524")), untimed(Run("10524")));
}

TEST_F(RunCommand, TheMachineFormatsHoldEveryRowUnrounded) {
    const Outcome csv = Run("10522 --format csv");
    const auto json = nlohmann::json::parse(Run("10522 --format json").out);
    const int rows = RowsIn(Run("10522").out);
    EXPECT_EQ(std::count(csv.out.begin(), csv.out.end(), '\n'), rows + 1);
    EXPECT_THAT(json.dump(), HasSubstr("收入类别"));
}

TEST_F(RunCommand, MistakesSayWhatWasExpected) {
    struct Row {
        const char* arguments;
        int status;
        const char* told;
    };
    for (const Row& row : {
             Row{"run", 2, "qorview run: "},
             Row{"10599", 2, "qorview run: no report 10599; `qorview list` names them"},
             Row{"10522 --set Colour=red", 2, "DtpBDate"},
             Row{"10522 --set DtpBDate", 2, "="},
             Row{"10522 --set DtpBDate=2025-07-31 --set DtpEDate=2025-07-01", 1, "不能大于"},
             Row{"10507 --set CheckState=1", 2, "asks for no filter"},
             Row{"10522 --format pdf", 2, "--format"},
             Row{"10522 --account-set /nowhere.db", 1, "/nowhere.db"},
             Row{"10522 --scheme 月末", 1, "月末"},
             Row{"10522 --drill 0", 2, "10522 opens no detail report"},
             Row{"10503 --drill 100000", 1, "qorview run: "},
         }) {
        const Outcome told = Run(row.arguments);
        EXPECT_EQ(told.status, row.status) << row.arguments << "\n" << told.errors;
        EXPECT_THAT(told.errors, HasSubstr(row.told)) << row.arguments;
        EXPECT_EQ(told.out, "") << row.arguments;
    }
}

}  // namespace
}  // namespace qor::viewer
