// The text of a scheme file. Readable on purpose: an accountant's helper may have to mend one by hand.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "frames/scheme_store.h"

namespace qor {

inline constexpr int kSchemeFileVersion = 1;

/// Raises an Error for the user where a value cannot be kept in a file.
std::string WriteSchemeFile(const SchemeBook& book);

struct SchemeFileReading {
    std::optional<SchemeBook> book;
    std::string laterVersion;  // the version, where it is a later one; "" and no book: no scheme file at all
};
SchemeFileReading ReadSchemeFile(std::string_view text);

}  // namespace qor
