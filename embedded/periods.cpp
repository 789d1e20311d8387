#include "embedded/periods.h"

#include "platform/conversions.h"

namespace qor {

std::int64_t FirstDayOf(int year, int month) {
    const auto date = DateFromCalendar(year, month, 1);
    if (!date) Raise(Automation::InvalidCall);
    return static_cast<std::int64_t>(date->serial);
}

void WritePeriods(Database& database, int firstYear, int lastYear) {
    Statement period(database, "INSERT OR IGNORE INTO t_PeriodDate VALUES(?,?,?,?)");
    for (int year = firstYear; year <= lastYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const std::int64_t last =
                month == 12 ? FirstDayOf(year, 12) + 30 : FirstDayOf(year, month + 1) - 1;
            period.With(year, month, FirstDayOf(year, month), last).Run();
        }
    }
}

}  // namespace qor
