// A million rows of a report, walked as a host walks them: one Move and the reading of two fields a row.
// Beside it the same two columns as plain arrays.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/record_set.h"

namespace qor::bench {
namespace {

constexpr std::int32_t kRows = 1'000'000;

Ref<ColumnarRecordSet> MillionRows() {
    const std::vector<std::string> fields{"FDate", "FBillNo", "FCustName", "FReceiveAmount", "FAmount"};
    auto rows = MakeRef<ColumnarRecordSet>(fields);
    rows->Reserve(kRows);
    const Value customer = "深圳市恒远贸易有限公司";
    for (std::int32_t i = 0; i < kRows; ++i) {
        rows->AddCell(0, Date{44000.0 + i % 365});
        rows->AddCell(1, i);
        rows->AddCell(2, customer);
        rows->AddCell(3, 0.25 * i);
        rows->AddCell(4, 0.5 * i);
    }
    return rows;
}

void RecordSetMoveAndRead(benchmark::State& state) {
    const auto rows = MillionRows();
    for (auto _ : state) {
        double total = 0;
        for (rows->MoveFirst(); !rows->Eof(); rows->Move(1)) {
            total += rows->Field("FAmount").number();
            benchmark::DoNotOptimize(rows->Field("FCustName"));
        }
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

/// As a host that knows only the object: every step by member name.
void RecordSetMoveAndReadLateBound(benchmark::State& state) {
    const auto rows = MillionRows();
    Object& object = *rows;
    for (auto _ : state) {
        double total = 0;
        object.Call("MoveFirst");
        for (std::int32_t i = 0; i < kRows; ++i) {
            total += rows->Field("FAmount").number();
            object.Call("Move", 1);
        }
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

/// To and fro over the whole set: a far Move costs what a near one does.
void RecordSetMoveFar(benchmark::State& state) {
    const auto rows = MillionRows();
    rows->MoveFirst();
    for (auto _ : state) {
        rows->Move(kRows - 1);
        benchmark::DoNotOptimize(rows->Field("FAmount"));
        rows->Move(1 - kRows);
    }
}

void PlainArraysMoveAndRead(benchmark::State& state) {
    std::vector<double> amounts;
    std::vector<std::string> customers(kRows, "深圳市恒远贸易有限公司");
    for (std::int32_t i = 0; i < kRows; ++i)
        amounts.push_back(0.5 * i);
    for (auto _ : state) {
        double total = 0;
        for (std::size_t i = 0; i < amounts.size(); ++i) {
            total += amounts[i];
            benchmark::DoNotOptimize(customers[i].data());
        }
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

BENCHMARK(RecordSetMoveAndRead)->Unit(benchmark::kMillisecond);
BENCHMARK(RecordSetMoveAndReadLateBound)->Unit(benchmark::kMillisecond);
BENCHMARK(RecordSetMoveFar);
BENCHMARK(PlainArraysMoveAndRead)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qor::bench
