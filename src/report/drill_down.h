// The drill-down: from a summary's row to a further report object, driven late bound as a host would.
#pragma once

#include "process/process.h"
#include "report/report_description.h"

namespace qor {

/// Creates the detail report of `summary` and runs it with `filter`. Nothing where it fails without a
/// message; a failure with one, and every other error, is raised.
Ref<Object> RunDetailReport(Process& process, const ReportDescription& summary,
                            const Ref<Dictionary>& filter);

}  // namespace qor
