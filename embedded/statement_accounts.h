// The accounts of a statement: each party's opening balance and the bills of the period, before they are
// written into rows.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "embedded/party_ledger.h"
#include "embedded/rows_by_account.h"

namespace qor {

/// Cents; balance = balance before + raised - real - discount.
struct StatementSums {
    std::int64_t raised = 0;    // became due
    std::int64_t real = 0;      // was paid, at once or later or in advance
    std::int64_t discount = 0;  // was let go

    std::int64_t Balance() const { return raised - real - discount; }
    bool AreZero() const { return raised == 0 && real == 0 && discount == 0; }
    StatementSums& operator+=(const StatementSums& other);
};

struct StatementBill {
    std::int64_t day, bill;
    BillKind kind;
    StatementSums sums;
    std::int64_t department, employee;
    std::size_t texts;  // number, voucher, explanation and invoice, among those of all accounts
};

struct StatementAccount {
    std::int64_t party;
    std::int64_t begin = 0;  // balance ahead of the period
    StatementSums period{};
    std::span<const StatementBill> bills{};  // of the period, by day, within a day as they were entered

    std::int64_t End() const { return begin + period.Balance(); }
};

/// The accounts that the filter leaves in, by the party's code.
class StatementAccounts {
 public:
    StatementAccounts(AccountSet& set, PartySide side, const Dictionary& filter);
    StatementAccounts(const StatementAccounts&) = delete;
    StatementAccounts& operator=(const StatementAccounts&) = delete;

    const std::vector<StatementAccount>& shown() const { return shown_; }
    RowTexts::Reader TextsOf(const StatementBill& bill) const { return texts_.From(bill.texts); }

 private:
    std::vector<StatementAccount> shown_;
    RowTexts texts_;
    RowsByAccount<StatementBill> bills_{0};
};

}  // namespace qor
