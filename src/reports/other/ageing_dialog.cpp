#include "reports/other/ageing_dialog.h"

#include "dialogs/date_range_guard.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int32_t kCustomers = 1, kSuppliers = 8;

// The class of the codes follows cmbClassType; the one given here says only that the boxes have pickers.
constexpr ItemBox kItems[] = {
    {"Label4", "往来单位代码:", kCustomers, 0},
    {"Label5", "至:", kCustomers, 0, true},
};

constexpr PlainField kFields[] = {
    {"EDate", "DtpEDate", FieldDefault::Today},
    {"BSupplyNumber", "txtItem(0)", FieldDefault::Blank},
    {"ESupplyNumber", "txtItem(1)", FieldDefault::Blank},
    {"cmbClassType", "cmbClassType", FieldDefault::FirstEntry},
    {"chkRPOher", "chkRPOher", FieldDefault::One},
    {"grid", "grid", FieldDefault::Leave},
};

constexpr PlainDialogDescription kDialog{
    .formName = "frmFirter10530",
    .title = "账龄分析表",
    .items = kItems,
    .fields = kFields,
    .hasBeginDate = false,
    .hasNameList = false,
};

}  // namespace

AgeingDialog::AgeingDialog(Process& process)
    : PlainDialog(process, kDialog),
      chkRPOher(*this, "chkRPOher", "包括其他应收应付", 1,
                {240, layout::Below(fraItem.bounds()), layout::kCheckWidth, layout::kCheckHeight}),
      Frame1(*this, "Frame1", "账龄分组", layout::GroupAt(layout::Below(chkRPOher.bounds()), 2610)) {
    TabBehind(cmbClassType, *DtpEDate);
    cmbClassType.onClick = [this] { SelectParty(); };
    cmdAddRow.onClick = [this] { ageGroups_.AddRow(); };
    cmdDelRow.onClick = [this] { ageGroups_.DeleteRow(); };
    grid.SetColumnWidth(AgeGroups::kLabel, lblDayNum.bounds().left - lblTitile.bounds().left);
    ConnectGrid();
    FinishLayout(Frame1);
}

void AgeingDialog::ConnectGrid() {
    grid.onGotFocus = [this] { ageGroups_.RefreshGridLocks(); };
    grid.onEditMode = [this](std::int32_t column, std::int32_t row, std::int16_t, bool changeMade) {
        if (changeMade) ageGroups_.Edited(column, row);
    };
}

void AgeingDialog::ShowGridMessage(std::string_view text) { ShowMessage(text, ResText("信息提示")); }

void AgeingDialog::OnLoad() {
    PlainDialog::OnLoad();
    IgnoringErrors([this] {
        if (process_.bag.GetAppType() < 2) chkRPOher.SetVisible(false);
    });
    chkRPOher.SetValue(1);  // also where the user cannot see it
}

void AgeingDialog::AttachGuard() { AttachDateRange(process_, *DtpEDate, *DtpEDate, ToText(RptID())); }

void AgeingDialog::FillLists() {
    ageGroups_.LockLabels();
    cmbClassType.Clear();
    cmbClassType.AddItem(ResText("客户"));
    cmbClassType.AddItem(ResText("供应商"));
    cmbClassType.SetListIndex(0);
}

void AgeingDialog::SelectParty() {
    const std::int32_t selected = cmbClassType.listIndex() == 0 ? kCustomers : kSuppliers;
    if (selected != itemClass_) {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            items_.txtItem(i).SetText("");
        }
    }
    itemClass_ = selected;
}

void AgeingDialog::Confirm() {
    TakeConditions();
    if (!ageGroups_.CheckGroups(process_.platform, *Result())) return;
    AddResultKeys(*Result());
    CloseConfirmed();
}

void AgeingDialog::AddResultKeys(Dictionary& result) {
    result.Put("UserID", UserID());
    result.Put("OK", true);
}

void AgeingDialog::Cancel() {
    if (Result()) Result()->Put("OK", false);
    Hide();
}

std::string AgeingDialog::SaveField(const Control& control) const {
    return &control == &grid ? ageGroups_.GridToText() : PlainDialog::SaveField(control);
}

void AgeingDialog::LoadField(Control& control, const Value& text) {
    if (&control == &grid) return ageGroups_.TextToGrid(ToText(text));
    PlainDialog::LoadField(control, text);
}

}  // namespace qor
