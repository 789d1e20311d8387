// The firm itself: its users, its system profile and its periods.
#pragma once

#include "embedded/import_books.h"

namespace qor {

/// User 1 owns the account set and sees everything; he is there even if no file names him.
void ImportUsers(ImportBooks& books);

/// To be called when the bills are in: the first and the current month default to theirs, and opening bills
/// lie before the first day while all others do not. Without firm.csv the firm is called like its folder.
void ImportFirm(ImportBooks& books);

}  // namespace qor
