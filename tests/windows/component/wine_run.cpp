#include "tests/windows/component/wine_run.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace qor::component {

namespace fs = std::filesystem;

namespace {

std::string ReadLines(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::erase(text, '\r');
    return text;
}

}  // namespace

// Through files: a pipe would stay open as long as anything lives that the command started.
RunResult RunCommand(const std::string& command) {
    const fs::path folder(QOR_BINARY_DIR);
    const fs::path output = folder / "component-tests-output.txt",
                   errors = folder / "component-tests-errors.txt";
    const int status =
        std::system((command + " >'" + output.string() + "' 2>'" + errors.string() + "'").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128, ReadLines(output), ReadLines(errors)};
}

RunResult RunUnderWine(const fs::path& folder, const std::string& commandLine) {
    return RunCommand("cd '" + folder.string() + "' && QORVIEW_HOME='" + WindowsPath(folder) +
                      "' timeout 120 '" QOR_SOURCE_DIR "/tests/windows/wine' " + commandLine + " </dev/null");
}

std::string WindowsPath(const fs::path& path) {
    std::string text = "Z:" + path.string();
    std::ranges::replace(text, '/', '\\');
    return text;
}

fs::path TestFolder(const std::string& name) {
    const fs::path folder = fs::path(QOR_BINARY_DIR) / "component-tests" / name;
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

fs::path BuiltFolder() { return fs::path(QOR_SOURCE_DIR) / "build-windows64"; }

}  // namespace qor::component
