// An account set in plain lists, as its tables hold it: what the slow computations of the tests loop over.
// Money in cents, days as numbers, 0 and "" for what is not there.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/bill_kinds.h"
#include "embedded/party_side.h"

namespace qor::test {

struct BookItem {
    std::int32_t itemClass = 0;
    std::string number, name;
    bool current = false;    // no category, not disabled
    std::string rightUsers;  // of a party
    std::int64_t begin = 0;  // of an account
    std::string model;       // of goods
    std::int64_t unit = 0;
    std::int64_t match = 0, creditLimit = 0, creditDays = 0;  // of a party
};

struct BookBill {
    std::int64_t id = 0;
    BillKind kind{};
    std::string number;
    std::int64_t day = 0, state = 0;
    std::int64_t customer = 0, supplier = 0, toParty = 0, department = 0, employee = 0;
    std::int64_t account = 0, toAccount = 0;
    std::int64_t amount = 0, settled = 0, discount = 0;
    std::int64_t biller = 0;
    std::string invoice, voucher, explanation;
    std::int64_t related = 0, dueDay = 0;

    std::int64_t Party(PartySide side) const { return side == PartySide::Customer ? customer : supplier; }
};

struct BookSettlement {
    std::int64_t bill, source, target, day, amount, discount;
};

struct BookGoods {
    std::int64_t bill, index, item, quantity, price, amount, showUnit, showRate;
    std::string aux, batch;
};

struct PlainBook {
    explicit PlainBook(AccountSet& set);

    const BookItem& Item(std::int64_t id) const;
    const BookBill* Bill(std::int64_t id) const;  // nothing where there is none
    /// The item lies in a range of codes; "" is open.
    bool Lies(std::int64_t item, const std::string& first, const std::string& last) const;
    bool Sees(const std::string& user, std::int64_t party) const;  // every user sees what has no party
    /// The bill counts: not void, in the check state (2 for both), dated up to the day.
    static bool Counts(const BookBill& bill, int checkState, std::int64_t lastDay);

    /// What is open of each bill in each party's account: slow, bill by bill and settlement by settlement.
    std::map<std::pair<std::int64_t, std::int64_t>, std::int64_t> Open(PartySide side, int checkState,
                                                                       std::int64_t lastDay) const;
    /// Raised - settled - advance of each party, of all bills up to the day.
    std::map<std::int64_t, std::int64_t> Balances(PartySide side, int checkState, std::int64_t lastDay) const;

    std::map<std::int64_t, BookItem> items;
    std::vector<BookBill> bills;  // by id
    std::vector<BookSettlement> settlements;
    std::vector<BookGoods> goods;  // by bill and line
    std::map<std::int64_t, std::string> users;
    std::map<std::pair<std::int64_t, std::int64_t>, std::string> headFields;  // by bill and index
};

}  // namespace qor::test
