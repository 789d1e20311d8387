#include "bench/figures/whole_run.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

#include "bench/figures/child_process.h"
#include "frames/scheme_store.h"
#include "viewer/run_host.h"

namespace qor::bench {

namespace {

using viewer::FilterValue;

/// What a dialog calls its first day; some reports ask for none, or have no dialog.
std::vector<std::vector<FilterValue>> FirstDays(AccountSet& books) {
    const std::string firstDay = books.Profile("IC", "StartYear").value() + "-01-01";
    return {{{"BDate", firstDay}}, {{"DtpBDate", firstDay}}, {}};
}

void ReadRows(Object& report, RunCost& cost, double start) {
    Object& rows = ObjectIn(report.Get("Rs"));
    const Ref<Object> held(&rows);
    const Ref<Object> fields(&ObjectIn(rows.Get("Fields")));
    const std::int32_t count = fields->Get("Count").int32();
    std::vector<Ref<Object>> field;
    for (std::int32_t i = 0; i < count; ++i) {
        field.emplace_back(&ObjectIn(fields->Get("Item", i)));
    }
    for (; rows.Get("EOF") == Value(false); rows.Call("Move", 1)) {
        for (const Ref<Object>& each : field) {
            each->Get("Value");
        }
        if (cost.rows++ == 0) cost.first = ProcessorSeconds() - start;
    }
    cost.last = ProcessorSeconds() - start;
    if (cost.rows == 0) cost.first = cost.last;
}

}  // namespace

RunCost MeasureRun(std::int32_t number, const std::filesystem::path& accountSet, std::int32_t user,
                   const std::vector<FilterValue>& values) {
    MiddleTier tier(accountSet, user);
    MemorySchemeStore schemes;
    std::ostream silent(nullptr);
    for (std::vector<FilterValue> all : FirstDays(tier.accountSet())) {
        const bool asksForDay = !all.empty();
        std::erase_if(all, [&](const FilterValue& day) {
            return std::ranges::find(values, day.first, &FilterValue::first) != values.end();
        });
        all.insert(all.end(), values.begin(), values.end());
        viewer::RunHost host(tier, schemes, silent);
        try {
            RunCost cost;
            const double start = ProcessorSeconds();
            const Ref<Object> report = host.Run({.number = number, .values = all});
            ReadRows(*report, cost, start);
            cost.peakKiB = PeakKiB();
            return cost;
        } catch (const viewer::RunFailure& failure) {
            if (failure.status() != viewer::kWrongRequest || !asksForDay) throw;
        }
    }
    return {};
}

RunCost MeasureStatement(const std::string& sql, const std::filesystem::path& accountSet) {
    AccountSet set(accountSet);
    RunCost cost;
    std::int64_t read = 0;
    const double start = ProcessorSeconds();
    Statement statement(set.database(), sql);
    const int columns = sqlite3_column_count(statement.handle());
    while (statement.Step()) {
        for (int i = 0; i < columns; ++i) {
            read += sqlite3_column_type(statement.handle(), i) == SQLITE_TEXT
                        ? static_cast<std::int64_t>(statement.Text(i).size())
                        : statement.Int(i);
        }
        if (cost.rows++ == 0) cost.first = ProcessorSeconds() - start;
    }
    cost.last = ProcessorSeconds() - start;
    if (read == 0) throw std::runtime_error("the statement has nothing to read");
    cost.peakKiB = PeakKiB();
    return cost;
}

}  // namespace qor::bench
