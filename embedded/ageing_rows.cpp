#include "embedded/ageing_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "embedded/money.h"
#include "embedded/open_amounts.h"
#include "embedded/place_by_id.h"
#include "embedded/report_conditions.h"
#include "embedded/right_clause.h"
#include "platform/conversions.h"
#include "platform/vector.h"

namespace qor {

namespace {

constexpr std::int64_t kEndless = std::numeric_limits<std::int64_t>::max();

/// A column of ages. Both limits are days behind the bill's own day, and included.
struct AgeGroup {
    std::string field;
    std::int64_t youngest;
    std::int64_t oldest;

    bool Holds(std::int64_t age) const { return age >= youngest && age <= oldest; }
};

/// The label's upper limit less 1, "MaxCol" for none. A group whose limit is no number holds nothing.
std::int64_t OldestOf(const Value& limit) {
    if (limit.IsText() && limit.text() == "MaxCol") return kEndless;
    return IsNumeric(limit) && !limit.IsEmpty() ? static_cast<std::int64_t>(std::floor(ToDouble(limit))) : -1;
}

std::vector<AgeGroup> GroupsOf(const Dictionary& filter) {
    std::vector<AgeGroup> groups;
    const Ref<Vector> list = As<Vector>(filter.Get("Vect"));
    for (std::int32_t i = 1; list && i <= list->Count(); ++i) {
        const Ref<Dictionary> group = As<Dictionary>(list->Item(i));
        if (!group) Raise(Automation::ObjectNotSet);
        const Value limit = group->Get("FValue"), first = group->Get("FFirstValue");
        groups.push_back(
            {.field = "F" + ToText(limit),
             .youngest = IsNumeric(first) ? static_cast<std::int64_t>(std::floor(ToDouble(first))) : 0,
             .oldest = OldestOf(limit)});
    }
    return groups;
}

std::int64_t LastDayOf(const std::vector<OpenAmount>& amounts) {
    const auto last = std::ranges::max_element(amounts, {}, &OpenAmount::day);
    return last == amounts.end() ? 0 : last->day;
}

/// The parties that the filter takes, with what is open of each.
class AgedParties {
 public:
    struct Row {
        Value number, name;
        std::int64_t open = 0;
        std::vector<std::int64_t> byGroup;

        bool HasAny() const {
            return open != 0 || std::ranges::any_of(byGroup, [](std::int64_t amount) { return amount != 0; });
        }
    };

    AgedParties(AccountSet& set, PartySide side, const Dictionary& dictionary, std::size_t groups) {
        const ReportFilter filter(dictionary);
        const std::int32_t itemClass = PartyClassOf(side);
        Conditions conditions;
        conditions.Add({"i.FItemClassID=?"}, {std::int64_t{itemClass}});
        AddCodeRange(conditions, "i.FItemID", itemClass, filter.Code("BSupplyNumber"),
                     filter.Code("ESupplyNumber"));
        AddRights(conditions, "i.FItemID", "B", ToText(dictionary.Get("DataRightWhere")));
        Statement parties(set.database(), "SELECT i.FItemID, i.FNumber, i.FName FROM t_Item i WHERE " +
                                              conditions.Text() + " ORDER BY i.FNumber");
        conditions.BindTo(parties);
        while (parties.Step()) {
            places_.Put(parties.Int(0), rows_.size());
            ids_.push_back(parties.Int(0));
            rows_.push_back({.number = parties.Text(1),
                             .name = parties.Text(2),
                             .byGroup = std::vector<std::int64_t>(groups)});
        }
    }

    Row* Find(std::int64_t party) {
        const std::size_t place = places_.Of(party);
        return place == PlaceById::kNowhere ? nullptr : &rows_[place];
    }
    const std::vector<std::int64_t>& ids() const { return ids_; }
    const std::vector<Row>& rows() const { return rows_; }  // by code

 private:
    PlaceById places_;
    std::vector<std::int64_t> ids_;
    std::vector<Row> rows_;
};

Ref<RecordSet> MakeRecordSet(const std::vector<AgeGroup>& groups, const AgedParties& parties) {
    std::vector<std::string> fields = {"FItemNumber", "FItemName", "FAmount"};
    for (const AgeGroup& group : groups) {
        fields.push_back(group.field);
    }
    auto set = MakeRef<ColumnarRecordSet>(std::move(fields));
    for (const AgedParties::Row& row : parties.rows()) {
        if (!row.HasAny()) continue;
        std::vector<Value> cells = {row.number, row.name, Yuan(row.open)};
        for (const std::int64_t amount : row.byGroup) {
            cells.push_back(Yuan(amount));
        }
        set->AddRow(std::move(cells));
    }
    return set;
}

}  // namespace

Ref<RecordSet> Ageing(AccountSet& set, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    const PartySide side =
        filter.Number("cmbClassType").value_or(0) == 0 ? PartySide::Customer : PartySide::Supplier;
    const std::vector<AgeGroup> groups = GroupsOf(dictionary);
    AgedParties parties(set, side, dictionary, groups.size());
    OpenQuery query{.side = side,
                    .day = filter.Day("EDate"),
                    .checkState = static_cast<std::int32_t>(BillState::Audited)};
    if (query.day) query.parties = parties.ids();  // without it the last bill of all says how old each is
    const std::vector<OpenAmount> amounts = OpenAmounts(set, query);
    const std::int64_t cutOff = filter.Day("EDate").value_or(LastDayOf(amounts));
    const bool withOthers = filter.Flag("chkRPOher", true);
    for (const OpenAmount& amount : amounts) {
        if (amount.open == 0 || (!withOthers && IsOtherClaim(amount.kind))) continue;
        AgedParties::Row* row = parties.Find(amount.party);
        if (!row) continue;
        row->open += amount.open;
        for (std::size_t i = 0; i < groups.size(); ++i) {
            if (groups[i].Holds(cutOff - amount.day)) row->byGroup[i] += amount.open;
        }
    }
    return MakeRecordSet(groups, parties);
}

}  // namespace qor
