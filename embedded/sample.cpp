#include "embedded/sample.h"

#include <random>
#include <string>
#include <system_error>

#include "embedded/sample_bills.h"
#include "embedded/sample_firm.h"
#include "embedded/schema.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr int kYearsBack = 3;

/// Removes the unfinished file unless it was given its name.
class Unfinished {
 public:
    explicit Unfinished(std::filesystem::path file) : file_(std::move(file)) { Remove(); }
    ~Unfinished() { Remove(); }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    const std::filesystem::path& file() const { return file_; }

    /// A file of that name that came up meanwhile stays as it is.
    void BecomeWhole(const std::filesystem::path& name) {
        std::error_code failure;
        std::filesystem::create_hard_link(file_, name, failure);
        if (failure && !std::filesystem::exists(name)) std::filesystem::rename(file_, name, failure);
        if (failure) RaiseAccountSetError("无法写入账套文件：" + name.string());
    }

 private:
    void Remove() {
        std::error_code ignored;
        std::filesystem::remove(file_, ignored);
    }
    std::filesystem::path file_;
};

Date DayOf(int year, int month, int day) {
    const auto date = DateFromCalendar(year, month, day);
    if (!date) Raise(Automation::InvalidCall);
    return *date;
}

void WritePeriods(Database& database, int firstYear, int lastYear) {
    Statement period(database, "INSERT INTO t_PeriodDate VALUES(?,?,?,?)");
    for (int year = firstYear; year <= lastYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const Date next = month == 12 ? DayOf(year + 1, 1, 1) : DayOf(year, month + 1, 1);
            period.With(year, month, static_cast<std::int64_t>(DayOf(year, month, 1).serial),
                        static_cast<std::int64_t>(next.serial) - 1);
            period.Run();
        }
    }
}

void WriteProfile(Database& database, int startYear, const CalendarTime& today) {
    Statement entry(database, "INSERT INTO t_SystemProfile VALUES(?,?,?)");
    entry.With("IC", "StartYear", std::to_string(startYear)).Run();
    entry.With("IC", "StartPeriod", "1").Run();
    entry.With("IC", "CurrentYear", std::to_string(today.year)).Run();
    entry.With("IC", "CurrentPeriod", std::to_string(today.month)).Run();
    entry.With("IC", "UseShortNumber", "1").Run();
    entry.With("Base", "CompanyName", "示例商贸有限公司").Run();
    entry.With("Base", "DisplayDeleted", "1").Run();
    entry.With("Base", "NeedAuthrize", "1").Run();
    entry.With("Base", "AuthrizeItemClassList", "1,8").Run();
}

void WriteAccountSet(Database& database, const SampleOptions& options, const SampleProgress& progress) {
    const CalendarTime today = ToCalendar(options.today);
    const int startYear = today.year - kYearsBack;
    const SampleSpan span{.firstDay = static_cast<std::int64_t>(DayOf(startYear, 1, 1).serial),
                          .lastDay = static_cast<std::int64_t>(options.today.serial),
                          .bills = options.bills};
    Dice dice(options.seed);
    CreateTables(database);
    WriteProfile(database, startYear, today);
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
    Unfinished unfinished(file.string() + ".unfinished-" + std::to_string(std::random_device{}()));
    {
        Database database(unfinished.file(), Database::Mode::Create);
        database.Run(
            "PRAGMA page_size=8192; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
            "PRAGMA locking_mode=EXCLUSIVE; PRAGMA cache_size=-262144; PRAGMA temp_store=MEMORY");
        database.Run("BEGIN");
        WriteAccountSet(database, options, progress);
        database.Run("COMMIT");
    }
    unfinished.BecomeWhole(file);
    if (progress) progress(1);
}

}  // namespace qor
