#include "frames/file_scheme_store.h"

#include "frames/durable_file.h"
#include "frames/scheme_file.h"
#include "platform/error.h"

namespace qor {

namespace {

constexpr std::int32_t kBadFileFormat = 321;

[[noreturn]] void RefuseLaterVersion(const std::filesystem::path& file, std::string_view version) {
    throw Error(kBadFileFormat, std::string(kLibraryName),
                "过滤方案文件“" + file.string() + "”由更新版本的程序写成（版本 " + std::string(version) +
                    "），本程序不能使用。文件保持原样。");
}

[[noreturn]] void TellDamaged(const std::filesystem::path& file, std::string_view sequel) {
    throw Error(kBadFileFormat, std::string(kLibraryName),
                "过滤方案文件“" + file.string() + "”已损坏，无法读取。" + std::string(sequel));
}

[[noreturn]] void SetDamagedAside(const std::filesystem::path& file) {
    std::string aside;
    try {
        aside = SetAside(file, "damaged").string();
    } catch (const Error& failure) {
        TellDamaged(file, failure.description());
    }
    TellDamaged(file, "原文件已改名保存为“" + aside + "”，其中的内容没有被删除。现在从空白的方案列表开始。");
}

}  // namespace

std::filesystem::path UserSchemeFile() { return UserDataFolder() / "schemes.json"; }

std::filesystem::path FileSchemeStore::LockFile() const {
    std::filesystem::path lockFile = file_;
    lockFile += ".lock";
    return lockFile;
}

SchemeBook FileSchemeStore::Read() {
    const std::optional<std::string> text = ReadWholeFile(file_);
    if (!text) return {};
    SchemeFileReading reading = ReadSchemeFile(*text);
    if (reading.book) return *std::move(reading.book);
    if (!reading.laterVersion.empty()) RefuseLaterVersion(file_, reading.laterVersion);

    std::optional<FileLock> lock;
    try {
        lock.emplace(LockFile(), longestWait_);
    } catch (const Error& failure) {
        TellDamaged(file_, failure.description());
    }
    return ReadLocked();
}

SchemeBook FileSchemeStore::ReadLocked() {
    const std::optional<std::string> text = ReadWholeFile(file_);
    if (!text) return {};
    SchemeFileReading reading = ReadSchemeFile(*text);
    if (!reading.laterVersion.empty()) RefuseLaterVersion(file_, reading.laterVersion);
    if (!reading.book) SetDamagedAside(file_);
    return *std::move(reading.book);
}

void FileSchemeStore::Change(const std::function<bool(SchemeBook&)>& change) {
    const FileLock lock(LockFile(), longestWait_);
    SchemeBook book = ReadLocked();
    if (change(book)) ReplaceFile(file_, WriteSchemeFile(book));
}

std::vector<std::string> FileSchemeStore::Names(std::int32_t rptID) { return Read().Names(rptID); }

std::string FileSchemeStore::LastUsed(std::int32_t rptID) { return Read().LastUsed(rptID); }

std::optional<SavedScheme> FileSchemeStore::Find(std::int32_t rptID, std::string_view name) {
    return Read().Find(rptID, name);
}

void FileSchemeStore::Save(std::int32_t rptID, std::string_view name, const SavedScheme& scheme) {
    Change([&](SchemeBook& book) { return book.Save(rptID, name, scheme), true; });
}

bool FileSchemeStore::MarkUsed(std::int32_t rptID, std::string_view name) {
    const SchemeBook current = Read();
    if (!current.Find(rptID, name)) return false;
    if (current.LastUsed(rptID) == name) return true;
    bool found = false;
    Change([&](SchemeBook& book) { return found = book.MarkUsed(rptID, name); });
    return found;
}

bool FileSchemeStore::Remove(std::int32_t rptID, std::string_view name) {
    bool found = false;
    Change([&](SchemeBook& book) { return found = book.Remove(rptID, name); });
    return found;
}

}  // namespace qor
