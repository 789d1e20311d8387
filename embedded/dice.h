// The sample firm's own generator of chance: the same seed throws the same on every machine and library.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace qor {

class Dice {
 public:
    explicit Dice(std::uint64_t seed) {
        for (std::uint64_t& word : state_) {
            seed += 0x9E3779B97F4A7C15u;
            word = Mixed(seed);
        }
    }

    /// From 0 to `sides` - 1; 0 where there are no sides.
    std::uint32_t Below(std::uint32_t sides) {
        return static_cast<std::uint32_t>(((Next() >> 32) * sides) >> 32);
    }
    std::size_t Index(std::size_t count) { return Below(static_cast<std::uint32_t>(count)); }
    /// From `low` to `high`, both included.
    std::int64_t Between(std::int64_t low, std::int64_t high) {
        return low + Below(static_cast<std::uint32_t>(high - low + 1));
    }
    bool Chance(std::uint32_t perThousand) { return Below(1000) < perThousand; }

    template <class Range>
    auto& Pick(Range& choices) {
        return choices[Index(std::size(choices))];
    }

 private:
    static std::uint64_t Mixed(std::uint64_t x) {
        x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9u;
        x = (x ^ (x >> 27)) * 0x94D049BB133111EBu;
        return x ^ (x >> 31);
    }
    static std::uint64_t Turned(std::uint64_t x, int bits) { return (x << bits) | (x >> (64 - bits)); }

    std::uint64_t Next() {
        const std::uint64_t thrown = Turned(state_[1] * 5, 7) * 9;
        const std::uint64_t shifted = state_[1] << 17;
        state_[2] ^= state_[0];
        state_[3] ^= state_[1];
        state_[1] ^= state_[2];
        state_[0] ^= state_[3];
        state_[2] ^= shifted;
        state_[3] = Turned(state_[3], 45);
        return thrown;
    }

    std::array<std::uint64_t, 4> state_{};
};

}  // namespace qor
