// FileSchemeStore: all schemes of one user in one JSON file. Each change takes the lock, reads the file
// again, makes that one change and replaces the file in one step: what another process saved stays, and a
// crash at any moment leaves the old or the new state.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

#include "frames/scheme_store.h"

namespace qor {

/// The file of the user who runs the program.
std::filesystem::path UserSchemeFile();

/// A file that cannot be understood is renamed, and the Error of that operation says where it now lies; the
/// next one begins with no schemes. A file of a later version is refused and left as it is.
class FileSchemeStore final : public SchemeStore {
 public:
    /// `longestWait` is for another process that is just writing.
    explicit FileSchemeStore(std::filesystem::path file,
                             std::chrono::milliseconds longestWait = std::chrono::seconds(5))
        : file_(std::move(file)), longestWait_(longestWait) {}

    std::vector<std::string> Names(std::int32_t rptID) override;
    std::string LastUsed(std::int32_t rptID) override;
    std::optional<SavedScheme> Find(std::int32_t rptID, std::string_view name) override;
    void Save(std::int32_t rptID, std::string_view name, const SavedScheme& scheme) override;
    bool MarkUsed(std::int32_t rptID, std::string_view name) override;
    bool Remove(std::int32_t rptID, std::string_view name) override;

 private:
    SchemeBook Read();
    SchemeBook ReadLocked();
    /// Writes the file where `change` answers that it changed the book.
    void Change(const std::function<bool(SchemeBook&)>& change);
    std::filesystem::path LockFile() const;

    std::filesystem::path file_;
    std::chrono::milliseconds longestWait_;
};

}  // namespace qor
