// Files that a crash or a power cut leaves in their old or in their new state, never between, and the lock
// that keeps processes from undoing each other's changes. Whatever depends on the platform about keeping
// files stands behind this header. Everything raises Error 75 with a message for the user.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

/// Where the program keeps this user's data, as an absolute path: the folder that QORVIEW_HOME names, else
/// `qorview` in the platform's data folder. It need not exist.
std::filesystem::path UserDataFolder();

/// The whole content; nothing where there is no such file.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& file);

/// Puts `content` in place of the file in one step, and returns when it would survive a power cut. A folder
/// that is missing is made. Callers hold a lock: what an earlier attempt left over is written over.
void ReplaceFile(const std::filesystem::path& file, std::string_view content);

/// Renames the file to a free name beside it, which has `mark` and a number in it; answers that name.
std::filesystem::path SetAside(const std::filesystem::path& file, std::string_view mark);

/// Held by one owner at a time, in this process and in all others. The lock file stays for the next one.
class FileLock {
 public:
    /// Waits that long at most for whoever holds it. A folder that is missing is made.
    FileLock(const std::filesystem::path& lockFile, std::chrono::milliseconds longestWait);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

 private:
    std::intptr_t handle_;  // the platform's own
};

}  // namespace qor
