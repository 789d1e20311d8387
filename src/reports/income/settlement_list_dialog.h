// frmFilter10525 and frmFilter10526: the filter of the receipt and the payment list.
#pragma once

#include <optional>

#include "dialogs/plain_dialog.h"
#include "reports/income/settlement_list_kind.h"

namespace qor {

class SettlementListDialog final : public PlainDialog {
 public:
    SettlementListDialog(Process& process, const SettlementListKind& kind);

 private:
    void EarlyLoad() override { chkIncludeRebate.SetValue(1); }
    void FillLists() override;
    void AdjustForAppType() override;
    bool CheckConfirm() override { return CheckBillTypes(); }
    void AddResultKeys(Dictionary& result) override;
    bool CheckBillTypes();
    void MakeRoomForRebates();

    const SettlementListKind& kind_;
    Frame Frame1;
    std::optional<Label> lblStatus;
    std::optional<DropDown> cmbCheckState;
    CheckBox chkShowNonZero;
    CheckBox chkIncludeBill;
    CheckBox chkIncludeOther;
    CheckBox chkIncludePre;
    CheckBox chkIncludeRebate;
    // The sort order takes part in schemes and filter, but users do not get to see it.
    Frame Frame2;
    Label lblSort{*this, "lblSort", "排序：", layout::LabelAt(layout::kFirstRow), &Frame2};
    DropDown cboSortBy{*this, "cboSortBy", layout::BoxAt(layout::kFirstRow), &Frame2};
    OptionButton OptSortAsc{*this, "OptSortAsc", "升序", true, {3440, 240, 1050, 270}, &Frame2};
    OptionButton OptSortDesc{*this, "OptSortDesc", "降序", false, {4640, 240, 1050, 270}, &Frame2};
};

}  // namespace qor
