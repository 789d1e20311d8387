// CheckBoxes: the check boxes of a dialog's Frame1, made from a table and laid out two in a row.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "dialogs/layout.h"
#include "platform/controls.h"

namespace qor {

struct CheckBoxRow {
    std::string_view name;
    std::string_view caption;
};

class CheckBoxes {
 public:
    /// Where an odd last box stands: in a row of its own, or on the right of the row that follows.
    enum class LastBox : std::uint8_t { OwnRow, SharesNextRow };

    CheckBoxes(Form& form, Control& container, std::span<const CheckBoxRow> boxes,
               LastBox lastBox = LastBox::OwnRow);

    /// The box on the right of the row that follows; null where there is none.
    CheckBox* inNextRow() const { return inNextRow_; }

    /// Where the rows of so many boxes end, twips from the container's top.
    static constexpr std::int32_t Bottom(std::size_t count, LastBox lastBox = LastBox::OwnRow) {
        const std::size_t shared = lastBox == LastBox::SharesNextRow ? 0 : 1;
        return kTop + static_cast<std::int32_t>((count + shared) / 2) * kPitch;
    }

    static constexpr std::int32_t kTop = layout::kFirstRow, kPitch = 375;

 private:
    std::vector<std::unique_ptr<CheckBox>> boxes_;
    CheckBox* inNextRow_ = nullptr;
};

}  // namespace qor
