// Goods given out on consignment and what was settled of them: how much of a settlement's amount the
// consignment had raised already, on the day on which the goods went out.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "embedded/account_set.h"
#include "embedded/report_conditions.h"

namespace qor {

class SettledConsignments {
 public:
    /// `bills`: which settlements count, of t_Bill b. `consignments`: which consignments do, of t_Bill r.
    SettledConsignments(AccountSet& set, const Conditions& bills, const Conditions& consignments);

    /// Cents: what the goods that the bill settles were worth when they went out, whatever their price is by
    /// now; goods beyond those that are out are worth nothing. 0 for any other bill.
    std::int64_t RaisedAlready(std::int64_t bill) const {
        const auto found = raised_.find(bill);
        return found == raised_.end() ? 0 : found->second;
    }

 private:
    std::unordered_map<std::int64_t, std::int64_t> raised_;
};

}  // namespace qor
