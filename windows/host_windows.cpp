#include "windows/host_windows.h"

#include <algorithm>
#include <utility>

namespace qor::windows {

namespace {

constexpr wchar_t kGuarded[] = L"QORGuarded";  // a property of the windows that a guard keeps

BOOL CALLBACK AddIfUsable(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

constexpr UINT kTouch = 0x0240, kPointerLast = 0x0257;  // fingers and pens

bool IsInput(UINT message) {
    const auto within = [message](UINT first, UINT last) { return first <= message && message <= last; };
    return within(WM_KEYFIRST, WM_KEYLAST) || within(WM_MOUSEFIRST, WM_MOUSELAST) ||
           within(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK) || within(kTouch, kPointerLast) ||
           message == WM_SYSCOMMAND;  // by the task bar
}

void Discard(HWND window, UINT first, UINT last, UINT kinds) {
    MSG message;
    while (PeekMessageW(&message, window, first, last, PM_REMOVE | kinds)) {
        if (message.message == WM_QUIT) {  // which passes every filter
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
    }
}

}  // namespace

std::vector<HWND> UsableWindows(DWORD thread) {
    std::vector<HWND> windows;
    EnumThreadWindows(thread, &AddIfUsable, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HWND HostWindow(DWORD thread) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    if (GetGUIThreadInfo(thread, &state) && state.hwndActive) return state.hwndActive;
    const std::vector<HWND> usable = UsableWindows(thread);
    return usable.empty() ? nullptr : usable.front();
}

void DiscardInput(const std::vector<HWND>& windows) {
    for (HWND window : windows) {
        Discard(window, 0, 0, PM_QS_INPUT);
        Discard(window, kTouch, kPointerLast, 0);  // older versions do not count it among the input
        Discard(window, WM_SYSCOMMAND, WM_SYSCOMMAND, 0);
    }
    const HWND holder = GetCapture();
    if (std::ranges::find(windows, GetAncestor(holder, GA_ROOT)) != windows.end()) {
        SendMessageW(holder, WM_CANCELMODE, 0, 0);
    }
}

InputGuard::InputGuard(DWORD thread, std::vector<HWND> windows)
    : windows_(std::move(windows)),
      hook_(windows_.empty() ? nullptr
                             : SetWindowsHookExW(WH_GETMESSAGE, &InputGuard::Hook, nullptr, thread)) {
    for (HWND window : windows_) {
        SetPropW(window, kGuarded, reinterpret_cast<HANDLE>(1));
    }
}

InputGuard::~InputGuard() {
    for (HWND window : windows_) {
        RemovePropW(window, kGuarded);
    }
    if (hook_) UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK InputGuard::Hook(int code, WPARAM removed, LPARAM given) {
    auto& message = *reinterpret_cast<MSG*>(given);
    if (code == HC_ACTION && IsInput(message.message) &&
        GetPropW(GetAncestor(message.hwnd, GA_ROOT), kGuarded)) {
        message.message = WM_NULL;
    }
    return CallNextHookEx(nullptr, code, removed, given);
}

}  // namespace qor::windows
