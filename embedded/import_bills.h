// The heads of bills, from bills.csv. A bill is booked once: one whose number stands in the account set must
// say the same again, but for its state and its voucher, which move on with its audit.
#pragma once

#include "embedded/bill_writer.h"
#include "embedded/import_books.h"

namespace qor {

void ImportBills(ImportBooks& books, BillWriter& writer);

}  // namespace qor
