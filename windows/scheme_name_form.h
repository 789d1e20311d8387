// SchemeNameForm: asks the user under which name a scheme is to be saved.
#pragma once

#include <optional>
#include <string>

#include "platform/form.h"

namespace qor::windows {

class SchemeNameForm final : public Form {
 public:
    SchemeNameForm(WindowSystem& windows, std::string_view proposed);

    /// The name that the user confirmed, without blanks at both ends; nothing where he took it back.
    const std::optional<std::string>& confirmed() const { return confirmed_; }

 protected:
    void OnActivate() override { txtName.Select(0, txtName.length()); }
    void OnKeyDown(std::int32_t& keyCode) override;

 private:
    void Confirm();

    Label lblName{*this, "lblName", "方案名称:", {240, 240, 990, 210}};
    TextBox txtName;
    Button cmdOK{*this, "cmdOK", "确定(&O)", {1200, 720, 1260, 360}};
    Button cmdCancel{*this, "cmdCancel", "取消(&E)", {2580, 720, 1260, 360}};
    std::optional<std::string> confirmed_;
};

}  // namespace qor::windows
