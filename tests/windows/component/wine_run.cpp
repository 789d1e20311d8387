#include "tests/windows/component/wine_run.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdio>

namespace qor::component {

namespace fs = std::filesystem;

RunResult RunCommand(const std::string& command) {
    RunResult result;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return {-1, "no process"};
    char part[4096];
    while (const std::size_t count = std::fread(part, 1, sizeof part, pipe)) {
        result.output.append(part, count);
    }
    const int status = pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128;
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
