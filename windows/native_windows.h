// NativeWindows: the window system of Windows. It draws each form from its control models and forwards
// the user to them; it holds no state of a dialog.
#pragma once

#include <vector>

#include "platform/window_system.h"
#include "windows/handles.h"

namespace qor::windows {

class FormWindow;

class NativeWindows final : public WindowSystem {
 public:
    void RunModal(Form& form) override;
    std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) override;
    void Pump() override;
    void SetDefaultPointer() override;
    std::int32_t WindowHandle(const Control& control) override;

 private:
    /// The window that a modal one stands over: our topmost form, or the host's active window.
    HWND Owner() const;

    std::vector<FormWindow*> shown_;  // the innermost last
};

}  // namespace qor::windows
