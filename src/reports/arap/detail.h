// Rpt10502 应收账款明细表 and Rpt10504 应付账款明细表: the bills of a period with their amounts and the
// running balance. The two are one implementation over a description of their differences.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10502;
extern const ReportDescription& kRpt10504;

Ref<Report> MakeRpt10502(Process& process);
Ref<Report> MakeRpt10504(Process& process);

}  // namespace qor
