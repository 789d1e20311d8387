// Receivables and payables per party: the rows of four summaries that are one but for the side of the
// business and for the columns of advances.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// One row a customer: opening balance at BDate, what was raised and what was received until EDate, closing
/// balance. With MultiLevel the rows are parted by the categories of the item that GroupBy names, from level
/// MultiLevelBegin to MultiLevelEnd, each with a total behind what it covers (FSumSort above 0).
Ref<RecordSet> ReceivableSummary(AccountSet& set, const Dictionary& filter);

/// The same of suppliers.
Ref<RecordSet> PayableSummary(AccountSet& set, const Dictionary& filter);

/// The same with advances in columns of their own: an advance is what the party has paid ahead, and lowers
/// the balance.
Ref<RecordSet> ReceivableAdvanceSummary(AccountSet& set, const Dictionary& filter);
Ref<RecordSet> PayableAdvanceSummary(AccountSet& set, const Dictionary& filter);

}  // namespace qor
