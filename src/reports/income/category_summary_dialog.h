// frmFilter10521 and frmFilter10523: the filter of the income and the expense summary.
#pragma once

#include "dialogs/plain_dialog.h"
#include "reports/income/category_summary_kind.h"

namespace qor {

class CategorySummaryDialog final : public PlainDialog {
 public:
    CategorySummaryDialog(Process& process, const CategorySummaryKind& kind);

 private:
    void FillLists() override;
    void AdjustForAppType() override;
    void PrepareConfirm() override { levels_.FillZeroLevels(); }
    void AddResultKeys(Dictionary& result) override;
    void SetOwnDefaults() override;

    void ConnectPickerKeys();
    std::int32_t AskDeepestLevel();

    const CategorySummaryKind& kind_;
    Frame Frame1;
    LevelBoxes levels_;
    CheckBox chkGrouyBy;  // named after the party that it sums by
    CheckBox chkForbiddenTypeInclude;
    CheckBox chkOccurNotZero;
    Label lblStatus;
    DropDown cmbCheckState;
    CheckBox chkIncludeOther;
};

}  // namespace qor
