#include "viewer/program.h"

#include <sys/wait.h>

#include <cstdlib>

#include "support/temp_folder.h"

namespace qor::test {

namespace {

std::string Program() {
    const char* other = std::getenv("QORVIEW_PROGRAM");
    return other ? other : QORVIEW_PROGRAM;
}

std::string Quoted(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

}  // namespace

Outcome RunProgram(const std::string& arguments, const std::filesystem::path& home) {
    const TempFolder folder;
    const std::filesystem::path out = folder / "out", errors = folder / "errors";
    const std::string surroundings = home.empty() ? "" : "QORVIEW_HOME=" + Quoted(home) + " ";
    const int status = std::system((surroundings + Quoted(Program()) + " " + arguments + " </dev/null >" +
                                    Quoted(out) + " 2>" + Quoted(errors))
                                       .c_str());
    return {WEXITSTATUS(status), ContentOf(out), ContentOf(errors)};
}

}  // namespace qor::test
