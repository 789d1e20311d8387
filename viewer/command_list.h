// `qorview list`: the reports by number.
#pragma once

#include <iosfwd>

namespace qor::viewer {

/// Number, name, family and dialog of every report that the library can create.
void PrintReportList(std::ostream& out);

}  // namespace qor::viewer
