#include "reports/income/settlement_list_dialog.h"

namespace qor {

namespace {

constexpr std::int32_t kLeft = 120, kRight = 3480;

constexpr Bounds CheckAt(std::int32_t left, int row) { return {left, 240 + row * kRowHeight, 2550, 270}; }

}  // namespace

SettlementListDialog::SettlementListDialog(Process& process, const SettlementListKind& kind)
    : PlainDialog(process, kind.dialog),
      kind_(kind),
      Frame1(*this, "Frame1", "", {120, ItemsBottom() + 90, 6300, 285 + 3 * kRowHeight}),
      chkShowNonZero(*this, "chkShowNonZero", "已完全核销不显示", 0, CheckAt(kLeft, 0), &Frame1),
      chkIncludeBill(*this, "chkIncludeBill", kind.includeBillCaption, 0, CheckAt(kRight, 0), &Frame1),
      chkIncludeOther(*this, "chkIncludeOther", kind.includeOtherCaption, 0, CheckAt(kRight, 1), &Frame1),
      chkIncludePre(*this, "chkIncludePre", kind.includePreCaption, 0, CheckAt(kLeft, 1), &Frame1),
      chkIncludeRebate(*this, "chkIncludeRebate", kind.includeRebateCaption, 0, CheckAt(kRight, 2), &Frame1),
      Frame2(*this, "Frame2", "", {120, Frame1.bounds().top + Frame1.bounds().height + 90, 6300, 690}) {
    if (kind_.hasCheckState) {
        const Bounds row = CheckAt(kLeft, 2);
        lblStatus.emplace(*this, "lblStatus", "单据状态:", Bounds{row.left, row.top + 45, 1170, 210},
                          &Frame1);
        cmbCheckState.emplace(*this, "cmbCheckState",
                              Bounds{kBoundColumns.box, row.top - 15, 1680, kBoxHeight}, &Frame1);
    }
    chkIncludeRebate.SetVisible(false);
    Frame2.SetVisible(false);
    FinishLayout(Frame1.bounds().top + Frame1.bounds().height);
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
            break;
        default:
            break;
    }
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
