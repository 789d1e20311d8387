// `qorview list`: the reports by number.
#pragma once

#include <iosfwd>

namespace CLI {
class App;
}

namespace qor::viewer {

/// Adds the command to the program's; running it leaves the exit status in `status`.
void AddListCommand(CLI::App& program, int& status);

/// Number, name, family and dialog of every report that the library can create.
void PrintReportList(std::ostream& out);

}  // namespace qor::viewer
