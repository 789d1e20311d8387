#include "dialogs/field_default.h"

#include "dialogs/control_values.h"

namespace qor {

void SetToDefault(Process& process, Control& control, FieldDefault standard) {
    switch (standard) {
        case FieldDefault::Leave:
            return;
        case FieldDefault::PeriodStart:
            return SetControlText(control, process.systemProfile.CurrentPeriodFirstDay());
        case FieldDefault::Today:
            return SetControlText(control, process.platform.Today());
        case FieldDefault::Blank:
            return SetControlText(control, "");
        case FieldDefault::FirstEntry:
        case FieldDefault::Zero:
            return SetControlText(control, 0);
        case FieldDefault::One:
            return SetControlText(control, 1);
        case FieldDefault::True:
            return SetControlText(control, true);
        case FieldDefault::False:
            return SetControlText(control, false);
    }
}

}  // namespace qor
