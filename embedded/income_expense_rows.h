// Income and expenses bill by bill, under their classes: the rows of two reports that are one but for the
// side of the business.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// The lines of the income bills that the filter selects, by code of the class, then by date and number of
/// the bill. A line's FSettleAmount was received at once on the settlement account, its FReceiveAmount went
/// onto the customer's account; both together are FAmount.
Ref<RecordSet> IncomeDetail(AccountSet& set, const Dictionary& filter);

/// The same of the expense bills: paid at once, and owed to the supplier.
Ref<RecordSet> ExpenseDetail(AccountSet& set, const Dictionary& filter);

}  // namespace qor
