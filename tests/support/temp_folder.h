// A folder of a test's own, empty at first and gone with the test.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qor::test {

class TempFolder {
 public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "qor-test-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

 private:
    std::filesystem::path path_;
};

inline std::string ContentOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline void PutContent(const std::filesystem::path& file, std::string_view content) {
    std::ofstream(file, std::ios::binary) << content;
}

}  // namespace qor::test
