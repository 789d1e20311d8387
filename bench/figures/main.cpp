// Prints the tables of docs/performance.md that are about whole firms. Each figure is taken in a child of
// this program, so that neither memory nor warmth goes from one to the next.
#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "bench/figures/statement_cases.h"
#include "bench/figures/tables.h"
#include "bench/figures/whole_run.h"

namespace {

using namespace qor::bench;

struct Child {
    std::int32_t number = 0, user = 1;
    std::string firm;
    std::vector<std::string> set;
};

std::vector<qor::viewer::FilterValue> ValuesOf(const std::vector<std::string>& set) {
    std::vector<qor::viewer::FilterValue> values;
    for (const std::string& each : set) {
        const std::size_t equals = each.find('=');
        if (equals == std::string::npos) throw std::runtime_error("KEY=VALUE, not " + each);
        values.emplace_back(each.substr(0, equals), each.substr(equals + 1));
    }
    return values;
}

void Tell(const RunCost& cost) {
    std::cout << nlohmann::json{
        {"rows", cost.rows}, {"first", cost.first}, {"last", cost.last}, {"peakKiB", cost.peakKiB}};
}

void AddChild(CLI::App& program, const char* name, Child& child, const std::function<RunCost()>& measure) {
    CLI::App* command = program.add_subcommand(
        name, "One measurement, as a line of JSON; of a statement NUMBER is its place");
    command->add_option("NUMBER", child.number)->required();
    command->add_option("FIRM", child.firm)->required();
    command->add_option("USER", child.user)->required();
    command->add_option("--set", child.set, "KEY=VALUE of the report's filter");
    command->callback([measure] { Tell(measure()); });
}

void PrintTables(const FiguresBench& bench, const std::vector<std::string>& wanted) {
    struct Table {
        const char* name;
        void (FiguresBench::*print)() const;
    };
    constexpr Table kTables[] = {{"growth", &FiguresBench::GrowthTable},
                                 {"statement", &FiguresBench::StatementTable},
                                 {"journal", &FiguresBench::JournalTable},
                                 {"rights", &FiguresBench::RightsTable},
                                 {"narrow", &FiguresBench::NarrowTable}};
    for (const Table& table : kTables) {
        if (!wanted.empty() && std::ranges::find(wanted, table.name) == wanted.end()) continue;
        bench.out << "## " << table.name << "\n\n";
        (bench.*table.print)();
        bench.out << '\n';
    }
}

int Run(int count, char** arguments) {
    CLI::App program("Measures the reports on whole firms", "qor_figures_bench");
    FiguresBench bench{
        .self = arguments[0], .sizes = {13'000, 100'000, 750'000, 2'000'000}, .out = std::cout};
    bench.qorview = (std::filesystem::path(arguments[0]).parent_path() / "qorview").string();
    bench.folder = std::filesystem::path(arguments[0]).parent_path() / "bench-firms";
    std::vector<std::string> wanted;
    program.add_option("--sizes", bench.sizes, "Bills of the sample firms")->delimiter(',');
    program.add_option("--runs", bench.runs, "The best of so many")->capture_default_str();
    program.add_option("--folder", bench.folder, "Where the sample firms are kept");
    program.add_option("--table", wanted, "growth, statement, journal, rights or narrow; all without it");
    Child child;
    AddChild(program, "run", child,
             [&] { return MeasureRun(child.number, child.firm, child.user, ValuesOf(child.set)); });
    AddChild(program, "statement", child, [&] {
        return MeasureStatement(StatementCases().at(static_cast<std::size_t>(child.number)).statement,
                                child.firm);
    });
    CLI11_PARSE(program, count, arguments);
    if (program.get_subcommands().empty()) PrintTables(bench, wanted);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return Run(count, arguments);
    } catch (const std::exception& error) {
        std::cerr << "qor_figures_bench: " << error.what() << '\n';
        return 1;
    }
}
