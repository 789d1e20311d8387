// What settled what: which bills a receipt, a payment or a write-off takes its amount from. The rows of a
// settling bill are the whole of it, so that what is open and what a party owes never part.
#pragma once

#include "embedded/bill_writer.h"
#include "embedded/import_books.h"

namespace qor {

void ImportSettlements(ImportBooks& books, BillWriter& writer);

}  // namespace qor
