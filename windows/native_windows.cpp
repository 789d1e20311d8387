#include "windows/native_windows.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "windows/form_window.h"
#include "windows/host_windows.h"
#include "windows/working_window.h"

namespace qor::windows {

namespace {

/// Keeps the host's windows from being used while a modal one stands over them.
class DisabledWindows {
 public:
    DisabledWindows() : windows_(UsableWindows(GetCurrentThreadId())) {
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

/// A form's stay on the stack of those shown.
class Stay {
 public:
    Stay(std::vector<FormWindow*>& stack, FormWindow* window) : stack_(stack) { stack_.push_back(window); }
    Stay(const Stay&) = delete;
    Stay& operator=(const Stay&) = delete;
    ~Stay() { stack_.pop_back(); }

 private:
    std::vector<FormWindow*>& stack_;
};

}  // namespace

HWND NativeWindows::Owner() const {
    const auto shown =
        std::ranges::find_if(shown_.rbegin(), shown_.rend(), [](auto* window) { return window; });
    return shown == shown_.rend() ? HostWindow(GetCurrentThreadId()) : (*shown)->handle();
}

void NativeWindows::RunModal(Form& form) {
    const Ref<Form> kept(&form);
    if (form.WorksWhenActivated()) Work(form);
    if (form.IsVisible()) Interact(form);
}

void NativeWindows::Work(Form& form) {
    const bool underWork = IsAtWork();  // which keeps the host's windows from being used already
    const Stay stay(shown_, nullptr);
    const auto window = std::make_unique<WorkingWindow>(
        form, underWork ? std::vector<HWND>() : UsableWindows(GetCurrentThreadId()));
    try {
        form.Activate();
    } catch (...) {
        form.Hide();
        throw;
    }
}

void NativeWindows::Interact(Form& form) {
    FormWindow window(*this, form, Owner());
    window.onShown = [this](FormWindow& shown) { FormShown(shown); };
    DisabledWindows disabled;
    {
        const Stay stay(shown_, &window);
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
    // While a form is at work, what a person does may not reach the host's windows below it. It waits.
    constexpr UINT kAllButInput = PM_QS_PAINT | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, IsAtWork() ? PM_REMOVE | kAllButInput : PM_REMOVE)) {
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
        const HWND handle = window ? window->HandleOf(control) : nullptr;
        if (handle) return static_cast<std::int32_t>(HandleToLong(handle));
    }
    return 0;
}

}  // namespace qor::windows
