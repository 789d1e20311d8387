// The accounts of parties that are customer and supplier at once, before they are written into rows.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "embedded/item_texts.h"
#include "embedded/party_ledger.h"

namespace qor {

/// What a bill did on both sides, or a party's bills together: of customers first, of suppliers second.
struct MatchedSums {
    std::array<LedgerSums, 2> sides{};

    LedgerSums& operator[](PartySide side) { return sides[static_cast<std::size_t>(side)]; }
    const LedgerSums& operator[](PartySide side) const { return sides[static_cast<std::size_t>(side)]; }
    MatchedSums& operator+=(const MatchedSums& other) {
        sides[0] += other.sides[0];
        sides[1] += other.sides[1];
        return *this;
    }
    bool AreZero() const { return sides[0].AreZero() && sides[1].AreZero(); }
    bool AreSettled() const { return sides[0].Balance() == 0 && sides[1].Balance() == 0; }
};

struct MatchedBill {
    std::int64_t day, bill;
    BillKind kind;
    MatchedSums sums;
    std::int64_t department, employee;
    Value number, voucher, explanation;
};

struct MatchedAccount {
    std::int64_t customer;  // the first one by code, where several are linked to the supplier
    std::int64_t supplier;
    MatchedSums opening{}, period{};
    std::vector<MatchedBill> bills{};  // of the period, by day, within a day as they were entered
};

/// The accounts that the filter leaves in, by the customer's code.
std::vector<MatchedAccount> ReadMatchedAccounts(AccountSet& set, const Dictionary& filter);

}  // namespace qor
