#include "reports/arap/summary_dialog.h"

namespace qor {

SummaryDialog::SummaryDialog(Process& process, const SummaryKind& kind)
    : SchemeDialog(process, kind.dialog),
      chkMultiLevel(The<CheckBox>("chkMultiLevel")),
      multiLevel_(*this, PictureWhole, TakePlace(MultiLevelGroup::kHeight), process.systemProfile,
                  kind.ways) {
    chkMultiLevel.onClick = [this] { ShowLevelsWhereAsked(); };
    FinishLayout();
}

Value SummaryDialog::OwnValue(std::string_view key) const {
    if (key == "GroupBy") return multiLevel_.GetGroupBy();
    if (key == "SumBy") return multiLevel_.SumBy();
    if (!chkMultiLevel.IsChecked()) return std::int16_t{0};
    return key == "MultiLevelBegin" ? multiLevel_.begin() : multiLevel_.end();
}

}  // namespace qor
