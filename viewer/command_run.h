// `qorview run`: runs a report on an account set and prints it.
#pragma once

namespace CLI {
class App;
}

namespace qor::viewer {

/// Adds the command to the program's; running it leaves the exit status in `status`.
void AddRunCommand(CLI::App& program, int& status);

}  // namespace qor::viewer
