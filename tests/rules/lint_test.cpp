// The rules that tools/lint checks: this tree keeps them, and every check finds what breaks it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace qor {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

struct LintRun {
    int status;
    std::string output;
};

LintRun RunLint(const fs::path& root, std::string_view check) {
    const std::string command = std::string(QOR_SOURCE_DIR) + "/tools/lint --root '" + root.string() + "' " +
                                std::string(check) + " 2>&1 </dev/null";
    LintRun run{.status = -1, .output = {}};
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return run;
    std::array<char, 4096> chunk;
    while (const std::size_t length = std::fread(chunk.data(), 1, chunk.size(), pipe))
        run.output.append(chunk.data(), length);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

class ThisTree : public testing::TestWithParam<const char*> {};

TEST_P(ThisTree, KeepsTheRule) {
    const LintRun run = RunLint(QOR_SOURCE_DIR, GetParam());
    EXPECT_EQ(run.status, 0) << run.output;
}

INSTANTIATE_TEST_SUITE_P(Lint, ThisTree,
                         testing::Values("floors", "portable", "parsing", "errors", "names", "size"),
                         [](const auto& each) { return std::string(each.param); });

struct Breach {
    const char* name;
    const char* check;
    const char* path;
    std::string_view content;
    const char* found;  // what lint says of it
};

void PrintTo(const Breach& breach, std::ostream* out) { *out << breach.name; }

class BrokenTree : public testing::TestWithParam<Breach> {
 protected:
    void SetUp() override {
        root_ = fs::temp_directory_path() / ("lint_test_" + std::to_string(::getpid()) + GetParam().name);
        fs::remove_all(root_);
        // What the includes of the rows below name.
        for (const char* header : {"src/platform/value.h", "src/dialogs/plain_dialog.h", "src/progress/bar.h",
                                   "src/report/column_table.h", "src/report/report_object.h",
                                   "src/reports/income/category_detail.h", "viewer/report_view.h",
                                   "windows/bridge.h", "windows/form_window.h", "tests/support/person.h"})
            Write(header, "#pragma once\n");
    }
    void TearDown() override { fs::remove_all(root_); }

    void Write(const fs::path& path, std::string_view content) {
        fs::create_directories((root_ / path).parent_path());
        std::ofstream(root_ / path, std::ios::binary) << content;
    }

    fs::path root_;
};

TEST_P(BrokenTree, IsFound) {
    const Breach& breach = GetParam();
    EXPECT_EQ(RunLint(root_, breach.check).output, "") << "the tree without the breach";
    Write(breach.path, breach.content);
    const LintRun run = RunLint(root_, breach.check);
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output, HasSubstr(breach.path));
    EXPECT_THAT(run.output, HasSubstr(breach.found));
    EXPECT_THAT(run.output, HasSubstr("mend: "));
}

const std::string kLongFile(401, '\n');

const Breach kBreaches[] = {
    {"FloorAbove", "floors", "src/platform/a.h", "#include \"dialogs/plain_dialog.h\"\n",
     "platform may not include dialogs"},
    {"FloorBeside", "floors", "src/progress/a.h", "#include \"report/column_table.h\"\n",
     "progress may not include tables"},
    {"TableAboveProgress", "floors", "src/report/column_table.cpp", "#include \"progress/bar.h\"\n",
     "tables may not include progress"},
    {"DialogIncludesReport", "floors", "src/dialogs/a.cpp", "#include \"reports/income/category_detail.h\"\n",
     "dialogs may not include reports"},
    {"HostPastLateBinding", "floors", "viewer/a.cpp", "#include \"reports/income/category_detail.h\"\n",
     "viewer may not include reports"},
    {"ServerPastLateBinding", "floors", "embedded/a.cpp", "#include \"report/report_object.h\"\n",
     "embedded may not include report"},
    {"OutsideFromInside", "floors", "src/library.cpp", "#include \"viewer/report_view.h\"\n",
     "library may not include viewer"},
    {"BorderIncludesWindow", "floors", "windows/dispatch_object.cpp", "#include \"windows/form_window.h\"\n",
     "border may not include drawn"},
    {"WindowIncludesBorder", "floors", "windows/grid_window.cpp", "#include \"windows/bridge.h\"\n",
     "drawn may not include border"},
    {"WindowIncludesReport", "floors", "windows/frame_bar.cpp",
     "#include \"reports/income/category_detail.h\"\n", "drawn may not include reports"},
    {"ComponentIncludesTest", "floors", "windows/exports.cpp", "#include \"support/person.h\"\n",
     "component may not include support"},
    {"NoSuchFile", "floors", "src/platform/a.h", "#include \"platform/b.h\"\n", "no file"},
    {"NoRoom", "floors", "src/a.h", "\n", "stands in no room"},
    {"ForeignHeader", "portable", "src/services/a.cpp", "#include <windows.h>\n", "is no standard header"},
    {"ForeignLibrary", "portable", "src/services/a.cpp", "#include <nlohmann/json.hpp>\n",
     "is no standard header"},
    {"Conditional", "portable", "src/services/a.cpp", "#ifdef _WIN32\n", "#ifdef _WIN32"},
    {"Macro", "portable", "src/services/a.cpp", "#define MAX 3\n", "#define MAX 3"},
    {"NumberParsed", "parsing", "viewer/a.cpp", "int n = std::stoi(text);\n", "std::stoi"},
    {"NumberParsedFromChars", "parsing", "src/report/a.cpp", "std::from_chars(a, b, n);\n", "from_chars"},
    {"DateParsed", "parsing", "embedded/a.cpp", "strptime(text, form, &time);\n", "strptime"},
    {"ErrorCaughtInSrc", "errors", "src/report/a.cpp", "try { f(); } catch (const Error&) { g(); }\n",
     "catch"},
    {"ErrorSwallowed", "errors", "viewer/a.cpp", "try {\n    f();\n} catch (...) {\n}\n", "catch"},
    {"ErrorSwallowedWithARemark", "errors", "viewer/a.cpp", "} catch (const E&) {  // never mind\n}\n",
     "catch"},
    {"ErrorSwallowedInOneLine", "errors", "embedded/a.cpp", "try { f(); } catch (...) {}\n", "catch"},
    {"TwoFilesOfOneName", "names", "src/report/value.h", "", "src/platform/value.h"},
    {"LongFile", "size", "src/report/a.cpp", kLongFile, "more than 400 lines"},
    {"HistoryOfAText", "words", "docs/a.md",
     "See P"
     "art 1.2.\n",
     "docs/a.md:1"},
    {"BrokenScript", "scripts", "tools/a", "#!/bin/sh\nif true\n", "syntax error"},
    {"ScriptWithoutRunBit", "scripts", "bench/windows/a", "#!/bin/sh\ntrue\n", "no run bit"},
    {"Unformatted", "format", "src/report/a.cpp", "int  a ;\n", "clang-format"},
};

INSTANTIATE_TEST_SUITE_P(Lint, BrokenTree, testing::ValuesIn(kBreaches),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace qor
