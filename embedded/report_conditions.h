// From a report's filter to the conditions of a statement. Statement text is made of the program's own
// literals only, which the type SqlText sees to; whatever a filter holds goes in as a bound value.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "embedded/sqlite.h"
#include "platform/dictionary.h"

namespace qor {

/// A piece of a statement. Only a literal becomes one.
class SqlText {
 public:
    template <std::size_t N>
    consteval SqlText(const char (&literal)[N]) : text_(literal, N - 1) {}
    constexpr std::string_view view() const { return text_; }

 private:
    std::string_view text_;
};

/// Conditions that all must hold, with the values for their question marks.
class Conditions {
 public:
    using BoundValue = std::variant<std::int64_t, std::string>;

    /// Joins the pieces into one condition.
    void Add(std::initializer_list<SqlText> pieces, std::vector<BoundValue> values = {});
    /// Takes over all conditions of others.
    void Add(const Conditions& others);
    /// "a AND b"; "1" where there is no condition.
    std::string Text() const { return text_.empty() ? "1" : text_; }
    /// Binds them from parameter `first` on; answers the next free one.
    int BindTo(Statement& statement, int first = 1) const;

 private:
    std::string text_;
    std::vector<BoundValue> values_;
};

/// Levels of categories, from 1 at the top; none where the last one stands above the first.
struct LevelRange {
    std::int32_t first = 0, last = 0;
};

/// Reads a filter's values, whatever type they came in. A key that is missing, empty or "" is open.
class ReportFilter {
 public:
    explicit ReportFilter(const Dictionary& filter) : filter_(filter) {}

    /// The calendar day, without a time. Raises an error for what is no date.
    std::optional<std::int64_t> Day(std::string_view key) const;
    std::string Code(std::string_view key) const;              // without blanks around it; "" for open
    bool Flag(std::string_view key, bool open = false) const;  // `open` for open
    std::optional<std::int32_t> Number(std::string_view key) const;
    /// Raises an error for more levels than any class has.
    LevelRange Levels(std::string_view firstKey, std::string_view lastKey) const;
    /// Whether codes are shown by their last part: bLongNumber is given and false.
    bool WantsShortNumbers() const;

 private:
    std::optional<Value> Given(std::string_view key) const;

    const Dictionary& filter_;
};

/// The day of `column` lies between two keys' days, both included.
void AddDayRange(Conditions& conditions, SqlText column, std::optional<std::int64_t> first,
                 std::optional<std::int64_t> last);

/// The item of `column` lies in a range of codes of its class. Codes compare character by character, without
/// regard to the case of letters; the range ends behind everything that stands below its last code, so that
/// "01" to "02" holds 01, 01.003, 02 and 02.001.05, but not 020. A bound of "" is open; with any bound, a row
/// that has no item is left out.
void AddCodeRange(Conditions& conditions, SqlText column, std::int32_t itemClass, const std::string& first,
                  const std::string& last);

/// The departments and employees of t_Bill b, and its biller by a part of the name in either case of letters:
/// BDeptNumber to EDeptNumber, BEmpNumber to EEmpNumber, BillerName, which all filters name alike.
void AddPeople(Conditions& conditions, const ReportFilter& filter);

/// The check state: 0 audited, 1 not audited, 2 both, and both where the filter does not say. Void bills
/// never count. Raises an error for another number.
void AddCheckState(Conditions& conditions, SqlText column, std::optional<std::int32_t> checkState);

}  // namespace qor
