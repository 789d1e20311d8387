#include "dialogs/check_boxes.h"

namespace qor {

CheckBoxes::CheckBoxes(Form& form, Control& container, std::span<const CheckBoxRow> boxes) {
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Bounds place{kLeft[i % 2], Bottom(i / 2 * 2), 2800, 270};
        boxes_.push_back(std::make_unique<CheckBox>(form, std::string(boxes[i].name), boxes[i].caption,
                                                    std::int16_t{0}, place, &container));
    }
}

}  // namespace qor
