#include "embedded/narrow_bills.h"

#include <algorithm>
#include <string>

namespace qor {

namespace {

/// As a list that a statement takes as one value: "[1,2,3]".
std::string ListOf(const std::vector<std::int64_t>& items) {
    std::string list = "[";
    for (const std::int64_t item : items) {
        list.append(list.size() > 1 ? "," : "").append(std::to_string(item));
    }
    return list + "]";
}

constexpr SqlText kInList = " IN (SELECT value FROM json_each(?))";

}  // namespace

bool AreFewParties(AccountSet& set, PartySide side, std::size_t count) {
    Statement all(set.database(), "SELECT count(*) FROM t_Item WHERE FItemClassID=?");
    return all.With(PartyClassOf(side)).Step() &&
           static_cast<std::int64_t>(count) * kNarrowShare <= all.Int(0);
}

bool IsShortPeriod(AccountSet& set, std::optional<std::int64_t> first, std::optional<std::int64_t> last) {
    if (!first) return false;
    Statement books(set.database(), "SELECT min(FStartDate), max(FEndDate) FROM t_PeriodDate");
    if (!books.Step()) return false;
    const std::int64_t end = std::min(last.value_or(books.Int(1)), books.Int(1));
    return (end - *first) * kNarrowShare < books.Int(1) - books.Int(0);
}

void AddItems(Conditions& conditions, SqlText column, const std::vector<std::int64_t>& items) {
    conditions.Add({column, kInList}, {ListOf(items)});
}

void AddBillsOf(Conditions& conditions, PartySide side, const std::vector<std::int64_t>& parties) {
    const SqlText party = side == PartySide::Customer ? SqlText("b.FCustID") : SqlText("b.FSupplyID");
    const std::string list = ListOf(parties);
    conditions.Add({"(", party, kInList, " OR b.FToPartyID", kInList, ")"}, {list, list});
}

}  // namespace qor
