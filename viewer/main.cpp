// qorview: the host for people and scripts. Each command stands in its own file.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "viewer/command_import.h"
#include "viewer/command_list.h"
#include "viewer/command_play.h"
#include "viewer/command_run.h"
#include "viewer/command_sample.h"

namespace {

constexpr int kWrongArguments = 2;

/// "a command was expected: play or run"
std::string ExpectedCommand(const CLI::App& program) {
    std::string names;
    const auto commands = program.get_subcommands({});
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (i > 0) names += i + 1 < commands.size() ? ", " : " or ";
        names += commands[i]->get_name();
    }
    return "a command was expected: " + names;
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

int Run(int count, char** arguments) {
    CLI::App program("Runs the receivable, payable and cash reports", "qorview");
    program.require_subcommand(1);
    int status = 0;
    qor::viewer::AddListCommand(program, status);
    qor::viewer::AddRunCommand(program, status);
    qor::viewer::AddPlayCommand(program, status);
    qor::viewer::AddSampleCommand(program, status);
    qor::viewer::AddImportCommand(program, status);
    try {
        program.parse(count, arguments);
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
