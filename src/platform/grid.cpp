#include "platform/grid.h"

#include <algorithm>

#include "platform/form.h"

namespace qor {

namespace {

std::size_t Place(std::int32_t number) { return static_cast<std::size_t>(number - 1); }

}  // namespace

Grid::Grid(Form& form, std::string name, std::int32_t columns, std::int32_t rows, Bounds bounds,
           Control* container)
    : Control(form, Kind::Grid, std::move(name), bounds, container),
      columns_(static_cast<std::size_t>(columns)) {
    SetMaxRows(rows);
}

Grid::Row Grid::NewRow() const {
    Row row(columns_.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i].locked = columns_[i].locksNewRows;
    }
    return row;
}

void Grid::SetMaxRows(std::int32_t rows) {
    if (rows < 0) Raise(Automation::InvalidCall);
    rows_.resize(static_cast<std::size_t>(rows), NewRow());
    activeRow_ = std::clamp(activeRow_, std::min(1, rows), rows);
    Changed(Change::Cells);
}

void Grid::SetActiveRow(std::int32_t row) {
    if (row < 1 || row > MaxRows()) return;
    activeRow_ = row;
    Changed(Change::Value);
}

const Grid::Cell* Grid::Find(std::int32_t column, std::int32_t row) const {
    if (!IsColumn(column) || row < 1 || row > MaxRows()) return nullptr;
    return &rows_[Place(row)][Place(column)];
}

const std::string& Grid::GetText(std::int32_t column, std::int32_t row) const {
    static const std::string kEmpty;
    const Cell* cell = Find(column, row);
    return cell ? cell->text : kEmpty;
}

template <class Change>
void Grid::ForEachCell(const Block& block, Change&& change) {
    const std::int32_t lastRow = block.lastRow == -1 ? MaxRows() : std::min(block.lastRow, MaxRows());
    for (std::int32_t row = std::max(block.row, 1); row <= lastRow; ++row) {
        for (std::int32_t column = std::max(block.column, 1); column <= std::min(block.lastColumn, MaxCols());
             ++column) {
            change(rows_[Place(row)][Place(column)]);
        }
    }
    Changed(qor::Change::Cells);
}

void Grid::SetText(std::int32_t column, std::int32_t row, std::string_view text) {
    ForEachCell({column, row, column, std::max(row, 0)}, [text](Cell& cell) { cell.text = text; });
}

void Grid::DeleteRows(std::int32_t row, std::int32_t count) {
    if (row < 1 || row > MaxRows() || count < 1) return;
    const auto first = rows_.begin() + (row - 1);
    rows_.erase(first, first + std::min(count, MaxRows() - row + 1));
    SetMaxRows(MaxRows());
}

void Grid::ClearRange(const Block& block) {
    ForEachCell(block, [](Cell& cell) { cell.text.clear(); });
}

void Grid::SetLock(const Block& block, bool locked) {
    ForEachCell(block, [locked](Cell& cell) { cell.locked = locked; });
    if (block.lastRow != -1) return;
    for (std::int32_t column = std::max(block.column, 1); column <= std::min(block.lastColumn, MaxCols());
         ++column) {
        columns_[Place(column)].locksNewRows = locked;
    }
}

bool Grid::IsLocked(std::int32_t column, std::int32_t row) const {
    const Cell* cell = Find(column, row);
    return !cell || cell->locked;
}

bool Grid::IsColumnHidden(std::int32_t column) const {
    return IsColumn(column) && columns_[Place(column)].hidden;
}

void Grid::SetColumnHidden(std::int32_t column, bool hidden) {
    if (!IsColumn(column)) return;
    columns_[Place(column)].hidden = hidden;
    Changed(Change::Cells);
}

std::int32_t Grid::ColumnWidth(std::int32_t column) const {
    return IsColumn(column) ? columns_[Place(column)].width : 0;
}

void Grid::SetColumnWidth(std::int32_t column, std::int32_t width) {
    if (!IsColumn(column)) return;
    columns_[Place(column)].width = width;
    Changed(Change::Cells);
}

void Grid::Edit(std::int32_t column, std::int32_t row, std::string_view text) {
    SetActiveRow(row);
    if (onEditMode) onEditMode(column, row, kEntered, false);
    SetText(column, row, text);
    if (onEditMode) onEditMode(column, row, kLeft, true);
}

}  // namespace qor
