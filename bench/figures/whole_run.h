// One report as a host runs it: created by name, its dialog confirmed, fetched, and every field of every row
// read late bound.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "viewer/run_host.h"

namespace qor::bench {

struct RunCost {
    std::int64_t rows = 0;
    double first = 0;  // seconds of the processor until the first row is read
    double last = 0;   // ... and until the last one is
    std::int64_t peakKiB = 0;
};

/// A run of the whole span of the firm's books, with these values besides.
RunCost MeasureRun(std::int32_t number, const std::filesystem::path& accountSet, std::int32_t user,
                   const std::vector<viewer::FilterValue>& values);

/// A statement stepped through with every column read.
RunCost MeasureStatement(const std::string& sql, const std::filesystem::path& accountSet);

}  // namespace qor::bench
