#include "embedded/import_items.h"

#include <algorithm>
#include <map>
#include <memory>

#include "embedded/import_item_columns.h"
#include "platform/object.h"

namespace qor {

namespace {

bool IsCode(std::string_view code) {
    return !code.empty() && code.front() != '.' && code.back() != '.' &&
           code.find("..") == std::string_view::npos;
}

/// "01.02" of "01.02.003"; "" at the top.
std::string_view CategoryOf(std::string_view code) {
    const std::size_t point = code.rfind('.');
    return point == std::string_view::npos ? std::string_view() : code.substr(0, point);
}

class ItemsOfFile {
 public:
    ItemsOfFile(ImportBooks& books, const ItemFile& file)
        : books_(books),
          file_(file.file),
          class_(file.itemClass),
          table_(books.Open(file.file)),
          code_(table_.Find("code")),
          category_(table_.Find("category")),
          isCategory_(table_.Find("is_category")),
          add_(books.database, "INSERT INTO t_Item VALUES(?,?,?,'',1,NULL,1,0)"),
          place_(
              books.database,
              "UPDATE t_Item SET FLevel=?2, FParentID=?3, FDetail=?4 WHERE FItemID=?1 AND (FLevel,FDetail) "
              "IS NOT (?2,?4)"),
          mark_(books.database, "UPDATE t_Item SET FDetail=0 WHERE FItemID=?"),
          used_(
              books.database,
              "SELECT 1 WHERE EXISTS(SELECT 1 FROM t_Bill WHERE ?1 IN (FCustID,FSupplyID,FToPartyID,FDeptID,"
              "FEmpID,FAcctID,FToAcctID)) OR EXISTS(SELECT 1 FROM t_ClassEntry WHERE FClassID=?1) OR "
              "EXISTS(SELECT 1 FROM t_GoodsEntry WHERE FItemID=?1)"),
          below_(books.database, "SELECT 1 FROM t_Item WHERE FParentID=?") {
        PrepareColumns(file);
        for (const ItemTable& row : kItemTables) {
            if (row.itemClass != class_) continue;
            insert_ = std::make_unique<Statement>(books.database, row.insert);
            remove_ = std::make_unique<Statement>(books.database, row.remove);
        }
        for (const std::int64_t user : books.users) {
            allUsers_.append(allUsers_.empty() ? "" : ",").append(std::to_string(user));
        }
    }

    void Import() {
        while (table_.Next()) {
            ReadRow();
        }
        books_.Close(file_, table_);
        for (const Row& row : rows_) {
            if (BookedItem* category = Above(row)) parents_.try_emplace(category, &row);
        }
        for (Row& row : rows_) {
            Place(row);
        }
        for (const auto& [parent, child] : parents_) {
            if (parent->line > 0 || !parent->detail) continue;
            BecomeCategory(*parent, child->item->line, CategoryOf(child->code));
            mark_.With(parent->id).Run();
            books_.baseCount.Add(false, true);
        }
        for (const Row& row : rows_) {
            books_.baseCount.Add(!row.item->stood, row.changed);
        }
    }

 private:
    struct FileColumn {
        const ItemColumn* row;
        ImportTable::Column column;
        std::unique_ptr<Statement> update;
    };
    enum class Asked { Blank, No, Yes };
    struct Row {
        BookedItem* item;
        std::string code;
        Asked category;
        const FileColumn* firstExtra = nullptr;  // what only an item may have, and this row has
        const FileColumn* lacking = nullptr;     // what an item must have, and this row has not
        bool changed = false;
    };

    void PrepareColumns(const ItemFile& file) {
        for (const ItemColumn& row : kItemColumns) {
            if (std::ranges::find(file.file.columns, row.name, &CsvColumn::name) == file.file.columns.end())
                continue;
            columns_.push_back(
                {&row, table_.Find(row.name), std::make_unique<Statement>(books_.database, row.update)});
        }
    }

    void ReadRow() {
        const std::string code(table_.Word(code_));
        if (code.empty()) return table_.MarkIncomplete();
        if (!IsCode(code)) {
            table_.MarkIncomplete();
            return table_.Mistake(code_, Shown(code) + " is no code: a part of it is blank");
        }
        BookedItem* item = books_.items.Find(class_, code);
        if (item && item->line > 0) {
            table_.MarkIncomplete();
            return table_.Mistake(code_,
                                  Shown(code) + " stands on line " + std::to_string(item->line) + " already");
        }
        if (!item) {
            item = &books_.items.Add(class_, code);
            add_.With(item->id, class_, code).Run();
        }
        item->line = table_.line();
        Row row{.item = item, .code = code, .category = ReadAsked()};
        CheckCategoryCell(code);
        const bool mayHaveExtras = item->detail || row.category == Asked::No;
        if (mayHaveExtras) InsertExtras(item->id);
        for (const FileColumn& column : columns_) {
            CheckCell(column, row);
            if (mayHaveExtras || !column.row->extra) WriteCell(column, row);
        }
        rows_.push_back(std::move(row));
    }

    void InsertExtras(std::int64_t item) {
        if (!insert_) return;
        insert_->With(item);
        if (class_ == item_class::kCustomer || class_ == item_class::kSupplier) insert_->Bind(2, allUsers_);
        insert_->Run();
    }

    Asked ReadAsked() {
        if (table_.Word(isCategory_).empty()) return Asked::Blank;
        return table_.Read(isCategory_, ReadYesNo) != 0 ? Asked::Yes : Asked::No;
    }

    /// The code alone says where an item stands, so no chain of categories can run in a circle.
    void CheckCategoryCell(const std::string& code) {
        const std::string_view category = table_.Word(category_);
        if (category.empty() || EqualsIgnoringCase(category, CategoryOf(code))) return;
        const std::string_view above = CategoryOf(code);
        table_.Mistake(category_, Shown(category) + " is not the category of " + Shown(code) +
                                      ", which stands " +
                                      (above.empty() ? "at the top" : "below " + Shown(above)));
    }

    void CheckCell(const FileColumn& column, Row& row) {
        const bool blank = table_.Word(column.column).empty();
        if (blank && column.row->needed && !(row.item->stood && !table_.Has(column.column)))
            row.lacking = &column;
        if (!blank && column.row->extra && !row.firstExtra) row.firstExtra = &column;
    }

    void WriteCell(const FileColumn& column, Row& row) {
        if (!table_.Has(column.column)) return;
        column.update->Bind(1, row.item->id);
        BindCell(column);
        column.update->Run();
        if (sqlite3_changes(books_.database.handle()) > 0) row.changed = true;
    }

    void BindCell(const FileColumn& column) {
        constexpr std::int64_t kMostDays = 9999, kMostRate = 1'000'000;
        const ImportTable::Column cell = column.column;
        Statement& update = *column.update;
        switch (column.row->cell) {
            case ItemCell::Text:
                return update.Bind(2, table_.Text(cell));
            case ItemCell::YesNo:
                return update.Bind(2, table_.Read(cell, ReadYesNo));
            case ItemCell::Cents:
                return update.Bind(2, table_.Read(cell, ReadCents));
            case ItemCell::Price:
                return update.Bind(2, table_.Read(cell, ReadTenThousandths));
            case ItemCell::Days:
                return update.Bind(2, table_.ReadWholeNumber(cell, 0, kMostDays));
            case ItemCell::Rate:
                return update.Bind(2, table_.ReadWholeNumber(cell, 1, kMostRate, 1));
            case ItemCell::Users:
                return update.Bind(2, std::string_view(ReadUsers(cell)));
            case ItemCell::Department:
                return update.Bind(2, ReadItem(books_, table_, cell, item_class::kDepartment));
            case ItemCell::Unit:
                return update.Bind(2, ReadItem(books_, table_, cell, item_class::kUnit));
            case ItemCell::Supplier:
                return update.Bind(2, ReadMatch(cell));
        }
    }

    /// "16;23" as the account set keeps it, "16,23".
    std::string ReadUsers(ImportTable::Column cell) {
        std::string users;
        std::string_view rest = table_.Word(cell);
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            const CellReading user = ReadWhole(rest.substr(0, end), 1, kLastUser);
            if (!user.mistake.empty()) {
                table_.Mistake(cell, user.mistake + "; users stand as 16;23");
            } else if (!books_.users.contains(user.value) && !books_.MayStandIn(kUsersFile.name)) {
                table_.Mistake(cell, "user " + std::to_string(user.value) + " is not in users.csv");
            }
            users.append(users.empty() ? "" : ",").append(std::to_string(user.value));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        return users;
    }

    std::int64_t ReadMatch(ImportTable::Column cell) {
        const std::int64_t supplier = ReadItem(books_, table_, cell, item_class::kSupplier);
        if (supplier == 0) return 0;
        const auto [match, isNew] = matches_.try_emplace(supplier, table_.line());
        if (!isNew)
            table_.Mistake(
                cell, Shown(table_.Word(cell)) + " is the match of line " + std::to_string(match->second));
        return supplier;
    }

    BookedItem* Above(const Row& row) {
        const std::string_view category = CategoryOf(row.code);
        return category.empty() ? nullptr : books_.items.Find(class_, category);
    }

    bool HasBelow(BookedItem& item) {
        return parents_.contains(&item) || (item.stood && below_.With(item.id).Step());
    }

    /// Gives a row its place in the hierarchy.
    void Place(Row& row) {
        const std::string_view category = CategoryOf(row.code);
        const BookedItem* above = Above(row);
        if (!category.empty() && !above && !table_.incomplete()) {
            table_.MistakeAt(row.item->line, code_,
                             "the category " + Shown(category) + " of " + Shown(row.code) +
                                 " is neither in " + std::string(file_.name) + " nor in the account set");
        }
        const bool wasDetail = row.item->detail, hasBelow = HasBelow(*row.item);
        if (row.category == Asked::No && hasBelow)
            table_.MistakeAt(row.item->line, isCategory_,
                             "is no, but other codes stand below " + Shown(row.code));
        row.item->detail =
            !hasBelow && row.category != Asked::Yes && (row.category == Asked::No || wasDetail);
        if (!row.item->detail && wasDetail) BecomeCategory(*row.item, row.item->line, row.code);
        CheckExtras(row);
        const auto level = 1 + std::ranges::count(row.code, '.');
        place_.With(row.item->id, level, nullptr, row.item->detail);
        if (above) place_.Bind(3, above->id);
        place_.Run();
        if (sqlite3_changes(books_.database.handle()) > 0) row.changed = true;
    }

    void CheckExtras(const Row& row) {
        const FileColumn* wrong = row.item->detail ? row.lacking : row.firstExtra;
        if (!wrong) return;
        table_.MistakeAt(row.item->line, wrong->column,
                         row.item->detail ? "is blank" : "must be blank for a category");
    }

    void BecomeCategory(BookedItem& item, std::int64_t line, std::string_view code) {
        item.detail = item.stood && used_.With(item.id).Step();
        if (item.detail)
            return table_.MistakeAt(line, code_, Shown(code) + " carries bills and cannot become a category");
        if (remove_) remove_->With(item.id).Run();
    }

    ImportBooks& books_;
    const CsvFile& file_;
    std::int32_t class_;
    ImportTable table_;
    ImportTable::Column code_, category_, isCategory_;
    Statement add_, place_, mark_, used_, below_;
    std::unique_ptr<Statement> insert_, remove_;
    std::vector<FileColumn> columns_;
    std::vector<Row> rows_;
    std::map<BookedItem*, const Row*> parents_;     // with the first row that stands below
    std::map<std::int64_t, std::int64_t> matches_;  // line by supplier
    std::string allUsers_;
};

}  // namespace

void ImportItems(ImportBooks& books, const ItemFile& file) { ItemsOfFile(books, file).Import(); }

std::int64_t ReadItem(ImportBooks& books, ImportTable& table, ImportTable::Column column,
                      std::int32_t itemClass) {
    const std::string_view code = table.Word(column);
    if (code.empty()) return 0;
    const BookedItem* item = books.items.Find(itemClass, code);
    if (!item) {
        if (books.MayStandIn(ItemFileName(itemClass))) return 0;
        table.Mistake(column, Shown(code) + " is neither in " + std::string(ItemFileName(itemClass)) +
                                  " nor in the account set");
        return 0;
    }
    if (!item->detail) table.Mistake(column, Shown(code) + " is a category");
    return item->id;
}

}  // namespace qor
