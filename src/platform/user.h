// User: what a person can do to a form, as verbs. Each first moves the focus to the control, as a person's
// hand does, and answers false where the action was lost: the control is hidden or disabled, or the focus
// was taken back on the way.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/form.h"
#include "platform/grid.h"

namespace qor {

class User {
 public:
    explicit User(Form& form) : form_(form) {}

    bool Focus(Control& control);
    bool Text(TextBox& box, std::string_view text);
    /// Key by key; a key that moves the focus sends the rest to the control that it moved to.
    bool Type(Control& control, std::string_view characters);
    bool Key(Control& control, std::int32_t keyCode);
    bool Check(CheckBox& box, std::int16_t value);
    bool Option(OptionButton& button);
    bool Select(DropDown& list, std::int32_t index);
    bool Date(DatePicker& picker, qor::Date date);
    /// A press gives the spin the focus, which no key reaches; a hidden or disabled one loses the action.
    bool Spin(qor::Spin& spin, std::int32_t value);
    /// Edits one cell and leaves it. A cell that is locked, hidden or outside the grid loses the action, as
    /// the locks stand when the focus has come to the grid.
    bool Cell(Grid& grid, std::int32_t row, std::int32_t column, std::string_view text);
    /// Makes a row the current one; lost where there is no such row.
    bool Row(Grid& grid, std::int32_t row);
    bool Click(Button& button);

 private:
    Form& form_;
};

}  // namespace qor
