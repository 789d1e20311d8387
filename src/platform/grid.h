// Grid: the spreadsheet control as a model. Cells hold text and are counted from 1, column before row as the
// control's own operations have them. A lock or a hidden column keeps the user out, never the code.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace qor {

class Grid final : public Control {
 public:
    Grid(Form& form, std::string name, std::int32_t columns, std::int32_t rows, Bounds bounds,
         Control* container = nullptr);
    bool TakesFocus() const override { return true; }

    std::int32_t MaxCols() const { return static_cast<std::int32_t>(columns_.size()); }
    std::int32_t MaxRows() const { return static_cast<std::int32_t>(rows_.size()); }
    /// Adds empty rows below, or cuts rows off. Raises 5 for a negative number.
    void SetMaxRows(std::int32_t rows);

    /// The row that the user is in: 1 to MaxRows, 0 only where there is no row.
    std::int32_t ActiveRow() const { return activeRow_; }
    /// A row outside the grid changes nothing.
    void SetActiveRow(std::int32_t row);

    /// "" for a cell that is empty or outside the grid.
    const std::string& GetText(std::int32_t column, std::int32_t row) const;
    /// A cell outside the grid takes nothing.
    void SetText(std::int32_t column, std::int32_t row, std::string_view text);
    /// Removes rows; those below move up with their locks. Rows outside the grid are left out.
    void DeleteRows(std::int32_t row, std::int32_t count);

    /// A block of cells, both corners included. -1 as the last row means every row, those to come too.
    struct Block {
        std::int32_t column, row, lastColumn, lastRow;
    };
    /// Empties the cells; locks stay.
    void ClearRange(const Block& block);
    void SetLock(const Block& block, bool locked);
    /// True outside the grid: nobody can edit there.
    bool IsLocked(std::int32_t column, std::int32_t row) const;

    bool IsColumnHidden(std::int32_t column) const;
    void SetColumnHidden(std::int32_t column, bool hidden);
    /// In twips; 0 where nobody has said, and the column shares what the others leave.
    std::int32_t ColumnWidth(std::int32_t column) const;
    void SetColumnWidth(std::int32_t column, std::int32_t width);
    bool CanEdit(std::int32_t column, std::int32_t row) const {
        return !IsLocked(column, row) && !IsColumnHidden(column);
    }

    static constexpr std::int16_t kEntered = 1, kLeft = 0;
    /// The user begins to edit a cell, or has left it; `changeMade` tells whether he changed it.
    std::function<void(std::int32_t column, std::int32_t row, std::int16_t mode, bool changeMade)> onEditMode;

    /// What the user does: enters the cell, replaces its text, and leaves it. The cell must be one that he
    /// can edit.
    void Edit(std::int32_t column, std::int32_t row, std::string_view text);

 private:
    struct Column {
        bool hidden = false;
        bool locksNewRows = false;
        std::int32_t width = 0;
    };
    struct Cell {
        std::string text;
        bool locked = false;
    };
    using Row = std::vector<Cell>;

    bool IsColumn(std::int32_t column) const { return column >= 1 && column <= MaxCols(); }
    const Cell* Find(std::int32_t column, std::int32_t row) const;
    Row NewRow() const;
    template <class Change>
    void ForEachCell(const Block& block, Change&& change);

    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::int32_t activeRow_ = 0;
};

}  // namespace qor
