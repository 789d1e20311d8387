// An account set that is still being written: it grows under a name of its own and gets the one that users
// know when it is whole. What was not finished is gone with this object.
#pragma once

#include <filesystem>

namespace qor {

class UnfinishedFile {
 public:
    /// `whole` is the name that it is to get.
    explicit UnfinishedFile(std::filesystem::path whole);
    ~UnfinishedFile() { Remove(); }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::filesystem::path& file() const { return file_; }

    /// A file of that name that came up meanwhile stays as it is, and is an error.
    void TakeItsName();
    /// Takes the place of the file of that name in one step.
    void Replace();

 private:
    void Remove();

    std::filesystem::path whole_, file_;
};

}  // namespace qor
