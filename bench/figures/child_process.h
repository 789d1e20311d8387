// A program run to its end, and what it cost: each figure is taken in a process of its own, so that its peak
// memory is its own.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qor::bench {

struct ChildCost {
    double seconds = 0;  // of the processor, in user and system mode
    std::int64_t peakKiB = 0;
    std::string output;  // standard output
};

/// Throws where the program cannot be run or fails. Its standard error is the caller's.
ChildCost RunChild(const std::vector<std::string>& command);

/// Seconds of the processor that this process has used.
double ProcessorSeconds();
/// The most memory that this process has had since it began; what its parent had does not count.
std::int64_t PeakKiB();

}  // namespace qor::bench
