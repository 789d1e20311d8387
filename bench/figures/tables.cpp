#include "bench/figures/tables.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>

#include "bench/figures/child_process.h"
#include "bench/figures/journal.h"
#include "bench/figures/statement_cases.h"
#include "bench/figures/whole_run.h"
#include "embedded/bill_kinds.h"
#include "embedded/sqlite.h"
#include "library.h"

namespace qor::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kMiddleSize = 100'000;
constexpr std::int32_t kOwner = 1, kClerk = 16;
constexpr const char* kCutOff = "2025-06-30";
constexpr std::int64_t kCutOffDay = 45838;

std::string Fixed(double number, int decimals) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << number;
    return text.str();
}

std::string Milliseconds(double seconds) { return Fixed(seconds * 1000, seconds < 0.1 ? 1 : 0); }
std::string Ratio(double over, double under) { return under > 0 ? Fixed(over / under, 2) : "-"; }

RunCost CostOf(const std::string& json) {
    const auto told = nlohmann::json::parse(json);
    return {.rows = told["rows"], .first = told["first"], .last = told["last"], .peakKiB = told["peakKiB"]};
}

/// The best of some runs. Each begins anew, so that no firm is small enough to stay in memory from run to
/// run.
RunCost BestOf(const FiguresBench& bench, const std::vector<std::string>& command) {
    RunCost best;
    for (int run = 0; run < bench.runs; ++run) {
        const RunCost cost = CostOf(RunChild(command).output);
        if (run == 0 || cost.last < best.last) best = cost;
    }
    return best;
}

RunCost RunIn(const FiguresBench& bench, std::int32_t number, const fs::path& firm, std::int32_t user,
              const std::vector<viewer::FilterValue>& values = {}) {
    std::vector<std::string> command = {bench.self, "run", std::to_string(number), firm.string(),
                                        std::to_string(user)};
    for (const auto& [key, value] : values) {
        command.insert(command.end(), {"--set", key + "=" + value});
    }
    return BestOf(bench, command);
}

RunCost StatementIn(const FiguresBench& bench, std::size_t place, const fs::path& firm) {
    return BestOf(bench, {bench.self, "statement", std::to_string(place), firm.string(), "1"});
}

std::string Named(const ReportDescription& report) {
    return std::to_string(report.number) + " " + std::string(report.name);
}

}  // namespace

fs::path FiguresBench::Firm(std::int64_t bills) const {
    const fs::path file = folder / ("firm-" + std::to_string(bills) + ".db");
    fs::create_directories(folder);
    if (!fs::exists(file)) RunChild({qorview, "sample", file.string(), "--bills", std::to_string(bills)});
    return file;
}

fs::path FiguresBench::FirmOfClerk(std::int64_t bills) const {
    const fs::path file = folder / ("clerk-" + std::to_string(bills) + ".db");
    if (fs::exists(file)) return file;
    fs::copy_file(Firm(bills), file);
    Database(file, Database::Mode::Create)
        .Run("UPDATE t_Party SET FRightUserID='1," + std::to_string(kClerk) + "'");
    return file;
}

void FiguresBench::GrowthTable() const {
    out << "Milliseconds to the first / to the last row; peak memory in MiB\n\n| Report |";
    std::string rule = "\n|---|";
    for (const std::int64_t size : sizes) {
        out << " rows of " << size << " bills | ms | MiB |";
        rule += "---|---|---|";
    }
    out << " µs a bill |" << rule << "---|\n";
    for (const ReportEntry& report : Reports()) {
        out << "| " << Named(report.description) << " |";
        std::string perBill;
        for (const std::int64_t size : sizes) {
            const RunCost cost = RunIn(*this, report.description.number, Firm(size), kOwner);
            out << ' ' << cost.rows << " | " << Milliseconds(cost.first) << " / " << Milliseconds(cost.last)
                << " | " << cost.peakKiB / 1024 << " |" << std::flush;
            perBill.append(perBill.empty() ? "" : ", ")
                .append(Fixed(cost.last * 1e6 / static_cast<double>(size), 2));
        }
        out << ' ' << perBill << " |\n";
    }
}

void FiguresBench::StatementTable() const {
    out << "| Report | Bills | Rows | Run, ms | Rows of the statement | Statement, ms | Ratio |\n"
           "|---|---|---|---|---|---|---|\n";
    const std::vector<StatementCase>& cases = StatementCases();
    for (std::size_t place = 0; place < cases.size(); ++place) {
        const StatementCase& row = cases[place];
        for (const std::int64_t size : sizes) {
            if (size < kMiddleSize) continue;
            const RunCost run = RunIn(*this, row.number, Firm(size), kOwner, row.values);
            const RunCost statement = StatementIn(*this, place, Firm(size));
            out << "| " << Named(FindReport(row.number)->description)
                << (row.what.empty() ? "" : ", " + row.what) << " | " << size << " | " << run.rows << " | "
                << Milliseconds(run.last) << " | " << statement.rows << " | " << Milliseconds(statement.last)
                << " | " << Ratio(run.last, statement.last) << " |\n"
                << std::flush;
        }
    }
}

void FiguresBench::RightsTable() const {
    out << "| Report | Rows | Without limits, ms | Limited to all parties, ms | Ratio "
           "|\n|---|---|---|---|---|\n";
    const fs::path firm = FirmOfClerk(kMiddleSize);
    for (const ReportEntry& report : Reports()) {
        const RunCost free = RunIn(*this, report.description.number, firm, kOwner);
        const RunCost limited = RunIn(*this, report.description.number, firm, kClerk);
        if (limited.rows != free.rows) throw std::runtime_error(Named(report.description) + ": other rows");
        out << "| " << Named(report.description) << " | " << free.rows << " | " << Milliseconds(free.last)
            << " | " << Milliseconds(limited.last) << " | " << Ratio(limited.last, free.last) << " |\n"
            << std::flush;
    }
}

namespace {

struct NarrowCase {
    std::int32_t number;
    const char* what;
    std::vector<viewer::FilterValue> values;
};

/// One party, one account or one month of a firm.
std::vector<NarrowCase> NarrowCases(const fs::path& firm) {
    Database books(firm, Database::Mode::ReadOnly);
    const auto middle = [&](std::int32_t itemClass) {
        Statement code(
            books,
            "SELECT FNumber FROM t_Item WHERE FItemClassID=?1 AND FDetail=1 ORDER BY FNumber LIMIT 1 "
            "OFFSET (SELECT count(*)/2 FROM t_Item WHERE FItemClassID=?1 AND FDetail=1)");
        code.With(itemClass).Step();
        return std::string(code.Text(0));
    };
    const std::string customer = middle(item_class::kCustomer), account = middle(item_class::kAccount);
    const std::vector<viewer::FilterValue> one = {{"BCustNumber", customer}, {"ECustNumber", customer}};
    const std::vector<viewer::FilterValue> month = {{"BDate", "2025-06-01"}, {"EDate", kCutOff}};
    const std::vector<viewer::FilterValue> listMonth = {{"DtpBDate", "2025-06-01"}, {"DtpEDate", kCutOff}};
    return {{10502, "one customer", one},
            {10503, "one customer", one},
            {10506, "one customer", {{"BItemNumber", customer}, {"EItemNumber", customer}}},
            {10522, "one customer", one},
            {10525, "one customer", one},
            {10530, "one customer", {{"BSupplyNumber", customer}, {"ESupplyNumber", customer}}},
            {10528, "one account", {{"BAcctNumber", account}, {"EAcctNumber", account}}},
            {10501, "one month", month},
            {10522, "one month", listMonth},
            {10525, "one month", month},
            {10526, "one month", month}};
}

}  // namespace

void FiguresBench::NarrowTable() const {
    const fs::path firm = Firm(sizes.back());
    out << sizes.back()
        << " bills\n\n| Report | Asked for | Rows | ms | Rows of everything | ms | Ratio |\n"
           "|---|---|---|---|---|---|---|\n";
    for (const NarrowCase& row : NarrowCases(firm)) {
        const RunCost narrow = RunIn(*this, row.number, firm, kOwner, row.values);
        const RunCost whole = RunIn(*this, row.number, firm, kOwner);
        out << "| " << Named(FindReport(row.number)->description) << " | " << row.what << " | " << narrow.rows
            << " | " << Milliseconds(narrow.last) << " | " << whole.rows << " | " << Milliseconds(whole.last)
            << " | " << Ratio(narrow.last, whole.last) << " |\n"
            << std::flush;
    }
}

namespace {

/// What one program was asked and said.
struct Asked {
    std::string program, task;
    ChildCost cost;
};

/// The cheapest of some runs.
ChildCost Best(const std::vector<std::string>& command, int runs) {
    ChildCost best = RunChild(command);
    for (int run = 1; run < runs; ++run) {
        const ChildCost again = RunChild(command);
        if (again.seconds < best.seconds) best = again;
    }
    return best;
}

void Agree(const std::string& what, std::map<std::string, std::int64_t> ours,
           std::map<std::string, std::int64_t> theirs) {
    const auto isZero = [](const auto& entry) { return entry.second == 0; };
    ours.erase("");  // the total row
    std::erase_if(ours, isZero);
    std::erase_if(theirs, isZero);
    if (ours.empty() || ours != theirs) throw std::runtime_error(what + ": the figures differ");
}

std::map<std::string, std::int64_t> Groups(const std::string& csv) {
    std::map<std::string, std::int64_t> sums;
    int group = 0;
    for (const char* column : {"1至30天", "31至60天", "61至90天", "91天以上"}) {
        for (const auto& [code, cents] : ReadReportColumn(csv, "往来单位代码", column)) {
            sums[std::to_string(group)] += cents;
        }
        ++group;
    }
    return sums;
}

std::map<std::string, std::int64_t> Groups(const std::map<int, std::int64_t>& byAge) {
    std::map<std::string, std::int64_t> sums;
    for (const auto& [group, cents] : byAge) {
        sums[std::to_string(group)] = cents;
    }
    return sums;
}

}  // namespace

void FiguresBench::JournalTable() const {
    const fs::path firm = Firm(kMiddleSize), journal = folder / "receivables.journal";
    const std::int64_t changes = WriteJournal(firm, journal);
    const auto report = [&](const char* number) {
        std::vector<std::string> command = {qorview,         "run",         number,
                                            "--account-set", firm.string(), "--format",
                                            "csv",           "--set",       "EDate=" + std::string(kCutOff)};
        if (std::string_view(number) == "10503") command.insert(command.end(), {"--set", "BDate=2022-01-01"});
        return Best(command, runs);
    };
    const ChildCost balances = report("10503"), ageing = report("10530");
    const auto ourBalances = ReadReportColumn(balances.output, "客户代码", "期末余额");
    out << changes << " transactions in the journal\n\n"
        << "| Program | Question | Seconds | Peak memory, MiB | qorview | Ratio "
           "|\n|---|---|---|---|---|---|\n";
    for (const std::string program : {"ledger", "hledger"}) {
        const std::vector<std::string> open = {program, "-f",         journal.string(),
                                               "bal",   "Receivable", "--flat"};
        std::vector<std::string> byCustomer(open.begin(), open.end() - 1);
        byCustomer.insert(byCustomer.end(), {"--depth", "2"});
        if (program == "ledger") {  // it shows no sums of deeper accounts in a flat list
            byCustomer.insert(byCustomer.end(), {"--format", "%(display_total)  %(account)\n"});
        } else {
            byCustomer.emplace_back("--flat");
        }
        const Asked asked[] = {{program, "balances of customers", Best(byCustomer, 1)},
                               {program, "open bills by age", Best(open, 1)}};
        Agree(program + ", balances", ourBalances, ReadBalances(asked[0].cost.output, kCutOffDay).byCustomer);
        Agree(program + ", ageing", Groups(ageing.output),
              Groups(ReadBalances(asked[1].cost.output, kCutOffDay).byAge));
        for (const Asked& row : asked) {
            const ChildCost& ours = &row == asked ? balances : ageing;
            out << "| " << row.program << " | " << row.task << " | " << Fixed(row.cost.seconds, 2) << " | "
                << row.cost.peakKiB / 1024 << " | " << Fixed(ours.seconds, 3) << " s, " << ours.peakKiB / 1024
                << " MiB | " << Fixed(row.cost.seconds / ours.seconds, 0) << " |\n"
                << std::flush;
        }
    }
}

}  // namespace qor::bench
