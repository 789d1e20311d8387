// qorview: the host for people and scripts. Each command stands in its own file.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <string_view>
#include <vector>

#include "viewer/command_import.h"
#include "viewer/command_list.h"
#include "viewer/command_play.h"
#include "viewer/command_run.h"
#include "viewer/command_sample.h"

namespace {

constexpr int kWrongArguments = 2;

/// "a command was expected: play or run, or the number of a report"
std::string ExpectedCommand(const CLI::App& program) {
    std::string names;
    const auto commands = program.get_subcommands({});
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (i > 0) names += i + 1 < commands.size() ? ", " : " or ";
        names += commands[i]->get_name();
    }
    return "a command was expected: " + names + ", or the number of a report";
}

/// One line that says what was expected.
void TellMistake(const CLI::App& program, const CLI::ParseError& mistake) {
    std::string command = program.get_name();
    std::string message = mistake.what();
    const auto chosen = program.get_subcommands();
    if (chosen.empty()) {
        message = ExpectedCommand(program);
    } else {
        command += " " + chosen.front()->get_name();
        std::ranges::replace(message, '\n', ' ');
    }
    std::cerr << command << ": " << message << " (see " << command << " --help)\n";
}

/// The arguments with "run" ahead of a report's number: `qorview 10522` is `qorview run 10522`.
std::vector<const char*> WithCommand(int count, char** arguments) {
    std::vector<const char*> all(arguments, arguments + count);
    const std::string_view first = count > 1 ? arguments[1] : "";
    const bool isNumber = !first.empty() && first.find_first_not_of("0123456789") == std::string_view::npos;
    if (isNumber) all.insert(all.begin() + 1, "run");
    return all;
}

int Run(int count, char** arguments) {
    CLI::App program("Runs the receivable, payable and cash reports", "qorview");
    program.footer(
        "A report's number alone runs it: qorview 10522 --drill 0 is qorview run 10522 --drill 0.");
    program.require_subcommand(1);
    int status = 0;
    qor::viewer::AddListCommand(program, status);
    qor::viewer::AddRunCommand(program, status);
    qor::viewer::AddPlayCommand(program, status);
    qor::viewer::AddSampleCommand(program, status);
    qor::viewer::AddImportCommand(program, status);
    try {
        const std::vector<const char*> all = WithCommand(count, arguments);
        program.parse(static_cast<int>(all.size()), all.data());
    } catch (const CLI::ParseError& mistake) {
        if (mistake.get_exit_code() == 0) return program.exit(mistake);  // --help
        TellMistake(program, mistake);
        return kWrongArguments;
    }
    return status;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return Run(count, arguments);
    } catch (const std::exception& error) {
        std::cerr << "qorview: " << error.what() << '\n';
        return 1;
    }
}
