// Writes an account set as the folder of CSV files that the import takes, so that tests can carry firms there
// and back.
#pragma once

#include <filesystem>

#include "embedded/account_set.h"

namespace qor::test {

void WriteFirmCsv(AccountSet& set, const std::filesystem::path& folder);

}  // namespace qor::test
