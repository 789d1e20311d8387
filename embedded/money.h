// Amounts: whole cents in every computation, yuan in the cells of a record set.
#pragma once

#include <cstdint>

#include "platform/value.h"

namespace qor {

inline Value Yuan(std::int64_t cents) { return static_cast<double>(cents) / 100; }

/// amount * part / whole, rounded half away from zero; the product may be wider than 64 bits. `part` is not
/// negative, `whole` is above 0; the answer must fit.
std::int64_t ShareOf(std::int64_t amount, std::int64_t part, std::int64_t whole);

}  // namespace qor
