#include "windows/grid_window.h"

#include <windowsx.h>

#include "platform/user.h"
#include "windows/cell_editor.h"
#include "windows/grid_cells.h"
#include "windows/instance.h"

namespace qor::windows {

namespace {

constexpr wchar_t kClassName[] = L"QORArApRptGrid";
// What the window tells its form, so that all that can fail happens there.
constexpr WORD kRowChosen = 1, kCellEdited = 2;

class GridWindow final : public ControlWindow, private CellEditor::Owner {
 public:
    GridWindow(Grid& grid, const FormSurface& surface);
    ~GridWindow() override { SetWindowLongPtrW(handle(), GWLP_USERDATA, 0); }

    void Command(HWND from, WORD notification) override;
    void TakeFocus(bool byTab, bool backwards) override {
        if (!editor_.IsOpen()) return ControlWindow::TakeFocus(byTab, backwards);
        if (!editor_.HasKeyboard()) editor_.TakeKeyboard();  // its program had gone to the back
    }
    bool TakeTab(bool backwards) override;
    bool TakeEnter() override { return TakeTab(false); }
    bool TakeEscape() override {
        if (!editor_.IsOpen()) return false;
        EndEdit(false);
        return true;
    }
    void FinishTyping() override { EndEdit(true); }

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
    Grid& Model() const { return static_cast<Grid&>(control()); }
    CellPlace Current() const { return {column_, Model().ActiveRow()}; }

    void Show(Change what) override;
    void Place(const RECT& place) override;
    void TakeFont() override;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool KeyDown(WPARAM key);
    void Type(wchar_t character);
    void CellLeftBy(WPARAM key) override;
    void CellLeft() override { EndEdit(true); }
    void Copy() const { editor_.Copy(Wide(Model().GetText(column_, Model().ActiveRow()))); }
    void Empty();
    void Paste();
    void Scroll(WORD how);
    void TurnWheel(int delta);
    void ScrollTo(std::int32_t topRow);
    void ShowCurrent();
    void ChooseRow(std::int32_t row);
    bool PressAt(POINT point);
    void BeginEdit(const wchar_t* typed = nullptr);
    void EndEdit(bool take);
    void Tell(WORD what) const {
        SendMessageW(surface().window, WM_COMMAND, MAKEWPARAM(0, what), reinterpret_cast<LPARAM>(handle()));
    }
    void Paint() const;

    GridCells cells_;
    std::int32_t column_ = 1;
    std::int32_t wantedRow_ = 0;
    int wheel_ = 0;  // what it has turned beyond the last whole row
    CellEditor editor_;
    CellPlace edited_;
    std::string typed_;
};

GridWindow::GridWindow(Grid& grid, const FormSurface& surface)
    : ControlWindow(grid, surface, kClassName, WS_VSCROLL | WS_TABSTOP | WS_CLIPCHILDREN, WS_EX_CLIENTEDGE),
      cells_(grid, surface.metrics),
      editor_(handle(), *this) {
    // The user begins where he can type.
    for (std::int32_t column = 1; column <= grid.MaxCols(); ++column) {
        if (grid.CanEdit(column, 1)) column_ = column;
    }
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void GridWindow::Place(const RECT& place) {
    ControlWindow::Place(place);
    ScrollTo(cells_.topRow());
}

void GridWindow::TakeFont() {
    ControlWindow::TakeFont();
    editor_.SetFont(metrics().font());
}

void GridWindow::Show(Change what) {
    if (!Model().CanEdit(column_, 1)) {
        for (std::int32_t column = 1; column <= Model().MaxCols(); ++column) {
            if (Model().CanEdit(column, 1)) column_ = column;
        }
    }
    ScrollTo(cells_.topRow());
    if (what == Change::Value) ShowCurrent();
}

void GridWindow::ScrollTo(std::int32_t topRow) {
    RECT client{};
    GetClientRect(handle(), &client);
    cells_.Lay({client.right, client.bottom}, topRow);
    const std::int32_t last = std::max(1, Model().MaxRows() - cells_.RowsSeen() + 1);
    topRow = std::clamp(topRow, 1, last);
    // The bar may come or go and change the width.
    SCROLLINFO bar{sizeof bar,
                   SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL,
                   1,
                   std::max(1, Model().MaxRows()),
                   static_cast<UINT>(cells_.RowsSeen()),
                   topRow,
                   0};
    SetScrollInfo(handle(), SB_VERT, &bar, TRUE);
    GetClientRect(handle(), &client);
    cells_.Lay({client.right, client.bottom}, topRow);
    if (editor_.IsOpen()) editor_.Place(cells_.RectOf(edited_), metrics());  // it goes with its cell
    InvalidateRect(handle(), nullptr, FALSE);
}

void GridWindow::ShowCurrent() {
    const std::int32_t row = Model().ActiveRow();
    if (row < cells_.topRow()) {
        ScrollTo(row);
    } else if (row >= cells_.topRow() + cells_.RowsSeen()) {
        ScrollTo(row - cells_.RowsSeen() + 1);
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

void GridWindow::Scroll(WORD how) {
    SCROLLINFO bar{sizeof bar, SIF_TRACKPOS, 0, 0, 0, 0, 0};
    GetScrollInfo(handle(), SB_VERT, &bar);
    switch (how) {
        case SB_LINEUP:
            return ScrollTo(cells_.topRow() - 1);
        case SB_LINEDOWN:
            return ScrollTo(cells_.topRow() + 1);
        case SB_PAGEUP:
            return ScrollTo(cells_.topRow() - cells_.RowsSeen());
        case SB_PAGEDOWN:
            return ScrollTo(cells_.topRow() + cells_.RowsSeen());
        case SB_THUMBTRACK:
            return ScrollTo(bar.nTrackPos);
        case SB_TOP:
            return ScrollTo(1);
        case SB_BOTTOM:
            return ScrollTo(Model().MaxRows());
        default:
            break;
    }
}

/// A wheel or a touch pad may turn by less than a row at a time.
void GridWindow::TurnWheel(int delta) {
    UINT rows = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &rows, 0);
    wheel_ += delta * std::min(static_cast<int>(std::min(rows, 100U)), cells_.RowsSeen());
    const int turned = wheel_ / WHEEL_DELTA;
    wheel_ -= turned * WHEEL_DELTA;
    if (turned != 0) ScrollTo(cells_.topRow() - turned);
}

void GridWindow::Command(HWND, WORD notification) {
    User user(Model().form());
    if (notification == kRowChosen) user.Row(Model(), wantedRow_);
    if (notification == kCellEdited) user.Cell(Model(), edited_.row, edited_.column, typed_);
}

void GridWindow::ChooseRow(std::int32_t row) {
    wantedRow_ = std::clamp(row, 1, std::max(1, Model().MaxRows()));
    Tell(kRowChosen);
    ShowCurrent();
}

bool GridWindow::TakeTab(bool backwards) {
    if (!editor_.IsOpen()) return false;
    EndEdit(true);
    if (backwards || !Model().CanEdit(column_, Model().ActiveRow() + 1)) return false;
    ChooseRow(Model().ActiveRow() + 1);
    return true;
}

/// With what is typed in place of the cell's text, or to change the text; nothing happens in a locked cell.
void GridWindow::BeginEdit(const wchar_t* typed) {
    const CellPlace cell = Current();
    if (editor_.IsOpen() || !Model().CanEdit(cell.column, cell.row)) return;
    ShowCurrent();
    edited_ = cell;
    editor_.Place(cells_.RectOf(cell), metrics());
    editor_.Open(typed ? typed : Wide(Model().GetText(cell.column, cell.row)), !typed);
}

void GridWindow::EndEdit(bool take) {
    if (!editor_.IsOpen()) return;
    typed_ = Narrow(editor_.Close());
    if (take && typed_ != Model().GetText(edited_.column, edited_.row)) Tell(kCellEdited);
    InvalidateRect(handle(), nullptr, FALSE);
}

void GridWindow::Empty() {
    BeginEdit(L"");
    EndEdit(true);
}

void GridWindow::Paste() {
    BeginEdit();
    if (!editor_.IsOpen()) return;
    editor_.Paste();  // over all of it
    EndEdit(true);
}

void GridWindow::CellLeftBy(WPARAM key) {
    EndEdit(true);
    KeyDown(key);
}

void GridWindow::Type(wchar_t character) {
    constexpr wchar_t kCopy = 3, kPaste = 22, kCut = 24, kControlBackspace = 127;  // with the Control key
    // An input method gives all characters of a word to the window in which it began.
    if (editor_.IsOpen()) return editor_.Type(character);
    switch (character) {
        case kCopy:
            return Copy();
        case kPaste:
            return Paste();
        case kCut:
            Copy();
            return Empty();
        case VK_BACK:
            return BeginEdit(L"");
        default:
            const wchar_t typed[] = {character, L'\0'};
            if (character >= L' ' && character != kControlBackspace) BeginEdit(typed);
    }
}

bool GridWindow::KeyDown(WPARAM key) {
    const std::int32_t row = Model().ActiveRow();
    switch (key) {
        case VK_UP:
            ChooseRow(row - 1);
            return true;
        case VK_DOWN:
            ChooseRow(row + 1);
            return true;
        case VK_PRIOR:
            ChooseRow(row - cells_.RowsSeen());
            return true;
        case VK_NEXT:
            ChooseRow(row + cells_.RowsSeen());
            return true;
        case VK_HOME:
            ChooseRow(1);
            return true;
        case VK_END:
            ChooseRow(Model().MaxRows());
            return true;
        case VK_LEFT:
        case VK_RIGHT:
            column_ = cells_.ColumnBeside(column_, key == VK_LEFT ? -1 : 1);
            ShowCurrent();
            return true;
        case VK_F2:
            BeginEdit();
            return true;
        case VK_DELETE:
            Empty();
            return true;
        default:
            return false;
    }
}

/// Whether there is a cell.
bool GridWindow::PressAt(POINT point) {
    SetFocus(handle());
    const CellPlace cell = cells_.CellAt(point);
    if (cell.row == 0) return false;
    column_ = cell.column;
    ChooseRow(cell.row);
    return true;
}

void GridWindow::Paint() const {
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(handle(), &paint);
    RECT client{};
    GetClientRect(handle(), &client);
    // Drawn aside first, so that nothing flickers.
    const HDC aside = CreateCompatibleDC(context);
    const HBITMAP picture = CreateCompatibleBitmap(context, client.right, client.bottom);
    const HGDIOBJ before = SelectObject(aside, picture);
    cells_.Draw(aside, Current(), GetFocus() == handle());
    BitBlt(context, 0, 0, client.right, client.bottom, aside, 0, 0, SRCCOPY);
    SelectObject(aside, before);
    DeleteObject(picture);
    DeleteDC(aside);
    EndPaint(handle(), &paint);
}

LRESULT GridWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            Paint();
            return 0;
        case WM_PRINTCLIENT:
            cells_.Draw(reinterpret_cast<HDC>(wParam), Current(), GetFocus() == handle());
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            InvalidateRect(handle(), nullptr, FALSE);
            return 0;
        case WM_LBUTTONDOWN:
            PressAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_LBUTTONDBLCLK:
            if (PressAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) BeginEdit();
            return 0;
        case WM_KEYDOWN:
            if (KeyDown(wParam)) return 0;
            break;
        case WM_CHAR:
            Type(static_cast<wchar_t>(wParam));
            return 0;
        case WM_VSCROLL:
            Scroll(LOWORD(wParam));
            return 0;
        case WM_MOUSEWHEEL:
            TurnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        default:
            break;
    }
    return DefWindowProcW(handle(), message, wParam, lParam);
}

LRESULT CALLBACK GridWindow::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<GridWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self && message != WM_DESTROY && message != WM_NCDESTROY
               ? self->Handle(message, wParam, lParam)
               : DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

std::unique_ptr<ControlWindow> MakeGridWindow(Grid& grid, const FormSurface& surface) {
    static const WindowClass registered(kClassName, &GridWindow::WindowProcedure, CS_DBLCLKS, nullptr);
    return std::make_unique<GridWindow>(grid, surface);
}

}  // namespace qor::windows
