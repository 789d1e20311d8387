#include "reports/income/category_summary_dialog.h"

namespace qor {

using layout::CheckAt, layout::HighCheckAt, layout::RowTop;

CategorySummaryDialog::CategorySummaryDialog(Process& process, const CategorySummaryKind& kind)
    : PlainDialog(process, kind.dialog),
      kind_(kind),
      Frame1(*this, "Frame1", "", GroupBelowItems(layout::GroupHeight(4))),
      levels_(*this, Frame1, RowTop(0), kind.lowEndLevel),
      chkGrouyBy(*this, std::string(kind.groupKey), kind.groupCaption, 0, CheckAt(RowTop(1)), &Frame1),
      chkForbiddenTypeInclude(*this, "chkForbiddenTypeInclude", kind.forbiddenTypeCaption, 0,
                              HighCheckAt(RowTop(1)), &Frame1),
      chkOccurNotZero(*this, "chkOccurNotZero", "无发生额不显示", 1, CheckAt(RowTop(2)), &Frame1),
      lblStatus(*this, "lblStatus", "单据状态:", layout::LabelAt(RowTop(3)), &Frame1),
      cmbCheckState(*this, "cmbCheckState", layout::BoxAt(RowTop(3)), &Frame1),
      chkIncludeOther(*this, "chkIncludeOther", kind.includeOtherCaption, 0, HighCheckAt(RowTop(3)),
                      &Frame1) {
    if (kind_.levelBoxesOpenPickers) ConnectPickerKeys();
    FinishLayout(Frame1);
}

void CategorySummaryDialog::ConnectPickerKeys() {
    items_.txtItem(0).onKeyDown = nullptr;
    items_.txtItem(1).onKeyDown = nullptr;
    levels_.beginLevel().onKeyDown = LookupKeys(0);
    levels_.endLevel().onKeyDown = LookupKeys(1);
}

void CategorySummaryDialog::FillLists() {
    levels_.SetMaximum(AskDeepestLevel());
    PlainDialog::FillLists();
}

/// The deepest level of the classes summed; 0 where the server does not say.
std::int32_t CategorySummaryDialog::AskDeepestLevel() {
    std::int16_t deepest = 0;
    IgnoringErrors([&] {
        const Ref<Object> data = process_.platform.CreateComponent(kind_.report.dataComponent);
        deepest = ToInt16(data->Call("GetItemMaxLevel", process_.session.GetPropsString(), kind_.typeClass));
    });
    return deepest;
}

void CategorySummaryDialog::AdjustForAppType() {
    const std::int32_t appType = process_.bag.GetAppType();
    if (appType == 1) levels_.OfferBothLevels();
    if (appType == 1 || appType == 2) {
        chkIncludeOther.SetVisible(false);
        chkIncludeOther.SetValue(0);
    }
}

void CategorySummaryDialog::SetOwnDefaults() {
    IgnoringErrors([this] { levels_.endLevel().SetText(process_.bag.GetAppType() == 1 ? "2" : "1"); });
}

void CategorySummaryDialog::AddResultKeys(Dictionary& result) {
    result.Put("InvoiceStyle", std::int16_t{0});
    result.Put("ShowTypeValue", chkGrouyBy.IsChecked() ? kind_.groupedTypeValue : kind_.plainTypeValue);
    result.Put("UserID", UserID());
    result.Put("CheckState", cmbCheckState.listIndex());
    result.Put("OK", true);
}

}  // namespace qor
