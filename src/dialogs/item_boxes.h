// ItemBoxes: the code boxes of a dialog with their labels and picker buttons, the control arrays txtItem and
// cmdItem, made from a table and laid out in rows of a low and a high bound.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/layout.h"
#include "platform/controls.h"

namespace qor {

struct ItemBox {
    std::string_view label;          // the label's name
    std::string_view caption;        // what it says
    std::int32_t itemClass = 0;      // the class that the picker button opens; 0: the box has no button
    std::int32_t nameListClass = 0;  // the class of the type-ahead list; 0: the box has none
    bool highBound = false;          // stands in the row of the box before it
    std::string_view unit{};         // what stands behind the box, such as "（包含）"
};

/// How many rows a table of boxes takes.
constexpr std::int32_t RowsOf(std::span<const ItemBox> boxes) {
    std::int32_t rows = 0;
    for (const ItemBox& box : boxes) {
        rows += box.highBound ? 0 : 1;
    }
    return rows;
}

class ItemBoxes {
 public:
    /// `firstIndex` is the array index of the first box; `top` is the first row's.
    ItemBoxes(Form& form, Control& container, std::span<const ItemBox> boxes, std::int32_t top,
              std::size_t firstIndex = 0);

    std::size_t size() const { return boxes_.size(); }
    std::size_t firstIndex() const { return firstIndex_; }
    std::size_t rows() const { return rows_; }
    TextBox& txtItem(std::size_t index) const { return *boxes_.at(index - firstIndex_); }
    /// Null for a box without a picker.
    Button* cmdItem(std::size_t index) const { return buttons_.at(index - firstIndex_).get(); }
    const ItemBox& row(std::size_t index) const { return table_[index - firstIndex_]; }

 private:
    std::span<const ItemBox> table_;
    std::size_t firstIndex_;
    std::size_t rows_ = 0;
    std::vector<std::unique_ptr<Label>> labels_;
    std::vector<std::unique_ptr<TextBox>> boxes_;
    std::vector<std::unique_ptr<Button>> buttons_;
};

/// "txtItem" and 3 make "txtItem(3)".
std::string ArrayName(std::string_view array, std::size_t index);

}  // namespace qor
