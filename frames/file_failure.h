// What the platforms' ways of keeping files have in common: the messages of their failures, and names.
#pragma once

#include <filesystem>
#include <string_view>

namespace qor {

inline constexpr std::string_view kCannotRead = "无法读取文件";
inline constexpr std::string_view kCannotWrite = "无法写入文件";
inline constexpr std::string_view kCannotRename = "无法改名保存文件";
inline constexpr std::string_view kCannotLock = "无法锁定文件";
inline constexpr std::string_view kCannotMakeFolder = "无法建立文件夹";
inline constexpr std::string_view kCannotWriteFolder = "无法写入文件夹";
inline constexpr std::string_view kInUse = "另一个程序正在使用";

/// Raises Error 75: what was attempted, with which file, and why it failed.
[[noreturn]] void FailOnFile(std::string_view attempt, const std::filesystem::path& file,
                             std::string_view reason);

/// The name beside `file` that keeps it under a mark and a number: schemes.json, schemes.damaged-1.json.
std::filesystem::path AsideName(const std::filesystem::path& file, std::string_view mark, int number);

/// The path as an absolute one, or as it is where that cannot be told.
std::filesystem::path WholePath(const std::filesystem::path& path);

}  // namespace qor
