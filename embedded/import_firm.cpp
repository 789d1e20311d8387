#include "embedded/import_firm.h"

#include <algorithm>
#include <optional>

#include "embedded/periods.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int64_t kOwner = 1;

class Profile {
 public:
    explicit Profile(Database& database)
        : read_(database, "SELECT FValue FROM t_SystemProfile WHERE FCategory=? AND FKey=?"),
          write_(database, "INSERT OR REPLACE INTO t_SystemProfile VALUES(?,?,?)") {}

    std::optional<std::string> Get(std::string_view category, std::string_view key) {
        std::optional<std::string> value;
        if (read_.With(category, key).Step()) value = read_.Text(0);
        read_.Reset();
        return value;
    }
    void Put(std::string_view category, std::string_view key, std::string_view value) {
        if (Get(category, key) == value) return;
        write_.With(category, key, value).Run();
        changed_ = true;
    }
    void PutIfMissing(std::string_view category, std::string_view key, std::string_view value) {
        if (!Get(category, key)) Put(category, key, value);
    }
    /// The first day of a month that the profile names, "Start" or "Current"; 0 where it names none.
    std::int64_t Month(const std::string& which) {
        const auto year = Get("IC", which + "Year"), period = Get("IC", which + "Period");
        return year && period ? FirstDayOf(ToInt32(*year), ToInt32(*period)) : 0;
    }
    void PutMonth(const std::string& which, std::int64_t day) {
        const CalendarTime date = ToCalendar(Date{static_cast<double>(day)});
        Put("IC", which + "Year", std::to_string(date.year));
        Put("IC", which + "Period", std::to_string(date.month));
    }
    bool changed() const { return changed_; }

 private:
    Statement read_, write_;
    bool changed_ = false;
};

struct Switch {
    const char* column;
    const char* category;
    const char* key;
};

constexpr Switch kSwitches[] = {
    {"long_codes", "IC", "UseShortNumber"},  // the profile says 1 where codes are shown whole
    {"show_disabled", "Base", "DisplayDeleted"},
    {"data_rights", "Base", "NeedAuthrize"},
};

/// What firm.csv says; months of 0 are left to the bills.
struct FirmRow {
    std::int64_t startMonth = 0, currentMonth = 0;
};

FirmRow ReadFirm(ImportBooks& books, Profile& profile) {
    FirmRow firm;
    ImportTable table = books.Open(kFirmFile);
    if (!table.Next()) return firm;
    profile.Put("Base", "CompanyName", table.Text(table.Find("name")));
    firm.startMonth = table.Read(table.Find("start_month"), ReadMonth);
    firm.currentMonth = table.Read(table.Find("current_month"), ReadMonth);
    for (const Switch& row : kSwitches) {
        const ImportTable::Column column = table.Find(row.column);
        if (table.Word(column).empty()) continue;
        profile.Put(row.category, row.key, table.Read(column, ReadYesNo) != 0 ? "1" : "0");
    }
    if (table.Next()) table.Mistake(table.Find("name"), "is a second firm; the file has one row");
    return firm;
}

bool IsOpening(BillKind kind) {
    return kind == BillKind::OpeningReceivable || kind == BillKind::OpeningPayable;
}

/// The first and the last day on which something was booked, without opening bills; 0 for no day.
struct BookedSpan {
    std::int64_t first = 0, last = 0;
};

BookedSpan SpanOf(BillBook& bills) {
    BookedSpan span;
    for (const BookedBill& bill : bills.all()) {
        if (bill.unsound || IsOpening(bill.kind)) continue;
        span.first = span.first == 0 ? bill.day : std::min(span.first, bill.day);
        span.last = std::max(span.last, bill.day);
    }
    return span;
}

void CheckOpening(ImportBooks& books, std::int64_t firstDay) {
    for (const BookedBill& bill : books.bills.all()) {
        if (bill.line == 0 || bill.unsound) continue;
        const bool before = bill.day < firstDay;
        if (before == IsOpening(bill.kind)) continue;
        books.mistakes.Add(kBillsFile.name, bill.line, "date",
                           before ? "lies before the first day of the account set, " + DayText(firstDay)
                                  : "is not before the first day of the account set, " + DayText(firstDay) +
                                        ", as opening bills are");
    }
}

int YearOf(std::int64_t day) { return ToCalendar(Date{static_cast<double>(day)}).year; }

void WriteMonths(ImportBooks& books, Profile& profile, const FirmRow& firm) {
    const auto refuse = [&](const char* column, std::string why) {
        books.mistakes.Add(kFirmFile.name, 0, column, std::move(why));
    };
    const BookedSpan span = SpanOf(books.bills);
    const std::int64_t stood = profile.Month("Start");
    const std::int64_t start = firm.startMonth != 0 ? firm.startMonth : stood != 0 ? stood : span.first;
    if (start == 0 && books.mistakes.count() > 0) return;  // the bills may be among them
    if (start == 0)
        return refuse("start_month", "is needed where there are no bills to tell the first month");
    if (stood != 0 && start != stood)
        return refuse("start_month", "cannot change; the account set begins on " + DayText(stood));
    if (firm.currentMonth != 0 && firm.currentMonth < start)
        return refuse("current_month", "lies before the first month");
    profile.PutMonth("Start", start);
    CheckOpening(books, profile.Month("Start"));
    const std::int64_t current =
        firm.currentMonth != 0 ? firm.currentMonth : std::max({profile.Month("Current"), span.last, start});
    profile.PutMonth("Current", current);
    constexpr int kLastYear = 9999;  // of the calendar
    WritePeriods(books.database, YearOf(start),
                 std::min(YearOf(std::max(current, span.last)) + 1, kLastYear));
}

}  // namespace

void ImportUsers(ImportBooks& books) {
    Statement known(books.database, "SELECT FUserID FROM t_User");
    while (known.Step()) {
        books.users.insert(known.Int(0));
    }
    Statement write(
        books.database,
        "INSERT INTO t_User VALUES(?1,?2,?3) ON CONFLICT DO UPDATE SET FName=?2, FAllRights=?3 WHERE "
        "(FName,FAllRights) IS NOT (?2,?3)");
    std::set<std::int64_t> read;
    ImportTable table = books.Open(kUsersFile);
    const auto number = table.Find("number"), name = table.Find("name"), allRights = table.Find("all_rights");
    while (table.Next()) {
        const std::int64_t user = table.ReadWholeNumber(number, 1, kLastUser);
        const std::int64_t all = table.Read(allRights, ReadYesNo);
        if (!table.RowIsSound()) table.MarkIncomplete();
        if (!table.RowIsSound()) continue;
        if (!read.insert(user).second) {
            table.MarkIncomplete();
            table.Mistake(number, "stands twice");
        }
        write.With(user, table.Text(name), all).Run();
        books.baseCount.Add(books.users.insert(user).second, sqlite3_changes(books.database.handle()) > 0);
    }
    books.Close(kUsersFile, table);
    if (books.users.insert(kOwner).second) write.With(kOwner, std::string_view("管理员"), 1).Run();
}

void ImportFirm(ImportBooks& books) {
    Profile profile(books.database);
    const bool isNew = !profile.Get("Base", "CompanyName");
    const FirmRow firm = ReadFirm(books, profile);
    profile.PutIfMissing("Base", "CompanyName",
                         std::filesystem::weakly_canonical(books.folder).filename().string());
    for (const Switch& row : kSwitches) {
        profile.PutIfMissing(row.category, row.key, "1");
    }
    profile.PutIfMissing("Base", "AuthrizeItemClassList", "1,8");
    WriteMonths(books, profile, firm);
    books.baseCount.Add(isNew, profile.changed());
}

}  // namespace qor
