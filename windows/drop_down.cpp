#include "windows/drop_down.h"

#include <algorithm>
#include <string>

#include "windows/dialog_metrics.h"

namespace qor::windows {

namespace {

std::wstring TextOfEntry(HWND list, UINT entry) {
    const LRESULT length = SendMessageW(list, CB_GETLBTEXTLEN, entry, 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    SendMessageW(list, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

}  // namespace

void PlaceDropDown(HWND list, const RECT& place, std::size_t entries, const DialogMetrics& metrics) {
    constexpr int kMostShown = 12;
    const int row = metrics.Pixels(240);
    const int width = place.right - place.left, height = place.bottom - place.top;
    SendMessageW(list, CB_SETITEMHEIGHT, 0, row);
    // Closed, it is as tall as its text and a border; it is the text's height that can be set.
    RECT closed{};
    GetWindowRect(list, &closed);
    const auto text = static_cast<int>(SendMessageW(list, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
    const int border = closed.bottom - closed.top - text;
    SendMessageW(list, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height - border);
    const int shown = std::clamp(static_cast<int>(entries), 1, kMostShown);
    SetWindowPos(list, nullptr, place.left, place.top, width, height + row * shown + 4,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void DrawEntry(const DRAWITEMSTRUCT& entry, const DialogMetrics& metrics) {
    const bool chosen = (entry.itemState & ODS_SELECTED) != 0;
    const bool usable = (entry.itemState & ODS_DISABLED) == 0;
    const int behind = chosen ? COLOR_HIGHLIGHT : usable ? COLOR_WINDOW : COLOR_BTNFACE;
    FillRect(entry.hDC, &entry.rcItem, GetSysColorBrush(behind));
    if (entry.itemID != static_cast<UINT>(-1)) {
        RECT area = entry.rcItem;
        area.left += metrics.Pixels(45);
        const std::wstring text = TextOfEntry(entry.hwndItem, entry.itemID);
        SetBkMode(entry.hDC, TRANSPARENT);
        SetTextColor(entry.hDC, GetSysColor(chosen   ? COLOR_HIGHLIGHTTEXT
                                            : usable ? COLOR_WINDOWTEXT
                                                     : COLOR_GRAYTEXT));
        DrawTextW(entry.hDC, text.c_str(), static_cast<int>(text.size()), &area,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    if ((entry.itemState & ODS_FOCUS) && !(entry.itemState & ODS_NOFOCUSRECT))
        DrawFocusRect(entry.hDC, &entry.rcItem);
}

}  // namespace qor::windows
