// NativeWindows: the window system of Windows. It draws each form from its control models and forwards
// the user to them; it holds no state of a dialog.
#pragma once

#include <functional>
#include <vector>

#include "platform/window_system.h"
#include "windows/handles.h"

namespace qor::windows {

class FormWindow;

class NativeWindows : public WindowSystem {
 public:
    void RunModal(Form& form) override;
    std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) override;
    void Pump() override;
    void SetDefaultPointer() override;
    std::int32_t WindowHandle(const Control& control) override;

 protected:
    /// A form has come up on the screen with its first focus set.
    virtual void FormShown(FormWindow& window) { (void)window; }
    /// The innermost form that is shown; null for none, and for one that is at work.
    FormWindow* Topmost() const { return shown_.empty() ? nullptr : shown_.back(); }

 private:
    /// The window that a modal one stands over: our topmost form, or the host's own. It is a window of this
    /// thread; another program's is never ours to stand over.
    HWND Owner() const;
    bool IsAtWork() const { return !shown_.empty() && !shown_.back(); }
    /// Activates a form that works then.
    void Work(Form& form);
    void Interact(Form& form);

    std::vector<FormWindow*> shown_;  // the innermost last; null for a form at work
};

}  // namespace qor::windows
