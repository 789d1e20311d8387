#include "windows/native/native_hand.h"

#include "windows/native/native_play.h"

namespace qor::windows {

namespace {

constexpr std::int32_t kQuoteKey = 222;

/// The key that types a character on the usual keyboard; 0 where there is none.
std::int32_t KeyOf(wchar_t character) {
    if (character == L'\'' || character == L'"') return kQuoteKey;
    if (character == L'\r' || character == L'\b' || character == L'\t') return character;
    const SHORT key = VkKeyScanW(character);
    return key == -1 ? 0 : key & 0xFF;
}

/// What a key types without a modifier; 0 for a key that types nothing.
wchar_t CharacterOf(std::int32_t keyCode) {
    if (keyCode == VK_BACK || keyCode == VK_RETURN) return static_cast<wchar_t>(keyCode);
    if (keyCode == kQuoteKey) return L'\'';
    if (keyCode == VK_OEM_COMMA) return L',';
    if (keyCode == VK_OEM_MINUS) return L'-';
    if (keyCode == VK_OEM_PERIOD) return L'.';
    if (keyCode >= 'A' && keyCode <= 'Z') return static_cast<wchar_t>(keyCode - 'A' + L'a');
    return (keyCode >= '0' && keyCode <= '9') || keyCode == VK_SPACE ? static_cast<wchar_t>(keyCode) : L'\0';
}

LRESULT Notify(HWND control, WORD notification) {
    return SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(0, notification),
                        reinterpret_cast<LPARAM>(control));
}

}  // namespace

HWND NativeHand::HandleOf(const Control& control) const {
    const FormWindow* window = NativePlay::WindowOf(form_);
    return window ? window->HandleOf(control) : nullptr;
}

bool NativeHand::Focus(Control& control) {
    const HWND window = HandleOf(control);
    if (!window || !control.TakesFocus() || !IsWindowVisible(window) || !IsWindowEnabled(window))
        return false;
    if (form_.focus() != &control) SetFocus(window);
    NativePlay::Settle();
    return form_.focus() == &control && form_.IsVisible();
}

bool NativeHand::Text(TextBox& box, std::string_view text) {
    if (!Focus(box)) return false;
    const std::wstring wide = Wide(text);
    SendMessageW(HandleOf(box), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
    SendMessageW(HandleOf(box), EM_SETSEL, wide.size(), static_cast<LPARAM>(wide.size()));
    NativePlay::Settle();
    return true;
}

void NativeHand::Press(std::int32_t keyCode, wchar_t character) {
    FormWindow* form = NativePlay::WindowOf(form_);
    const HWND window = GetFocus();
    if (!form || !window) return;
    const auto hand = [&](UINT message, WPARAM wParam) {
        const MSG key{window, message, wParam, 1, 0, {}};
        if (form->TranslateKey(key)) return false;
        SendMessageW(window, message, wParam, 1);
        return true;
    };
    const bool goesOn = keyCode == 0 || hand(WM_KEYDOWN, static_cast<WPARAM>(keyCode));
    if (goesOn && character != 0) hand(WM_CHAR, character);
    NativePlay::Settle();
}

bool NativeHand::Type(Control& control, std::string_view characters) {
    if (!Focus(control)) return false;
    for (wchar_t character : Wide(characters)) {
        if (!form_.IsVisible()) break;
        if (character == L'\n') character = L'\r';
        Press(KeyOf(character), character);
    }
    return true;
}

bool NativeHand::Key(Control& control, std::int32_t keyCode) {
    if (!Focus(control)) return false;
    Press(keyCode, CharacterOf(keyCode));
    return true;
}

bool NativeHand::ClickOn(Control& control) {
    if (!Focus(control)) return false;
    SendMessageW(HandleOf(control), BM_CLICK, 0, 0);
    NativePlay::Settle();
    return true;
}

bool NativeHand::Check(CheckBox& box, std::int16_t value) {
    if (box.value() == value) return Focus(box);
    return ClickOn(box) && box.value() == value;
}

bool NativeHand::Option(OptionButton& button) { return ClickOn(button); }

bool NativeHand::Select(DropDown& list, std::int32_t index) {
    if (!Focus(list)) return false;
    SendMessageW(HandleOf(list), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    Notify(HandleOf(list), CBN_SELCHANGE);
    NativePlay::Settle();
    return true;
}

bool NativeHand::Date(DatePicker& picker, qor::Date date) {
    if (!Focus(picker)) return false;
    const HWND window = HandleOf(picker);
    SYSTEMTIME day{};
    VariantTimeToSystemTime(date.serial, &day);
    SendMessageW(window, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&day));
    NMDATETIMECHANGE change{{window, 0, static_cast<UINT>(DTN_DATETIMECHANGE)}, GDT_VALID, day};
    SendMessageW(GetParent(window), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&change));
    NativePlay::Settle();
    return true;
}

bool NativeHand::Spin(qor::Spin& spin, std::int32_t value) {
    const HWND window = HandleOf(spin);
    if (!window || !IsWindowVisible(window) || !IsWindowEnabled(window)) return false;
    RECT area{};
    GetClientRect(window, &area);
    // Arrow by arrow, until it is there or does not move any longer.
    for (std::int32_t before = spin.value() - 1; spin.value() != value && spin.value() != before;) {
        before = spin.value();
        const int y = value > before ? area.bottom / 4 : area.bottom * 3 / 4;
        const LPARAM arrow = MAKELPARAM(area.right / 2, y);
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, arrow);
        SendMessageW(window, WM_LBUTTONUP, 0, arrow);
        NativePlay::Settle();
    }
    return true;
}

bool NativeHand::Row(Grid& grid, std::int32_t row) {
    if (!Focus(grid) || row < 1 || row > grid.MaxRows()) return false;
    Press(VK_HOME, 0);
    for (std::int32_t down = 1; down < row; ++down) {
        Press(VK_DOWN, 0);
    }
    return grid.ActiveRow() == row;
}

bool NativeHand::Cell(Grid& grid, std::int32_t row, std::int32_t column, std::string_view text) {
    if (!Row(grid, row) || column > grid.MaxCols() || grid.IsColumnHidden(column)) return false;
    for (std::int32_t left = 1; left < grid.MaxCols(); ++left) {
        Press(VK_LEFT, 0);
    }
    for (std::int32_t right = 1; right < column; ++right) {
        if (!grid.IsColumnHidden(right)) Press(VK_RIGHT, 0);
    }
    Press(VK_F2, 0);
    const HWND editor = GetFocus();
    if (editor == HandleOf(grid)) return false;  // the cell is locked
    SetWindowTextW(editor, Wide(text).c_str());
    SetFocus(HandleOf(grid));
    NativePlay::Settle();
    return true;
}

bool NativeHand::Click(Button& button) { return ClickOn(button); }

}  // namespace qor::windows
