// The keyboard of a form's window: the form sees every key before its control does.
#include "platform/user.h"
#include "windows/form_window.h"

namespace qor::windows {

namespace {

bool IsPressed(int keyCode) { return GetKeyState(keyCode) < 0; }

/// The mnemonic of a caption such as "确定(&O)", in lower case; 0 where it has none.
wchar_t MnemonicOf(const std::string& caption) {
    const std::wstring wide = Wide(caption);
    const std::size_t mark = wide.find(L'&');
    return mark == std::wstring::npos || mark + 1 == wide.size()
               ? L'\0'
               : static_cast<wchar_t>(towlower(wide[mark + 1]));
}

}  // namespace

bool FormWindow::TranslateKey(const MSG& message) {
    if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
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
        form_.KeyDown(keyCode);
        const bool tab = form_.TabWasSent();
        handled = keyCode == 0;
        if (keyCode == VK_TAB || tab) {
            form_.MoveFocusByTab(keyCode == VK_TAB && IsPressed(VK_SHIFT));
            handled = true;
        } else if (keyCode == VK_ESCAPE) {
            form_.CancelByUser();
            handled = true;
        }
    });
    return handled || done_;
}

bool FormWindow::Mnemonic(wchar_t character) {
    for (const auto& drawn : controls_) {
        if (drawn->control().kind() != Control::Kind::Button) continue;
        auto& button = static_cast<Button&>(drawn->control());
        if (MnemonicOf(button.caption()) != towlower(character)) continue;
        Guarded([&] { User(form_).Click(button); });
        return true;
    }
    return false;
}

}  // namespace qor::windows
