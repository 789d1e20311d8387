// What a bill of each kind must have and may not have, for the check of imported bills.
#pragma once

#include <cstdint>

#include "embedded/bill_kinds.h"
#include "embedded/party_side.h"

namespace qor {

enum class LineSort { None, Income, Expense, Goods };

struct KindRules {
    BillKind kind;
    LineSort lines;
    BillKind related{};          // the kind of bill that it may go back to; none for 0
    bool needsRelated = false;   // and must
    bool negative = false;       // takes back: its amounts carry a minus
    bool partyOptional = false;  // without one everything is paid at once
};

inline constexpr KindRules kKindRules[] = {
    {.kind = BillKind::Sale, .lines = LineSort::Goods},
    {.kind = BillKind::SaleReturn, .lines = LineSort::Goods, .related = BillKind::Sale, .negative = true},
    {.kind = BillKind::Purchase, .lines = LineSort::Goods},
    {.kind = BillKind::PurchaseReturn,
     .lines = LineSort::Goods,
     .related = BillKind::Purchase,
     .negative = true},
    {.kind = BillKind::OtherReceivable, .lines = LineSort::Income},
    {.kind = BillKind::OtherPayable, .lines = LineSort::Expense},
    {.kind = BillKind::OtherIncome, .lines = LineSort::Income, .partyOptional = true},
    {.kind = BillKind::Expense, .lines = LineSort::Expense, .partyOptional = true},
    {.kind = BillKind::Consignment, .lines = LineSort::Goods},
    {.kind = BillKind::ConsignmentSale,
     .lines = LineSort::Goods,
     .related = BillKind::Consignment,
     .needsRelated = true},
    {.kind = BillKind::Estimate, .lines = LineSort::Goods},
    {.kind = BillKind::EstimateReversal,
     .lines = LineSort::Goods,
     .related = BillKind::Estimate,
     .needsRelated = true,
     .negative = true},
};

/// The kinds that stand in no row carry money or write-offs only.
constexpr KindRules RulesOf(BillKind kind) {
    for (const KindRules& rules : kKindRules) {
        if (rules.kind == kind) return rules;
    }
    return {.kind = kind, .lines = LineSort::None};
}

constexpr bool HasCustomer(BillKind kind) {
    const BillKindRow& row = RowOf(kind);
    return row.receivable != 0 || row.received != 0 || row.advanceIn != 0 || kind == BillKind::Consignment;
}

constexpr bool HasSupplier(BillKind kind) {
    const BillKindRow& row = RowOf(kind);
    const bool estimate = kind == BillKind::Estimate || kind == BillKind::EstimateReversal;
    return row.payable != 0 || row.paid != 0 || row.advanceOut != 0 || estimate;
}

/// Raises what a party owes or is owed; a part may be paid at once where the kind has a way to the cash, or
/// is another receivable or payable.
constexpr bool RaisesClaim(BillKind kind) { return RowOf(kind).receivable != 0 || RowOf(kind).payable != 0; }
constexpr bool MayBePaidAtOnce(BillKind kind) {
    return RaisesClaim(kind) && (RowOf(kind).cash != 0 || IsOtherClaim(kind));
}

/// Settles other bills: a receipt, a payment or a write-off.
constexpr bool Settles(BillKind kind) { return RowOf(kind).received != 0 || RowOf(kind).paid != 0; }
/// Settles with money of its own, and may let a discount go.
constexpr bool SettlesWithMoney(BillKind kind) {
    return kind == BillKind::Receipt || kind == BillKind::Payment;
}
constexpr bool IsAdvance(BillKind kind) {
    return kind == BillKind::AdvanceReceipt || kind == BillKind::AdvancePayment;
}

/// What a bill leaves to be settled, or an advance to be used: minus for what the firm owes back.
constexpr std::int64_t OpenAtFirst(BillKind kind, std::int64_t amount, std::int64_t settled) {
    const BillKindRow& row = RowOf(kind);
    if (RaisesClaim(kind)) return (row.receivable + row.payable) * (amount - settled);
    return row.target != 0 || IsAdvance(kind) ? amount : 0;
}

/// The word of a state in the files.
constexpr std::string_view kStateWords[] = {"audited", "not audited", "void"};

}  // namespace qor
