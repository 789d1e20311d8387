#include "reports/income/settlement_list_dialog.h"

namespace qor {

using layout::CheckAt, layout::HighCheckAt, layout::RowTop;

SettlementListDialog::SettlementListDialog(Process& process, const SettlementListKind& kind)
    : PlainDialog(process, kind.dialog),
      kind_(kind),
      Frame1(*this, "Frame1", "", GroupBelowItems(layout::GroupHeight(kind.hasCheckState ? 3 : 2))),
      chkShowNonZero(*this, "chkShowNonZero", "已完全核销不显示", 0, CheckAt(RowTop(0)), &Frame1),
      chkIncludeBill(*this, "chkIncludeBill", kind.includeBillCaption, 0, HighCheckAt(RowTop(0)), &Frame1),
      chkIncludeOther(*this, "chkIncludeOther", kind.includeOtherCaption, 0, HighCheckAt(RowTop(1)), &Frame1),
      chkIncludePre(*this, "chkIncludePre", kind.includePreCaption, 0, CheckAt(RowTop(1)), &Frame1),
      chkIncludeRebate(*this, "chkIncludeRebate", kind.includeRebateCaption, 0, HighCheckAt(RowTop(2)),
                       &Frame1),
      Frame2(*this, "Frame2", "", layout::GroupAt(layout::Below(Frame1.bounds()), layout::GroupHeight(1))) {
    TabBehind(chkIncludeOther, chkIncludePre);  // as they stand in their row
    if (kind_.hasCheckState) {
        lblStatus.emplace(*this, "lblStatus", "单据状态:", layout::LabelAt(RowTop(2)), &Frame1);
        cmbCheckState.emplace(*this, "cmbCheckState", layout::BoxAt(RowTop(2)), &Frame1);
        TabBehind(chkIncludeRebate, *cmbCheckState);
    }
    chkIncludeRebate.SetVisible(false);
    Frame2.SetVisible(false);
    FinishLayout(Frame1);
}

void SettlementListDialog::FillLists() {
    cboSortBy.Clear();
    for (const std::string_view order : kind_.sortOrders) {
        cboSortBy.AddItem(order);
    }
    cboSortBy.SetListIndex(0);
    PlainDialog::FillLists();
}

void SettlementListDialog::AdjustForAppType() {
    switch (process_.bag.GetAppType()) {
        case 1:
            chkIncludeOther.SetVisible(false);
            chkIncludeOther.SetValue(0);
            Frame2.SetVisible(false);
            break;
        case 2:
            Frame2.SetVisible(false);
            break;
        case 4:
            chkIncludeRebate.SetVisible(process_.bag.GetIndustryType() == 0);
            if (chkIncludeRebate.visible()) MakeRoomForRebates();
            break;
        default:
            break;
    }
}

/// The box stands in a row that is there only where the bills' states are.
void SettlementListDialog::MakeRoomForRebates() {
    Frame1.SetBounds(GroupBelowItems(layout::GroupHeight(3)));
    FinishLayout(Frame1);
}

bool SettlementListDialog::CheckBillTypes() {
    if (chkIncludeBill.value() != 0 || chkIncludeOther.value() != 0 || chkIncludePre.value() != 0)
        return true;
    ShowMessage("必须至少选择一种单据类型!", "信息提示");
    return false;
}

void SettlementListDialog::AddResultKeys(Dictionary& result) {
    result.Put("UserID", UserID());
    result.Put("OK", true);
}

}  // namespace qor
