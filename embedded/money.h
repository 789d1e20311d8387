// Amounts: whole cents in every computation, yuan in the cells of a record set.
#pragma once

#include <cstdint>

#include "platform/value.h"

namespace qor {

inline Value Yuan(std::int64_t cents) { return static_cast<double>(cents) / 100; }

}  // namespace qor
