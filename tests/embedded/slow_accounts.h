// Receivables and payables worked out from an account set in plain lists: bill by bill, party by party, with
// no statement and no shortcut. The rows are texts as RowsOf makes them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "embedded/plain_book.h"

namespace qor::test {

/// What the slow computation is asked for; "" and the widest days are open.
struct AccountsAsked {
    PartySide side = PartySide::Customer;
    std::int64_t firstDay = 0, lastDay = 1 << 20;
    std::string firstParty, lastParty, firstDepartment, lastDepartment, firstEmployee, lastEmployee;
    int checkState = 2;
    bool others = true, rebates = true, consignments = false, estimates = false, writeOffs = true;
    bool hidesNoBalance = false, hidesNoMovement = false, hidesNeither = false;
    std::string user;
    int firstLevel = 0, lastLevel = 0;  // 0 for no levels
    std::string groupBy;                // "Dept", "Emp", or "" for the party
    bool onlyTotals = false, withAdvances = false;
    int headField = 0;  // 0 for none
    std::string headText;
    bool headSomewhere = false;
};

/// What one bill does in the account of one party.
struct AccountEntry {
    std::int64_t party;
    const BookBill* bill;
    std::int64_t raised, settled, advance;
};

std::vector<AccountEntry> Entries(const PlainBook& book, const AccountsAsked& asked);

/// The parties that the codes and the rights leave, by code.
std::vector<std::int64_t> PartiesOf(const PlainBook& book, const AccountsAsked& asked);

std::vector<std::string> SlowSummary(const PlainBook& book, const AccountsAsked& asked);
std::vector<std::string> SlowDetail(const PlainBook& book, const AccountsAsked& asked);

}  // namespace qor::test
