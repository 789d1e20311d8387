// The cells of imported files as numbers, days and switches. Amounts are read digit by digit, so that what
// stands in the file is what stands in the books; what could mean two things is a mistake with its remedy.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

/// A session knows its user by a number of 16 bits.
inline constexpr std::int64_t kLastUser = INT16_MAX;

/// A value, or why the text is none.
struct CellReading {
    std::int64_t value = 0;
    std::string mistake{};
};

/// "-1234.50" as -123450. At most two decimals and thirteen digits before the point.
CellReading ReadCents(std::string_view text);
/// A quantity or price in ten-thousandths: at most four decimals and ten digits before the point.
CellReading ReadTenThousandths(std::string_view text);
/// A whole number between two bounds, both included.
CellReading ReadWhole(std::string_view text, std::int64_t low, std::int64_t high);
/// "YYYY-MM-DD" as days since 1899-12-30, from 1900-01-01.
CellReading ReadDay(std::string_view text);
/// "YYYY-MM" as the month's first day.
CellReading ReadMonth(std::string_view text);
CellReading ReadYesNo(std::string_view text);

/// Cents as they are written in a file.
std::string CentsText(std::int64_t cents);
/// A day as it is written in a file.
std::string DayText(std::int64_t day);

}  // namespace qor
