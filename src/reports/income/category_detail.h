// Rpt10522 收入类别明细表 and Rpt10524 支出类别明细表: the income or the expense of a period bill by bill,
// under its class. The two are one implementation over a description of their differences.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10522;
extern const ReportDescription& kRpt10524;

Ref<Report> MakeRpt10522(Process& process);
Ref<Report> MakeRpt10524(Process& process);

}  // namespace qor
