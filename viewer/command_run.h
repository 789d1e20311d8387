// `qorview run`: runs a report on an account set and prints it.
#pragma once

#include <string>
#include <vector>

#include "viewer/report_view.h"
#include "viewer/run_host.h"

namespace qor::viewer {

enum class OutputFormat { Table, Csv, Json };

struct RunArguments {
    RunRequest request;                    // all but its values
    std::vector<std::string> assignments;  // KEY=VALUE
    Columns columns = Columns::Shown;
    OutputFormat format = OutputFormat::Table;
    std::string accountSet;  // the sample firm's where it is empty
};

/// Runs the report and prints it on standard output. Answers the exit status; what went wrong is then a line
/// on standard error.
int RunReport(RunArguments arguments);

}  // namespace qor::viewer
