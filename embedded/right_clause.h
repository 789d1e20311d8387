// The data-right clause of a filter, as the client writes it and in no other form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "embedded/report_conditions.h"

namespace qor {

/// One condition of the clause: the rows of `alias` that the user may see.
struct RightCondition {
    std::string alias;
    std::string user;  // the user's number
    friend bool operator==(const RightCondition&, const RightCondition&) = default;
};

/// Reads " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ", one or several joined by " And ";
/// a blank text is no condition. Raises an error for any other text.
std::vector<RightCondition> ParseRightClause(std::string_view clause);

/// Limits the party of `column`, which the clause calls `alias`. A row without a party stays. Raises an error
/// for a clause on another alias.
void AddRights(Conditions& conditions, SqlText column, std::string_view alias, std::string_view clause);

}  // namespace qor
