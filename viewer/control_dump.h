// The `controls` line of a transcript: everything that a dialog shows.
#pragma once

#include <string_view>

#include "platform/controls.h"
#include "viewer/json.h"
#include "viewer/object_names.h"

namespace qor::viewer {

/// The word for a kind of control, such as "list".
std::string_view KindName(Control::Kind kind);

/// The dialog's name, caption and focus, and all its controls by name.
Json DumpForm(const Form& form, const ObjectNames& names);

}  // namespace qor::viewer
