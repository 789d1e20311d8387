#include "windows/cell_editor.h"

#include <algorithm>
#include <utility>

#include "windows/control_window.h"
#include "windows/grid_cells.h"
#include "windows/instance.h"

namespace qor::windows {

CellEditor::CellEditor(HWND grid, Owner& owner)
    : window_(CreateWindowExW(0, L"EDIT", L"", WS_CHILD | ES_AUTOHSCROLL, 0, 0, 0, 0, grid, nullptr,
                              ThisInstance(), nullptr)),
      owner_(owner) {
    SetWindowSubclass(window_, &CellEditor::Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
}

// The box itself goes with the grid's window.
CellEditor::~CellEditor() { RemoveWindowSubclass(window_, &CellEditor::Procedure, 1); }

void CellEditor::Open(const std::wstring& text, bool selected) {
    open_ = true;
    SetText(text);
    ShowWindow(window_, SW_SHOW);
    TakeKeyboard();
    const auto end = static_cast<LPARAM>(text.size());
    Send(EM_SETSEL, selected ? 0 : static_cast<WPARAM>(end), end);
}

std::wstring CellEditor::Close() {
    open_ = false;
    std::wstring typed = TextOf(window_);
    if (HasKeyboard()) SetFocus(GetParent(window_));
    ShowWindow(window_, SW_HIDE);
    return typed;
}

/// The text that is typed stands where the cell's text stood, above the line below the cell.
void CellEditor::Place(const RECT& cell, const DialogMetrics& metrics) const {
    const int space = static_cast<int>(cell.bottom - cell.top), line = metrics.lineHeight();
    const int above = std::max(0, (space - line) / 2);
    const int left = static_cast<int>(cell.left) + metrics.Pixels(kCellIndent);
    SetWindowPos(window_, HWND_TOP, left, static_cast<int>(cell.top) + above,
                 static_cast<int>(cell.right) - metrics.Pixels(15) - left,
                 std::min(line + 1, space - 1 - above), SWP_NOACTIVATE);
}

void CellEditor::SetFont(HFONT font) const {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
}

void CellEditor::Copy(const std::wstring& text) const {
    SetText(text);
    Send(EM_SETSEL, 0, -1);
    Send(WM_COPY, 0, 0);
}

LRESULT CALLBACK CellEditor::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR data) {
    auto& self = *reinterpret_cast<CellEditor*>(data);
    if (message == WM_CHAR && TakeBoxCharacter(window, wParam)) return 0;
    if (message == WM_KEYDOWN &&
        (wParam == VK_UP || wParam == VK_DOWN || wParam == VK_PRIOR || wParam == VK_NEXT)) {
        self.owner_.CellLeftBy(wParam);
        return 0;
    }
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    // The grid's form itself has the keyboard only for a moment, when its program is come back to.
    if (message == WM_KILLFOCUS && self.open_ &&
        IsChild(GetParent(GetParent(window)), reinterpret_cast<HWND>(wParam))) {
        self.owner_.CellLeft();
    }
    return result;
}

}  // namespace qor::windows
