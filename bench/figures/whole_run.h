// One report as a host runs it: created by name, its dialog confirmed, fetched, and every field of every row
// read late bound.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace qor::bench {

struct RunCost {
    std::int64_t rows = 0;
    double first = 0;  // seconds of the processor until the first row is read
    double last = 0;   // ... and until the last one is
    std::int64_t peakKiB = 0;
};

/// The whole span of the firm's books, in the best of some runs.
RunCost MeasureRun(std::int32_t number, const std::filesystem::path& accountSet, std::int32_t user, int runs);

/// A bare statement for the rows of a report, stepped with every column read. `sql` is "" where this bench
/// knows none.
std::string BareStatementOf(std::int32_t number);
RunCost MeasureStatement(const std::string& sql, const std::filesystem::path& accountSet, int runs);

}  // namespace qor::bench
