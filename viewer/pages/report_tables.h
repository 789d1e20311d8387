// The filter keys and the columns of a report as Markdown tables, read off the report itself: it is created,
// filtered and run as a host would, in each application type.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor::viewer {

/// The tables of one report.
std::string ReportTables(std::int32_t number);

/// `page` with everything between "<!-- tables of 10522 -->" and "<!-- end of 10522 -->" written anew, for
/// every report that has such marks. Throws std::runtime_error for a mark without its end.
std::string WithCurrentTables(std::string_view page);

}  // namespace qor::viewer
