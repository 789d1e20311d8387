#include "embedded/money.h"

namespace qor {

std::int64_t ShareOf(std::int64_t amount, std::int64_t part, std::int64_t whole) {
    __extension__ using Wide = __int128;
    const Wide product = static_cast<Wide>(amount) * part, half = whole / 2;
    return static_cast<std::int64_t>((product + (amount < 0 ? -half : half)) / whole);
}

}  // namespace qor
