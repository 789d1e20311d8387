#include "dialogs/control_values.h"

namespace qor {

Value ControlValue(const Control& control) {
    switch (control.kind()) {
        case Control::Kind::Text:
            return static_cast<const TextBox&>(control).text();
        case Control::Kind::Check:
            return static_cast<const CheckBox&>(control).value();
        case Control::Kind::Option:
            return static_cast<const OptionButton&>(control).value();
        case Control::Kind::List:
            return static_cast<const DropDown&>(control).listIndex();
        case Control::Kind::Date:
            return static_cast<const DatePicker&>(control).value();
        default:
            return {};
    }
}

std::string ControlText(const Control& control) { return ToText(ControlValue(control)); }

void SetControlText(Control& control, const Value& text) {
    switch (control.kind()) {
        case Control::Kind::Text:
            return static_cast<TextBox&>(control).SetText(ToText(text));
        case Control::Kind::Check:
            return static_cast<CheckBox&>(control).SetValue(ToInt16(text));
        case Control::Kind::Option:
            return static_cast<OptionButton&>(control).SetValue(ToBoolean(text));
        case Control::Kind::List:
            return static_cast<DropDown&>(control).SetListIndex(ToInt16(text));
        case Control::Kind::Date:
            return static_cast<DatePicker&>(control).SetValue(ToDate(text));
        default:
            return;
    }
}

}  // namespace qor
