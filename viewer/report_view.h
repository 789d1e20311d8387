// ReportView: what a host viewer shows of a finished report, read from the report object late bound: its
// name, dates and conditions, the columns that may be seen, and the rows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/dictionary.h"
#include "platform/record_set.h"
#include "platform/vector.h"

namespace qor::viewer {

enum class Columns {
    Shown,  // without those that are hidden by default
    All,    // with them; what is forced hidden is never seen
};

struct ViewColumn {
    std::string group;    // the caption over several columns, "" for a column of its own
    std::string caption;  // without its marks; inside a group the second line
    std::string type;     // the column type's digits
    std::string field;
    std::size_t position;  // in the data set; kNoField where the server did not deliver it

    bool IsNumber() const { return type == "2" || type == "4" || type == "6" || type == "999"; }
    /// Group and caption in one line, as "收款金额/实收金额".
    std::string FullCaption() const { return group.empty() ? caption : group + "/" + caption; }
};

inline constexpr std::size_t kNoField = static_cast<std::size_t>(-1);

struct ReportView {
    std::string name;
    std::string dates;                    // "2020-09-01 至 2020-09-15", "" where the report has none
    std::vector<std::string> conditions;  // the condition captions
    std::vector<ViewColumn> columns;
    Ref<RecordSet> rows;  // standing on its first row, if it has one

    Value Cell(const ViewColumn& column) const {
        return column.position == kNoField ? Value() : rows->FieldAt(column.position);
    }
};

/// Reads a report whose run has succeeded.
ReportView ReadReport(Object& report, Columns columns);

}  // namespace qor::viewer
