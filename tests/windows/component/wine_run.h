// Running Windows programs in the project's wine prefix, with the component and the stage registered in it.
#pragma once

#include <filesystem>
#include <string>

namespace qor::component {

struct RunResult {
    int status = 0;
    std::string output;
    std::string errors;  // what wine itself may say of a process that is going, too
};

/// Runs a command of the shell.
RunResult RunCommand(const std::string& command);

/// Runs a Windows program with arguments, in `folder`; its schemes lie there too.
RunResult RunUnderWine(const std::filesystem::path& folder, const std::string& commandLine);

/// "Z:\..." for an absolute path.
std::string WindowsPath(const std::filesystem::path& path);

/// A new empty folder of that name for one test's files.
std::filesystem::path TestFolder(const std::string& name);

/// The 64-bit build's folder.
std::filesystem::path BuiltFolder();

}  // namespace qor::component
