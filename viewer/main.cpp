// qorview: the host for people and scripts. What its commands take stands here, each command in its own file.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <string>
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

void AddListCommand(CLI::App& program, int& status) {
    CLI::App* list = program.add_subcommand("list", "The reports with number, name and family");
    list->callback([&status] {
        qor::viewer::PrintReportList(std::cout);
        status = 0;
    });
}

void AddRunCommand(CLI::App& program, int& status) {
    using qor::viewer::Columns, qor::viewer::OutputFormat;
    static const std::map<std::string, Columns> kColumns = {{"shown", Columns::Shown}, {"all", Columns::All}};
    static const std::map<std::string, OutputFormat> kFormats = {
        {"table", OutputFormat::Table}, {"csv", OutputFormat::Csv}, {"json", OutputFormat::Json}};
    struct Taken {
        qor::viewer::RunArguments arguments;
        std::string columns = "shown", format = "table";
    };
    const auto taken = std::make_shared<Taken>();
    qor::viewer::RunRequest& request = taken->arguments.request;
    CLI::App* run = program.add_subcommand("run", "Runs a report on an account set and prints it");
    run->add_option("NUMBER", request.number, "The report's number, as `qorview list` shows it")->required();
    run->add_option("--set", taken->arguments.assignments,
                    "KEY=VALUE: a value for a key of the report's filter")
        ->allow_extra_args(false);
    run->add_option("--scheme", request.scheme, "A saved scheme to begin with");
    run->add_option("--app-type", request.appType, "The application type: 1, 2 or 4");
    run->add_option("--columns", taken->columns, "all: also the columns that are hidden by default")
        ->check(CLI::IsMember(&kColumns));
    run->add_option("--format", taken->format, "table, csv or json")->check(CLI::IsMember(&kFormats));
    run->add_option("--account-set", taken->arguments.accountSet,
                    "The account set; the sample firm without it");
    run->add_option("--drill", request.drillRow,
                    "ROW, counted from 0: opens the detail report of a row and prints that instead")
        ->check(CLI::NonNegativeNumber);
    run->callback([taken, &status] {
        taken->arguments.columns = kColumns.at(taken->columns);
        taken->arguments.format = kFormats.at(taken->format);
        status = qor::viewer::RunReport(taken->arguments);
    });
}

void AddPlayCommand(CLI::App& program, int& status) {
    CLI::App* play = program.add_subcommand("play", "Play a host's conversation with a report from a file");
    const auto file = std::make_shared<std::string>();
    play->add_option("FILE", *file, "The conversation, a JSON file; - reads standard input")->required();
    play->callback(
        [file, &status] { status = qor::viewer::PlayConversation(*file, std::cin, std::cout, std::cerr); });
}

void AddSampleCommand(CLI::App& program, int& status) {
    struct Taken {
        std::string file;
        qor::SampleOptions options;
    };
    const auto taken = std::make_shared<Taken>();
    CLI::App* sample =
        program.add_subcommand("sample", "Makes an account set with the books of a sample firm");
    sample->add_option("FILE", taken->file, "The account set to be made; it must not exist")->required();
    sample->add_option("--bills", taken->options.bills, "How many bills the firm has")
        ->capture_default_str()
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{100'000'000}));
    sample->add_option("--seed", taken->options.seed, "The same seed gives the same books")
        ->capture_default_str();
    sample->callback([taken, &status] { status = qor::viewer::MakeSampleSet(taken->file, taken->options); });
}

void AddImportCommand(CLI::App& program, int& status) {
    struct Taken {
        std::string folder, file;
    };
    const auto taken = std::make_shared<Taken>();
    CLI::App* taking = program.add_subcommand(
        "import",
        "Takes a firm's books from a folder of CSV files into an account set, wholly or not at all");
    taking->add_option("DIR", taken->folder, "The folder; docs/account-set.md says what stands in its files")
        ->required();
    taking->add_option("--into", taken->file, "The account set; it is made, or added to where it exists")
        ->required();
    taking->callback([taken, &status] {
        status = qor::viewer::ImportBooksInto(taken->folder, taken->file, std::cout, std::cerr);
    });
}

int Run(int count, char** arguments) {
    CLI::App program("Runs the receivable, payable and cash reports", "qorview");
    program.footer(
        "A report's number alone runs it: qorview 10522 --drill 0 is qorview run 10522 --drill 0.");
    program.require_subcommand(1);
    int status = 0;
    AddListCommand(program, status);
    AddRunCommand(program, status);
    AddPlayCommand(program, status);
    AddSampleCommand(program, status);
    AddImportCommand(program, status);
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
