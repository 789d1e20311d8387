// The statement of account worked out slowly: loops over all bills for each party, with what each kind of
// bill does written out.
#pragma once

#include <string>
#include <vector>

#include "embedded/plain_book.h"
#include "platform/dictionary.h"

namespace qor::test {

/// What the slow computation is asked for; "" and the widest days are open.
struct StatementAsked {
    PartySide side = PartySide::Customer;
    std::int64_t firstDay = 0, lastDay = 1 << 20;
    std::string first, last;
    std::string firstDepartment, lastDepartment, firstEmployee, lastEmployee;
    int checkState = 0;
    bool withGoods = false, withWriteOffs = true, withEstimates = false;
    bool hidesZeroBalance = false, hidesZeroBills = false, hidesZero = false;
    std::string user;
};

/// The filter that asks a report for the same.
Ref<OrderedDictionary> StatementFilter(const StatementAsked& asked);

/// The rows of the report, each with its cells joined by "|" as RowsOf does it.
std::vector<std::string> SlowStatement(const PlainBook& book, const StatementAsked& asked);

}  // namespace qor::test
