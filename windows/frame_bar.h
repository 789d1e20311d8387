// FrameBar: what a user sees of a form's frame control: the list of saved schemes with its buttons, and in a
// scheme dialog the buttons that switch the panel and close the dialog.
#pragma once

#include "windows/control_window.h"

namespace qor::windows {

/// Null for a control that is not the place of its form's frame.
std::unique_ptr<ControlWindow> MakeFrameBar(Control& place, const FormSurface& surface);

}  // namespace qor::windows
