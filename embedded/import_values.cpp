#include "embedded/import_values.h"

#include <algorithm>

#include "embedded/import_mistakes.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr int kEarliestYear = 1900;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool AllDigits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); }

/// The number of up to eighteen digits.
std::int64_t Number(std::string_view digits) {
    std::int64_t number = 0;
    for (const char c : digits) {
        number = number * 10 + (c - '0');
    }
    return number;
}

/// "1,234,567": digits and commas, with three digits behind each comma.
bool HasThousandsCommas(std::string_view whole) {
    const std::size_t first = whole.find(',');
    if (first == std::string_view::npos || first == 0 || (whole.size() - first) % 4 != 0) return false;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const bool comma = i >= first && (i - first) % 4 == 0;
        if (comma ? whole[i] != ',' : !IsDigit(whole[i])) return false;
    }
    return true;
}

struct Decimal {
    const char* what;
    std::size_t decimals;
    const char* decimalsText;
    std::size_t mostDigits;
    const char* example;
};

constexpr Decimal kMoney{"amount", 2, "two", 13, "1234.50 or -1234.50"};
constexpr Decimal kQuantity{"quantity or price", 4, "four", 10, "12 or 12.5"};

CellReading ReadDecimal(std::string_view text, const Decimal& form) {
    const auto refuse = [&](const std::string& why) {
        return CellReading{.mistake = Shown(text) + " " + why};
    };
    const bool negative = text.starts_with('-');
    const std::string_view number = text.substr(negative ? 1 : 0);
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::string_view whole = number.substr(0, point);
    const std::string_view decimals = point < number.size() ? number.substr(point + 1) : "";
    if (HasThousandsCommas(whole)) {
        std::string without(text);
        std::erase(without, ',');
        return refuse("has thousands commas; write " + without);
    }
    if (!AllDigits(whole) || (point < number.size() && !AllDigits(decimals)))
        return refuse("is no " + std::string(form.what) + "; write it like " + form.example);
    if (decimals.size() > form.decimals)
        return refuse("has more than " + std::string(form.decimalsText) + " decimals; round it yourself");
    if (whole.size() > form.mostDigits)
        return refuse("is too large: at most " + std::to_string(form.mostDigits) +
                      " digits stand before the point");
    std::string digits = std::string(whole) + std::string(decimals);
    digits.append(form.decimals - decimals.size(), '0');
    return {.value = negative ? -Number(digits) : Number(digits)};
}

/// Whether the text is digits with a hyphen wherever the pattern has one.
bool HasForm(std::string_view text, std::string_view pattern) {
    return std::ranges::equal(text, pattern, [](char c, char p) { return p == '-' ? c == p : IsDigit(c); });
}

}  // namespace

CellReading ReadCents(std::string_view text) { return ReadDecimal(text, kMoney); }

CellReading ReadTenThousandths(std::string_view text) { return ReadDecimal(text, kQuantity); }

CellReading ReadWhole(std::string_view text, std::int64_t low, std::int64_t high) {
    constexpr std::size_t kMostDigits = 18;
    if (AllDigits(text) && text.size() <= kMostDigits) {
        const std::int64_t number = Number(text);
        if (number >= low && number <= high) return {.value = number};
    }
    return {.mistake = Shown(text) + " is no whole number from " + std::to_string(low) + " to " +
                       std::to_string(high)};
}

CellReading ReadDay(std::string_view text) {
    if (!HasForm(text, "dddd-dd-dd")) return {.mistake = Shown(text) + " is no date; write it as YYYY-MM-DD"};
    const auto year = static_cast<int>(Number(text.substr(0, 4)));
    const auto day = DateFromCalendar(year, static_cast<int>(Number(text.substr(5, 2))),
                                      static_cast<int>(Number(text.substr(8, 2))));
    if (!day || year < kEarliestYear) return {.mistake = Shown(text) + " is no day of the calendar"};
    return {.value = static_cast<std::int64_t>(day->serial)};
}

CellReading ReadMonth(std::string_view text) {
    if (!HasForm(text, "dddd-dd")) return {.mistake = Shown(text) + " is no month; write it as YYYY-MM"};
    CellReading day = ReadDay(std::string(text) + "-01");
    if (!day.mistake.empty()) day.mistake = Shown(text) + " is no month of the calendar";
    return day;
}

CellReading ReadYesNo(std::string_view text) {
    if (text == "yes") return {.value = 1};
    if (text == "no") return {};
    return {.mistake = Shown(text) + " is neither yes nor no"};
}

std::string CentsText(std::int64_t cents) {
    const std::int64_t positive = cents < 0 ? -cents : cents;
    const std::string fen = std::to_string(positive % 100);
    return (cents < 0 ? "-" : "") + std::to_string(positive / 100) + (fen.size() < 2 ? ".0" : ".") + fen;
}

std::string DayText(std::int64_t day) { return FormatIsoDate(Date{static_cast<double>(day)}); }

}  // namespace qor
