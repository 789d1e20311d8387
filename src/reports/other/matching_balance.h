// Rpt10527 往来匹配余额表: the balance of a party that is a customer and a supplier at once, both sides in
// one row. Without any such party in the account set its dialog does not open.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10527;

Ref<Report> MakeRpt10527(Process& process);

}  // namespace qor
