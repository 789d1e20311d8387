#include "platform/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>
#include <system_error>

#include "platform/conversions.h"
#include "platform/error.h"

namespace qor {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view WithoutBlanksAround(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Takes a sign off the head of `text`; answers whether it was a minus.
bool TakeSign(std::string_view& text) {
    if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
    const bool minus = text.front() == '-';
    text.remove_prefix(1);
    return minus;
}

void TakeDigits(std::string_view& text, std::string& digits, bool withCommas) {
    while (!text.empty() && (IsDigit(text.front()) || (withCommas && text.front() == ','))) {
        if (text.front() != ',') digits += text.front();
        text.remove_prefix(1);
    }
}

/// Takes an exponent off the head of `text`, if a whole one stands there.
void TakeExponent(std::string_view& text, std::string& number) {
    if (text.empty() || std::string_view("eEdD").find(text.front()) == std::string_view::npos) return;
    std::string_view rest = text.substr(1);
    const bool minus = TakeSign(rest);
    std::string digits;
    TakeDigits(rest, digits, false);
    if (digits.empty()) return;
    number += minus ? "e-" : "e";
    number += digits;
    text = rest;
}

/// What stands in for a number that from_chars finds out of range: 0 for one too small, else infinity.
/// `number` is not 0 and has no sign; its exponent, if any, stands behind an "e".
double OutOfRange(std::string_view number) {
    const std::string_view mantissa = number.substr(0, number.find('e'));
    std::string_view exponent = number.substr(std::min(mantissa.size() + 1, number.size()));
    const bool minus = TakeSign(exponent);
    std::int32_t power = 0;
    const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    if (read.ec == std::errc::result_out_of_range) power = std::numeric_limits<std::int32_t>::max();

    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto leading = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    const std::int64_t magnitude = point - leading + (leading > point ? 1 : 0);
    return magnitude + (minus ? -power : power) <= 0 ? 0 : std::numeric_limits<double>::infinity();
}

/// Takes the longest unsigned decimal number off the head of `text`.
std::optional<double> TakeDecimal(std::string_view& text, bool withCommas) {
    std::string number;
    std::string_view rest = text;
    if (!rest.empty() && IsDigit(rest.front())) TakeDigits(rest, number, withCommas);
    std::size_t digits = number.size();
    if (!rest.empty() && rest.front() == '.') {
        number += '.';
        rest.remove_prefix(1);
        TakeDigits(rest, number, false);
        digits = number.size() - 1;
    }
    if (digits == 0) return std::nullopt;
    TakeExponent(rest, number);
    text = rest;

    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    return read.ec == std::errc::result_out_of_range ? OutOfRange(number) : value;
}

/// Takes an &H or &O number of up to 64 bits off the head of `text`.
std::optional<std::uint64_t> TakeBits(std::string_view& text) {
    if (text.size() < 3 || text[0] != '&') return std::nullopt;
    const int base = text[1] == 'H' || text[1] == 'h' ? 16 : text[1] == 'O' || text[1] == 'o' ? 8 : 0;
    if (base == 0) return std::nullopt;
    std::uint64_t bits = 0;
    const auto read = std::from_chars(text.data() + 2, text.data() + text.size(), bits, base);
    if (read.ec != std::errc{}) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return bits;
}

/// An &H or &O literal is a 16-bit integer if that many bits hold it, unless an "&" behind it says otherwise.
double ValueOfLiteral(std::uint64_t bits, std::string_view behind) {
    const bool isLong = !behind.empty() && behind.front() == '&';
    if (bits <= 0xFFFF && !isLong) return static_cast<std::int16_t>(bits);
    if (bits <= 0xFFFFFFFF) return static_cast<std::int32_t>(bits);
    return static_cast<double>(bits);
}

}  // namespace

std::optional<NumberText> ReadNumberText(std::string_view text) {
    text = WithoutBlanksAround(text);
    if (const auto bits = TakeBits(text)) {
        if (!text.empty()) return std::nullopt;
        return NumberText{static_cast<double>(*bits), bits};
    }
    bool negative = false;
    if (text.size() > 2 && text.front() == '(' && text.back() == ')') {
        negative = true;
        text = text.substr(1, text.size() - 2);
    } else {
        negative = TakeSign(text);
    }
    text = WithoutBlanksAround(text);
    const auto value = TakeDecimal(text, true);
    if (!value || !text.empty()) return std::nullopt;
    return NumberText{negative ? -*value : *value, std::nullopt};
}

double Val(std::string_view text) {
    std::string withoutBlanks;
    std::ranges::remove_copy_if(text, std::back_inserter(withoutBlanks), IsBlank);
    std::string_view rest = withoutBlanks;
    if (const auto bits = TakeBits(rest)) return ValueOfLiteral(*bits, rest);
    const bool negative = TakeSign(rest);
    const double value = TakeDecimal(rest, false).value_or(0);
    if (std::isinf(value)) Raise(Automation::Overflow);
    return negative && value != 0 ? -value : value;
}

}  // namespace qor
