// Receipt and payment lists: each bill of the customers or suppliers with what is settled of it and what is
// still open.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// The bills of customers from BDate to EDate, as they stand on EDate: the amount that they raise
/// (FAllAmount, negative for returns, advances and rebates), the part of it that is settled (FCheckAmount)
/// and the rest (FUnCheckAmount). The kinds by the chkInclude keys; the order by cboSortBy and OptSortAsc,
/// OptSortDesc.
Ref<RecordSet> ReceiptList(AccountSet& set, const Dictionary& filter);

/// The same of suppliers.
Ref<RecordSet> PaymentList(AccountSet& set, const Dictionary& filter);

}  // namespace qor
