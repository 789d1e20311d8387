// The accounts of a statement: each party's opening balance and the bills of the period, before they are
// written into rows.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "embedded/item_texts.h"
#include "embedded/party_ledger.h"

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
    Value number, voucher, explanation, invoice;
};

struct StatementAccount {
    std::int64_t party;
    std::int64_t begin = 0;  // balance ahead of the period
    StatementSums period{};
    std::vector<StatementBill> bills{};  // of the period, by day, within a day as they were entered

    std::int64_t End() const { return begin + period.Balance(); }
};

/// The accounts that the filter leaves in, by the party's code.
std::vector<StatementAccount> ReadStatementAccounts(AccountSet& set, PartySide side,
                                                    const Dictionary& filter);

}  // namespace qor
