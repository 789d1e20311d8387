// Income and expenses summed by class: the rows of two reports that are one but for the side of the business.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// The lines of IncomeDetail, with chkIncludeOther those of other receivables too, summed at the class level
/// ELevel, by customer where chkGrouyByCust says so. FTypeName and a level from BLevel to ELevel hold the
/// names. FTypeNumber and FCustNumber, always whole codes, are the bounds with which the detail report has
/// the same lines; a class that the range of codes cuts comes by its parts in the range. Rows of FSumSort
/// above 0 are totals: 1 of a class, 2 of a customer, 3 of all. Raises an error for more than a hundred
/// levels.
Ref<RecordSet> IncomeSummary(AccountSet& set, const Dictionary& filter);

/// The same of the expense bills by supplier, with chkGrouyBySupply and FSupplyNumber.
Ref<RecordSet> ExpenseSummary(AccountSet& set, const Dictionary& filter);

}  // namespace qor
