// Credit warnings: the open bills of customers or suppliers that are overdue, fall due soon, or belong to a
// party that is above its credit limit.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// As of today, by code of the customer, then by due date. A bill that is overdue has its days in FOverDate,
/// one that falls due within a week in FSoonDate; FRate is what the balance is above the limit, in percent.
Ref<RecordSet> CustomerCreditWarnings(AccountSet& set, const Dictionary& filter);

/// The same of what is owed to suppliers.
Ref<RecordSet> SupplierCreditWarnings(AccountSet& set, const Dictionary& filter);

}  // namespace qor
