#include "windows/native_windows.h"

#include <utility>

#include "windows/form_window.h"

namespace qor::windows {

namespace {

BOOL CALLBACK AddIfUsable(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

/// The host's windows on this thread that a user could go on with.
std::vector<HWND> UsableWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), &AddIfUsable, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

/// Keeps the host's windows from being used while a modal one stands over them.
class DisabledWindows {
 public:
    DisabledWindows() : windows_(UsableWindows()) {
        for (HWND window : windows_) {
            EnableWindow(window, FALSE);
        }
    }
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;
    ~DisabledWindows() { Enable(); }

    void Enable() {
        for (HWND window : std::exchange(windows_, {})) {
            if (IsWindow(window)) EnableWindow(window, TRUE);
        }
    }

 private:
    std::vector<HWND> windows_;
};

/// A window's stay on the stack of those shown.
class Shown {
 public:
    Shown(std::vector<FormWindow*>& stack, FormWindow& window) : stack_(stack) { stack_.push_back(&window); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;
    ~Shown() { stack_.pop_back(); }

 private:
    std::vector<FormWindow*>& stack_;
};

}  // namespace

HWND NativeWindows::Owner() const {
    if (!shown_.empty()) return shown_.back()->handle();
    if (const HWND active = GetActiveWindow()) return active;
    const std::vector<HWND> usable = UsableWindows();
    return usable.empty() ? nullptr : usable.front();
}

void NativeWindows::RunModal(Form& form) {
    const Ref<Form> kept(&form);
    FormWindow window(*this, form, Owner());
    window.onShown = [this](FormWindow& shown) { FormShown(shown); };
    DisabledWindows disabled;
    {
        const Shown shown(shown_, window);
        window.Run();
    }
    disabled.Enable();  // before the window goes, so that its owner becomes active again
    window.Close();
    window.RethrowFailure();
}

std::int32_t NativeWindows::MessageBox(std::string_view text, std::string_view title, std::int32_t style) {
    const HWND owner = Owner();
    const auto modality = owner ? MB_APPLMODAL : MB_TASKMODAL;
    return MessageBoxW(owner, Wide(text).c_str(), Wide(title).c_str(),
                       static_cast<UINT>(style) | static_cast<UINT>(modality));
}

void NativeWindows::Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (Topmost() && Topmost()->TranslateKey(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void NativeWindows::SetDefaultPointer() { SetCursor(LoadCursorW(nullptr, IDC_ARROW)); }

std::int32_t NativeWindows::WindowHandle(const Control& control) {
    for (const FormWindow* window : shown_) {
        if (const HWND handle = window->HandleOf(control))
            return static_cast<std::int32_t>(HandleToLong(handle));
    }
    return 0;
}

}  // namespace qor::windows
