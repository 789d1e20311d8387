#include "reports/arap/detail_dialog.h"

#include <string>

namespace qor {

UserFormulas::UserFormulas(Form& form, Control& container, Bounds place)
    : Frame3(form, "Frame3", "", place, &container) {
    for (std::size_t i = 0; i < 6; ++i) {
        const std::int32_t top = layout::RowTop(static_cast<std::int32_t>(i));
        const std::string caption = "表头自定义" + std::to_string(i + 1) + ":";
        rows_.push_back(std::make_unique<Label>(form, ArrayName("Label5", i), caption,
                                                layout::LabelAt(layout::kLabel, 1170, top), &Frame3));
        rows_.push_back(std::make_unique<TextBox>(form, ArrayName("txt_UserFormula1", i), "",
                                                  Bounds{layout::kBox, top, 3630, layout::kBoxHeight},
                                                  &Frame3));
        rows_.push_back(std::make_unique<CheckBox>(form, ArrayName("chk_Include", i), "包含", std::int16_t{0},
                                                   Bounds{5130, top + 15, 960, layout::kCheckHeight},
                                                   &Frame3));
    }
}

DetailDialog::DetailDialog(Process& process, const DetailKind& kind) : SchemeDialog(process, kind.dialog) {
    if (kind.asksForUserFormulas) {
        userFormulas_ = std::make_unique<UserFormulas>(*this, PictureWhole, TakePlace(UserFormulas::kHeight));
    }
    FinishLayout();
}

}  // namespace qor
