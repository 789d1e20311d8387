#include "viewer/command_run.h"

#include <chrono>
#include <iomanip>
#include <iostream>
#include <memory>

#include "embedded/middle_tier.h"
#include "embedded/user_profile_store.h"
#include "frames/durable_file.h"
#include "frames/file_scheme_store.h"
#include "viewer/report_formats.h"
#include "viewer/run_host.h"

namespace qor::viewer {

namespace {

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

std::size_t Print(const ReportView& view, OutputFormat format) {
    switch (format) {
        case OutputFormat::Table:
            return PrintTable(view, std::cout);
        case OutputFormat::Csv:
            return PrintCsv(view, std::cout);
        case OutputFormat::Json:
            return PrintJson(view, std::cout);
    }
    return 0;
}

}  // namespace

int RunReport(RunArguments arguments) {
    try {
        const auto start = std::chrono::steady_clock::now();
        arguments.request.values = SplitAssignments(arguments.assignments);
        constexpr std::int32_t kOwner = 1;  // the user of every sample account set who sees everything
        MiddleTier middleTier(arguments.accountSet.empty() ? DefaultAccountSet() : arguments.accountSet,
                              kOwner, std::make_unique<FileProfiles>(UserDataFolder() / "profile.json"));
        FileSchemeStore schemes(UserSchemeFile());
        RunHost host(middleTier, schemes, std::cerr);
        const Ref<Object> report = host.Run(arguments.request);
        const ReportView view = ReadReport(*report, arguments.columns);
        const std::size_t rows = Print(view, arguments.format);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        if (arguments.format == OutputFormat::Table) {
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

}  // namespace qor::viewer
