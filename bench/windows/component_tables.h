// The tables of the component's bench, as docs/performance.md has them.
#pragma once

namespace qor::bench {

/// Single calls of a report that has run, beside the same calls of an empty object.
void PrintCalls();
/// Whole runs of a report, beside the same run in the portable library.
void PrintRuns();

}  // namespace qor::bench
