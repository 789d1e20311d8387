// One run of the income category detail, from creation by name to the reading of its outcome, with servers
// that answer at once; and its column table alone. Beside each, the same content filled into plain structs.
#include <benchmark/benchmark.h>

#include "bench/allocations.h"
#include "bench/plain_report.h"
#include "bench/ready_platform.h"
#include "library.h"
#include "process/process.h"
#include "report/column_table.h"

namespace qor::bench {
namespace {

void Converse(Process& process, StageClock& clock, benchmark::State& state) {
    clock.Start();
    const Ref<Object> report = CreateReportClass(process, "QORArApRpt.Rpt10522");
    clock.End(Stage::Create);
    report->Call("ShowFilter");
    clock.End(Stage::Confirm);
    report->Call("GetReportData");
    clock.End(Stage::Close);
    const Value result = report->Get("Result");
    if (ObjectIn(result).Get("Value", "OK") != Value(true)) state.SkipWithError("the run failed");
    for (const char* part : {"Rs", "Header", "Title", "Property"})
        benchmark::DoNotOptimize(report->Get(part));
    clock.End(Stage::Read);
}

double PlainSeconds() {
    constexpr int kRuns = 20'000;
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < kRuns; ++i)
        benchmark::DoNotOptimize(RunPlainReport(2));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count() / kRuns;
}

void Conversation(benchmark::State& state) {
    ReadyPlatform platform;
    Process process(platform);
    const std::int64_t before = Allocations();
    for (auto _ : state)
        Converse(process, platform.clock, state);
    const double runs = static_cast<double>(state.iterations());
    state.counters["allocations"] = static_cast<double>(Allocations() - before) / runs;

    double all = 0;
    for (const double seconds : platform.clock.seconds())
        all += seconds;
    for (std::size_t stage = 0; stage < kStageNames.size(); ++stage)
        state.counters["% " + std::string(kStageNames[stage])] = 100 * platform.clock.seconds()[stage] / all;
    state.counters["x plain"] = all / runs / PlainSeconds();
}

void PlainConversation(benchmark::State& state) {
    const std::int64_t before = Allocations();
    for (auto _ : state)
        benchmark::DoNotOptimize(RunPlainReport(2));
    state.counters["allocations"] =
        static_cast<double>(Allocations() - before) / static_cast<double>(state.iterations());
}

void ColumnTable(benchmark::State& state) {
    ReadyPlatform platform;
    Process process(platform);
    const auto rows = PlainColumns(2);
    for (auto _ : state) {
        SetHeaderList(process, process.platform.NewVector());
        for (const PlainColumn& row : rows)
            AddHeader(process, row.caption, row.second, row.type, row.field, row.visible, 7);
        SetHeaderList(process, {});
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows.size()));
}

void PlainColumnTable(benchmark::State& state) {
    std::int64_t columns = 0;
    for (auto _ : state) {
        const auto table = PlainColumns(2);
        columns += static_cast<std::int64_t>(table.size());
        benchmark::DoNotOptimize(table.data());
    }
    state.SetItemsProcessed(columns);
}

BENCHMARK(Conversation)->Unit(benchmark::kMicrosecond);
BENCHMARK(PlainConversation)->Unit(benchmark::kMicrosecond);
BENCHMARK(ColumnTable);
BENCHMARK(PlainColumnTable);

}  // namespace
}  // namespace qor::bench
