// Receivables and payables bill by bill: the rows of two reports that are one but for the side of the
// business.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// For each customer, by code: a row with the opening balance at BDate, the bills until EDate in the order in
/// which they were entered on each day, with the balance after each, and a total (FSumSort above 0).
Ref<RecordSet> ReceivableDetail(AccountSet& set, const Dictionary& filter);

/// The same of suppliers.
Ref<RecordSet> PayableDetail(AccountSet& set, const Dictionary& filter);

}  // namespace qor
