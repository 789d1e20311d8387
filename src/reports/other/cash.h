// Rpt10528 现金银行日记账 and Rpt10529 现金银行总账: the movements of the cash and bank accounts one by one,
// and their balances and sums. A row of the ledger opens the journal of its account.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10528;
extern const ReportDescription& kRpt10529;

Ref<Report> MakeRpt10528(Process& process);
Ref<Report> MakeRpt10529(Process& process);

}  // namespace qor
