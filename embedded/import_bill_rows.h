// What stands below the heads of bills: the lines of classes and of goods, and the fields that users added to
// a head. A bill's lines are the whole of it: they must sum up to its amount.
#pragma once

#include "embedded/bill_writer.h"
#include "embedded/import_books.h"

namespace qor {

/// The bill of bills.csv that a row belongs to; nothing where that is a mistake or nothing can be concluded.
BookedBill* ReadBillOfRow(ImportBooks& books, ImportTable& table, ImportTable::Column column);

/// A row of a bill that stands in the account set must be the one that stands there; `same` tells.
void CheckRowStands(ImportTable& table, ImportTable::Column bill, bool same);

void ImportClassLines(ImportBooks& books, BillWriter& writer);
void ImportGoodsLines(ImportBooks& books, BillWriter& writer);
void ImportBillFields(ImportBooks& books, BillWriter& writer);

}  // namespace qor
