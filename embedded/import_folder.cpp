#include "embedded/import_folder.h"

#include <algorithm>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/import_bill_rows.h"
#include "embedded/import_bills.h"
#include "embedded/import_firm.h"
#include "embedded/import_items.h"
#include "embedded/import_settlements.h"
#include "embedded/import_whole_bills.h"
#include "embedded/schema.h"
#include "embedded/unfinished_file.h"
#include "platform/object.h"

namespace qor {

namespace fs = std::filesystem;

namespace {

std::vector<std::string_view> KnownFiles() {
    std::vector<std::string_view> names;
    for (const CsvFile& file : kOtherFiles) {
        names.push_back(file.name);
    }
    for (const ItemFile& row : kItemFiles) {
        names.push_back(row.file.name);
    }
    std::ranges::sort(names);
    return names;
}

/// A misspelt name must not pass for a file that the firm does not have.
void CheckNames(const fs::path& folder, ImportMistakes& mistakes) {
    const std::vector<std::string_view> known = KnownFiles();
    std::string all;
    for (const std::string_view name : known) {
        all.append(all.empty() ? "" : ", ").append(name);
    }
    bool any = false;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        const bool isKnown = std::ranges::find(known, name) != known.end();
        any |= isKnown;
        if (!isKnown && EqualsIgnoringCase(entry.path().extension().string(), ".csv"))
            mistakes.Add(name, 0, "", "is no file of an account set; there are " + all);
    }
    if (!any) mistakes.Add(folder.string(), 0, "", "has no file of an account set; there are " + all);
}

struct SmallList {
    std::int32_t itemClass;
    const char* code;
    const char* name;
};

/// What a new account set has where the files do not say.
constexpr SmallList kSmallLists[] = {
    {item_class::kCurrency, "RMB", "人民币"},
    {item_class::kSettlementType, "01", "现金"},
    {item_class::kSettlementType, "02", "转账支票"},
    {item_class::kSettlementType, "03", "电汇"},
};

void WriteSmallLists(ImportBooks& books) {
    Statement item(books.database, "INSERT INTO t_Item VALUES(?,?,?,?,1,NULL,1,0)");
    for (const SmallList& row : kSmallLists) {
        if (fs::exists(books.folder / ItemFileName(row.itemClass))) continue;
        item.With(books.items.Add(row.itemClass, row.code).id, row.itemClass, std::string_view(row.code),
                  std::string_view(row.name))
            .Run();
    }
}

void ReadFiles(ImportBooks& books, bool isNew) {
    CheckNames(books.folder, books.mistakes);
    ImportUsers(books);
    if (isNew) WriteSmallLists(books);
    for (const ItemFile& file : kItemFiles) {
        ImportItems(books, file);
    }
    BillWriter writer(books.database);
    ImportBills(books, writer);
    ImportClassLines(books, writer);
    ImportGoodsLines(books, writer);
    ImportBillFields(books, writer);
    ImportSettlements(books, writer);
    CheckWholeBills(books);
    ImportFirm(books);
}

/// Reads everything into the unfinished file; answers whether it is to be kept.
bool Fill(const fs::path& unfinished, const fs::path& folder, bool isNew, ImportOutcome& outcome) {
    Database database(unfinished, Database::Mode::Create);
    database.Run(
        "PRAGMA page_size=8192; PRAGMA journal_mode=OFF; PRAGMA synchronous=FULL;"
        "PRAGMA locking_mode=EXCLUSIVE; PRAGMA cache_size=-262144; PRAGMA temp_store=MEMORY");
    database.Run("BEGIN");
    if (isNew) CreateTables(database);
    {
        ImportBooks books(database, folder, outcome.mistakes);
        ReadFiles(books, isNew);
        outcome.baseData = books.baseCount;
        outcome.bills = books.billCount;
    }
    if (outcome.mistakes.count() > 0 || !(outcome.baseData.HasNews() || outcome.bills.HasNews()))
        return false;
    if (isNew) CreateIndices(database);
    database.Run("ANALYZE");
    database.Run("COMMIT");
    return true;
}

void CheckUntouched(const fs::path& file, fs::file_time_type when) {
    if (fs::last_write_time(file) != when)
        RaiseAccountSetError("导入期间账套文件被其他程序修改，未写入：" + file.string());
}

}  // namespace

ImportOutcome ImportFolder(const fs::path& folder, const fs::path& file) {
    if (!fs::is_directory(folder)) RaiseAccountSetError("文件夹不存在：" + folder.string());
    const bool isNew = !fs::exists(file);
    const fs::path whole = isNew ? file : fs::canonical(file);
    ImportOutcome outcome;
    UnfinishedFile unfinished(whole);
    fs::file_time_type when{};
    if (!isNew) {
        AccountSet isOne(whole);
        when = fs::last_write_time(whole);
        fs::copy_file(whole, unfinished.file());
    }
    if (!Fill(unfinished.file(), folder, isNew, outcome)) return outcome;
    if (isNew) {
        unfinished.TakeItsName();
    } else {
        CheckUntouched(whole, when);
        unfinished.Replace();
    }
    return outcome;
}

}  // namespace qor
