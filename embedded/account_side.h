// The two sides of the reports on receivables and payables: their keys and fields, and the bills that a
// filter of any of them takes.
#pragma once

#include <cstdint>
#include <string_view>

#include "embedded/party_ledger.h"
#include "platform/dictionary.h"

namespace qor {

struct AccountSide {
    PartySide side;
    std::int32_t parties;
    std::string_view firstPartyKey, lastPartyKey;
    std::string_view includeOthersKey;
    const char* idField;
    const char* numberField;
    const char* nameField;
    const char* raisedField;
    const char* settledField;
};

inline constexpr AccountSide kReceivableSide = {
    .side = PartySide::Customer,
    .parties = item_class::kCustomer,
    .firstPartyKey = "BCustNumber",
    .lastPartyKey = "ECustNumber",
    .includeOthersKey = "IncludeOtherR",
    .idField = "FCustId",
    .numberField = "FCustNumber",
    .nameField = "FCustName",
    .raisedField = "FReceivableAmount",
    .settledField = "FReceiveAmount",
};

inline constexpr AccountSide kPayableSide = {
    .side = PartySide::Supplier,
    .parties = item_class::kSupplier,
    .firstPartyKey = "BSupplyNumber",
    .lastPartyKey = "ESupplyNumber",
    .includeOthersKey = "IncludeOtherP",
    .idField = "FSupplyId",
    .numberField = "FSupplyNumber",
    .nameField = "FSupplyName",
    .raisedField = "FPayableAmount",
    .settledField = "FPayAmount",
};

/// Up to EDate. Bills that a key leaves out are left out only where the filter says so, and those that a key
/// adds are added only where it says so: a drill-down's short filter gives the balance of the books.
LedgerQuery AccountQuery(const AccountSide& side, const Dictionary& filter);

}  // namespace qor
