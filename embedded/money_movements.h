// What came in and what went out, bill by bill, over all settlement accounts or on one of them.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// The bills with which money moved, by date, then as they were entered: those of other income and
/// expenses always, all others as the Include keys say. A bank transfer is one row with both amounts.
Ref<RecordSet> MoneyMovements(AccountSet& set, const Dictionary& filter);

/// The same of the account AcctNumber and what stands below it, behind a row with the opening balance; each
/// row has the balance after it. Of a bank transfer an account sees its own half.
Ref<RecordSet> AccountMovements(AccountSet& set, const Dictionary& filter);

}  // namespace qor
