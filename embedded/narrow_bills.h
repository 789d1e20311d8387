// Filters so narrow that their bills are looked up through an index. Wider ones read all bills as they lie,
// which is faster a bill by about the factor that stands here.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/party_side.h"
#include "embedded/report_conditions.h"

namespace qor {

/// What a filter takes is narrow where it is no more than one in so many.
inline constexpr std::int64_t kNarrowShare = 8;

/// Of all customers or suppliers, categories included.
bool AreFewParties(AccountSet& set, PartySide side, std::size_t count);
/// Of all days of the books. An end that is open is that of the books.
bool IsShortPeriod(AccountSet& set, std::optional<std::int64_t> first, std::optional<std::int64_t> last);

/// The item of `column` is one of these.
void AddItems(Conditions& conditions, SqlText column, const std::vector<std::int64_t>& items);
/// The bills b of these parties, and the transfers to them.
void AddBillsOf(Conditions& conditions, PartySide side, const std::vector<std::int64_t>& parties);

/// The bills b of all kinds that hold the test.
template <class Test>
void AddKinds(Conditions& conditions, Test test) {
    std::vector<std::int64_t> kinds;
    for (const BillKindRow& row : kBillKinds) {
        if (test(row.kind)) kinds.push_back(static_cast<std::int64_t>(row.kind));
    }
    AddItems(conditions, "b.FBillType", kinds);
}

}  // namespace qor
