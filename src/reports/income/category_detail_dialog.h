// frmFilter10522 and frmFilter10524: the filter of the income and the expense detail.
#pragma once

#include "dialogs/plain_dialog.h"
#include "reports/income/category_detail_kind.h"

namespace qor {

class CategoryDetailDialog final : public PlainDialog {
 public:
    CategoryDetailDialog(Process& process, const CategoryDetailKind& kind);

 private:
    void AddResultKeys(Dictionary& result) override;

    const CategoryDetailKind& kind_;
    Frame Frame1;
    Label lblStatus{*this, "lblStatus", "单据状态:", layout::LabelAt(layout::kFirstRow), &Frame1};
    DropDown cmbCheckState{*this, "cmbCheckState", layout::BoxAt(layout::kFirstRow), &Frame1};
    CheckBox chkForbiddenTypeInclude;
};

}  // namespace qor
