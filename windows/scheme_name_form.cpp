#include "windows/scheme_name_form.h"

#include "platform/conversions.h"
#include "platform/window_system.h"

namespace qor::windows {

SchemeNameForm::SchemeNameForm(WindowSystem& system, std::string_view proposed)
    : Form(system, "frmSchemeName", {4080, 1200}),
      txtName(*this, "txtName", proposed, {1200, 180, 2640, 300}) {
    SetCaption("保存过滤方案");
    MoveToEndOfTabOrder(cmdOK);
    MoveToEndOfTabOrder(cmdCancel);
    cmdOK.SetDefault(true);
    cmdOK.onClick = [this] { Confirm(); };
    cmdCancel.onClick = [this] { Hide(); };
}

void SchemeNameForm::OnKeyDown(std::int32_t& keyCode) {
    constexpr std::int32_t kEnter = 13;
    if (keyCode != kEnter) return;
    keyCode = 0;
    focus() == &cmdCancel ? Hide() : Confirm();
}

void SchemeNameForm::Confirm() {
    const std::string_view name = Trimmed(txtName.text());
    if (name.empty()) {
        windows().MessageBox("请输入过滤方案的名称。", "信息提示", kInformationIcon);
        txtName.SetFocus();
        return;
    }
    confirmed_ = name;
    Hide();
}

}  // namespace qor::windows
