// WindowSystem: what shows forms and message boxes to a person. The headless one and the native one are
// peers; neither holds state of a dialog.
#pragma once

#include <cstdint>
#include <string_view>

namespace qor {

class Control;
class Form;

/// The style of every message box of the system: the information icon.
inline constexpr std::int32_t kInformationIcon = 64;
/// A plain box: no icon, one button.
inline constexpr std::int32_t kPlainBox = 0;

class WindowSystem {
 public:
    virtual ~WindowSystem() = default;

    /// Runs a loaded form: makes it visible, activates it, and returns when it is hidden or unloaded.
    virtual void RunModal(Form& form) = 0;
    /// Shows a box with an OK button and waits for the answer (1).
    virtual std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) = 0;
    /// Processes the window messages that wait.
    virtual void Pump() = 0;
    virtual void SetDefaultPointer() = 0;
    /// The handle of a control's window, 0 where the system has none.
    virtual std::int32_t WindowHandle(const Control& control) = 0;

    // A form's life, told as it happens.
    virtual void FormLoading(Form& form) { (void)form; }
    virtual void FormActivating(Form& form) { (void)form; }
    virtual void FormHidden(Form& form) { (void)form; }
    virtual void FormUnloaded(Form& form) { (void)form; }
};

}  // namespace qor
