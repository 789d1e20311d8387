// frmFilter10528 and frmFilter10529: the filter of the cash journal and of the cash ledger. Unlike their
// fellows they are set up at Load, start their frame at every activation, keep the begin date from lying
// before the account set's start, and unload themselves.
#pragma once

#include "dialogs/plain_dialog.h"
#include "reports/other/cash_kind.h"

namespace qor {

class CashDialog final : public PlainDialog {
 public:
    CashDialog(Process& process, const CashKind& kind);

 private:
    void OnLoad() override;
    void OnActivate() override { StartFrame(); }
    void Confirm() override;
    void CloseConfirmed() override { Unload(); }
    void Cancel() override { Unload(); }
    void AddResultKeys(Dictionary& result) override;
    void TakePicked(std::size_t index, Object& picked) override;

    bool CheckStartDate();

    const CashKind& kind_;

    // clang-format off
    Frame    Frame1{*this, "Frame1", "", GroupBelowItems(layout::GroupHeight(2))};
    CheckBox chkNotShowBalZero{*this, "chkNotShowBalZero", "余额为零不显示", 0, layout::CheckAt(layout::RowTop(0)), &Frame1};
    CheckBox chkNotShowBillZero{*this, "chkNotShowBillZero", "发生额为零不显示", 0, layout::HighCheckAt(layout::RowTop(0)), &Frame1};
    Label    lblStatus{*this, "lblStatus", "单据状态：", layout::LabelAt(layout::RowTop(1)), &Frame1};
    DropDown cmbCheckState{*this, "cmbCheckState", layout::BoxAt(layout::RowTop(1)), &Frame1};
    CheckBox chkIncludARAP{*this, "chkIncludARAP", "包括其他应收应付", 0, layout::HighCheckAt(layout::RowTop(1)), &Frame1};
    // clang-format on
};

}  // namespace qor
