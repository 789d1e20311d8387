// The native windows of labels, frames, progress bars and of everything that is clicked.
#include "platform/form.h"
#include "platform/user.h"
#include "windows/control_window.h"

namespace qor::windows {

namespace {

/// A native window that shows its control's caption and little else.
class CaptionWindow : public ControlWindow {
 public:
    CaptionWindow(CaptionedControl& control, const FormSurface& surface, const wchar_t* windowClass,
                  DWORD style)
        : ControlWindow(control, surface, windowClass, style) {}

 protected:
    const std::string& caption() const { return static_cast<CaptionedControl&>(control()).caption(); }
    void Show(Change) override { SetText(caption()); }
};

class FrameWindow final : public CaptionWindow {
 public:
    FrameWindow(Frame& frame, const FormSurface& surface)
        : CaptionWindow(frame, surface, L"BUTTON", BS_GROUPBOX) {
        SetWindowSubclass(handle(), &FrameWindow::Procedure, 1, 0);
    }

 private:
    /// The system's own leaves what is inside the line to the window around it, which does not draw there.
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR) {
        if (message != WM_ERASEBKGND) return DefSubclassProc(window, message, wParam, lParam);
        RECT area{};
        GetClientRect(window, &area);
        FillRect(reinterpret_cast<HDC>(wParam), &area, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
};

/// A window that a click reaches; the click goes on to the model.
class ClickWindow : public CaptionWindow {
 public:
    using CaptionWindow::CaptionWindow;

    void Command(HWND, WORD notification) override {
        if (notification == BN_CLICKED) Clicked();
    }
    bool TakeMnemonic(wchar_t letter) override {
        if (!control().CanHaveFocus() || MnemonicOf(caption()) != letter) return false;
        SetFocus(handle());  // as a press does: what is being typed elsewhere counts first
        if (control().form().focus() == &control()) Clicked();
        return true;
    }

 protected:
    virtual void Clicked() = 0;
};

class ButtonWindow final : public ClickWindow {
 public:
    ButtonWindow(Button& button, const FormSurface& surface)
        : ClickWindow(button, surface, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP) {}

    /// In a form where Enter presses a button, that one has the heavy border.
    void KeyboardAt(HWND window) override {
        const Button* standard = DefaultOf(control().form());
        if (!standard) return;
        const bool pressed = window == handle() || (standard == &control() && !IsPushButton(window));
        Send(BM_SETSTYLE, pressed ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
    }

 private:
    static const Button* DefaultOf(const Form& form) {
        for (const Control* control : form.controls()) {
            if (control->kind() != Control::Kind::Button) continue;
            const auto* button = static_cast<const Button*>(control);
            if (button->isDefault()) return button;
        }
        return nullptr;
    }
    static bool IsPushButton(HWND window) {
        return (SendMessageW(window, WM_GETDLGCODE, 0, 0) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
    }

    void Clicked() override { User(control().form()).Click(static_cast<Button&>(control())); }
    void Show(Change) override {
        SetText(caption().empty() ? "…" : caption());  // the picker buttons carry no caption of their own
    }
};

class CheckWindow final : public ClickWindow {
 public:
    CheckWindow(CheckBox& box, const FormSurface& surface)
        : ClickWindow(box, surface, L"BUTTON", BS_3STATE | WS_TABSTOP) {}

 private:
    CheckBox& Box() const { return static_cast<CheckBox&>(control()); }
    void Clicked() override { User(Box().form()).Check(Box(), Box().IsChecked() ? 0 : 1); }
    void Show(Change) override {
        SetText(caption());
        Send(BM_SETCHECK, static_cast<WPARAM>(Box().value()));
    }
};

class OptionWindow final : public ClickWindow {
 public:
    OptionWindow(OptionButton& option, const FormSurface& surface)
        : ClickWindow(option, surface, L"BUTTON", BS_RADIOBUTTON | WS_TABSTOP) {}

 private:
    OptionButton& Option() const { return static_cast<OptionButton&>(control()); }
    void Clicked() override { User(Option().form()).Option(Option()); }
    void Show(Change) override {
        SetText(caption());
        Send(BM_SETCHECK, Option().value() ? BST_CHECKED : BST_UNCHECKED);
    }
};

class ProgressWindow final : public ControlWindow {
 public:
    ProgressWindow(ProgressBar& bar, const FormSurface& surface)
        : ControlWindow(bar, surface, PROGRESS_CLASSW, 0) {}

 private:
    void Show(Change) override {
        const auto& bar = static_cast<ProgressBar&>(control());
        Send(PBM_SETRANGE32, static_cast<WPARAM>(bar.min()), static_cast<LPARAM>(bar.max()));
        Send(PBM_SETPOS, static_cast<WPARAM>(bar.value()));
    }
};

}  // namespace

std::unique_ptr<ControlWindow> MakeLabelWindow(Label& label, const FormSurface& surface) {
    return std::make_unique<CaptionWindow>(label, surface, L"STATIC", SS_LEFT | SS_NOPREFIX);
}

std::unique_ptr<ControlWindow> MakeFrameWindow(Frame& frame, const FormSurface& surface) {
    if (!frame.hasBorder()) return nullptr;
    return std::make_unique<FrameWindow>(frame, surface);
}

std::unique_ptr<ControlWindow> MakeProgressWindow(ProgressBar& bar, const FormSurface& surface) {
    return std::make_unique<ProgressWindow>(bar, surface);
}

std::unique_ptr<ControlWindow> MakeButtonWindow(Button& button, const FormSurface& surface) {
    return std::make_unique<ButtonWindow>(button, surface);
}

std::unique_ptr<ControlWindow> MakeCheckWindow(CheckBox& box, const FormSurface& surface) {
    return std::make_unique<CheckWindow>(box, surface);
}

std::unique_ptr<ControlWindow> MakeOptionWindow(OptionButton& option, const FormSurface& surface) {
    return std::make_unique<OptionWindow>(option, surface);
}

}  // namespace qor::windows
