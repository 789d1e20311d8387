// Record sets as texts, so that a test compares whole reports at once.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "platform/conversions.h"
#include "platform/record_set.h"

namespace qor::test {

/// A cell: an amount in hundredths, a date as its number, a text as it stands, "-" for Null.
inline std::string CellText(const Value& value) {
    if (value.IsNull()) return "-";
    if (value.type() == Value::Type::Date) return std::to_string(std::llround(value.date().serial));
    if (value.type() == Value::Type::Double) return std::to_string(std::llround(value.number() * 100));
    return ToText(value);
}

/// The rows, each with its cells joined by "|".
inline std::vector<std::string> RowsOf(const RecordSet& set) {
    auto& rows = static_cast<const ColumnarRecordSet&>(set);
    std::vector<std::string> texts(static_cast<std::size_t>(rows.RowCount()));
    for (std::size_t row = 0; row < texts.size(); ++row) {
        for (std::size_t column = 0; column < rows.FieldCount(); ++column) {
            texts[row] += CellText(rows.Cell(row, column)) + "|";
        }
    }
    return texts;
}

/// Where two lists of rows part, with the row of each; "" where they are the same.
inline std::string FirstDifference(const std::vector<std::string>& got,
                                   const std::vector<std::string>& wanted) {
    const std::size_t most = std::max(got.size(), wanted.size());
    for (std::size_t i = 0; i < most; ++i) {
        const std::string one = i < got.size() ? got[i] : "(no row)";
        const std::string other = i < wanted.size() ? wanted[i] : "(no row)";
        if (one != other) return "row " + std::to_string(i) + ":\n  " + one + "\n  " + other;
    }
    return "";
}

/// The names of the fields, each with a blank behind it.
inline std::string FieldsOf(const RecordSet& set) {
    std::string names;
    for (std::size_t i = 0; i < set.FieldCount(); ++i) {
        names += set.FieldName(i) + " ";
    }
    return names;
}

/// A field of the row that the set stands on, in hundredths.
inline std::int64_t Cents(const RecordSet& rows, std::string_view field) {
    return std::llround(rows.Field(field).number() * 100);
}

}  // namespace qor::test
