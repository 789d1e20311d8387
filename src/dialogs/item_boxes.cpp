#include "dialogs/item_boxes.h"

namespace qor {

std::string ArrayName(std::string_view array, std::size_t index) {
    return std::string(array) + "(" + std::to_string(index) + ")";
}

ItemBoxes::ItemBoxes(Form& form, Control& container, std::span<const ItemBox> boxes, std::int32_t top,
                     std::size_t firstIndex)
    : table_(boxes), firstIndex_(firstIndex) {
    const BoundColumns& x = kBoundColumns;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const ItemBox& box = boxes[i];
        if (!box.highBound) ++rows_;
        const std::int32_t y = top + static_cast<std::int32_t>(rows_ - 1) * kRowHeight;
        const std::int32_t labelLeft = box.highBound ? x.highLabel : x.label;
        const std::int32_t boxLeft = box.highBound ? x.highBox : x.box;
        const std::int32_t buttonLeft = box.highBound ? x.highButton : x.button;

        labels_.push_back(std::make_unique<Label>(form, std::string(box.label), box.caption,
                                                  Bounds{labelLeft, y + 60, boxLeft - labelLeft - 30, 210},
                                                  &container));
        boxes_.push_back(std::make_unique<TextBox>(form, ArrayName("txtItem", firstIndex + i), "",
                                                   Bounds{boxLeft, y, x.boxWidth, kBoxHeight}, &container));
        buttons_.push_back(box.itemClass == 0 ? nullptr
                                              : std::make_unique<Button>(
                                                    form, ArrayName("cmdItem", firstIndex + i), "",
                                                    Bounds{buttonLeft, y, 300, kBoxHeight}, &container));
        if (!box.unit.empty()) {
            labels_.push_back(std::make_unique<Label>(form, "Label5", box.unit,
                                                      Bounds{buttonLeft, y + 60, 1200, 210}, &container));
        }
    }
}

}  // namespace qor
