// Rpt10507 客户信用预警表 and Rpt10508 供应商信用预警表: the open bills of customers or suppliers against
// their credit limits. Neither asks the user for anything; the server decides the whole content.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10507;
extern const ReportDescription& kRpt10508;

Ref<Report> MakeRpt10507(Process& process);
Ref<Report> MakeRpt10508(Process& process);

}  // namespace qor
