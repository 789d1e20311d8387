// How often this program has asked for memory, so that a benchmark can say what one step costs.
#pragma once

#include <cstdint>

namespace qor::bench {

std::int64_t Allocations() noexcept;

}  // namespace qor::bench
