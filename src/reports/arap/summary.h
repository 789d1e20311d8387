// Rpt10503 应收账款汇总表, Rpt10505 应付账款汇总表, and both once more with advances in columns of their own,
// Rpt10531 and Rpt10532: what a party owed, what arose, what was paid and what is left. The four are one
// implementation over a description of their differences; each opens the detail of a row.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10503;
extern const ReportDescription& kRpt10505;
extern const ReportDescription& kRpt10531;
extern const ReportDescription& kRpt10532;

Ref<Report> MakeRpt10503(Process& process);
Ref<Report> MakeRpt10505(Process& process);
Ref<Report> MakeRpt10531(Process& process);
Ref<Report> MakeRpt10532(Process& process);

}  // namespace qor
