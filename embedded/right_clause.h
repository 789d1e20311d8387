// The data-right clause of a filter, as the client writes it and in no other form.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "embedded/account_set.h"
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

/// What a clause may limit: the parties of a column, under the name that the clause has for them.
struct RightColumn {
    std::string_view alias;
    SqlText column;
};

/// The same of a clause on several columns, each by its own alias.
void AddRights(Conditions& conditions, std::initializer_list<RightColumn> columns, std::string_view clause);

/// The parties that a clause on `alias` leaves visible. For statements with many rows: asking here costs a
/// fraction of the condition that AddRights writes.
class VisibleParties {
 public:
    VisibleParties(AccountSet& set, std::string_view alias, std::string_view clause);

    /// Everybody is visible without a clause, and what has no party (0) with any.
    bool Has(std::int64_t party) const { return !limited_ || party == 0 || parties_.contains(party); }

 private:
    bool limited_;
    std::unordered_set<std::int64_t> parties_;
};

}  // namespace qor
