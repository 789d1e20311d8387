// Rpt10530 账龄分析表: what customers owe or suppliers are owed, by how long it has been due. The user draws
// up the age groups himself, and each becomes a column, so this report's columns are partly data.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10530;

Ref<Report> MakeRpt10530(Process& process);

}  // namespace qor
