#include "embedded/credit_warnings.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "embedded/account_side.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"
#include "embedded/open_amounts.h"
#include "embedded/place_by_id.h"
#include "embedded/right_clause.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int64_t kSoonDays = 7;

struct Party {
    std::int64_t id;
    std::int64_t creditLimit, creditDays;  // a limit of 0 is none
    std::int64_t balance = 0;

    std::int64_t AboveLimit() const {
        return creditLimit > 0 ? std::max<std::int64_t>(balance - creditLimit, 0) : 0;
    }
};

struct Warning {
    std::size_t party;  // its place by code
    OpenAmount open;
    std::int64_t dueDay;
    std::int64_t department, employee;
    Value number;
};

/// The parties that the user may see, by code.
class Parties {
 public:
    Parties(AccountSet& set, const AccountSide& side, const Dictionary& filter) {
        Conditions conditions;
        conditions.Add({"o.FItemClassID=?"}, {std::int64_t{side.parties}});
        AddRights(conditions, "o.FItemID", "o", ToText(filter.Get("DataRightWhere")));
        Statement found(
            set.database(),
            "SELECT o.FItemID, p.FCreditLimit, p.FCreditDays FROM t_Item o LEFT JOIN t_Party p ON "
            "p.FItemID=o.FItemID WHERE " +
                conditions.Text() + " ORDER BY o.FNumber");
        conditions.BindTo(found);
        while (found.Step()) {
            places_.Put(found.Int(0), parties_.size());
            parties_.push_back({found.Int(0), found.Int(1), found.Int(2)});
        }
    }

    const Party& At(std::size_t place) const { return parties_[place]; }
    Party& At(std::size_t place) { return parties_[place]; }
    std::size_t PlaceOf(std::int64_t id) const { return places_.Of(id); }
    std::vector<std::int64_t> Ids() const {
        std::vector<std::int64_t> ids;
        for (const Party& party : parties_) {
            ids.push_back(party.id);
        }
        return ids;
    }

 private:
    std::vector<Party> parties_;
    PlaceById places_;
};

/// Reads the bills that are still to be paid and keeps those that call for a warning.
std::vector<Warning> ReadWarnings(AccountSet& set, const std::vector<OpenAmount>& amounts,
                                  const Parties& parties, std::int64_t today) {
    Statement bill(set.database(), "SELECT FDueDate, FDeptID, FEmpID, FBillNo FROM t_Bill WHERE FBillID=?");
    std::vector<Warning> warnings;
    for (const OpenAmount& open : amounts) {
        const std::size_t place = parties.PlaceOf(open.party);
        if (open.open <= 0 || open.amount <= 0 || place == PlaceById::kNowhere) continue;
        const Party& party = parties.At(place);
        bill.With(open.bill).Step();
        const std::int64_t dueDay = bill.IsNull(0) ? open.day + party.creditDays : bill.Int(0);
        if (dueDay > today + kSoonDays && party.AboveLimit() == 0) continue;
        warnings.push_back({.party = place,
                            .open = open,
                            .dueDay = dueDay,
                            .department = bill.Int(1),
                            .employee = bill.Int(2),
                            .number = bill.Text(3)});
    }
    std::ranges::sort(warnings, {}, [](const Warning& warning) {
        return std::tuple(warning.party, warning.dueDay, warning.open.bill);
    });
    return warnings;
}

/// Of a whole, in hundredths of a percent, rounded half up.
double Percent(std::int64_t part, std::int64_t whole) {
    return whole == 0 ? 0 : static_cast<double>(ShareOf(part, 10000, whole)) / 100;
}

void AddRow(ColumnarRecordSet& rows, const Warning& warning, const Party& party, std::int64_t today,
            ItemTexts& items) {
    const std::int64_t left = warning.dueDay - today;
    const auto date = [](std::int64_t day) { return Date{static_cast<double>(day)}; };
    const auto days = [](bool counts, std::int64_t count) {
        return counts ? Value(static_cast<double>(count)) : Value::Null();
    };
    const ItemTexts::Texts& texts = items.Of(party.id);
    rows.AddRow({texts.number, texts.name, date(warning.open.day), warning.number, date(warning.dueDay),
                 days(left < 0, -left), days(left >= 0 && left <= kSoonDays, left), Yuan(warning.open.amount),
                 Yuan(warning.open.amount - warning.open.open), Yuan(warning.open.open), Yuan(party.balance),
                 Yuan(party.creditLimit), Percent(party.AboveLimit(), party.creditLimit),
                 items.Of(warning.department).name, items.Of(warning.employee).name});
}

Ref<RecordSet> CreditWarnings(AccountSet& set, const AccountSide& side, const Dictionary& filter) {
    const std::int64_t today = set.Today();
    Parties parties(set, side, filter);
    const std::vector<OpenAmount> amounts =
        OpenAmounts(set, {.side = side.side, .day = today, .parties = parties.Ids()});
    for (const OpenAmount& open : amounts) {
        const std::size_t place = parties.PlaceOf(open.party);
        if (place != PlaceById::kNowhere) parties.At(place).balance += open.open;
    }
    auto rows = MakeRef<ColumnarRecordSet>(
        std::vector<std::string>{side.numberField, side.nameField, "FDate", "FBillNo", "FDeadLine",
                                 "FOverDate", "FSoonDate", "FAmount", "FCheckAmount", "FUnCheckAmount",
                                 "FCurComeGoBalance", "FCreditAmount", "FRate", "FDeptName", "FEmpName"});
    ItemTexts items(set, false);
    for (const Warning& warning : ReadWarnings(set, amounts, parties, today)) {
        AddRow(*rows, warning, parties.At(warning.party), today, items);
    }
    return rows;
}

}  // namespace

Ref<RecordSet> CustomerCreditWarnings(AccountSet& set, const Dictionary& filter) {
    return CreditWarnings(set, kReceivableSide, filter);
}

Ref<RecordSet> SupplierCreditWarnings(AccountSet& set, const Dictionary& filter) {
    return CreditWarnings(set, kPayableSide, filter);
}

}  // namespace qor
