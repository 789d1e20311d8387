// Dates written as text. The year has four digits and stands first, or last behind month and day.
// Used by the conversions; everybody else reads texts through conversions.h.
#pragma once

#include <optional>
#include <string_view>

#include "platform/value.h"

namespace qor {

/// The whole text as a date, a time of day, or both; nothing where it is none. A plain number is none.
std::optional<Date> ReadDateText(std::string_view text);

}  // namespace qor
