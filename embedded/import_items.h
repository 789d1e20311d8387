// Base data from files: customers and suppliers, departments and employees, classes, accounts, goods. What a
// file says of an item that the account set has brings it up to date; a column that the file leaves out stays
// as it is.
#pragma once

#include "embedded/import_books.h"

namespace qor {

void ImportItems(ImportBooks& books, const ItemFile& file);

}  // namespace qor
