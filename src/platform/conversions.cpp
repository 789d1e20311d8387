#include "platform/conversions.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

#include "platform/date_text.h"
#include "platform/error.h"
#include "platform/number_text.h"
#include "platform/object.h"

namespace qor {

namespace {

constexpr int kSecondsADay = 86400;
constexpr double kFirstSerial = -657434;  // 0100-01-01
constexpr double kEndSerial = 2958466;    // the day after 9999-12-31
constexpr double kLastSecond = kEndSerial - 1.0 / kSecondsADay;

/// What an object stands for where a plain value is needed: its default member.
Value DefaultValue(const Value& value) {
    Object& object = ObjectIn(value);
    const MemberId member = object.DefaultMember();
    if (member == kNoMember) Raise(Automation::NoSuchMember);
    Value answer = object.Invoke(member, InvokeKind::Get, {});
    if (answer.IsObject()) Raise(Automation::TypeMismatch);
    return answer;
}

NumberText NumberIn(std::string_view text) {
    const auto number = ReadNumberText(text);
    if (!number) Raise(Automation::TypeMismatch);
    if (std::isinf(number->value)) Raise(Automation::Overflow);
    return *number;
}

template <class Integer>
Integer Rounded(double value) {
    const double whole = value - std::remainder(value, 1.0);
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max())) {
        Raise(Automation::Overflow);
    }
    return static_cast<Integer>(whole);
}

template <class Integer>
Integer IntegerInText(std::string_view text) {
    const NumberText number = NumberIn(text);
    if (!number.bits) return Rounded<Integer>(number.value);
    using Bits = std::make_unsigned_t<Integer>;
    if (*number.bits > std::numeric_limits<Bits>::max()) Raise(Automation::Overflow);
    return static_cast<Integer>(static_cast<Bits>(*number.bits));
}

template <class Integer>
Integer ToInteger(const Value& value) {
    if (value.IsObject()) return ToInteger<Integer>(DefaultValue(value));
    return value.IsText() ? IntegerInText<Integer>(value.text()) : Rounded<Integer>(ToDouble(value));
}

Date DateOfSerial(double serial) {
    if (!(serial > kFirstSerial - 1 && serial < kEndSerial)) Raise(Automation::Overflow);
    return Date{serial};
}

template <class Floating>
std::string FloatingText(Floating value, int significantDigits) {
    if (std::isnan(value)) return "-1.#IND";
    if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
    if (value == 0) return "0";
    char buffer[32];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::general,
                                   significantDigits)
                         .ptr;
    std::replace(std::begin(buffer), end, 'e', 'E');
    return {std::begin(buffer), end};
}

void AppendPadded(std::string& text, int number, int width) {
    const std::string digits = std::to_string(number);
    text.append(static_cast<std::size_t>(std::max(0, width - static_cast<int>(digits.size()))), '0');
    text += digits;
}

std::string FormatDay(const CalendarTime& day, char separator) {
    std::string text;
    AppendPadded(text, day.year, 4);
    text += separator;
    AppendPadded(text, day.month, 2);
    text += separator;
    AppendPadded(text, day.day, 2);
    return text;
}

std::string DateText(Date date) {
    const CalendarTime time = ToCalendar(date);
    std::string text = FormatDay(time, '-');
    if (time.hour == 0 && time.minute == 0 && time.second == 0) return text;
    text += ' ';
    AppendPadded(text, time.hour, 2);
    text += ':';
    AppendPadded(text, time.minute, 2);
    text += ':';
    AppendPadded(text, time.second, 2);
    return text;
}

}  // namespace

bool ToBoolean(const Value& value) {
    if (value.type() == Value::Type::Boolean) return value.boolean();
    if (value.IsObject()) return ToBoolean(DefaultValue(value));
    if (!value.IsText()) return ToDouble(value) != 0;
    const std::string_view word = Trimmed(value.text());
    if (EqualsIgnoringCase(word, "True")) return true;
    if (EqualsIgnoringCase(word, "False")) return false;
    return NumberIn(word).value != 0;
}

std::int16_t ToInt16(const Value& value) {
    return value.type() == Value::Type::Int16 ? value.int16() : ToInteger<std::int16_t>(value);
}

std::int32_t ToInt32(const Value& value) {
    return value.type() == Value::Type::Int32 ? value.int32() : ToInteger<std::int32_t>(value);
}

float ToSingle(const Value& value) {
    if (value.type() == Value::Type::Single) return value.single();
    const double number = ToDouble(value);
    const auto single = static_cast<float>(number);
    if (std::isinf(single) && !std::isinf(number)) Raise(Automation::Overflow);
    return single;
}

double ToDouble(const Value& value) {
    switch (value.type()) {
        case Value::Type::Empty:
            return 0;
        case Value::Type::Null:
            Raise(Automation::InvalidUseOfNull);
        case Value::Type::Boolean:
            return value.boolean() ? -1 : 0;
        case Value::Type::Int16:
            return value.int16();
        case Value::Type::Int32:
            return value.int32();
        case Value::Type::Single:
            return value.single();
        case Value::Type::Double:
            return value.number();
        case Value::Type::Date:
            return value.date().serial;
        case Value::Type::Text:
            return NumberIn(value.text()).value;
        case Value::Type::Object:
            return ToDouble(DefaultValue(value));
    }
    Raise(Automation::TypeMismatch);
}

Date ToDate(const Value& value) {
    if (value.type() == Value::Type::Date) return value.date();
    if (value.IsObject()) return ToDate(DefaultValue(value));
    if (value.IsText()) {
        if (const auto date = ReadDateText(value.text())) return *date;
    }
    return DateOfSerial(ToDouble(value));
}

std::string ToText(const Value& value) {
    switch (value.type()) {
        case Value::Type::Empty:
            return "";
        case Value::Type::Null:
            Raise(Automation::InvalidUseOfNull);
        case Value::Type::Boolean:
            return value.boolean() ? "True" : "False";
        case Value::Type::Int16:
            return std::to_string(value.int16());
        case Value::Type::Int32:
            return std::to_string(value.int32());
        case Value::Type::Single:
            return FloatingText(value.single(), 7);
        case Value::Type::Double:
            return FloatingText(value.number(), 15);
        case Value::Type::Date:
            return DateText(value.date());
        case Value::Type::Text:
            return value.text();
        case Value::Type::Object:
            return ToText(DefaultValue(value));
    }
    Raise(Automation::TypeMismatch);
}

std::string JoinedText(const Value& value) { return value.IsNull() ? std::string() : ToText(value); }

bool IsNumeric(const Value& value) {
    switch (value.type()) {
        case Value::Type::Null:
        case Value::Type::Date:
        case Value::Type::Object:
            return false;
        case Value::Type::Text: {
            const auto number = ReadNumberText(value.text());
            return number && !std::isinf(number->value);
        }
        default:
            return true;
    }
}

bool IsDate(const Value& value) {
    return value.type() == Value::Type::Date || (value.IsText() && ReadDateText(value.text()));
}

CalendarTime ToCalendar(Date date) {
    // Serials outside the calendar, which no conversion makes, count as its ends.
    const double serial = date.serial >= kFirstSerial ? std::min(date.serial, kLastSecond) : kFirstSerial;
    const double whole = std::trunc(serial);
    auto days = static_cast<int>(whole);
    auto seconds = static_cast<int>(std::lround(std::abs(serial - whole) * kSecondsADay));
    if (seconds == kSecondsADay) {
        ++days;
        seconds = 0;
    }
    using std::chrono::December, std::chrono::sys_days, std::chrono::year_month_day;
    const year_month_day day = sys_days{December / 30 / 1899} + std::chrono::days{days};
    return {static_cast<int>(day.year()),
            static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day())),
            seconds / 3600,
            seconds / 60 % 60,
            seconds % 60};
}

std::optional<Date> DateFromCalendar(int year, int month, int day) {
    using std::chrono::December, std::chrono::sys_days, std::chrono::year_month_day;
    if (year < 100 || year > 9999 || month < 1 || day < 1) return std::nullopt;
    const year_month_day calendarDay{std::chrono::year{year},
                                     std::chrono::month{static_cast<unsigned>(month)},
                                     std::chrono::day{static_cast<unsigned>(day)}};
    if (!calendarDay.ok()) return std::nullopt;
    return Date{static_cast<double>((sys_days{calendarDay} - sys_days{December / 30 / 1899}).count())};
}

std::string FormatIsoDate(Date date) { return FormatDay(ToCalendar(date), '-'); }

std::string FormatSlashDate(Date date) { return FormatDay(ToCalendar(date), '/'); }

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace qor
