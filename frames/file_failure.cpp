#include "frames/file_failure.h"

#include <string>

#include "platform/error.h"

namespace qor {

namespace {

constexpr std::int32_t kPathOrFileAccess = 75;

}  // namespace

void FailOnFile(std::string_view attempt, const std::filesystem::path& file, std::string_view reason) {
    throw Error(kPathOrFileAccess, std::string(kLibraryName),
                std::string(attempt) + "“" + file.string() + "”：" + std::string(reason) + "。");
}

std::filesystem::path AsideName(const std::filesystem::path& file, std::string_view mark, int number) {
    std::filesystem::path aside = file.parent_path() / file.stem();
    aside += "." + std::string(mark) + "-" + std::to_string(number);
    aside += file.extension();
    return aside;
}

std::filesystem::path WholePath(const std::filesystem::path& path) {
    std::error_code failed;
    std::filesystem::path whole = std::filesystem::absolute(path, failed);
    return failed ? path : whole;
}

}  // namespace qor
