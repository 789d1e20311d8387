#include "reports/income/settlement_list.h"

#include "reports/income/settlement_list_dialog.h"

namespace qor {

namespace {

class SettlementList final : public Report {
 public:
    SettlementList(Process& process, const SettlementListKind& kind)
        : Report(process, kind.report), kind_(kind) {}

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<SettlementListDialog>(process_, kind_); }
    void BuildColumns() override { AddColumns(kind_.columns); }

    const SettlementListKind& kind_;
};

}  // namespace

const ReportDescription& kRpt10525 = kReceiptList.report;
const ReportDescription& kRpt10526 = kPaymentList.report;

Ref<Report> MakeRpt10525(Process& process) { return MakeRef<SettlementList>(process, kReceiptList); }

Ref<Report> MakeRpt10526(Process& process) { return MakeRef<SettlementList>(process, kPaymentList); }

}  // namespace qor
