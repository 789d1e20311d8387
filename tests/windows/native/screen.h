// Screen: what a person sees of a form and does to it beyond its controls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/person.h"

namespace qor::windows {

class Screen {
 public:
    explicit Screen(Form& form) : form_(form), window_(NativePlay::WindowOf(form)) {}

    HWND window() const { return window_->handle(); }
    HWND WindowOf(std::string_view control) const { return window_->HandleOf(*form_.Find(control)); }
    SIZE ClientSize() const;
    /// The text on a control's window; of a drop-down, the entry that is shown.
    std::string TextOf(std::string_view control) const;
    /// All windows of the form that a person sees.
    std::vector<HWND> Shown() const;

    /// Presses the button that is so captioned.
    void Press(std::string_view caption);
    /// The left mouse button on a control's left end.
    void ClickAtLeft(std::string_view control);
    void PickEntry(std::string_view list, int entry);
    void Tab();
    /// A letter with the Alt key.
    void Mnemonic(wchar_t letter);
    /// Any other key with the Alt key.
    void AltKey(WPARAM keyCode);
    /// The name of the control that has the keyboard, or the caption of a window without one.
    std::string Focused() const;
    /// Plays the person in the next form that comes up over this one.
    void InNextForm(test::ReportHost& host, std::function<void(test::Person&)> play);

 private:
    Form& form_;
    FormWindow* window_;
};

}  // namespace qor::windows
