// `qorview sample`: makes an account set with the books of a sample firm.
#pragma once

namespace CLI {
class App;
}

namespace qor::viewer {

/// Adds the command to the program's; running it leaves the exit status in `status`.
void AddSampleCommand(CLI::App& program, int& status);

}  // namespace qor::viewer
