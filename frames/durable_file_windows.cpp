#include <windows.h>
#undef ReplaceFile

#include <algorithm>
#include <system_error>
#include <thread>

#include "frames/durable_file.h"
#include "frames/file_failure.h"
#include "platform/error.h"

namespace qor {

namespace fs = std::filesystem;

namespace {

constexpr auto kBetweenTries = std::chrono::milliseconds(10);
// A virus scanner or an indexer that looks at a new file holds it for moments.
constexpr int kTriesToReplace = 100;

std::string Reason(DWORD code) {
    switch (code) {
        case ERROR_ACCESS_DENIED:
            return "没有权限";
        case ERROR_WRITE_PROTECT:
            return "磁盘是只读的";
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return "磁盘空间不足";
        case ERROR_FILE_TOO_LARGE:
            return "文件过大";
        case ERROR_CRC:
        case ERROR_IO_DEVICE:
            return "磁盘读写出错";
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return std::string(kInUse);
        case ERROR_DIRECTORY:
        case ERROR_ALREADY_EXISTS:
            return "同名的文件或文件夹已经存在";
        default:
            return "错误 " + std::to_string(code);
    }
}

[[noreturn]] void FailWith(DWORD code, std::string_view attempt, const fs::path& file) {
    FailOnFile(attempt, file, Reason(code));
}

class Handle {
 public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (IsOpen()) CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE get() const { return handle_; }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
    HANDLE handle_;
};

HANDLE Open(const fs::path& file, DWORD access, DWORD disposition, DWORD flags = FILE_ATTRIBUTE_NORMAL) {
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return CreateFileW(file.c_str(), access, kShared, nullptr, disposition, flags, nullptr);
}

void MakeFolder(const fs::path& folder) {
    std::error_code failed;
    fs::create_directories(folder, failed);
    if (failed && !fs::is_directory(folder)) {
        FailWith(static_cast<DWORD>(failed.value()), kCannotMakeFolder, folder);
    }
}

void WriteFresh(const fs::path& fresh, std::string_view content, const fs::path& target) {
    const Handle file(Open(fresh, GENERIC_WRITE, CREATE_ALWAYS));
    if (!file.IsOpen()) FailWith(GetLastError(), kCannotWrite, target);
    while (!content.empty()) {
        const auto part = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1 << 20));
        DWORD written = 0;
        if (!WriteFile(file.get(), content.data(), part, &written, nullptr)) {
            FailWith(GetLastError(), kCannotWrite, target);
        }
        content.remove_prefix(written);
    }
    if (!FlushFileBuffers(file.get())) FailWith(GetLastError(), kCannotWrite, target);
}

/// Answers 0 or the error's code.
DWORD Rename(const fs::path& from, const fs::path& to, DWORD flags) {
    return MoveFileExW(from.c_str(), to.c_str(), flags | MOVEFILE_WRITE_THROUGH) ? 0 : GetLastError();
}

DWORD RenameOver(const fs::path& from, const fs::path& to) {
    DWORD code = 0;
    for (int tries = 0; tries < kTriesToReplace; ++tries) {
        code = Rename(from, to, MOVEFILE_REPLACE_EXISTING);
        if (code != ERROR_SHARING_VIOLATION && code != ERROR_ACCESS_DENIED) break;
        std::this_thread::sleep_for(kBetweenTries);
    }
    return code;
}

std::wstring Variable(const wchar_t* name) {
    std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
    return text;
}

}  // namespace

fs::path UserDataFolder() {
    if (const std::wstring own = Variable(L"QORVIEW_HOME"); !own.empty()) return WholePath(own);
    const std::wstring roaming = Variable(L"APPDATA");
    return WholePath(roaming.empty() ? fs::path(".") : fs::path(roaming)) / "qorview";
}

std::optional<std::string> ReadWholeFile(const fs::path& file) {
    const Handle open(Open(file, GENERIC_READ, OPEN_EXISTING));
    if (!open.IsOpen()) {
        const DWORD code = GetLastError();
        if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return std::nullopt;
        FailWith(code, kCannotRead, file);
    }
    std::string content;
    char part[16384];
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(open.get(), part, sizeof part, &count, nullptr)) {
            FailWith(GetLastError(), kCannotRead, file);
        }
        if (count == 0) return content;
        content.append(part, count);
    }
}

void ReplaceFile(const fs::path& file, std::string_view content) {
    MakeFolder(file.parent_path());
    fs::path fresh = file;
    fresh += ".new";
    try {
        WriteFresh(fresh, content, file);
        if (const DWORD code = RenameOver(fresh, file); code != 0) FailWith(code, kCannotWrite, file);
    } catch (const Error&) {
        DeleteFileW(fresh.c_str());
        throw;
    }
}

fs::path SetAside(const fs::path& file, std::string_view mark) {
    for (int number = 1;; ++number) {
        fs::path aside = AsideName(file, mark, number);
        const DWORD code = Rename(file, aside, 0);
        if (code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS) continue;
        if (code != 0) FailWith(code, kCannotRename, file);
        return aside;
    }
}

FileLock::FileLock(const fs::path& lockFile, std::chrono::milliseconds longestWait) {
    MakeFolder(lockFile.parent_path());
    const HANDLE handle = Open(lockFile, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    if (handle == INVALID_HANDLE_VALUE) FailWith(GetLastError(), kCannotWrite, lockFile);
    const auto giveUp = std::chrono::steady_clock::now() + longestWait;
    for (OVERLAPPED place{};
         !LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place);) {
        const DWORD code = GetLastError();
        const bool isHeld = code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING;
        if (isHeld && std::chrono::steady_clock::now() < giveUp) {
            std::this_thread::sleep_for(kBetweenTries);
            continue;
        }
        CloseHandle(handle);
        FailWith(isHeld ? ERROR_LOCK_VIOLATION : code, kCannotLock, lockFile);
    }
    handle_ = reinterpret_cast<std::intptr_t>(handle);
}

FileLock::~FileLock() { CloseHandle(reinterpret_cast<HANDLE>(handle_)); }

}  // namespace qor
