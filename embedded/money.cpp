#include "embedded/money.h"

namespace qor {

namespace {

constexpr std::uint64_t kLow = 0xFFFF'FFFF;

/// A product of two numbers, in two halves.
struct Wide {
    std::uint64_t high, low;

    static Wide ProductOf(std::uint64_t a, std::uint64_t b) {
        const std::uint64_t lows = (a & kLow) * (b & kLow), crossed = (a >> 32) * (b & kLow);
        const std::uint64_t middle = (a & kLow) * (b >> 32) + (crossed & kLow) + (lows >> 32);
        return {(a >> 32) * (b >> 32) + (crossed >> 32) + (middle >> 32), (middle << 32) | (lows & kLow)};
    }
    void Add(std::uint64_t number) {
        low += number;
        if (low < number) ++high;
    }
    /// Bit by bit, as on paper; for divisors of up to 63 bits.
    std::uint64_t DividedBy(std::uint64_t divisor) const {
        std::uint64_t quotient = 0, rest = 0;
        for (int bit = 127; bit >= 0; --bit) {
            rest = (rest << 1) | (((bit < 64 ? low : high) >> (bit % 64)) & 1);
            quotient <<= 1;
            if (rest < divisor) continue;
            rest -= divisor;
            ++quotient;
        }
        return quotient;
    }
};

}  // namespace

std::int64_t ShareOf(std::int64_t amount, std::int64_t part, std::int64_t whole) {
    const auto divisor = static_cast<std::uint64_t>(whole);
    const auto positive = static_cast<std::uint64_t>(amount < 0 ? -amount : amount);
    Wide product = Wide::ProductOf(positive, static_cast<std::uint64_t>(part));
    product.Add(divisor / 2);
    const auto share = static_cast<std::int64_t>(product.DividedBy(divisor));
    return amount < 0 ? -share : share;
}

}  // namespace qor
