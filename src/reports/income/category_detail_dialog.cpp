#include "reports/income/category_detail_dialog.h"

namespace qor {

CategoryDetailDialog::CategoryDetailDialog(Process& process, const CategoryDetailKind& kind)
    : PlainDialog(process, kind.dialog),
      kind_(kind),
      Frame1(*this, "Frame1", "", GroupBelowItems(layout::GroupHeight(1))),
      chkForbiddenTypeInclude(*this, "chkForbiddenTypeInclude", kind.forbiddenTypeCaption, 0,
                              layout::HighCheckAt(layout::kFirstRow), &Frame1) {
    FinishLayout(Frame1);
}

void CategoryDetailDialog::AddResultKeys(Dictionary& result) {
    result.Put("UserID", UserID());
    result.Put("CheckState", cmbCheckState.listIndex());
    result.Put("OK", true);
    result.Put("RptID", static_cast<std::int16_t>(kind_.report.number));
}

}  // namespace qor
