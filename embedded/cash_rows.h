// Cash and bank: what came into and went out of each account, movement by movement and in sum.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// The accounts by code, each with a row of its opening balance and then its movements by day and bill, under
/// a running balance. What came in stands in FInAmount, what went out in FOutAmount, both without a sign.
Ref<RecordSet> CashJournal(AccountSet& set, const Dictionary& filter);

/// One row for each account, the sums of its journal, and a total under them with FSumSort 1.
Ref<RecordSet> CashLedger(AccountSet& set, const Dictionary& filter);

}  // namespace qor
