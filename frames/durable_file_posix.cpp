#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <thread>

#include "frames/durable_file.h"
#include "frames/file_failure.h"
#include "platform/error.h"

namespace qor {

namespace fs = std::filesystem;

namespace {

constexpr auto kBetweenTries = std::chrono::milliseconds(10);

std::string Reason(int code) {
    switch (code) {
        case EACCES:
        case EPERM:
            return "没有权限";
        case EROFS:
            return "磁盘是只读的";
        case ENOSPC:
        case EDQUOT:
            return "磁盘空间不足";
        case EFBIG:
            return "文件过大";
        case EIO:
            return "磁盘读写出错";
        case EISDIR:
        case ENOTDIR:
            return "同名的文件或文件夹已经存在";
        default:
            return std::generic_category().message(code);
    }
}

[[noreturn]] void FailWith(int code, std::string_view attempt, const fs::path& file) {
    FailOnFile(attempt, file, Reason(code));
}

class Descriptor {
 public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

 private:
    int number_;
};

/// A new name is only there for good when its folder has reached the disk.
void SyncFolder(const fs::path& folder) {
    const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!open.IsOpen()) FailWith(errno, kCannotWriteFolder, folder);
    // Some file systems have nothing to sync about a folder and say so.
    if (::fsync(open.number()) != 0 && errno != EINVAL) FailWith(errno, kCannotWriteFolder, folder);
}

void MakeFolder(const fs::path& folder) {
    std::error_code ignored;
    if (folder.empty() || fs::is_directory(folder, ignored)) return;
    MakeFolder(folder.parent_path());
    if (::mkdir(folder.c_str(), 0700) == 0) return SyncFolder(folder.parent_path());
    if (errno != EEXIST) FailWith(errno, kCannotMakeFolder, folder);
}

void WriteAll(const Descriptor& file, std::string_view content, const fs::path& name) {
    while (!content.empty()) {
        const ssize_t written = ::write(file.number(), content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) FailWith(errno, kCannotWrite, name);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// The file that a link stands for, so that replacing it leaves the link in place.
fs::path BehindLinks(const fs::path& file) {
    std::error_code failed;
    fs::path behind = fs::canonical(file, failed);
    return failed ? file : behind;
}

void WriteFresh(const fs::path& fresh, std::string_view content, const fs::path& target) {
    const Descriptor file(::open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    if (!file.IsOpen()) FailWith(errno, kCannotWrite, target);
    WriteAll(file, content, target);
    if (::fsync(file.number()) != 0) FailWith(errno, kCannotWrite, target);
}

/// Gives the file another name only where that name is free. Answers 0 or the error's code.
int RenameToFreeName(const fs::path& from, const fs::path& to) {
    if (::link(from.c_str(), to.c_str()) == 0) return ::unlink(from.c_str()) == 0 ? 0 : errno;
    if (errno != EPERM && errno != EOPNOTSUPP && errno != EMLINK) return errno;
    // A file system without links: whoever else would take the name holds our lock first.
    std::error_code ignored;
    if (fs::exists(to, ignored)) return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

const char* NonEmptyVariable(const char* name) {
    const char* text = std::getenv(name);
    return text && *text ? text : nullptr;
}

fs::path HomeFolder() {
    if (const char* home = NonEmptyVariable("HOME")) return home;
    const passwd* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? user->pw_dir : ".";
}

}  // namespace

fs::path UserDataFolder() {
    if (const char* own = NonEmptyVariable("QORVIEW_HOME")) return WholePath(own);
    const char* shared = NonEmptyVariable("XDG_DATA_HOME");
    // A relative path there is to be ignored.
    if (shared && fs::path(shared).is_absolute()) return fs::path(shared) / "qorview";
    return WholePath(HomeFolder() / ".local" / "share" / "qorview");
}

std::optional<std::string> ReadWholeFile(const fs::path& file) {
    const Descriptor open(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!open.IsOpen()) {
        if (errno == ENOENT) return std::nullopt;
        FailWith(errno, kCannotRead, file);
    }
    std::string content;
    char part[16384];
    for (;;) {
        const ssize_t count = ::read(open.number(), part, sizeof part);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) FailWith(errno, kCannotRead, file);
        if (count == 0) return content;
        content.append(part, static_cast<std::size_t>(count));
    }
}

void ReplaceFile(const fs::path& file, std::string_view content) {
    const fs::path target = BehindLinks(file);
    MakeFolder(target.parent_path());
    fs::path fresh = target;
    fresh += ".new";
    try {
        WriteFresh(fresh, content, target);
        if (::rename(fresh.c_str(), target.c_str()) != 0) FailWith(errno, kCannotWrite, target);
    } catch (const Error&) {
        ::unlink(fresh.c_str());
        throw;
    }
    SyncFolder(target.parent_path());
}

fs::path SetAside(const fs::path& file, std::string_view mark) {
    for (int number = 1;; ++number) {
        fs::path aside = AsideName(file, mark, number);
        const int code = RenameToFreeName(file, aside);
        if (code == EEXIST) continue;
        if (code != 0) FailWith(code, kCannotRename, file);
        SyncFolder(file.parent_path());
        return aside;
    }
}

FileLock::FileLock(const fs::path& lockFile, std::chrono::milliseconds longestWait) {
    MakeFolder(lockFile.parent_path());
    const int descriptor = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0) FailWith(errno, kCannotWrite, lockFile);
    const auto giveUp = std::chrono::steady_clock::now() + longestWait;
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        const int code = errno;
        if ((code == EWOULDBLOCK || code == EINTR) && std::chrono::steady_clock::now() < giveUp) {
            std::this_thread::sleep_for(kBetweenTries);
            continue;
        }
        ::close(descriptor);
        if (code == EWOULDBLOCK) FailOnFile(kCannotLock, lockFile, kInUse);
        FailWith(code, kCannotLock, lockFile);
    }
    handle_ = descriptor;
}

FileLock::~FileLock() { ::close(static_cast<int>(handle_)); }

}  // namespace qor
