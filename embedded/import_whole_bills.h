// When all files are read: whether each bill that they bring is whole.
#pragma once

#include "embedded/import_books.h"

namespace qor {

/// Lines must sum up to their bill, a settling bill must settle all that it has, nobody settles a void bill,
/// and a bill that stood in the account set must bring all the rows that it has there. Counts the bills.
void CheckWholeBills(ImportBooks& books);

}  // namespace qor
