#include "windows/native_windows.h"

#include "windows/form_window.h"

namespace qor::windows {

namespace {

/// Keeps a window from being used while a modal one stands over it.
class DisabledWhile {
 public:
    explicit DisabledWhile(HWND window) : window_(window && IsWindowEnabled(window) ? window : nullptr) {
        if (window_) EnableWindow(window_, FALSE);
    }
    DisabledWhile(const DisabledWhile&) = delete;
    DisabledWhile& operator=(const DisabledWhile&) = delete;
    ~DisabledWhile() { Enable(); }

    void Enable() {
        if (HWND window = std::exchange(window_, nullptr)) EnableWindow(window, TRUE);
    }

 private:
    HWND window_;
};

}  // namespace

HWND NativeWindows::Owner() const {
    if (!shown_.empty()) return shown_.back()->handle();
    const HWND active = GetActiveWindow();
    return active ? active : GetLastActivePopup(GetForegroundWindow());
}

void NativeWindows::RunModal(Form& form) {
    const Ref<Form> kept(&form);
    const HWND owner = Owner();
    const DWORD ownerThread = owner ? GetWindowThreadProcessId(owner, nullptr) : 0;
    const bool ownOwner =
        ownerThread == GetCurrentThreadId();  // another program's window is never ours to disable

    FormWindow window(form, ownOwner ? owner : nullptr);
    shown_.push_back(&window);
    DisabledWhile disabled(ownOwner ? owner : nullptr);
    window.Run();
    shown_.pop_back();
    disabled.Enable();  // before the window goes, so that the owner becomes active again
    window.Close();
    window.RethrowFailure();
}

std::int32_t NativeWindows::MessageBox(std::string_view text, std::string_view title, std::int32_t style) {
    return MessageBoxW(Owner(), Wide(text).c_str(), Wide(title).c_str(),
                       static_cast<UINT>(style) | MB_TASKMODAL);
}

void NativeWindows::Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
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
