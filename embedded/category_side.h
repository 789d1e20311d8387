// The two sides of the reports on income and expense: what differs between them, and which bills the filter
// of any of the four selects.
#pragma once

#include <cstdint>
#include <string_view>

#include "embedded/bill_kinds.h"
#include "embedded/party_side.h"
#include "embedded/report_conditions.h"
#include "embedded/right_clause.h"

namespace qor {

struct CategorySide {
    BillKind kind;
    BillKind otherKind;  // raises the same account without money, under the same classes
    std::int32_t classes;
    std::int32_t parties;
    PartySide partySide;
    SqlText partyColumn;
    SqlText everyPartyColumn;  // the same, for conditions that no index is to serve
    const char* partyNumberField;
    const char* partyNameField;
    std::string_view firstPartyKey;
    std::string_view lastPartyKey;
    std::string_view groupKey;
};

inline constexpr CategorySide kIncomeSide = {
    .kind = BillKind::OtherIncome,
    .otherKind = BillKind::OtherReceivable,
    .classes = item_class::kIncome,
    .parties = item_class::kCustomer,
    .partySide = PartySide::Customer,
    .partyColumn = "b.FCustID",
    .everyPartyColumn = "+b.FCustID",
    .partyNumberField = "FCustNumber",
    .partyNameField = "FCustName",
    .firstPartyKey = "BCustNumber",
    .lastPartyKey = "ECustNumber",
    .groupKey = "chkGrouyByCust",
};

inline constexpr CategorySide kExpenseSide = {
    .kind = BillKind::Expense,
    .otherKind = BillKind::OtherPayable,
    .classes = item_class::kExpense,
    .parties = item_class::kSupplier,
    .partySide = PartySide::Supplier,
    .partyColumn = "b.FSupplyID",
    .everyPartyColumn = "+b.FSupplyID",
    .partyNumberField = "FSupplyNumber",
    .partyNameField = "FSupplyName",
    .firstPartyKey = "BSupplyNumber",
    .lastPartyKey = "ESupplyNumber",
    .groupKey = "chkGrouyBySupply",
};

/// The conditions on t_Bill b: kind, days, check state, ranges of parties, departments and employees. The
/// summaries name no such ranges; chkIncludeOther is theirs alone. Of the classes see class_tree.h.
Conditions CategoryBills(AccountSet& set, const CategorySide& side, const Dictionary& filter);
/// The parties whose bills the user may see.
VisibleParties VisibleOf(AccountSet& set, const Dictionary& filter);

}  // namespace qor
