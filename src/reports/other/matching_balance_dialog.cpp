#include "reports/other/matching_balance_dialog.h"

namespace qor {

namespace {

// clang-format off
// The long class numbers are those of the pickers alone.
constexpr ItemBox kItems[] = {
    {"Label4",  "供应商代码:", 1040308, 8},
    {"Label9",  "至: ",        1040308, 8, true},
    {"Label3",  "部门代码:",   2,       2},
    {"Label8",  "至: ",        2,       2, true},
    {"Label7",  "业务员代码:", 3,       3},
    {"Label6",  "至: ",        3,       3, true},
    {"Label12", "客户代码:",   1040301, 1},
    {"Label10", "至: ",        1040301, 1, true},
};

constexpr PlainField kFields[] = {
    {"BDate",                  "DtpBDate",               FieldDefault::PeriodStart},
    {"EDate",                  "DtpEDate",               FieldDefault::Today},
    {"BSupplyNumber",          "txtItem(0)",             FieldDefault::Blank},
    {"ESupplyNumber",          "txtItem(1)",             FieldDefault::Blank},
    {"BDeptNumber",            "txtItem(2)",             FieldDefault::Blank},
    {"EDeptNumber",            "txtItem(3)",             FieldDefault::Blank},
    {"BEmpNumber",             "txtItem(4)",             FieldDefault::Blank},
    {"EEmpNumber",             "txtItem(5)",             FieldDefault::Blank},
    {"BCustNumber",            "txtItem(6)",             FieldDefault::Blank},
    {"ECustNumber",            "txtItem(7)",             FieldDefault::Blank},
    {"chkIncludeGJ",           "chkIncludeGJ",           FieldDefault::One},
    {"chkIncludeOtherPay",     "chkIncludeOtherPay",     FieldDefault::One},
    {"chkIncludeOtherReceive", "chkIncludeOtherReceive", FieldDefault::One},
    {"chkIncludeHX",           "chkIncludeHX",           FieldDefault::One},
    {"chkNotShowBalZero",      "chkNotShowBalZero",      FieldDefault::One},
    {"chkNotShowBillZero",     "chkNotShowBillZero",     FieldDefault::One},
    {"ChkShowDetail",          "ChkShowDetail",          FieldDefault::One},
    {"CheckState",             "cmbCheckState",          FieldDefault::FirstEntry},
};
// clang-format on

constexpr PlainDialogDescription kDialog{
    .formName = "frmFilter10527",
    .title = "往来匹配余额表",
    .items = kItems,
    .fields = kFields,
    .takesSchemeHost = false,
};

}  // namespace

MatchingBalanceDialog::MatchingBalanceDialog(Process& process) : PlainDialog(process, kDialog) {
    FinishLayout(Frame1);
}

void MatchingBalanceDialog::AttachGuard() {
    IgnoringErrors([this] {
        if (process_.bag.GetAppType() == 1) CloseUpForAppType1();
    });
    PlainDialog::AttachGuard();
}

void MatchingBalanceDialog::CloseUpForAppType1() {
    for (CheckBox* box : {&chkIncludeGJ, &chkIncludeOtherReceive, &chkIncludeOtherPay}) {
        box->SetVisible(false);
        box->SetValue(0);
    }
    chkIncludeHX.SetTop(105);
    ChkShowDetail.SetLeft(120);
    ChkShowDetail.SetTop(480);
    lblStatus.SetTop(855);
    cmbCheckState.SetTop(810);
}

void MatchingBalanceDialog::AddResultKeys(Dictionary& result) {
    result.Put("UserID", UserID());
    result.Put("CheckState", cmbCheckState.listIndex());
    result.Put("OK", true);
}

}  // namespace qor
