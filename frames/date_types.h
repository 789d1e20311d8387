// The periods that a scheme dialog's short panel offers beside a free choice of dates, and what keeps the
// list of them and the two date pickers in step.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/controls.h"

namespace qor {

/// In the order of the list. A dialog selects the free choice by its index, 0.
enum class DateType : std::uint8_t {
    Custom,
    Today,
    Yesterday,
    ThisWeek,
    LastWeek,
    ThisPeriod,
    LastPeriod,
    ThisMonth,
    LastMonth,
    ThisQuarter,
    LastQuarter,
    ThisYear,
    LastYear,
};
inline constexpr std::size_t kDateTypeCount = 13;

std::string_view CaptionOf(DateType type);
/// Whether the dates hang on the accounting period and not on the calendar.
bool NeedsPeriodStart(DateType type);

struct DateSpan {
    Date begin, end;  // both days belong to it
    friend bool operator==(const DateSpan&, const DateSpan&) = default;
};

/// Weeks begin on Monday; an accounting period is the month that begins on its first day. Nothing for the
/// free choice; raises 380 where the calendar ends before the period does.
std::optional<DateSpan> DatesOf(DateType type, Date today, Date periodStart);

/// Fills the list, selects the free choice, and takes over the events of all three controls, which belong to
/// one form. `periodStart` is asked where a choice needs it; where it fails, the dates stay as they are.
void KeepDatesInStep(DropDown& types, DatePicker& begin, DatePicker& end, std::function<Date()> today,
                     std::function<Date()> periodStart);

}  // namespace qor
