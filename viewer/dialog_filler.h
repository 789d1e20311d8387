// Filling a dialog by its filter keys, through the dialog's own loading of a scheme.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/form.h"
#include "viewer/run_host.h"

namespace qor::viewer {

/// Lays the values over what the dialog shows. Throws RunFailure for a key that the dialog does not have,
/// with the keys that it has, and for a value that its control does not take.
void FillByKeys(Form& form, std::span<const FilterValue> values);

/// Presses OK as a user does, after looking at the dates once.
void PressOk(Form& form);

}  // namespace qor::viewer
