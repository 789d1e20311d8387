// frmFirter10530: the filter of the ageing analysis. Beside one date and a range of party codes it holds the
// grid in which the user draws up the age groups.
#pragma once

#include "dialogs/plain_dialog.h"
#include "reports/other/age_groups.h"

namespace qor {

class AgeingDialog final : public PlainDialog {
 public:
    explicit AgeingDialog(Process& process);

 private:
    void OnLoad() override;
    void AttachGuard() override;
    void FillLists() override;
    void Confirm() override;
    void Cancel() override;
    void AddResultKeys(Dictionary& result) override;
    std::int32_t ItemClassOf(std::size_t) const override { return itemClass_; }
    std::string SaveField(const Control& control) const override;
    void LoadField(Control& control, const Value& text) override;

    void SelectParty();
    void ConnectGrid();
    void ShowGridMessage(std::string_view text);

    std::int32_t itemClass_ = 0;  // of the party codes; 0 before the first selection

    Label Label3{*this, "Label3", "核算项目:", layout::WideLabelAt(layout::kFirstRow), &fraPeriod};
    DropDown cmbClassType{*this, "cmbClassType", layout::HighBoxAt(layout::kFirstRow), &fraPeriod};
    CheckBox chkRPOher;
    Frame Frame1;
    Label lblTitile{*this, "lblTitile", "标题", {180, 285, 2400, 210}, &Frame1};
    Label lblDayNum{*this, "lblDayNum", "天数", {2640, 285, 1800, 210}, &Frame1};
    Grid grid{*this, "grid", AgeGroups::kColumns, AgeGroups::kStoredRows, {120, 540, 4530, 1950}, &Frame1};
    Button cmdAddRow{
        *this, "cmdAddRow", "增加行", {4770, 540, layout::kButtonWidth, layout::kButtonHeight}, &Frame1};
    Button cmdDelRow{
        *this, "cmdDelRow", "删除行", {4770, 1020, layout::kButtonWidth, layout::kButtonHeight}, &Frame1};
    AgeGroups ageGroups_{grid, [this](std::string_view text) { ShowGridMessage(text); }};
};

}  // namespace qor
