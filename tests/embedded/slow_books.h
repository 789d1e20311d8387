// The books of an account set in plain lists, and the income and expense details worked out from them by
// loops: a second way to the same figures, with no conditions in statements and no shortcuts.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/bill_kinds.h"

namespace qor::test {

struct PlainItem {
    std::int32_t itemClass = 0;
    std::string number, name;
    bool disabled = false;
    std::string rightUsers;
};

struct PlainBill {
    std::int64_t id, kind;
    std::string number;
    std::int64_t day, state, customer, supplier, department, employee, account;
};

struct PlainLine {
    std::int64_t bill, index, itemClass, amount, settled;
    std::string note;
};

/// A range of codes; "" is open.
struct Codes {
    std::string first, last;
};

struct PlainFilter {
    std::int64_t firstDay = 0, lastDay = 1 << 30;
    Codes classes, parties, departments, employees;
    int checkState = 2;
    bool withDisabled = false;
    std::string rightUser;  // "" for all rights
};

struct SlowBooks {
    explicit SlowBooks(AccountSet& set);

    /// The lines of bills of `kind` that the filter takes; parties are those of the side of `sideOf`.
    std::vector<const PlainLine*> Lines(BillKind kind, BillKind sideOf, const PlainFilter& filter) const;
    const PlainBill* BillOf(const PlainLine& line) const { return &bills.at(places.at(line.bill)); }
    bool Lies(std::int64_t item, const Codes& range) const;

    /// The rows of the detail report, each with its cells joined by "|": amounts in cents, days as numbers.
    std::vector<std::string> Detail(BillKind kind, const PlainFilter& filter) const;

    std::map<std::int64_t, PlainItem> items;
    std::vector<PlainBill> bills;
    std::vector<PlainLine> lines;

 private:
    std::map<std::int64_t, std::size_t> places;  // of the bills, by id
    bool Sees(const std::string& user, std::int64_t party) const;
    const PlainItem& Item(std::int64_t id) const;
};

}  // namespace qor::test
