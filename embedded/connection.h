// The server's connection: runs the statements that reports and dialogs send, as they stand.
#pragma once

#include <string_view>

#include "embedded/account_set.h"
#include "platform/record_set.h"

namespace qor {

/// Runs one statement: the known batch of the start period's dates, or a single SELECT in SQLite's words.
/// Columns declared as dates and amounts come back as dates and as amounts in yuan. Raises an error for
/// anything else, for several statements at once, and for what SQLite refuses.
Ref<RecordSet> ExecuteStatement(AccountSet& set, std::string_view statement);

}  // namespace qor
