// The accounts of parties that are customer and supplier at once, before they are written into rows.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "embedded/party_ledger.h"
#include "embedded/rows_by_account.h"

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
    std::size_t texts;  // number, voucher and explanation, among those of all accounts
};

struct MatchedAccount {
    std::int64_t customer;  // the first one by code, where several are linked to the supplier
    std::int64_t supplier;
    MatchedSums opening{}, period{};
    std::span<MatchedBill> bills{};  // of the period, by day, within a day as they were entered
};

/// The accounts that the filter leaves in, by the customer's code.
class MatchedAccounts {
 public:
    MatchedAccounts(AccountSet& set, const Dictionary& filter);
    MatchedAccounts(const MatchedAccounts&) = delete;
    MatchedAccounts& operator=(const MatchedAccounts&) = delete;

    const std::vector<MatchedAccount>& shown() const { return shown_; }
    RowTexts::Reader TextsOf(const MatchedBill& bill) const { return texts_.From(bill.texts); }

 private:
    std::vector<MatchedAccount> shown_;
    RowTexts texts_;
    RowsByAccount<MatchedBill> bills_{0};
};

}  // namespace qor
