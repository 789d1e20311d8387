// What a control holds, as the value under a filter key, and back.
#pragma once

#include <string>

#include "platform/controls.h"

namespace qor {

/// A text, a date, a check box and a list's index as 16-bit integers, an option as a boolean. Empty for a
/// control that holds nothing.
Value ControlValue(const Control& control);

/// The same as text: a date or a text as it stands, a check box as "0" or "1", an option as "True" or
/// "False", a list's index.
/// "" for a control that holds nothing.
std::string ControlText(const Control& control);

/// Assigns a saved text. Raises what the conversion or the control raises; the control then keeps its value.
void SetControlText(Control& control, const Value& text);

}  // namespace qor
