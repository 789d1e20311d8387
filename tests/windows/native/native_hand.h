// NativeHand: what a person can do to a form, done to its native windows by messages. The same verbs as
// those of User, and the same answers.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/form.h"
#include "platform/grid.h"
#include "windows/form_window.h"

namespace qor::windows {

class NativeHand {
 public:
    explicit NativeHand(Form& form) : form_(form) {}

    bool Focus(Control& control);
    bool Text(TextBox& box, std::string_view text);
    bool Type(Control& control, std::string_view characters);
    bool Key(Control& control, std::int32_t keyCode);
    bool Check(CheckBox& box, std::int16_t value);
    bool Option(OptionButton& button);
    bool Select(DropDown& list, std::int32_t index);
    bool Date(DatePicker& picker, qor::Date date);
    bool Spin(qor::Spin& spin, std::int32_t value);
    bool Cell(Grid& grid, std::int32_t row, std::int32_t column, std::string_view text);
    bool Row(Grid& grid, std::int32_t row);
    bool Click(Button& button);

 private:
    HWND HandleOf(const Control& control) const;
    /// One key, as the form's message loop hands it over; `character` 0 is a key without one.
    void Press(std::int32_t keyCode, wchar_t character);
    bool ClickOn(Control& control);

    Form& form_;
};

}  // namespace qor::windows
