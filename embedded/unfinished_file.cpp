#include "embedded/unfinished_file.h"

#include <random>
#include <string>
#include <system_error>

#include "embedded/sqlite.h"

namespace qor {

namespace fs = std::filesystem;

namespace {

void Check(const std::error_code& failure, const fs::path& name) {
    if (failure) RaiseAccountSetError("无法写入账套文件：" + name.string());
}

}  // namespace

UnfinishedFile::UnfinishedFile(fs::path whole)
    : whole_(std::move(whole)),
      file_(whole_.string() + ".unfinished-" + std::to_string(std::random_device{}())) {
    Remove();
}

void UnfinishedFile::TakeItsName() {
    std::error_code failure;
    fs::create_hard_link(file_, whole_, failure);
    if (failure && !fs::exists(whole_)) fs::rename(file_, whole_, failure);
    Check(failure, whole_);
}

void UnfinishedFile::Replace() {
    std::error_code failure;
    fs::rename(file_, whole_, failure);
    Check(failure, whole_);
}

void UnfinishedFile::Remove() {
    std::error_code ignored;
    fs::remove(file_, ignored);
}

}  // namespace qor
