// The balance of parties that are customer and supplier at once, both sides side by side.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// For each supplier that customers are linked to, in the order of the customers' codes: a row with both
/// opening balances at BDate, the bills of either side until EDate with both balances after each, and a total
/// (FSumSort above 0). With ChkShowDetail a bill with goods has a row for each line, with the line's amount;
/// the last one carries the rest of the bill.
Ref<RecordSet> MatchingBalance(AccountSet& set, const Dictionary& filter);

}  // namespace qor
