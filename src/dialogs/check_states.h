// The check states of a bill, as every dialog offers them.
#pragma once

#include "platform/controls.h"

namespace qor {

/// Index of the entry that takes bills in either state.
inline constexpr std::int32_t kAllCheckStates = 2;

/// Fills a list with the states, audited first, and selects that one.
void FillCheckStates(DropDown& list);

}  // namespace qor
