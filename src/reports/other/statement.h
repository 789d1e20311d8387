// Rpt10506 往来对账单: the account with one customer or supplier, bill by bill. With paged printing on, the
// host also gets the two record sets by which it prints a statement for each party.
#pragma once

#include "report/report_object.h"

namespace qor {

extern const ReportDescription& kRpt10506;

Ref<Report> MakeRpt10506(Process& process);

}  // namespace qor
