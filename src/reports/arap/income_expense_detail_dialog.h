// frmFilter10501: the filter of the income and expense detail.
#pragma once

#include "dialogs/scheme_dialog.h"

namespace qor {

class IncomeExpenseDetailDialog final : public SchemeDialog {
 public:
    explicit IncomeExpenseDetailDialog(Process& process);

 private:
    void AdjustForAppType() override;
    Value OwnValue(std::string_view key) const override;

    // The name that a bill's author must contain is typed freely: its picker button is there for the
    // array's sake and never shown.
    Button cmdItem5{*this, "cmdItem(5)", "", {}, &fraItem};
    // A search group that the dialog carries without using it.
    Frame FrameSearch;
    CheckBoxes searchChecks_;
};

}  // namespace qor
