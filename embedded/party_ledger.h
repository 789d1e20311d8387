// What the balance of a customer or supplier is made of: bill by bill, what it raised, what it settled and
// what it took in advance. Amounts in cents; balance = raised - settled - advance.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/consignments.h"
#include "embedded/party_side.h"
#include "embedded/place_by_id.h"
#include "embedded/report_conditions.h"

namespace qor {

struct LedgerSums {
    std::int64_t raised = 0, settled = 0, advance = 0;

    std::int64_t Balance() const { return raised - settled - advance; }
    bool AreZero() const { return raised == 0 && settled == 0 && advance == 0; }
    LedgerSums& operator+=(const LedgerSums& other) {
        raised += other.raised;
        settled += other.settled;
        advance += other.advance;
        return *this;
    }
    friend bool operator==(const LedgerSums&, const LedgerSums&) = default;
};

/// Which bills count besides those that always do. As they stand here, a balance is that of the books.
struct LedgerSwitches {
    bool others = true;         // other receivables or payables
    bool rebates = true;        // lower what is owed
    bool writeOffs = true;      // bills that settle without money
    bool consignments = false;  // goods given out; what settles them raises what it bills beyond their worth
    bool estimates = false;     // goods taken in before their bill, until they are reversed
};

/// Codes of base data as AddCodeRange takes them; "" is open.
struct CodeRange {
    std::string first, last;
};

/// A user field of the bill's head equals a text, or holds it somewhere; letters of any case.
struct HeadFieldText {
    std::int32_t index;  // from 1
    std::string text;
    bool somewhere;
};

struct LedgerQuery {
    PartySide side = PartySide::Customer;
    std::optional<std::int64_t> lastDay{};  // what is dated later does not count
    std::optional<std::int32_t> checkState{};
    CodeRange parties{}, departments{}, employees{};
    std::optional<std::vector<std::int64_t>> among{};  // parties by id, where only these are asked for
    std::string rights{};                              // the data-right clause, ...
    std::string_view rightsAlias = "t1";               // ... and what it calls the parties
    LedgerSwitches switches{};
    std::vector<HeadFieldText> headFields{};  // all must hold
};

/// Takes the days' end `EDate`, check state, the ranges of departments and employees and `DataRightWhere`
/// from a filter; the rest is the report's.
LedgerQuery LedgerQueryOf(PartySide side, const Dictionary& filter);

struct LedgerParty {
    std::int64_t id;
    bool current;  // may be chosen on new bills: no category, not disabled
};

/// One bill in the account of one party.
struct Movement {
    std::size_t party;  // its place in PartyLedger::parties
    std::int64_t bill;
    BillKind kind;
    std::int64_t day;
    LedgerSums sums;
};

/// Steps through all movements up to the last day, in no order. A transfer from party to party gives two: it
/// settles what the one owes and raises what the other owes.
class PartyLedger {
 public:
    static constexpr int kMore = 8;

    /// `more`: further columns of t_Bill b, each behind a comma, for `row`.
    PartyLedger(AccountSet& set, const LedgerQuery& query, SqlText more = "");

    /// Those in the range that the user may see, by code.
    const std::vector<LedgerParty>& parties() const { return parties_; }

    bool Next();
    const Movement& movement() const { return movement_; }
    /// The bill of the movement; what was asked for besides begins at column kMore.
    const Statement& row() const { return *rows_; }

 private:
    static constexpr std::size_t kKinds = std::size(kBillKinds) + 1;

    void ReadParties(AccountSet& set, const LedgerQuery& query);
    void OpenRows(AccountSet& set, const LedgerQuery& query, SqlText more);
    LedgerSums SumsOf(const SideSigns& signs) const;

    std::vector<LedgerParty> parties_;
    PlaceById places_;                       // of the parties
    std::array<SideSigns, kKinds> signs_{};  // by kind; nothing for what does not count
    std::optional<SettledConsignments> consignments_;
    std::optional<Statement> rows_;  // none where there is no party
    Movement movement_{};
    std::optional<Movement> second_;  // of a transfer
};

}  // namespace qor
