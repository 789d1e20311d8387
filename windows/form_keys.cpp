// The keyboard of a form's window: the form sees every key before its control does.
#include <cwctype>

#include "windows/form_window.h"

namespace qor::windows {

namespace {

bool IsPressed(int keyCode) { return GetKeyState(keyCode) < 0; }

}  // namespace

bool FormWindow::TranslateKey(const MSG& message) {
    if (message.hwnd != handle() && !IsChild(handle(), message.hwnd)) return false;
    switch (message.message) {
        case WM_KEYDOWN:
            return KeyDown(message.wParam);
        case WM_CHAR: {
            auto character = static_cast<std::int32_t>(message.wParam);
            Guarded([&] { form_.KeyPress(character); });
            return character == 0 || done_;
        }
        case WM_SYSCHAR:
            return Mnemonic(static_cast<wchar_t>(message.wParam));
        default:
            return false;
    }
}

bool FormWindow::KeyDown(WPARAM pressed) {
    bool handled = false;
    Guarded([&] {
        auto keyCode = static_cast<std::int32_t>(pressed);
        ControlWindow* drawn = Find(GetFocus());
        form_.KeyDown(keyCode);
        const bool tab = form_.TabWasSent();
        handled = keyCode == 0 || tab || keyCode == VK_TAB;
        if (keyCode == VK_TAB || tab) {
            const bool listClosed = tab && drawn && drawn->TakeEscape();
            if (!listClosed) Tab(drawn, keyCode == VK_TAB && IsPressed(VK_SHIFT));
        } else if (keyCode == VK_ESCAPE) {
            if (!(drawn && drawn->TakeEscape()) && !activating_) form_.CancelByUser();
            handled = true;
        } else if (keyCode == VK_RETURN) {
            if (drawn) drawn->TakeEnter();
            handled = true;  // a box has no use for it, and would sound
        }
    });
    return handled || done_;
}

void FormWindow::Tab(ControlWindow* drawn, bool backwards) {
    if (drawn && drawn->TakeTab(backwards)) return;
    if (drawn) drawn->FinishTyping();
    arrival_ = backwards ? Arrival::BackTab : Arrival::Tab;
    form_.MoveFocusByTab(backwards);
    FocusMoved();  // also where it stays: the keyboard may have been let go
}

bool FormWindow::Mnemonic(wchar_t character) {
    const auto letter = static_cast<wchar_t>(std::towlower(character));
    bool taken = false;
    for (const auto& drawn : controls_) {
        Guarded([&] { taken = drawn->TakeMnemonic(letter); });
        if (taken || done_) return true;
    }
    return false;
}

}  // namespace qor::windows
