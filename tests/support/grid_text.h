// A grid in one line, for statements about all of it.
#pragma once

#include <string>

#include "platform/grid.h"

namespace qor::test {

/// The cells of a column, a bar between them.
inline std::string ColumnText(const Grid& grid, std::int32_t column) {
    std::string all;
    for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
        all += (row > 1 ? "|" : "") + grid.GetText(column, row);
    }
    return all;
}

/// Every cell, a comma between the columns and a bar between the rows.
inline std::string CellText(const Grid& grid) {
    std::string all;
    for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
        if (row > 1) all += "|";
        for (std::int32_t column = 1; column <= grid.MaxCols(); ++column) {
            all += (column > 1 ? "," : "") + grid.GetText(column, row);
        }
    }
    return all;
}

/// One letter a row of a column: L for a locked cell, a dot for another.
inline std::string LockText(const Grid& grid, std::int32_t column) {
    std::string all;
    for (std::int32_t row = 1; row <= grid.MaxRows(); ++row) {
        all += grid.IsLocked(column, row) ? 'L' : '.';
    }
    return all;
}

}  // namespace qor::test
