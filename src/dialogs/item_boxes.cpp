#include "dialogs/item_boxes.h"

namespace qor {

std::string ArrayName(std::string_view array, std::size_t index) {
    return std::string(array) + "(" + std::to_string(index) + ")";
}

ItemBoxes::ItemBoxes(Form& form, Control& container, std::span<const ItemBox> boxes, std::int32_t top,
                     std::size_t firstIndex)
    : table_(boxes), firstIndex_(firstIndex) {
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const ItemBox& box = boxes[i];
        if (!box.highBound) ++rows_;
        const std::int32_t y = top + static_cast<std::int32_t>(rows_ - 1) * layout::kRowHeight;
        const std::int32_t behind = box.highBound ? layout::kHighButton : layout::kButton;

        labels_.push_back(std::make_unique<Label>(form, std::string(box.label), box.caption,
                                                  box.highBound ? layout::HighLabelAt(y) : layout::LabelAt(y),
                                                  &container));
        boxes_.push_back(std::make_unique<TextBox>(form, ArrayName("txtItem", firstIndex + i), "",
                                                   box.highBound ? layout::HighBoxAt(y) : layout::BoxAt(y),
                                                   &container));
        buttons_.push_back(
            box.itemClass == 0
                ? nullptr
                : std::make_unique<Button>(form, ArrayName("cmdItem", firstIndex + i), "",
                                           Bounds{behind, y, layout::kPickerWidth, layout::kBoxHeight},
                                           &container));
        if (!box.unit.empty()) {
            labels_.push_back(std::make_unique<Label>(form, "Label5", box.unit,
                                                      layout::LabelAt(behind, 1200, y), &container));
        }
    }
}

}  // namespace qor
