// frmFilter10506: the filter of the statement of account. Its codes are of customers or of suppliers, as the
// list above them says; both panels have such a list.
#pragma once

#include "dialogs/scheme_dialog.h"

namespace qor {

class StatementDialog final : public SchemeDialog {
 public:
    explicit StatementDialog(Process& process);

 private:
    void OnLoad() override;
    void FillLists() override;
    void PanelFilled() override {}
    void Confirmed() override;
    bool Writes(const SchemeField& field) const override;
    Value OwnValue(std::string_view key) const override;
    void LoadField(const SchemeField& field, const Dictionary& scheme) override;
    std::int32_t ItemClassOf(std::size_t index) const override;

    void PartiesChosen(const DropDown& parties, std::size_t firstBox);

    CheckBox& chkIncludeGJ;
    CheckBox& chkPrintByPage;
    bool loading_ = false;
    bool printByPageTouched_ = false;  // lasts as long as the dialog
};

}  // namespace qor
