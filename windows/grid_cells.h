// GridCells: where the cells of a grid lie in its window, in pixels, and how they are drawn.
#pragma once

#include <algorithm>
#include <vector>

#include "platform/grid.h"
#include "windows/dialog_metrics.h"

namespace qor::windows {

struct CellPlace {
    std::int32_t column = 0, row = 0;  // 0: no cell
    friend bool operator==(const CellPlace&, const CellPlace&) = default;
};

inline constexpr std::int32_t kCellIndent = 60;  // of a cell's text, twips

class GridCells {
 public:
    GridCells(const Grid& grid, const DialogMetrics& metrics) : grid_(grid), metrics_(metrics) {}

    /// Shares the width among the visible columns; `topRow` is the first row seen.
    void Lay(SIZE client, std::int32_t topRow);

    int rowHeight() const { return metrics_.Pixels(270); }
    std::int32_t topRow() const { return topRow_; }
    /// How many rows are seen whole.
    std::int32_t RowsSeen() const { return std::max(1, static_cast<int>(client_.cy) / rowHeight()); }
    RECT RectOf(CellPlace cell) const;
    CellPlace CellAt(POINT point) const;
    /// The visible column beside one; the same where there is none.
    std::int32_t ColumnBeside(std::int32_t column, int step) const;

    void Draw(HDC context, CellPlace current, bool focused) const;

 private:
    void DrawCell(HDC context, CellPlace cell) const;

    const Grid& grid_;
    const DialogMetrics& metrics_;
    SIZE client_{};
    std::int32_t topRow_ = 1;
    std::vector<int> rights_;  // of each column; a hidden one ends where it begins
};

}  // namespace qor::windows
