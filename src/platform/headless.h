// HeadlessWindows: the window system without a screen. A person is played by a function that is called for
// each form when it has come up; a form that is still open afterwards is cancelled.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/window_system.h"

namespace qor {

class HeadlessWindows : public WindowSystem {
 public:
    struct Box {
        std::string text;
        std::string title;
        std::int32_t style;
    };

    std::function<void(Form&)> user;  // plays the person in a form that has come up
    std::vector<Box> boxes;           // every message box, in the order of showing
    int pumps = 0;

    void RunModal(Form& form) override;
    std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) override;
    void Pump() override { ++pumps; }
    void SetDefaultPointer() override {}
    std::int32_t WindowHandle(const Control&) override { return 0; }

 protected:
    /// The form has become visible and is about to be activated.
    virtual void FormShown(Form& form) { (void)form; }
    /// The form came up with its first focus set; play the person.
    virtual void PlayUser(Form& form) {
        if (user) user(form);
    }
    /// The person has left the form open; it is about to be cancelled.
    virtual void FormLeftOpen(Form& form) { (void)form; }
    /// The modal run has ended.
    virtual void FormEnded(Form& form) { (void)form; }
};

}  // namespace qor
