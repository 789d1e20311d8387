#include "embedded/category_side.h"

#include "embedded/narrow_bills.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// A narrow range is looked up by party, a wide one is left to the index of kinds and days: by party it would
/// read bills of all kinds.
void AddParties(Conditions& conditions, AccountSet& set, const CategorySide& side,
                const ReportFilter& filter) {
    const std::string first = filter.Code(side.firstPartyKey), last = filter.Code(side.lastPartyKey);
    if (first.empty() && last.empty()) return;
    Conditions range;
    AddCodeRange(range, "i.FItemID", side.parties, first, last);
    Statement count(set.database(), "SELECT count(*) FROM t_Item i WHERE " + range.Text());
    range.BindTo(count);
    const bool few =
        count.Step() && AreFewParties(set, side.partySide, static_cast<std::size_t>(count.Int(0)));
    AddCodeRange(conditions, few ? side.partyColumn : side.everyPartyColumn, side.parties, first, last);
}

}  // namespace

Conditions CategoryBills(AccountSet& set, const CategorySide& side, const Dictionary& dictionary) {
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
    AddParties(conditions, set, side, filter);
    AddPeople(conditions, filter);
    return conditions;
}

VisibleParties VisibleOf(AccountSet& set, const Dictionary& filter) {
    return {set, "t1", ToText(filter.Get("DataRightWhere"))};
}

}  // namespace qor
