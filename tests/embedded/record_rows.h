// Record sets as texts, so that a test compares whole reports at once.
#pragma once

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
