// The bills of the sample firm, day by day: what is sold and bought is paid later, in part or never; a few
// bills are void, the last weeks are not all audited yet.
#pragma once

#include <cstdint>
#include <functional>

#include "embedded/sample_firm.h"

namespace qor {

struct SampleSpan {
    std::int64_t firstDay;  // days since 1899-12-30
    std::int64_t lastDay;
    std::int64_t bills;
};

/// Writes exactly that many bills; calls `progress` with the share made, from 0 to 1.
void MakeSampleBills(Database& database, Dice& dice, SampleFirm& firm, const SampleSpan& span,
                     const std::function<void(double)>& progress);

}  // namespace qor
