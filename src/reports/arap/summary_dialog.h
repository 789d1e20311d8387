// frmFilter10503, frmFilter10505, frmFilter10531 and frmFilter10532: the filter of the summaries.
#pragma once

#include "dialogs/multi_level_group.h"
#include "dialogs/scheme_dialog.h"
#include "reports/arap/summary_kind.h"

namespace qor {

class SummaryDialog final : public SchemeDialog {
 public:
    SummaryDialog(Process& process, const SummaryKind& kind);

 private:
    void FillLists() override { multiLevel_.FillTotalList(); }
    void AdjustForAppType() override { ShowLevelsWhereAsked(); }
    void SetOwnDefaults() override { ShowLevelsWhereAsked(); }
    Value OwnValue(std::string_view key) const override;

    void ShowLevelsWhereAsked() { multiLevel_.SetVisible(chkMultiLevel.IsChecked()); }

    CheckBox& chkMultiLevel;
    MultiLevelGroup multiLevel_;
};

}  // namespace qor
