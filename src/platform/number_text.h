// Numbers written as text, as automation reads them: nothing here depends on the machine's locale.
// Used by the conversions; everybody else reads texts through conversions.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qor {

struct NumberText {
    double value = 0;  // infinite where no double can hold the number
    /// The bits of an &H or &O number, which an integer type takes as they are: 16 bits of &HFFFF are -1.
    std::optional<std::uint64_t> bits;
};

/// The whole text as one number; nothing where it is none.
std::optional<NumberText> ReadNumberText(std::string_view text);

}  // namespace qor
