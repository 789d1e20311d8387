// What is still open of each bill on a day. A bill that raises a receivable or payable is open by what nobody
// has settled yet; a receipt, a payment or an advance by what it has not settled yet, as a negative amount.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/party_side.h"

namespace qor {

struct OpenQuery {
    PartySide side = PartySide::Customer;
    std::optional<std::int64_t> day{};         // what is dated later does not count; open: everything counts
    std::optional<std::int32_t> checkState{};  // of bills and settling bills alike, as AddCheckState has it
    // What is asked for. Where that is little it alone is read; otherwise all bills come.
    std::optional<std::vector<std::int64_t>> parties{};
    std::optional<std::int64_t> firstDay{};
};

/// One bill in the account of one party, in cents. A transfer from party to party has two: in the account of
/// the one it is taken from, and, behind it, in that of the one it is put on.
struct OpenAmount {
    std::int64_t bill;
    BillKind kind;
    std::int64_t party;
    std::int64_t day;
    std::int64_t amount;  // of the bill: raised, or with a minus received, paid and advanced
    std::int64_t atOnce;  // the part of it that was paid at once
    std::int64_t open;    // the part that is left
};

/// The bills that count on the side, by id, those with nothing left too. A settlement counts when it, its
/// bill and both bills that it brings together count and stand in one party's account: so the open amounts
/// of a party are always its balance, raised - settled - advance. Linear in the bills and settlements that
/// are read.
std::vector<OpenAmount> OpenAmounts(AccountSet& set, const OpenQuery& query);

}  // namespace qor
