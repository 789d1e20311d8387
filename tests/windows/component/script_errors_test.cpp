// What a script host is told of calls that fail: the number, and the component's own words where it has any.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/windows/component/wine_run.h"

namespace qor::component {
namespace {

struct Failing {
    const char* statement;
    const char* told;  // number and source
};

constexpr Failing kFailing[] = {
    {"report.NoSuchMember", "438 "},
    {"report.NoSuchMember = 5", "438 "},
    {"report.Rs = 5", "438 QORArApRpt"},
    {"number = report.ExtFirter", "438 QORArApRpt"},
    {"report.GetDetailReport", "449 QORArApRpt"},
    {"report.GetDetailReport 1, 2", "450 QORArApRpt"},
    {"report.GetDetailReport \"first\"", "13 QORArApRpt"},
    {"report.GetDetailReport 3000000000", "6 QORArApRpt"},
    {"report.RptID = \"first\"", "13 QORArApRpt"},
    {"number = report.Property(\"Name\", 1, 2)", "450 QORArApRpt"},
};

TEST(ScriptErrors, CarryNumberSourceAndWords) {
    const std::filesystem::path folder = TestFolder("script_errors");
    std::ofstream script(folder / "errors.vbs");
    script << "Set report = WScript.CreateObject(\"QORArApRpt.Rpt10503\")\r\nOn Error Resume Next\r\n";
    for (const Failing& failing : kFailing) {
        script << failing.statement
               << "\r\nWScript.Echo Err.Number & \" \" & Err.Source & \" \" & (Len(Err.Description) > 0)\r\n"
                  "Err.Clear\r\n";
    }
    script.close();
    const RunResult run = RunUnderWine(folder, "cscript //nologo errors.vbs");
    std::istringstream lines(run.output);
    for (const Failing& failing : kFailing) {
        std::string line;
        std::getline(lines, line);
        EXPECT_EQ(line.find(failing.told), 0u) << failing.statement << ": " << line;
        EXPECT_TRUE(line.ends_with(" True")) << failing.statement << ": " << line;
    }
}

}  // namespace
}  // namespace qor::component
