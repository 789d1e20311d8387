#include "tests/windows/component/wine_run.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace qor::component {

namespace fs = std::filesystem;

// Through a file: a pipe would stay open as long as anything lives that the command started.
RunResult RunCommand(const std::string& command) {
    const fs::path output = fs::path(QOR_BINARY_DIR) / "component-tests-output.txt";
    const int status = std::system((command + " >'" + output.string() + "' 2>&1").c_str());
    std::ifstream file(output, std::ios::binary);
    RunResult result{WIFEXITED(status) ? WEXITSTATUS(status) : 128,
                     {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}};
    std::erase(result.output, '\r');
    return result;
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
