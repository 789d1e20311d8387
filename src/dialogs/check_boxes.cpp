#include "dialogs/check_boxes.h"

namespace qor {

CheckBoxes::CheckBoxes(Form& form, Control& container, std::span<const CheckBoxRow> boxes, LastBox lastBox) {
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const bool shares = lastBox == LastBox::SharesNextRow && i + 1 == boxes.size() && i % 2 == 0;
        const std::int32_t top = Bottom(i / 2 * 2);
        const Bounds place = shares ? layout::HighCheckAt(top)
                                    : Bounds{i % 2 == 0 ? layout::kLabel : layout::kHighLabel, top,
                                             layout::kCheckWidth, layout::kCheckHeight};
        boxes_.push_back(std::make_unique<CheckBox>(form, std::string(boxes[i].name), boxes[i].caption,
                                                    std::int16_t{0}, place, &container));
        if (shares) inNextRow_ = boxes_.back().get();
    }
}

}  // namespace qor
