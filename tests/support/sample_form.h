// A form with one control of each kind, which tells all that happens to it, for tests of forms and of what
// a person does to them.
#pragma once

#include <string>
#include <string_view>

#include "platform/form.h"
#include "platform/window_system.h"
#include "support/scripted_object.h"

namespace qor::test {

class SampleForm final : public Form {
 public:
    explicit SampleForm(WindowSystem& windows) : Form(windows, "frmSample", {6000, 4000}) {
        for (Control* control : controls()) {
            control->onGotFocus = [this, control] { Tell(control->name() + " got focus"); };
            control->onValidate = [this, control] { Tell(control->name() + " validates"); };
            control->onLostFocus = [this, control] { Tell(control->name() + " lost focus"); };
        }
    }

    using Form::TabBehind;

    void Tell(std::string_view what) { told.emplace_back(what); }
    /// What was told since the last asking.
    Log TakeTold() { return std::exchange(told, {}); }

    Label label{*this, "label", "标签", {}};
    TextBox first{*this, "first", "", {}};
    TextBox second{*this, "second", "", {}};
    Frame frame{*this, "frame", "", {}};
    CheckBox check{*this, "check", "&C", 0, {}, &frame};
    OptionButton yes{*this, "yes", "", true, {}, &frame};
    OptionButton no{*this, "no", "", false, {}, &frame};
    OptionButton outside{*this, "outside", "", true, {}};
    DropDown list{*this, "list", {}};
    DatePicker date{*this, "date", Date{44075}, {}};
    Spin spin{*this, "spin", {}};
    ProgressBar progress{*this, "progress", {}};
    Animation animation{*this, "animation", {}};
    InertControl inert{*this, "inert", {}};
    Button button{*this, "button", "确定", {}};

    Log told;
    bool shows = true;             // whether BeforeShow lets it be seen
    std::int32_t swallowKey = 0;   // the form's own handlers make this key code and
    std::int32_t swallowChar = 0;  // this character 0

 protected:
    void OnLoad() override { Tell("load"); }
    bool BeforeShow() override {
        Tell("before show");
        return shows;
    }
    void OnActivate() override { Tell("activate"); }
    void OnUnload() override { Tell("unload"); }
    void OnKeyDown(std::int32_t& keyCode) override {
        Tell("form key down " + std::to_string(keyCode));
        if (keyCode == swallowKey) keyCode = 0;
    }
    void OnKeyPress(std::int32_t& character) override {
        Tell("form key press " + std::to_string(character));
        if (character == swallowChar) character = 0;
    }
};

}  // namespace qor::test
