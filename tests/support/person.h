// Person: what a user does in a dialog, by the names of its controls.
//
//     host.InDialog([](Form& dialog) {
//         Person user(dialog);
//         user.Text("txtItem(0)", "01");
//         user.Click("cmdOK");
//     });
#pragma once

#include <string>
#include <string_view>

#include "dialogs/control_values.h"
#include "platform/frame_owner.h"
#include "support/played_windows.h"
#include "support/report_host.h"

namespace qor::test {

class Person {
 public:
    explicit Person(Form& form) : form_(form), user_(form) {}

    // Each answers false where the action was lost.
    bool Focus(std::string_view control) { return user_.Focus(Any(control)); }
    bool Text(std::string_view box, std::string_view text) {
        return user_.Text(ControlOf<TextBox>(form_, box), text);
    }
    bool Type(std::string_view control, std::string_view characters) {
        return user_.Type(Any(control), characters);
    }
    bool Key(std::string_view control, std::int32_t code) { return user_.Key(Any(control), code); }
    bool Check(std::string_view box, std::int16_t value) {
        return user_.Check(ControlOf<CheckBox>(form_, box), value);
    }
    bool Option(std::string_view button) { return user_.Option(ControlOf<OptionButton>(form_, button)); }
    bool Select(std::string_view list, std::int32_t index) {
        return user_.Select(ControlOf<DropDown>(form_, list), index);
    }
    bool Date(std::string_view picker, std::string_view day) {
        return user_.Date(ControlOf<DatePicker>(form_, picker), ToDate(day));
    }
    bool Spin(std::string_view spin, std::int32_t value) {
        return user_.Spin(ControlOf<qor::Spin>(form_, spin), value);
    }
    bool Cell(std::string_view grid, std::int32_t row, std::int32_t column, std::string_view text) {
        return user_.Cell(ControlOf<Grid>(form_, grid), row, column, text);
    }
    bool Row(std::string_view grid, std::int32_t row) { return user_.Row(ControlOf<Grid>(form_, grid), row); }
    bool Click(std::string_view button) { return user_.Click(ControlOf<Button>(form_, button)); }

    // What the user sees.
    std::string Reads(std::string_view control) { return ControlText(Any(control)); }
    std::string Caption(std::string_view control) {
        return ControlOf<CaptionedControl>(form_, control).caption();
    }
    bool Sees(std::string_view control) { return Any(control).IsShown(); }
    std::string FocusedControl() const { return form_.focus() ? form_.focus()->name() : ""; }
    Control& Any(std::string_view control) { return ControlOf<Control>(form_, control); }

    SchemeFrame& schemeFrame() { return *dynamic_cast<FrameOwner&>(form_).schemeFrame(); }
    PlainFrame& frame() { return *dynamic_cast<FrameOwner&>(form_).plainFrame(); }
    Form& form() { return form_; }

 private:
    Form& form_;
    Hand user_;
};

/// Has the person confirm the next scheme dialog as it comes up.
inline void ConfirmScheme(Form& dialog) { Person(dialog).schemeFrame().Confirm(); }

/// Has the person confirm the next dialog as it comes up.
inline void Confirm(Form& dialog) { Person(dialog).Click("cmdOK"); }

}  // namespace qor::test
