// The cash and bank accounts that a filter takes, with their movements: the book behind journal and ledger.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/bill_kinds.h"
#include "embedded/report_conditions.h"
#include "embedded/right_clause.h"

namespace qor {

struct CashAccount {
    Value number, name;
    std::int64_t begin;            // balance ahead of the period's first day
    std::int64_t in = 0, out = 0;  // of the period, both without a sign
    bool moved = false;            // in the period

    std::int64_t End() const { return begin + in - out; }
};

class CashBook {
 public:
    struct Movement {
        std::size_t account = 0;  // its place among the accounts
        std::int64_t day = 0;
        std::int64_t flow = 0;  // cents: positive into the account
        BillKind kind{};
    };

    /// The accounts of the range BAcctNumber to EAcctNumber whose name contains AcctName.
    CashBook(AccountSet& set, const Dictionary& filter);

    /// Reads the bills once: what moved ahead of BDate goes into the opening balances, what moved up to EDate
    /// into the sums and to `take(movement, bill)`, in no order. `columns` are of t_Bill b, and stand in
    /// `bill` from kFirstColumn on.
    template <class Take>
    void Read(SqlText columns, const Take& take) {
        if (accounts_.empty()) return;
        Statement bill = Bills(columns);
        while (bill.Step()) {
            if (!IsBillKind(bill.Int(2))) continue;
            const auto kind = static_cast<BillKind>(bill.Int(2));
            const std::int64_t flow = FlowOf(kind, bill.Int(4), bill.Int(5));
            if (flow == 0 || !visible_.Has(bill.Int(6))) continue;
            Move(bill.Int(0), {.day = bill.Int(3), .flow = flow, .kind = kind}, bill, take);
            Move(bill.Int(1), {.day = bill.Int(3), .flow = -flow, .kind = kind}, bill, take);
        }
    }
    static constexpr int kFirstColumn = 7;

    std::optional<std::int64_t> firstDay() const { return firstDay_; }
    /// Whether the filter leaves the account in.
    bool Shows(const CashAccount& account) const {
        return !(hidesZeroBalance_ && account.End() == 0) && !(hidesUnmoved_ && !account.moved);
    }
    const std::vector<CashAccount>& accounts() const { return accounts_; }  // by code

 private:
    Statement Bills(SqlText columns);
    /// What a bill brings into its account. Of a claim only the part that was settled at once is money.
    std::int64_t FlowOf(BillKind kind, std::int64_t amount, std::int64_t settledAtOnce) const;

    template <class Take>
    void Move(std::int64_t id, Movement movement, const Statement& bill, const Take& take) {
        if (!Book(id, movement)) return;
        take(movement, bill);
    }
    /// Books the movement on the account; false where it is not asked for or lies ahead of the period.
    bool Book(std::int64_t id, Movement& movement);

    Database& database_;
    Conditions conditions_;
    VisibleParties visible_;
    std::optional<std::int64_t> firstDay_;
    bool hidesZeroBalance_, hidesUnmoved_, withOtherClaims_;
    std::unordered_map<std::int64_t, std::size_t> places_;
    std::vector<CashAccount> accounts_;
};

}  // namespace qor
