// The two sides of the business with others, customers and suppliers, and what a kind of bill does on each.
#pragma once

#include "embedded/bill_kinds.h"

namespace qor {

enum class PartySide : std::uint8_t { Customer, Supplier };

/// Factors of a bill's amount on one side: what it raises, settles and takes in advance. `target` is what it
/// raises on the party of FToPartyID. Balance of a party = raised - settled - advance.
struct SideSigns {
    std::int8_t raised, settled, advance, target;

    constexpr bool Any() const { return raised != 0 || settled != 0 || advance != 0; }
};

constexpr SideSigns SignsOf(BillKind kind, PartySide side) {
    const BillKindRow& row = RowOf(kind);
    if (side == PartySide::Customer) {
        return {row.receivable, row.received, row.advanceIn, row.received != 0 ? row.target : std::int8_t{0}};
    }
    return {row.payable, row.paid, row.advanceOut, row.paid != 0 ? row.target : std::int8_t{0}};
}

/// Whether a bill is what the filters call other receivables and payables.
constexpr bool IsOtherClaim(BillKind kind) {
    return kind == BillKind::OtherReceivable || kind == BillKind::OtherPayable;
}

/// The class of base data that a side's parties are.
constexpr std::int32_t PartyClassOf(PartySide side) {
    return side == PartySide::Customer ? item_class::kCustomer : item_class::kSupplier;
}

}  // namespace qor
