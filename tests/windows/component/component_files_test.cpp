// What the linked components export and import, as the linker wrote it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <regex>
#include <set>

#include "tests/windows/component/wine_run.h"

namespace qor::component {
namespace {

using Names = std::set<std::string>;

Names Found(const std::string& text, const char* pattern) {
    Names names;
    const std::regex expression(pattern);
    for (std::sregex_iterator found(text.begin(), text.end(), expression), end; found != end; ++found) {
        std::string name = (*found)[1];
        std::ranges::transform(name, name.begin(),
                               [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        names.insert(name);
    }
    return names;
}

struct Width {
    const char* name;
    const char* objdump;
    const char* folder;
    const char* machine;
};

void PrintTo(const Width& width, std::ostream* out) { *out << width.name; }

class ComponentFile : public testing::TestWithParam<Width> {
 protected:
    std::string Headers() const {
        const RunResult run = RunCommand(std::string(GetParam().objdump) + " -p '" QOR_SOURCE_DIR "/" +
                                         GetParam().folder + "/QORArApRpt.dll'");
        EXPECT_EQ(run.status, 0) << run.errors << "\nbuild it: ./run windows";
        return run.output;
    }
};

TEST_P(ComponentFile, IsOfItsWidth) {
    EXPECT_NE(Headers().find(GetParam().machine), std::string::npos) << Headers().substr(0, 200);
}

TEST_P(ComponentFile, ExportsTheFunctionsOfAComponentAndNothingElse) {
    EXPECT_EQ(Found(Headers(), "\\n\\t\\[ *\\d+\\] (?:\\+base\\[ *\\d+\\] +[0-9a-f]+ )?(\\w+)(?=\\n)"),
              (Names{"dllcanunloadnow", "dllgetclassobject", "dllinstall", "dllregisterserver",
                     "dllunregisterserver"}));
}

TEST_P(ComponentFile, NeedsNoLibraryButWindowsOwn) {
    const Names allowed{"advapi32.dll", "comctl32.dll", "gdi32.dll",   "kernel32.dll", "msvcrt.dll",
                        "ole32.dll",    "oleaut32.dll", "shell32.dll", "user32.dll",   "uxtheme.dll"};
    for (const std::string& library : Found(Headers(), "DLL Name: (\\S+)")) {
        EXPECT_TRUE(allowed.contains(library)) << library;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Of, ComponentFile,
    testing::Values(Width{"For64BitHosts", "x86_64-w64-mingw32-objdump", "build-windows64", "pei-x86-64"},
                    Width{"For32BitHosts", "i686-w64-mingw32-objdump", "build-windows32", "pei-i386"}),
    [](const auto& given) { return std::string(given.param.name); });

}  // namespace
}  // namespace qor::component
