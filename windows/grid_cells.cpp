#include "windows/grid_cells.h"

namespace qor::windows {

void GridCells::Lay(SIZE client, std::int32_t topRow) {
    client_ = client;
    topRow_ = topRow;
    int taken = 0, sharing = 0;
    for (std::int32_t column = 1; column <= grid_.MaxCols(); ++column) {
        if (grid_.IsColumnHidden(column)) continue;
        const std::int32_t width = grid_.ColumnWidth(column);
        taken += metrics_.Pixels(width);
        if (width == 0) ++sharing;
    }
    rights_.clear();
    int right = 0;
    for (std::int32_t column = 1; column <= grid_.MaxCols(); ++column) {
        if (!grid_.IsColumnHidden(column)) {
            const std::int32_t width = grid_.ColumnWidth(column);
            right += width != 0 ? metrics_.Pixels(width)
                                : std::max(0, static_cast<int>(client.cx) - taken) / sharing;
        }
        rights_.push_back(right);
    }
}

RECT GridCells::RectOf(CellPlace cell) const {
    const auto index = static_cast<std::size_t>(cell.column - 1);
    const int top = static_cast<int>(cell.row - topRow_) * rowHeight();
    return {index == 0 ? 0 : rights_[index - 1], top, rights_[index], top + rowHeight()};
}

CellPlace GridCells::CellAt(POINT point) const {
    const std::int32_t row = topRow_ + point.y / rowHeight();
    if (point.y < 0 || row > grid_.MaxRows()) return {};
    for (std::int32_t column = 1; column <= grid_.MaxCols(); ++column) {
        const RECT cell = RectOf({column, row});
        if (point.x >= cell.left && point.x < cell.right) return {column, row};
    }
    return {};
}

std::int32_t GridCells::ColumnBeside(std::int32_t column, int step) const {
    for (std::int32_t beside = column + step; beside >= 1 && beside <= grid_.MaxCols(); beside += step) {
        if (!grid_.IsColumnHidden(beside)) return beside;
    }
    return column;
}

void GridCells::DrawCell(HDC context, CellPlace cell) const {
    RECT area = RectOf(cell);
    const bool free = grid_.CanEdit(cell.column, cell.row);
    FillRect(context, &area, GetSysColorBrush(free ? COLOR_WINDOW : COLOR_BTNFACE));
    // A line below and to the right of each cell.
    const RECT below{area.left, area.bottom - 1, area.right, area.bottom};
    const RECT beside{area.right - 1, area.top, area.right, area.bottom};
    FillRect(context, &below, GetSysColorBrush(COLOR_BTNSHADOW));
    FillRect(context, &beside, GetSysColorBrush(COLOR_BTNSHADOW));

    area.left += metrics_.Pixels(kCellIndent);
    area.right -= metrics_.Pixels(45);
    const std::wstring text = Wide(grid_.GetText(cell.column, cell.row));
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void GridCells::Draw(HDC context, CellPlace current, bool focused) const {
    const RECT all{0, 0, client_.cx, client_.cy};
    FillRect(context, &all, GetSysColorBrush(COLOR_WINDOW));
    const HGDIOBJ font = SelectObject(context, metrics_.font());
    SetBkMode(context, TRANSPARENT);
    const std::int32_t last = std::min(grid_.MaxRows(), topRow_ + RowsSeen());
    for (std::int32_t row = topRow_; row <= last; ++row) {
        for (std::int32_t column = 1; column <= grid_.MaxCols(); ++column) {
            if (!grid_.IsColumnHidden(column)) DrawCell(context, {column, row});
        }
    }
    if (focused && current.row >= topRow_ && current.row <= last) {
        RECT frame = RectOf(current);
        for (int line = 0; line < std::max(1, metrics_.Pixels(30)); ++line) {
            FrameRect(context, &frame, GetSysColorBrush(COLOR_HIGHLIGHT));
            InflateRect(&frame, -1, -1);
        }
    }
    SelectObject(context, font);
}

}  // namespace qor::windows
