// What an import works on while it goes from file to file: the unfinished account set, what it may refer to,
// and what it has done and found so far.
#pragma once

#include <filesystem>
#include <set>

#include "embedded/import_bill_book.h"
#include "embedded/import_item_book.h"
#include "embedded/import_mistakes.h"
#include "embedded/import_table.h"

namespace qor {

/// Of what was read from the files: what is new, what was brought up to date, and what stood there already.
struct ImportCount {
    std::int64_t added = 0, changed = 0, same = 0;

    void Add(bool isNew, bool isChanged) { ++(isNew ? added : isChanged ? changed : same); }
    bool HasNews() const { return added + changed > 0; }
};

struct ImportBooks {
    ImportBooks(Database& unfinished, std::filesystem::path from, ImportMistakes& list)
        : database(unfinished),
          folder(std::move(from)),
          mistakes(list),
          items(unfinished),
          bills(unfinished) {}

    ImportTable Open(const CsvFile& file) { return ImportTable(folder, file, mistakes); }
    void Close(const CsvFile& file, const ImportTable& table) {
        if (table.incomplete()) incomplete.insert(file.name);
    }
    /// What a row names is not known. Where it may have been in a row that could not be read, the row is
    /// uncertain and nothing is told.
    bool MayStandIn(std::string_view file) { return incomplete.contains(file) && (uncertain = true); }

    Database& database;
    std::filesystem::path folder;
    ImportMistakes& mistakes;
    ItemBook items;
    BillBook bills;
    std::set<std::int64_t> users;
    std::set<std::string_view> incomplete;  // files of which not every row could be read
    bool uncertain = false;                 // the row at hand names what may stand in such a row
    ImportCount baseCount, billCount;
};

/// The item of a cell: 0 where it is blank, and where it is a mistake or uncertain; the code of a category is
/// a mistake like one that nothing has.
std::int64_t ReadItem(ImportBooks& books, ImportTable& table, ImportTable::Column column,
                      std::int32_t itemClass);

}  // namespace qor
