// Rpt10525 收款一览表 and Rpt10526 付款一览表: the bills of customers or suppliers with what has been settled
// on them. The two are one implementation over a description of their differences.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10525;
extern const ReportDescription& kRpt10526;

Ref<Report> MakeRpt10525(Process& process);
Ref<Report> MakeRpt10526(Process& process);

}  // namespace qor
