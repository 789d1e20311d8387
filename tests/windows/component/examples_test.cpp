// The examples of docs/hosting.md run as they stand there.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/windows/component/wine_run.h"

namespace qor::component {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = QOR_SOURCE_DIR;

std::string ReadText(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

/// A server with two rows, and a user who fills one box and confirms.
constexpr const char* kConversation =
    "{\"components\": {\"QORMArApRpt.Data\": {\"GetRpt10522Data\": {\"recordset\": {"
    "\"fields\": [\"FName\", \"FAmount\"], \"rows\": [[\"A\", 128.5], [\"B\", 7]]}}}},"
    " \"steps\": [{\"user\": [{\"dialog\": \"frmFilter10522\", \"do\": ["
    "{\"text\": \"txtItem(0)\", \"to\": \"01\"}, {\"click\": \"cmdOK\"}]}]}]}";

std::string RunExample(const std::string& name, const std::string& commandLine) {
    const fs::path folder = TestFolder("examples/" + name);
    std::ofstream(folder / "conversation.json") << kConversation;
    setenv("QOR_STAGE", WindowsPath(folder / "conversation.json").c_str(), 1);
    const RunResult run = RunUnderWine(folder, commandLine);
    unsetenv("QOR_STAGE");
    EXPECT_EQ(run.status, 0) << run.output << run.errors;
    return run.output;
}

TEST(Examples, TheScriptHostPrintsTheRows) {
    const std::string output = RunExample(
        "script", "cscript //nologo '" + WindowsPath(kSource / "windows/examples/script_host.vbs") + "'");
    EXPECT_NE(output.find("A\t128.5\t\n"), std::string::npos) << output;
    EXPECT_NE(output.find("B\t7\t\n"), std::string::npos) << output;
}

TEST(Examples, TheCppHostPrintsTheRows) {
    const std::string output =
        RunExample("cpp", "'" + (BuiltFolder() / "windows_example.exe").string() + "'");
    EXPECT_NE(output.find("A\t128.5\t\n"), std::string::npos) << output;
    EXPECT_NE(output.find("B\t7\t\n"), std::string::npos) << output;
}

TEST(Examples, StandInTheGuide) {
    const std::string guide = ReadText(kSource / "docs/hosting.md");
    for (const char* example : {"script_host.vbs", "cpp_host.cpp"}) {
        EXPECT_NE(guide.find(ReadText(kSource / "windows/examples" / example)), std::string::npos)
            << "docs/hosting.md shows another " << example;
    }
}

TEST(Registration, ByTheScriptOfThePackage) {
    // As customers name their folders.
    const fs::path folder = TestFolder("reports & more (1)");
    fs::create_directory(folder / "x64");
    fs::copy(BuiltFolder() / "QORArApRpt.dll", folder / "x64");
    fs::copy(kSource / "windows/package/register.cmd", folder);
    EXPECT_EQ(RunUnderWine(folder, "cmd /c register.cmd").output, "done\n");
    std::ofstream(folder / "create.vbs")
        << "WScript.Echo WScript.CreateObject(\"QORArApRpt.Rpt10522\").RptID\r\n";
    EXPECT_EQ(RunUnderWine(folder, "cscript //nologo create.vbs").output, "0\n");
    EXPECT_EQ(RunUnderWine(folder, "cmd /c register.cmd /u").output, "done\n");
    // The other tests' component is registered from where it was built.
    EXPECT_EQ(RunUnderWine(BuiltFolder(), "regsvr32 /s QORArApRpt.dll").status, 0);
}

}  // namespace
}  // namespace qor::component
