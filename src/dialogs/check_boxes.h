// CheckBoxes: the check boxes of a dialog's Frame1, made from a table and laid out two in a row.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace qor {

struct CheckBoxRow {
    std::string_view name;
    std::string_view caption;
};

class CheckBoxes {
 public:
    CheckBoxes(Form& form, Control& container, std::span<const CheckBoxRow> boxes);

    /// Where the rows of so many boxes end, twips from the container's top.
    static constexpr std::int32_t Bottom(std::size_t count) {
        return kTop + static_cast<std::int32_t>((count + 1) / 2) * kPitch;
    }

    static constexpr std::int32_t kTop = 225, kPitch = 375;
    static constexpr std::int32_t kLeft[] = {120, 3440};

 private:
    std::vector<std::unique_ptr<CheckBox>> boxes_;
};

}  // namespace qor
