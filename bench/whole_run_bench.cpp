// Whole runs of the large reports on a firm of a million bills: the dialog confirmed, the data fetched, every
// cell of every row read by the host. Beside each the statement that asks the account set for the same rows,
// with all its joins and its order, stepped through by itself.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "embedded/sample.h"
#include "frames/file_scheme_store.h"
#include "viewer/run_host.h"

namespace qor::bench {
namespace {

/// The account set of QOR_BENCH_ACCOUNT_SET, or a new one among the temporary files.
std::filesystem::path Firm() {
    if (const char* given = std::getenv("QOR_BENCH_ACCOUNT_SET")) return given;
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "qor_bench_firm.db";
    if (!std::filesystem::exists(file)) MakeSample(file, {.bills = 1'000'000});
    return file;
}

MiddleTier& Tier() {
    static MiddleTier tier(Firm());
    return tier;
}

const std::vector<viewer::FilterValue> kSummaryByParty = {{"DtpBDate", "2022-01-01"},
                                                          {"DtpEDate", "2025-06-30"},
                                                          {"ELevel", "3"},
                                                          {"BLevel", "1"},
                                                          {"chkGrouyByCust", "1"}};

struct Run {
    std::int32_t number;
    std::vector<viewer::FilterValue> values;
    const char* statement;
};

const Run& RunOf(std::int32_t number) {
    static const Run runs[] = {
        {10522,
         {{"DtpBDate", "2022-01-01"}, {"DtpEDate", "2025-06-30"}},
         "SELECT c.FName, b.FDate, p.FNumber, p.FName, a.FName, e.FAmount-e.FSettleAmount, e.FSettleAmount,"
         " e.FAmount, m.FNumber, m.FName, d.FNumber, d.FName, b.FBillNo, e.FNote"
         " FROM t_Bill b CROSS JOIN t_ClassEntry e ON e.FBillID=b.FBillID JOIN t_Item c ON "
         "c.FItemID=e.FClassID"
         " LEFT JOIN t_Item p ON p.FItemID=b.FCustID LEFT JOIN t_Item a ON a.FItemID=b.FAcctID"
         " LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID"
         " WHERE b.FBillType=11 AND b.FState=0 AND c.FDeleted=0 AND b.FDate BETWEEN 44562 AND 45838"
         " ORDER BY c.FNumber, b.FDate, b.FBillNo"},
        {10521, kSummaryByParty,
         "SELECT p.FNumber, p.FName, c.FName, sum(e.FAmount-e.FSettleAmount), sum(e.FSettleAmount),"
         " sum(e.FAmount), c.FNumber"
         " FROM t_Bill b CROSS JOIN t_ClassEntry e ON e.FBillID=b.FBillID JOIN t_Item c ON "
         "c.FItemID=e.FClassID"
         " LEFT JOIN t_Item p ON p.FItemID=b.FCustID"
         " WHERE b.FBillType=11 AND b.FState=0 AND c.FDeleted=0 AND b.FDate BETWEEN 44562 AND 45838"
         " GROUP BY b.FCustID, e.FClassID ORDER BY p.FNumber, c.FNumber"},
        {10501,
         {{"BDate", "2022-01-01"}, {"EDate", "2025-06-30"}},
         "SELECT b.FDate, b.FBillNo, t.FName, max(0, t.FCash*CASE WHEN t.FReceivable OR t.FPayable THEN"
         " b.FSettleAmount ELSE b.FAmount END), max(0, -t.FCash*CASE WHEN t.FReceivable OR t.FPayable THEN"
         " b.FSettleAmount ELSE b.FAmount END), b.FExplanation, p.FName, d.FName, m.FName"
         " FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType"
         " LEFT JOIN t_Item p ON p.FItemID=ifnull(b.FCustID,b.FSupplyID)"
         " LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID"
         " WHERE t.FCash<>0 AND b.FState=0 AND b.FDate BETWEEN 44562 AND 45838 AND"
         " (b.FSettleAmount<>0 OR NOT (t.FReceivable OR t.FPayable))"
         " ORDER BY b.FDate, b.FBillID"},
        {10525,
         {{"BDate", "2022-01-01"}, {"EDate", "2025-06-30"}, {"chkShowNonZero", "0"}},
         "SELECT b.FDate, b.FBillNo, t.FName, b.FAmount, b.FSettleAmount+ifnull(s.FDone,0),"
         " b.FAmount-b.FSettleAmount-ifnull(s.FDone,0), d.FNumber, d.FName, m.FNumber, m.FName, "
         "b.FExplanation"
         " FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType LEFT JOIN"
         " (SELECT FTargetBillID, sum(FAmount+FDiscount) AS FDone FROM t_Settlement WHERE FDate<=45838"
         "  AND FBillID IN (SELECT FBillID FROM t_Bill WHERE FState=0) GROUP BY FTargetBillID) s"
         " ON s.FTargetBillID=b.FBillID"
         " LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID"
         " WHERE b.FBillType IN (1,2,9,11,13,16,25) AND b.FState=0 AND b.FCustID IS NOT NULL"
         " AND b.FDate BETWEEN 44562 AND 45838 ORDER BY b.FDate DESC, b.FBillNo"},
        {10506,
         {{"BDate", "2022-01-01"}, {"EDate", "2025-06-30"}, {"NotShowBillZero", "0"}},
         "SELECT b.FDate, t.FName, b.FBillNo, b.FVchNumber, b.FExplanation, t.FReceivable*b.FAmount,"
         " t.FReceivable*b.FSettleAmount+(t.FReceived+t.FAdvanceIn)*b.FAmount, t.FReceived*b.FDiscount,"
         " sum(t.FReceivable*(b.FAmount-b.FSettleAmount)-(t.FReceived+t.FAdvanceIn)*b.FAmount"
         " -t.FReceived*b.FDiscount) OVER (PARTITION BY p.FNumber ORDER BY b.FDate, b.FBillID),"
         " d.FName, m.FName, b.FInvoiceNo"
         " FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType JOIN t_Item p ON p.FItemID=b.FCustID"
         " LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID"
         " WHERE (t.FReceivable OR t.FReceived OR t.FAdvanceIn) AND b.FState=0 AND b.FDate<=45838"
         " ORDER BY p.FNumber, b.FDate, b.FBillID"},
        {10528,
         {{"BDate", "2022-01-01"}, {"EDate", "2025-06-30"}},
         "SELECT a.FNumber, a.FName, b.FDate, b.FBillNo, t.FName, max(0, b.FFlow), max(0, -b.FFlow),"
         " sum(b.FFlow) OVER (PARTITION BY a.FNumber ORDER BY b.FDate, b.FBillID), b.FExplanation, p.FName,"
         " d.FName, m.FName"
         " FROM (SELECT c.*, k.FCash*CASE WHEN k.FReceivable OR k.FPayable THEN c.FSettleAmount ELSE"
         "  c.FAmount END AS FFlow FROM t_Bill c JOIN t_BillType k ON k.FBillType=c.FBillType) b"
         " JOIN t_BillType t ON t.FBillType=b.FBillType JOIN t_Item a ON a.FItemID=b.FAcctID"
         " LEFT JOIN t_Item p ON p.FItemID=ifnull(b.FCustID,b.FSupplyID)"
         " LEFT JOIN t_Item d ON d.FItemID=b.FDeptID LEFT JOIN t_Item m ON m.FItemID=b.FEmpID"
         " WHERE b.FFlow<>0 AND b.FState=0 AND b.FDate BETWEEN 44562 AND 45838"
         " ORDER BY a.FNumber, b.FDate, b.FBillID"},
        {10530,
         {{"EDate", "2025-06-30"}},
         "SELECT p.FNumber, p.FName, sum(o.FOpen), sum(CASE WHEN 45838-o.FDate<30 THEN o.FOpen ELSE 0 END),"
         " sum(CASE WHEN 45838-o.FDate BETWEEN 30 AND 59 THEN o.FOpen ELSE 0 END),"
         " sum(CASE WHEN 45838-o.FDate BETWEEN 60 AND 89 THEN o.FOpen ELSE 0 END),"
         " sum(CASE WHEN 45838-o.FDate>=90 THEN o.FOpen ELSE 0 END) FROM"
         " (SELECT b.FCustID, b.FDate, t.FReceivable*(b.FAmount-b.FSettleAmount)-ifnull(s.FDone,0) AS FOpen"
         "  FROM t_Bill b JOIN t_BillType t ON t.FBillType=b.FBillType LEFT JOIN"
         "  (SELECT FTargetBillID, sum(FAmount+FDiscount) AS FDone FROM t_Settlement WHERE FDate<=45838"
         "   AND FBillID IN (SELECT FBillID FROM t_Bill WHERE FState=0) GROUP BY FTargetBillID) s"
         "  ON s.FTargetBillID=b.FBillID"
         "  WHERE t.FReceivable AND b.FState=0 AND b.FCustID IS NOT NULL AND b.FDate<=45838) o"
         " JOIN t_Item p ON p.FItemID=o.FCustID GROUP BY p.FItemID ORDER BY p.FNumber"},
    };
    for (const Run& run : runs) {
        if (run.number == number) return run;
    }
    std::abort();
}

void WholeRun(benchmark::State& state) {
    const Run& run = RunOf(static_cast<std::int32_t>(state.range(0)));
    std::int64_t count = 0;
    for (auto _ : state) {
        MemorySchemeStore schemes;
        std::ostringstream messages;
        viewer::RunHost host(Tier(), schemes, messages);
        const Ref<Object> report = host.Run({.number = run.number, .values = run.values});
        const Ref<RecordSet> rows = As<RecordSet>(report->Get("Rs"));
        const std::size_t fields = rows->FieldCount();
        count = 0;
        for (; !rows->Eof(); rows->Move(1), ++count) {
            for (std::size_t field = 0; field < fields; ++field) {
                benchmark::DoNotOptimize(rows->FieldAt(field));
            }
        }
    }
    state.counters["rows"] = static_cast<double>(count);
}

void BareStatement(benchmark::State& state) {
    const Run& run = RunOf(static_cast<std::int32_t>(state.range(0)));
    std::int64_t count = 0;
    for (auto _ : state) {
        Statement found(Tier().accountSet().database(), run.statement);
        const int fields = sqlite3_column_count(found.handle());
        for (count = 0; found.Step(); ++count) {
            for (int field = 0; field < fields; ++field) {
                if (sqlite3_column_type(found.handle(), field) == SQLITE_TEXT) {
                    benchmark::DoNotOptimize(found.Text(field).size());
                } else {
                    benchmark::DoNotOptimize(found.Int(field));
                }
            }
        }
    }
    state.counters["rows"] = static_cast<double>(count);
}

void LargeReports(benchmark::internal::Benchmark* bench) {
    for (const std::int64_t number : {10522, 10521, 10501, 10525, 10506, 10528, 10530}) {
        bench->Arg(number);
    }
    bench->Unit(benchmark::kMillisecond);
}

BENCHMARK(BareStatement)->Apply(LargeReports);
BENCHMARK(WholeRun)->Apply(LargeReports);

}  // namespace
}  // namespace qor::bench
