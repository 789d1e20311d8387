#include "reports/other/cash.h"

#include "platform/conversions.h"
#include "reports/other/cash_dialog.h"

namespace qor {

namespace {

class CashReport final : public Report {
 public:
    CashReport(Process& process, const CashKind& kind) : Report(process, kind.report), kind_(kind) {}

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<CashDialog>(process_, kind_); }
    void BuildColumns() override { AddColumns(kind_.columns); }
    Ref<Dictionary> BuildDetailFilter() override;

    const CashKind& kind_;
};

/// The journal of one account: what the ledger does not restrict is left open there.
Ref<Dictionary> CashReport::BuildDetailFilter() {
    const Value account = m_Rs->Field("FAcctNumber");
    if (JoinedText(account).empty()) return {};
    const std::string number(Trimmed(ToText(account)));

    Ref<Dictionary> journal = process_.platform.NewDictionary();
    const auto takeOver = [&](std::string_view key) { journal->Put(key, FilterValue(key)); };
    takeOver("BDate");
    takeOver("EDate");
    journal->Put("BAcctNumber", number);
    journal->Put("EAcctNumber", number);
    for (const std::string_view open :
         {"BDeptNumber", "EDeptNumber", "BEmpNumber", "EEmpNumber", "BillerName"}) {
        journal->Put(open, "");
    }
    for (const std::string_view key : {"NotShowBalZero", "NotShowBillZero", "CheckState", "IncludARAP"}) {
        takeOver(key);
    }
    return journal;
}

}  // namespace

const ReportDescription& kRpt10528 = kCashJournal.report;
const ReportDescription& kRpt10529 = kCashLedger.report;

Ref<Report> MakeRpt10528(Process& process) { return MakeRef<CashReport>(process, kCashJournal); }

Ref<Report> MakeRpt10529(Process& process) { return MakeRef<CashReport>(process, kCashLedger); }

}  // namespace qor
