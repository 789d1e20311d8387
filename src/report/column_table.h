// The column table: what a report tells the host viewer of its grid. A table is the ordered series of its
// AddHeader calls; each appends one descriptor to the list that SetHeaderList has named.
#pragma once

#include <cstdint>
#include <string_view>

#include "process/process.h"

namespace qor {

/// One AddHeader call, as a row of a report's table.
struct ColumnRow {
    std::string_view caption;     // first header line with its marks
    std::string_view headSecond;  // second header line
    std::string_view colType;     // digits
    std::string_view colName;     // field of the data set
    std::int16_t visible;
    std::int16_t appMask;
};

/// Names the list that AddHeader fills; nothing lets go of it.
void SetHeaderList(Process& process, Ref<Vector> list);

/// Appends one column descriptor. `visible` other than 0 shows the column by default; a column is forced
/// hidden unless all bits of the application type are in `appMask`.
void AddHeader(Process& process, std::string_view caption, std::string_view headSecond,
               std::string_view colType, std::string_view colName, std::int16_t visible,
               std::int16_t appMask);

}  // namespace qor
