#include "embedded/category_side.h"

#include "platform/conversions.h"

namespace qor {

Conditions CategoryBills(const CategorySide& side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    Conditions conditions;
    if (filter.Flag("chkIncludeOther")) {
        conditions.Add({"b.FBillType IN (?,?)"},
                       {static_cast<std::int64_t>(side.kind), static_cast<std::int64_t>(side.otherKind)});
    } else {
        conditions.Add({"b.FBillType=?"}, {static_cast<std::int64_t>(side.kind)});
    }
    AddDayRange(conditions, "b.FDate", filter.Day("DtpBDate"), filter.Day("DtpEDate"));
    AddCheckState(conditions, "b.FState", filter.Number("CheckState"));
    AddCodeRange(conditions, side.partyColumn, side.parties, filter.Code(side.firstPartyKey),
                 filter.Code(side.lastPartyKey));
    AddPeople(conditions, filter);
    return conditions;
}

VisibleParties VisibleOf(AccountSet& set, const Dictionary& filter) {
    return {set, "t1", ToText(filter.Get("DataRightWhere"))};
}

}  // namespace qor
