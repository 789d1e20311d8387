#include "reports/other/cash_dialog.h"

#include "platform/conversions.h"

namespace qor {

CashDialog::CashDialog(Process& process, const CashKind& kind)
    : PlainDialog(process, kind.dialog), kind_(kind) {
    FinishLayout(Frame1);
}

void CashDialog::OnLoad() {
    AttachGuard();
    chkNotShowBalZero.SetValue(0);
    chkNotShowBillZero.SetValue(0);
    WritePadText();
    SetCaptions();
    FillLists();
    IgnoringErrors([this] { ResetResult(); });
    SetSchemeOptions();
}

void CashDialog::Confirm() {
    if (CheckStartDate()) PlainDialog::Confirm();
}

/// An account set that names no start sets no limit.
bool CashDialog::CheckStartDate() {
    std::string start, end;
    process_.systemProfile.GetStartPeriodDates(start, end);
    if (FormatIsoDate(DtpBDate->value()) >= start) return true;
    ShowMessage(ResText("起始日期不能小于系统启用日期!"), ResText("信息提示："));
    DtpBDate->SetValue(ToDate(start));
    return false;
}

void CashDialog::AddResultKeys(Dictionary& result) {
    result.Put("UserID", UserID());
    result.Put("CheckState", cmbCheckState.listIndex());
    result.Put("OK", true);
    result.Put("RptID", static_cast<std::int16_t>(kind_.report.number));
}

void CashDialog::TakePicked(std::size_t index, Object& picked) {
    if (index != kind_.nameBox) return PlainDialog::TakePicked(index, picked);
    items_.txtItem(index).SetText(ToText(picked.Get("Name")));
}

}  // namespace qor
