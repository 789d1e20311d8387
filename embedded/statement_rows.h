// The statement of account: what a customer or supplier owes, bill by bill, under a running balance.
#pragma once

#include "embedded/account_set.h"
#include "embedded/party_side.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

struct StatementAnswer {
    Ref<RecordSet> rows;
    // Only where the filter asks for paged printing: a row for each party's statement in both.
    Ref<RecordSet> rowBreaks;  // where in `rows` it begins, and how many rows it has
    Ref<RecordSet> pages;      // whose it is, and its sums
};

/// The parties by code, each with a row of its opening balance and then its bills by day; with `ShowDetail` a
/// bill with goods has a row for each line, the last of which carries what was paid at once.
StatementAnswer StatementOfAccount(AccountSet& set, PartySide side, const Dictionary& filter);

}  // namespace qor
