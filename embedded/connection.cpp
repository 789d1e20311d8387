#include "embedded/connection.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "embedded/schema.h"
#include "services/system_profile.h"

namespace qor {

namespace {

constexpr std::string_view kStartPeriodHere =
    "SELECT FStartDate, FEndDate FROM t_PeriodDate WHERE"
    " FYear=(SELECT CAST(FValue AS INTEGER) FROM t_SystemProfile WHERE FCategory='IC' AND FKey='StartYear') "
    "AND"
    " FPeriod=(SELECT CAST(FValue AS INTEGER) FROM t_SystemProfile WHERE FCategory='IC' AND "
    "FKey='StartPeriod')";

constexpr std::string_view kOnlySelects = "内置账套只执行单条 SELECT 语句";
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Stripped(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The same statement as this database understands it.
std::string_view Adapted(std::string_view statement) {
    return Stripped(statement) == Stripped(kStartPeriodStatement) ? kStartPeriodHere : Stripped(statement);
}

void CheckIsSelect(std::string_view statement) {
    constexpr std::string_view kSelect = "select";
    if (!EqualsIgnoringCase(statement.substr(0, kSelect.size()), kSelect)) {
        RaiseAccountSetError(std::string(kOnlySelects));
    }
}

enum class ColumnSort { AsStored, Date, Money };

ColumnSort SortOf(const Statement& rows, int column) {
    const char* declared = sqlite3_column_decltype(rows.handle(), column);
    if (!declared) return ColumnSort::AsStored;
    if (declared == std::string_view(kDateColumn)) return ColumnSort::Date;
    return declared == std::string_view(kMoneyColumn) ? ColumnSort::Money : ColumnSort::AsStored;
}

Value IntegerValue(std::int64_t number) {
    const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                      number <= std::numeric_limits<std::int32_t>::max();
    return fits ? Value(static_cast<std::int32_t>(number)) : Value(static_cast<double>(number));
}

Value CellOf(const Statement& rows, int column, ColumnSort sort) {
    switch (sqlite3_column_type(rows.handle(), column)) {
        case SQLITE_NULL:
            return Value::Null();
        case SQLITE_INTEGER: {
            const auto number = static_cast<double>(rows.Int(column));
            if (sort == ColumnSort::Date) return Date{number};
            return sort == ColumnSort::Money ? Value(number / 100) : IntegerValue(rows.Int(column));
        }
        case SQLITE_FLOAT:
            return sqlite3_column_double(rows.handle(), column);
        default:
            return rows.Text(column);
    }
}

}  // namespace

Ref<RecordSet> ExecuteStatement(AccountSet& set, std::string_view statement) {
    const std::string_view adapted = Adapted(statement);
    CheckIsSelect(adapted);
    std::string_view rest;
    Statement rows(set.database(), adapted, &rest);
    if (!Stripped(rest).empty() || !sqlite3_stmt_readonly(rows.handle())) {
        RaiseAccountSetError(std::string(kOnlySelects));
    }
    std::vector<std::string> fields;
    std::vector<ColumnSort> sorts;
    for (int i = 0; i < sqlite3_column_count(rows.handle()); ++i) {
        fields.emplace_back(sqlite3_column_name(rows.handle(), i));
        sorts.push_back(SortOf(rows, i));
    }
    Ref<ColumnarRecordSet> answer = MakeRef<ColumnarRecordSet>(fields);
    while (rows.Step()) {
        for (std::size_t i = 0; i < sorts.size(); ++i) {
            answer->AddCell(i, CellOf(rows, static_cast<int>(i), sorts[i]));
        }
    }
    return answer;
}

}  // namespace qor
