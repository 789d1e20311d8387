#include "platform/date_text.h"

#include <charconv>

#include "platform/conversions.h"

namespace qor {

namespace {

struct Digits {
    int value = 0;
    std::size_t length = 0;
};

/// Reads a text from its head.
class Reader {
 public:
    explicit Reader(std::string_view text) : rest_(text) {}

    bool AtEnd() const { return rest_.empty(); }
    bool Take(std::string_view word) {
        if (!rest_.starts_with(word)) return false;
        rest_.remove_prefix(word.size());
        return true;
    }
    bool TakeBlanks() {
        const std::size_t before = rest_.size();
        rest_ = Trimmed(rest_);
        return rest_.size() < before;
    }
    /// A run of up to four digits.
    std::optional<Digits> TakeNumber() {
        Digits digits;
        const auto read = std::from_chars(rest_.data(), rest_.data() + rest_.size(), digits.value);
        digits.length = static_cast<std::size_t>(read.ptr - rest_.data());
        if (read.ec != std::errc{} || rest_.front() == '-' || digits.length > 4) return std::nullopt;
        rest_.remove_prefix(digits.length);
        return digits;
    }

 private:
    std::string_view rest_;
};

constexpr std::size_t kYearLength = 4;

/// What follows the year of "2020年9月1日"; the day may be left out.
std::optional<Date> TakeChineseDay(Reader& reader, int year) {
    const auto month = reader.TakeNumber();
    if (!month || !reader.Take("月")) return std::nullopt;
    const auto day = reader.TakeNumber();
    if (!day) return DateFromCalendar(year, month->value, 1);
    if (!reader.Take("日")) return std::nullopt;
    return DateFromCalendar(year, month->value, day->value);
}

std::optional<Date> TakeDay(Reader& reader) {
    const auto first = reader.TakeNumber();
    if (!first) return std::nullopt;
    const bool yearFirst = first->length == kYearLength;
    if (yearFirst && reader.Take("年")) return TakeChineseDay(reader, first->value);

    const std::string_view separator = reader.Take("-") ? "-" : reader.Take("/") ? "/" : ".";
    if (separator == "." && !reader.Take(".")) return std::nullopt;
    const auto second = reader.TakeNumber();
    if (!second) return std::nullopt;
    if (!reader.Take(separator)) {
        // "2020.9" is a number, not a month.
        if (!yearFirst || separator == ".") return std::nullopt;
        return DateFromCalendar(first->value, second->value, 1);
    }
    const auto third = reader.TakeNumber();
    if (!third) return std::nullopt;
    if (yearFirst) return DateFromCalendar(first->value, second->value, third->value);
    if (third->length != kYearLength) return std::nullopt;
    return DateFromCalendar(third->value, first->value, second->value);
}

/// "h:mm" or "h:mm:ss" as a part of a day.
std::optional<double> TakeTime(Reader& reader) {
    const auto hour = reader.TakeNumber();
    if (!hour || hour->value > 23 || !reader.Take(":")) return std::nullopt;
    const auto minute = reader.TakeNumber();
    if (!minute || minute->value > 59) return std::nullopt;
    Digits second;
    if (reader.Take(":")) {
        const auto read = reader.TakeNumber();
        if (!read || read->value > 59) return std::nullopt;
        second = *read;
    }
    return (hour->value * 3600 + minute->value * 60 + second.value) / 86400.0;
}

}  // namespace

std::optional<Date> ReadDateText(std::string_view text) {
    text = Trimmed(text);
    Reader timeAlone(text);
    if (const auto time = TakeTime(timeAlone); time && timeAlone.AtEnd()) return Date{*time};

    Reader reader(text);
    const auto day = TakeDay(reader);
    if (!day || reader.AtEnd()) return day;
    if (!reader.TakeBlanks()) return std::nullopt;
    const auto time = TakeTime(reader);
    if (!time || !reader.AtEnd()) return std::nullopt;
    // Before day 0 the fraction still counts forward from midnight.
    return Date{day->serial < 0 ? day->serial - *time : day->serial + *time};
}

}  // namespace qor
