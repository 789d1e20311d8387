// Rpt10501 收支明细表: the money movements of a period bill by bill, of all settlement accounts or of one;
// for one account the server also reckons the balance after each bill.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10501;

Ref<Report> MakeRpt10501(Process& process);

}  // namespace qor
