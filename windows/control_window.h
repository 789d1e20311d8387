// ControlWindow: the native window of one control. It shows what the model holds and hands the user's
// doing to the model through the verbs of User.
#pragma once

#include <windows.h>
// commctrl.h needs windows.h ahead of it.
#include <commctrl.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "windows/dialog_metrics.h"

namespace qor {
class WindowSystem;
}

namespace qor::windows {

/// What a form's controls are drawn on.
struct FormSurface {
    HWND window;
    const DialogMetrics& metrics;
    WindowSystem& windows;  // for what a control asks or tells the user
};

class ControlWindow {
 public:
    virtual ~ControlWindow();
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    Control& control() const { return control_; }
    HWND handle() const { return window_; }

    /// Code changed the model.
    void Update(Change what);
    /// Everything anew: at the beginning, on another monitor, or where the user's doing was not taken.
    void UpdateAll();

    // The user did something: a WM_COMMAND notification, or a WM_NOTIFY one.
    virtual void Command(HWND from, WORD notification) { (void)from, (void)notification; }
    virtual LRESULT Notify(const NMHDR& header) {
        (void)header;
        return 0;
    }

    /// Takes the keyboard. `byTab` and `backwards` say from where, for a control of several windows.
    virtual void TakeFocus(bool byTab, bool backwards);
    virtual bool Holds(HWND window) const { return window == window_ || IsChild(window_, window); }
    /// All its windows that can have the keyboard.
    virtual std::vector<HWND> FocusWindows() const { return {window_}; }
    // What a control does with a key of its own account; each answers whether that was all.
    virtual bool TakeTab(bool backwards) { return (void)backwards, false; }
    virtual bool TakeEscape() { return false; }
    virtual bool TakeEnter() { return false; }
    /// The keyboard has come to a window of the form, its own or another's.
    virtual void KeyboardAt(HWND window) { (void)window; }
    /// Hands over what was typed and is taken only when the keyboard leaves.
    virtual void FinishTyping() {}
    virtual bool TakeMnemonic(wchar_t letter) { return (void)letter, false; }
    /// Its native window never asks for the keyboard: what the user does there moves the focus by itself.
    virtual bool MovesFocus() const { return false; }
    /// Its background where that is not the system's own.
    virtual HBRUSH Background() const { return nullptr; }
    /// Sets the pairs of windows that work together, when all windows of the form stand.
    virtual void Join(ControlWindow& other) { (void)other; }

 protected:
    ControlWindow(Control& control, const FormSurface& surface, const wchar_t* windowClass, DWORD style,
                  DWORD extendedStyle = 0);

    /// Shows the model's content.
    virtual void Show(Change what) = 0;
    virtual void Place(const RECT& place);
    /// The font is a new one.
    virtual void TakeFont();

    void SetText(const std::string& text) const { SetWindowTextW(window_, Wide(text).c_str()); }
    const FormSurface& surface() const { return surface_; }
    const DialogMetrics& metrics() const { return surface_.metrics; }
    bool isShowing() const { return showing_; }  // what the native window tells now was done by us
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window_, message, wParam, lParam);
    }

 private:
    Control& control_;
    const FormSurface& surface_;
    HWND window_;
    bool showing_ = false;
};

/// Where a control stands in its form, twips: its own place is relative to its container.
Bounds PlaceInForm(const Control& control);

/// The mnemonic of a caption such as "确定(&O)", in lower case; 0 where it has none.
wchar_t MnemonicOf(std::string_view caption);

std::wstring TextOf(HWND window);

/// What a box does with a character of its own account, where the system's may not: Ctrl+A selects all, and
/// Ctrl+Backspace types nothing. Answers whether that was all.
bool TakeBoxCharacter(HWND box, WPARAM character);

/// The window of a control, on its form's surface, showing what the model holds; null for kinds that are not
/// drawn.
std::unique_ptr<ControlWindow> MakeControlWindow(Control& control, const FormSurface& surface);

// The kinds, by what a user does with them.
std::unique_ptr<ControlWindow> MakeLabelWindow(Label&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeFrameWindow(Frame&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeProgressWindow(ProgressBar&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeButtonWindow(Button&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeCheckWindow(CheckBox&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeOptionWindow(OptionButton&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeTextWindow(TextBox&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeListWindow(DropDown&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeDateWindow(DatePicker&, const FormSurface&);
std::unique_ptr<ControlWindow> MakeSpinWindow(Spin&, const FormSurface&);

}  // namespace qor::windows
