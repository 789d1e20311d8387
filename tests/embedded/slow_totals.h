// The income and expense summaries worked out from the slow books: from the codes of the classes, not from
// their tree, with each total added up by itself.
#pragma once

#include "embedded/slow_books.h"

namespace qor::test {

/// What a summary is asked for.
struct AskedTotals {
    int firstLevel = 1, lastLevel = 1;
    bool byParty = false, withOther = false, withIdle = false;
    PlainFilter plain{};
};

/// The rows of the summary of `kind`, each with its cells joined by "|"; with the lines of `otherKind` on
/// request.
std::vector<std::string> SlowTotals(const SlowBooks& books, BillKind kind, BillKind otherKind,
                                    const AskedTotals& asked);

}  // namespace qor::test
