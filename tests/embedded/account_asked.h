// The shapes of filter in which the reports on receivables and payables are compared with the slow
// computation, and the filter dictionary of each.
#pragma once

#include <string>
#include <vector>

#include "embedded/sample_fixture.h"
#include "embedded/slow_accounts.h"
#include "platform/conversions.h"

namespace qor::test {

inline const std::string kOfUser16OnT1 = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";

inline Ref<OrderedDictionary> FilterOf(const AccountsAsked& asked) {
    const bool selling = asked.side == PartySide::Customer;
    const std::string party = selling ? "CustNumber" : "SupplyNumber";
    const auto check = [](bool on) { return static_cast<std::int16_t>(on); };
    const auto number = [](int n) { return static_cast<std::int16_t>(n); };
    auto filter = Filter({{"EDate", Date{static_cast<double>(asked.lastDay)}},
                          {"B" + party, asked.firstParty},
                          {"E" + party, asked.lastParty},
                          {"BDeptNumber", asked.firstDepartment},
                          {"EDeptNumber", asked.lastDepartment},
                          {"BEmpNumber", asked.firstEmployee},
                          {"EEmpNumber", asked.lastEmployee},
                          {"CheckState", number(asked.checkState)},
                          {selling ? "IncludeOtherR" : "IncludeOtherP", check(asked.others)},
                          {"IncludeFL", check(asked.rebates)},
                          {"IncludeWT", check(asked.consignments)},
                          {"IncludeGJ", check(asked.estimates)},
                          {"NotShowBalZero", check(asked.hidesNoBalance)},
                          {"NotShowBillZero", check(asked.hidesNoMovement)},
                          {"OccurNotZero", check(asked.hidesNoMovement)},
                          {"NotShowZero", check(asked.hidesNeither)},
                          {"MultiLevel", check(asked.firstLevel > 0)},
                          {"MultiLevelBegin", std::to_string(asked.firstLevel)},
                          {"MultiLevelEnd", std::to_string(asked.lastLevel)},
                          {"GroupBy", "F" + (asked.groupBy.empty() ? party : asked.groupBy + "Number")},
                          {"ShowTotalRow", check(asked.onlyTotals)},
                          {"DataRightWhere", asked.user.empty() ? "" : kOfUser16OnT1}});
    if (asked.firstDay != 0) filter->Put("BDate", Date{static_cast<double>(asked.firstDay)});
    if (asked.headField != 0) {
        filter->Put("UserFormula" + std::to_string(asked.headField), asked.headText);
        filter->Put("CheckFormula" + std::to_string(asked.headField), check(asked.headSomewhere));
    }
    return filter;
}

/// Codes fit the sample firms: both sides have categories "01" and "02", departments "01" and "02".
inline std::vector<AccountsAsked> ShapesOfFilter() {
    return {
        {},
        {.firstDay = 45000, .lastDay = 45200},
        {.firstDay = 45809, .lastDay = 45838, .checkState = 0},
        {.firstDay = 45800, .lastDay = 45838, .checkState = 1, .hidesNoMovement = true},
        {.firstDay = 45000, .lastDay = 45400, .firstParty = "01", .lastParty = "01"},
        {.firstDay = 45000,
         .lastDay = 45400,
         .firstParty = "01.002",
         .lastParty = "02",
         .hidesNeither = true},
        {.firstDay = 45000, .lastDay = 45400, .firstDepartment = "01", .lastDepartment = "02"},
        {.firstDay = 45000,
         .lastDay = 45400,
         .firstEmployee = "003",
         .lastEmployee = "006",
         .hidesNoBalance = true},
        {.firstDay = 45000, .lastDay = 45400, .others = false, .rebates = false},
        {.firstDay = 45000, .lastDay = 45400, .consignments = true, .estimates = true},
        {.firstDay = 45000,
         .lastDay = 45400,
         .firstDepartment = "01",
         .lastDepartment = "01",
         .consignments = true,
         .estimates = true},
        {.firstDay = 45000, .lastDay = 45400, .user = "16"},
        {.firstDay = 44000, .lastDay = 44100},
        {.firstDay = 45300,
         .lastDay = 45700,
         .firstParty = "01",
         .lastParty = "03",
         .lastEmployee = "008",
         .checkState = 0,
         .rebates = false,
         .consignments = true,
         .estimates = true,
         .hidesNoBalance = true,
         .hidesNoMovement = true,
         .user = "16"},
    };
}

}  // namespace qor::test
