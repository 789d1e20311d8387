#include "platform/headless.h"

namespace qor {

void HeadlessWindows::RunModal(Form& form) {
    const Ref<Form> kept(&form);
    FormShown(form);
    form.Activate();
    form.TakeFirstFocus();
    if (form.IsVisible()) PlayUser(form);
    if (form.IsVisible()) {
        FormLeftOpen(form);
        form.CancelByUser();
        if (form.IsVisible()) form.Unload();
    }
    FormEnded(form);
}

std::int32_t HeadlessWindows::MessageBox(std::string_view text, std::string_view title, std::int32_t style) {
    boxes.push_back({std::string(text), std::string(title), style});
    return 1;
}

}  // namespace qor
