// frmFilter10527: the filter of the matching balance.
#pragma once

#include "dialogs/plain_dialog.h"

namespace qor {

class MatchingBalanceDialog final : public PlainDialog {
 public:
    explicit MatchingBalanceDialog(Process& process);

 private:
    void AttachGuard() override;
    void AddResultKeys(Dictionary& result) override;
    void CloseUpForAppType1();

    // clang-format off
    Frame    Frame1{*this, "Frame1", "", GroupBelowItems(2055)};
    CheckBox chkIncludeGJ{*this, "chkIncludeGJ", "包括估价业务", 0, {120, 105, 2580, 330}, &Frame1};
    CheckBox chkIncludeOtherPay{*this, "chkIncludeOtherPay", "包括其他应付", 0, {120, 480, 2580, 330}, &Frame1};
    CheckBox chkIncludeOtherReceive{*this, "chkIncludeOtherReceive", "包括其他应收", 0, {120, 855, 2580, 330}, &Frame1};
    CheckBox chkIncludeHX{*this, "chkIncludeHX", "包括核销单", 0, {120, 1230, 2580, 330}, &Frame1};
    CheckBox chkNotShowBalZero{*this, "chkNotShowBalZero", "余额为零不显示", 0, {3440, 105, 2580, 330}, &Frame1};
    CheckBox chkNotShowBillZero{*this, "chkNotShowBillZero", "发生额为零不显示", 0, {3440, 480, 2580, 330}, &Frame1};
    CheckBox ChkShowDetail{*this, "ChkShowDetail", "包括货品明细项", 0, {3440, 855, 2580, 330}, &Frame1};
    Label    lblStatus{*this, "lblStatus", "单据状态:", {120, 1665, 1170, 210}, &Frame1};
    DropDown cmbCheckState{*this, "cmbCheckState", layout::BoxAt(1605), &Frame1};
    // clang-format on
};

}  // namespace qor
