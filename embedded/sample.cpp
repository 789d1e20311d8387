#include "embedded/sample.h"

#include <string>

#include "embedded/periods.h"
#include "embedded/sample_bills.h"
#include "embedded/sample_firm.h"
#include "embedded/schema.h"
#include "embedded/unfinished_file.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr int kYearsBack = 3;

void WriteProfile(Database& database, int startYear, Date lastDay) {
    const CalendarTime today = ToCalendar(lastDay);
    Statement entry(database, "INSERT INTO t_SystemProfile VALUES(?,?,?)");
    entry.With("IC", "StartYear", std::to_string(startYear)).Run();
    entry.With("IC", "StartPeriod", "1").Run();
    entry.With("IC", "CurrentYear", std::to_string(today.year)).Run();
    entry.With("IC", "CurrentPeriod", std::to_string(today.month)).Run();
    entry.With("IC", "UseShortNumber", "1").Run();
    entry.With("Base", "CompanyName", "示例商贸有限公司").Run();
    entry.With("Base", "Today", ToText(lastDay)).Run();
    entry.With("Base", "DisplayDeleted", "1").Run();
    entry.With("Base", "NeedAuthrize", "1").Run();
    entry.With("Base", "AuthrizeItemClassList", "1,8").Run();
}

void WriteAccountSet(Database& database, const SampleOptions& options, const SampleProgress& progress) {
    const CalendarTime today = ToCalendar(options.today);
    const int startYear = today.year - kYearsBack;
    const SampleSpan span{.firstDay = FirstDayOf(startYear, 1),
                          .lastDay = static_cast<std::int64_t>(options.today.serial),
                          .bills = options.bills};
    Dice dice(options.seed);
    CreateTables(database);
    WriteProfile(database, startYear, options.today);
    WritePeriods(database, startYear, today.year + 1);
    SampleFirm firm = MakeSampleFirm(database, dice, options.bills);
    MakeSampleBills(database, dice, firm, span, [&](double made) {
        if (progress) progress(made * 0.8);
    });
    CreateIndices(database);
    if (progress) progress(0.95);
    database.Run("ANALYZE");
}

}  // namespace

void MakeSample(const std::filesystem::path& file, const SampleOptions& options,
                const SampleProgress& progress) {
    if (options.bills < 0) RaiseAccountSetError("单据数不能小于零");
    if (std::filesystem::exists(file)) RaiseAccountSetError("文件已经存在，不会覆盖：" + file.string());
    UnfinishedFile unfinished(file);
    {
        Database database(unfinished.file(), Database::Mode::Create);
        database.Run(
            "PRAGMA page_size=8192; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
            "PRAGMA locking_mode=EXCLUSIVE; PRAGMA cache_size=-262144; PRAGMA temp_store=MEMORY");
        database.Run("BEGIN");
        WriteAccountSet(database, options, progress);
        database.Run("COMMIT");
    }
    unfinished.TakeItsName();
    if (progress) progress(1);
}

}  // namespace qor
