// The library's public classes: the table of the reports, and creation by name.
#pragma once

#include <span>
#include <string_view>

#include "report/report_object.h"

namespace qor {

struct ReportEntry {
    const ReportDescription& description;
    Ref<Report> (*make)(Process& process);
};

/// All report classes, by number.
std::span<const ReportEntry> Reports();

/// The entry of a report number; null if there is no such report.
const ReportEntry* FindReport(std::int32_t number);

/// A new object of a public class, as "QORArApRpt.Rpt10522", compared without regard to case; nothing for
/// a name that is none of the library's. `process` must outlive the object.
Ref<Object> CreateReportClass(Process& process, std::string_view name);

}  // namespace qor
