// A firm's books from a folder of CSV files into an account set: wholly or not at all. The account set is
// written under another name and takes its place in one step; with any mistake, and with nothing new, the
// file stays as it was. The format stands in docs/account-set.md.
#pragma once

#include <filesystem>

#include "embedded/import_books.h"

namespace qor {

struct ImportOutcome {
    ImportMistakes mistakes;  // with any, nothing was written
    ImportCount baseData, bills;
};

/// Makes `file`, or adds to it where it exists. Raises an error where there is no such folder, where `file`
/// is no account set, and where the disk fails.
ImportOutcome ImportFolder(const std::filesystem::path& folder, const std::filesystem::path& file);

}  // namespace qor
