#include "viewer/command_run.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <map>
#include <memory>

#include "embedded/middle_tier.h"
#include "embedded/user_profile_store.h"
#include "frames/durable_file.h"
#include "frames/file_scheme_store.h"
#include "viewer/report_formats.h"
#include "viewer/run_host.h"

namespace qor::viewer {

namespace {

enum class Format { Table, Csv, Json };

struct RunCommand {
    RunRequest request;
    std::vector<std::string> assignments;
    std::string columns = "shown";
    Format format = Format::Table;
    std::string accountSet;
};

std::string DefaultAccountSet() { return (UserDataFolder() / "sample.db").string(); }

std::vector<FilterValue> SplitAssignments(const std::vector<std::string>& assignments) {
    std::vector<FilterValue> values;
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string::npos || equals == 0) {
            throw RunFailure(kWrongRequest, "--set takes KEY=VALUE, not \"" + assignment + "\"");
        }
        values.emplace_back(assignment.substr(0, equals), assignment.substr(equals + 1));
    }
    return values;
}

std::size_t Print(const ReportView& view, Format format) {
    switch (format) {
        case Format::Table:
            return PrintTable(view, std::cout);
        case Format::Csv:
            return PrintCsv(view, std::cout);
        case Format::Json:
            return PrintJson(view, std::cout);
    }
    return 0;
}

int Run(RunCommand& command) {
    try {
        const auto start = std::chrono::steady_clock::now();
        command.request.values = SplitAssignments(command.assignments);
        constexpr std::int32_t kOwner = 1;  // the user of every sample account set who sees everything
        MiddleTier middleTier(command.accountSet.empty() ? DefaultAccountSet() : command.accountSet, kOwner,
                              std::make_unique<FileProfiles>(UserDataFolder() / "profile.json"));
        FileSchemeStore schemes(UserSchemeFile());
        RunHost host(middleTier, schemes, std::cerr);
        const Ref<Object> report = host.Run(command.request);
        const ReportView view = ReadReport(*report, command.columns == "all" ? Columns::All : Columns::Shown);
        const std::size_t rows = Print(view, command.format);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        if (command.format == Format::Table) {
            std::cout << '\n'
                      << rows << (rows == 1 ? " row in " : " rows in ") << std::fixed << std::setprecision(3)
                      << took.count() << " s\n";
        }
        return 0;
    } catch (const RunFailure& failure) {
        std::cerr << "qorview run: " << failure.what() << '\n';
        return failure.status();
    } catch (const Error& error) {
        std::cerr << "qorview run: " << error.description() << '\n';
        return kRunFailed;
    }
}

}  // namespace

void AddRunCommand(CLI::App& program, int& status) {
    const auto command = std::make_shared<RunCommand>();
    CLI::App* run = program.add_subcommand("run", "Runs a report on an account set and prints it");
    run->add_option("NUMBER", command->request.number, "The report's number, as `qorview list` shows it")
        ->required();
    run->add_option("--set", command->assignments, "KEY=VALUE: a value for a key of the report's filter")
        ->allow_extra_args(false);
    run->add_option("--scheme", command->request.scheme, "A saved scheme to begin with");
    run->add_option("--app-type", command->request.appType, "The application type: 1, 2 or 4");
    run->add_option("--columns", command->columns, "all: also the columns that are hidden by default")
        ->check(CLI::IsMember({"shown", "all"}));
    run->add_option("--format", command->format, "table, csv or json")
        ->transform(CLI::CheckedTransformer(std::map<std::string, Format>{
            {"table", Format::Table}, {"csv", Format::Csv}, {"json", Format::Json}}));
    run->add_option("--account-set", command->accountSet, "The account set; the sample firm without it");
    run->add_option("--drill", command->request.drillRow,
                    "ROW, counted from 0: opens the detail report of a row and prints that instead")
        ->check(CLI::NonNegativeNumber);
    run->callback([command, &status] { status = Run(*command); });
}

}  // namespace qor::viewer
