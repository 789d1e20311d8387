// Rpt10521 收入类别汇总表 and Rpt10523 支出类别汇总表: income or expense summed by class, at the levels that
// the user picks and, if asked, by party. The two are one implementation over a description of their
// differences.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10521;
extern const ReportDescription& kRpt10523;

Ref<Report> MakeRpt10521(Process& process);
Ref<Report> MakeRpt10523(Process& process);

}  // namespace qor
