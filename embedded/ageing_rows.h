// The ageing analysis: what is open per customer or supplier on the cut-off day, by the age of the bills.
#pragma once

#include "embedded/account_set.h"
#include "platform/dictionary.h"
#include "platform/record_set.h"

namespace qor {

/// One row for each party of the class and range that has something open, by code: FAmount is all of it, and
/// each group of `Vect` has what is as old as its label says, the bill's own day being day 1. Audited bills
/// and settlements up to EDate count; later ones change nothing.
Ref<RecordSet> Ageing(AccountSet& set, const Dictionary& filter);

}  // namespace qor
