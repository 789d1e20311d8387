#include "windows/native/screen.h"

#include "windows/window_names.h"

namespace qor::windows {

SIZE Screen::ClientSize() const {
    RECT client{};
    GetClientRect(window(), &client);
    return {client.right, client.bottom};
}

std::string Screen::TextOf(std::string_view control) const {
    return Narrow(windows::TextOf(WindowOf(control)));
}

std::vector<HWND> Screen::Shown() const {
    std::vector<HWND> shown;
    EnumChildWindows(
        window(),
        [](HWND child, LPARAM list) -> BOOL {
            if (IsWindowVisible(child)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&shown));
    return shown;
}

void Screen::Press(std::string_view caption) {
    for (HWND child : Shown()) {
        if (Narrow(windows::TextOf(child)) != caption) continue;
        SetFocus(child);
        SendMessageW(child, BM_CLICK, 0, 0);
        NativePlay::Settle();
        return;
    }
    throw Error(0, "test", "no button " + std::string(caption));
}

void Screen::ClickAtLeft(std::string_view control) {
    const HWND window = WindowOf(control);
    RECT area{};
    GetClientRect(window, &area);
    const LPARAM place = MAKELPARAM(10, area.bottom / 2);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageW(window, WM_LBUTTONUP, 0, place);
    NativePlay::Settle();
}

void Screen::PickEntry(std::string_view list, int entry) {
    const HWND window = WindowOf(list);
    SetFocus(window);
    SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(window));
    NativePlay::Settle();
}

void Screen::Tab() {
    window_->TranslateKey({GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}});
    NativePlay::Settle();
}

void Screen::Mnemonic(wchar_t letter) {
    window_->TranslateKey({GetFocus(), WM_SYSCHAR, letter, 1, 0, {}});
    NativePlay::Settle();
}

void Screen::AltKey(WPARAM keyCode) {
    constexpr LPARAM kAltIsDown = LPARAM{1} << 29;
    const MSG key{GetFocus(), WM_SYSKEYDOWN, keyCode, kAltIsDown | 1, 0, {}};
    if (!window_->TranslateKey(key)) SendMessageW(key.hwnd, key.message, key.wParam, key.lParam);
    NativePlay::Settle();
}

std::string Screen::Focused() const {
    const std::string name = NameOfWindow(GetFocus());
    return name.empty() ? Narrow(windows::TextOf(GetFocus())) : name;
}

void Screen::InNextForm(test::ReportHost& host, std::function<void(test::Person&)> play) {
    host.platform.windows().user = [play = std::move(play)](Form& form) {
        test::Person person(form);
        play(person);
    };
}

}  // namespace qor::windows
