// The periods of an account set: the months of its years.
#pragma once

#include <cstdint>

#include "embedded/sqlite.h"

namespace qor {

/// The first day of a month, from 1 to 12, as days since 1899-12-30.
std::int64_t FirstDayOf(int year, int month);

/// Writes the months of the years; those that are there stay as they are.
void WritePeriods(Database& database, int firstYear, int lastYear);

}  // namespace qor
