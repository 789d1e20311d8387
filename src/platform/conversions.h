// The automation conversions, in one place. Nothing else in the project parses a number or a date.
// Each raises type mismatch (13), overflow (6) or invalid use of Null (94) as automation does.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace qor {

// Rounding to integers is half to even. Text is read with blanks around it, a sign or the parentheses of a
// negative number, thousands commas, a decimal point, an exponent (e or d), and &H or &O integers; "" is no
// number. True is -1. Empty is 0 and "". An object stands for its default member: no object raises 91, one
// without a default member 438.
bool ToBoolean(const Value& value);  // also "True", "False" in any case
std::int16_t ToInt16(const Value& value);
std::int32_t ToInt32(const Value& value);
float ToSingle(const Value& value);
double ToDouble(const Value& value);
/// Text is read as a date ("2020-09-01", "2020/9/1", "2020.9.1", "2020年9月1日", "9/1/2020", with "hh:mm" or
/// "hh:mm:ss" behind a blank; a time alone; a year and month alone for its first day), else as a number,
/// which is a date's serial. Outside 0100-01-01..9999-12-31 raises overflow.
Date ToDate(const Value& value);
/// Booleans are "True" and "False"; numbers have up to 15 significant digits (singles 7); a date is
/// "YYYY-MM-DD", followed by " hh:mm:ss" where it has a time of day.
std::string ToText(const Value& value);

/// The value as it is joined to a text: like ToText, but Null adds nothing.
std::string JoinedText(const Value& value);

/// The number at the head of a text, 0 if it has none. Blanks inside are skipped, so "1 2" is 12; no error.
double Val(std::string_view text);

bool IsNumeric(const Value& value);  // a number, a boolean, Empty, or a text that reads as a number
bool IsDate(const Value& value);     // a date, or a text that reads as one; a numeric text does not

/// Years, months and days of the Gregorian calendar; the time of day in whole seconds.
struct CalendarTime {
    int year, month, day, hour, minute, second;
};
CalendarTime ToCalendar(Date date);
/// The date of a calendar day at midnight; nothing where there is no such day or it is outside 0100..9999.
std::optional<Date> DateFromCalendar(int year, int month, int day);

/// The calendar day as "YYYY-MM-DD".
std::string FormatIsoDate(Date date);
/// The calendar day as "yyyy/mm/dd".
std::string FormatSlashDate(Date date);

/// `text` without blanks at both ends. Only the blank counts, no tab and no full-width blank.
std::string_view Trimmed(std::string_view text);

}  // namespace qor
