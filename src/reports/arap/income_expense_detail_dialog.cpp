#include "reports/arap/income_expense_detail_dialog.h"

#include <array>

namespace qor {

namespace {

// clang-format off
constexpr ItemBox kItems[] = {
    {"Label3",  "结算账户:",   14},
    {"Label4",  "部门代码:",   2},
    {"Label6",  "至: ",        2, 0, true},
    {"Label7",  "经手人代码:", 3},
    {"Label9",  "至: ",        3, 0, true},
    {"Label10", "制单人名称:", 0, 0, false, "（包含）"},
};

constexpr ItemBox kCommonItems[] = {
    {"Label8", "结算账户:", 14},
};

constexpr SchemeField kFields[] = {
    {"BDate",           "DtpBDate",           FieldDefault::PeriodStart},
    {"EDate",           "DtpEDate",           FieldDefault::Today},
    {"AcctNumber",      "txtItem(0)"},
    {"BDeptNumber",     "txtItem(1)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"EDeptNumber",     "txtItem(2)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"BEmpNumber",      "txtItem(3)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"EEmpNumber",      "txtItem(4)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"BillerName",      "txtItem(5)"},
    {"IncludeR",        "ChkIncludeReceive",  FieldDefault::One},
    {"IncludeP",        "ChkIncludePay",      FieldDefault::One},
    {"IncludePurchase", "ChkIncludePurchase", FieldDefault::One},
    {"IncludeSale",     "ChkIncludeSale",     FieldDefault::One},
    {"IncludeBank",     "chkIncludeBank",     FieldDefault::One},
    {"IncludeXSFL",     "chkIncludeXSFL",     FieldDefault::One},
    {"IncludeCGFL",     "chkIncludeCGFL",     FieldDefault::One},
    {"CheckState",      "cmbCheckState",      FieldDefault::FirstEntry},
    {.key = "UserID",                                .source = FieldSource::UserID},
    {.key = "CheckState", .control = "cmbCheckState", .source = FieldSource::Copy},
    {.key = "RptID",                                 .source = FieldSource::Own},
};

constexpr SchemeField kCommonFields[] = {
    {"BDate",      "BEGDate"},
    {"EDate",      "ENDDate"},
    {"AcctNumber", "txtItem(6)"},
};

constexpr CheckBoxRow kChecks[] = {
    {"ChkIncludeReceive",  "包括收款单"},
    {"chkIncludeBank",     "包括银行存取款单"},
    {"ChkIncludeSale",     "包括现款销售"},
    {"ChkIncludePay",      "包括付款单"},
    {"chkIncludeXSFL",     "包括销售返利单"},
    {"ChkIncludePurchase", "包括现款采购"},
    {"chkIncludeCGFL",     "包括采购返利单"},
};

constexpr CheckBoxRow kSearchChecks[] = {
    {"chkPrintByPage",     "分页打印"},
    {"ChkShowDetail",      "包括货品明细项"},
    {"ChkShowCheckBill",   "包括核销单"},
    {"chkIncludeGJ",       "包括估价业务"},
    {"chkNotShowBalZero",  "余额为零不显示"},
    {"chkNotShowBillZero", "发生额为零不显示"},
};

constexpr std::string_view kNotInType1[] = {"chkIncludeBank"};
// clang-format on

constexpr SchemeDialogDescription kDialog{
    .formName = "frmFilter10501",
    .items = kItems,
    .commonItems = kCommonItems,
    .fields = kFields,
    .commonFields = kCommonFields,
    .checks = kChecks,
    .notInType1 = kNotInType1,
    .statusFrame = "fraBillStatus",
    .statusCaption = "单据状态：",
    .fitsAppTypeAtLoad = false,
};

constexpr std::int32_t kSecondColumn = layout::kHighLabel;

void MoveTo(Control& control, std::int32_t left, std::int32_t top) {
    control.SetBounds({left, top, control.bounds().width, control.bounds().height});
}

}  // namespace

IncomeExpenseDetailDialog::IncomeExpenseDetailDialog(Process& process)
    : SchemeDialog(process, kDialog),
      FrameSearch(*this, "FrameSearch", "", {}, &PictureWhole),
      searchChecks_(*this, FrameSearch, kSearchChecks) {
    cmdItem5.SetVisible(false);
    FrameSearch.SetVisible(false);
    FinishLayout();
}

void IncomeExpenseDetailDialog::AdjustForAppType() {
    switch (process_.bag.GetAppType()) {
        case 1:
            // The two boxes below the bank box close the gap that it leaves.
            statusFrame_->SetVisible(false);
            MoveTo(The<CheckBox>("ChkIncludePay"), kSecondColumn, 225);
            MoveTo(The<CheckBox>("ChkIncludePurchase"), kSecondColumn, 600);
            break;
        case 4: {
            const bool hasRebates = process_.bag.GetIndustryType() == 0;
            The<CheckBox>("chkIncludeXSFL").SetVisible(hasRebates);
            The<CheckBox>("chkIncludeCGFL").SetVisible(hasRebates);
            break;
        }
        default:
            break;
    }
}

Value IncomeExpenseDetailDialog::OwnValue(std::string_view) const { return std::int16_t{10501}; }

}  // namespace qor
