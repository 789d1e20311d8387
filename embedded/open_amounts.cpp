#include "embedded/open_amounts.h"

#include <algorithm>
#include <limits>

#include "embedded/narrow_bills.h"
#include "embedded/report_conditions.h"

namespace qor {

namespace {

/// Which bills count at all.
Conditions CountingBills(const OpenQuery& query) {
    Conditions conditions;
    AddDayRange(conditions, "b.FDate", std::nullopt, query.day);
    AddCheckState(conditions, "b.FState", query.checkState);
    return conditions;
}

/// Reads bills, those that count and hold the conditions.
class BillReader {
 public:
    BillReader(AccountSet& set, const OpenQuery& query, SqlText indexing, const Conditions& asked)
        : side_(query.side), found_(set.database(), TextOf(query, indexing, asked)) {
        CountingBills(query).BindTo(found_, asked.BindTo(found_));
    }

    Statement& statement() { return found_; }

    void AppendTo(std::vector<OpenAmount>& bills) {
        while (found_.Step()) {
            if (!IsBillKind(found_.Int(1))) continue;
            const auto kind = static_cast<BillKind>(found_.Int(1));
            const SideSigns signs = SignsOf(kind, side_);
            if (!signs.Any()) continue;
            const std::int64_t amount = found_.Int(3), party = found_.Int(7);
            OpenAmount bill{.bill = found_.Int(0), .kind = kind, .party = party, .day = found_.Int(2)};
            bill.amount =
                signs.raised * amount - signs.settled * (amount + found_.Int(5)) - signs.advance * amount;
            bill.atOnce = signs.raised * found_.Int(4);
            bill.open = bill.amount - bill.atOnce;
            if (party != 0) bills.push_back(bill);
            if (signs.target == 0) continue;
            bill.party = found_.Int(6);
            bill.amount = bill.open = signs.target * amount;
            if (bill.party != 0) bills.push_back(bill);
        }
    }

 private:
    static std::string TextOf(const OpenQuery& query, SqlText indexing, const Conditions& asked) {
        const bool selling = query.side == PartySide::Customer;
        return std::string(
                   "SELECT b.FBillID, b.FBillType, b.FDate, b.FAmount, b.FSettleAmount, b.FDiscount, "
                   "b.FToPartyID, ") +
               (selling ? "b.FCustID" : "b.FSupplyID") + " FROM t_Bill b" + std::string(indexing.view()) +
               " WHERE " + asked.Text() + " AND " + CountingBills(query).Text() + " ORDER BY b.FBillID";
    }

    PartySide side_;
    Statement found_;
};

/// Finds bills by their ids: at once where the ids lie close, as they do in a book that nobody cut pieces
/// out of.
class BillFinder {
 public:
    explicit BillFinder(std::vector<OpenAmount>& bills) : bills_(bills) {
        if (bills.empty()) return;
        first_ = bills.front().bill;
        const auto span = static_cast<std::size_t>(bills.back().bill - first_) + 1;
        if (span > bills.size() * 8 || bills.size() >= kNowhere) return;
        places_.assign(span, kNowhere);
        for (std::size_t place = bills.size(); place-- > 0;) {
            places_[static_cast<std::size_t>(bills[place].bill - first_)] = static_cast<std::uint32_t>(place);
        }
    }

    /// In the account that the bill settles or raises; nothing for a bill that does not count here.
    OpenAmount* Find(std::int64_t bill) const {
        const std::size_t place = PlaceOf(bill);
        return place < bills_.size() && bills_[place].bill == bill ? &bills_[place] : nullptr;
    }
    /// In the account in which the bill can be settled: of a transfer, that of the party it is put on.
    OpenAmount* FindOwing(std::int64_t bill) const {
        OpenAmount* found = Find(bill);
        const bool two = found && found != &bills_.back() && (found + 1)->bill == bill;
        return two ? found + 1 : found;
    }

 private:
    static constexpr std::uint32_t kNowhere = std::numeric_limits<std::uint32_t>::max();

    std::size_t PlaceOf(std::int64_t bill) const {
        if (!places_.empty()) {
            const auto offset = static_cast<std::uint64_t>(bill - first_);
            return offset < places_.size() ? places_[offset] : kNowhere;
        }
        const auto place = std::ranges::lower_bound(bills_, bill, {}, &OpenAmount::bill);
        return static_cast<std::size_t>(place - bills_.begin());
    }

    std::vector<OpenAmount>& bills_;
    std::int64_t first_ = 0;
    std::vector<std::uint32_t> places_;  // by id, from first_
};

struct Settlement {
    std::int64_t id, bill, source, target, amount, discount;
};

struct SettlementEnds {
    OpenAmount* settling;  // the bill that settles
    OpenAmount* used;      // what it uses up: itself, or an advance
    OpenAmount* owing;     // what it settles

    bool Count() const {
        return settling && used && owing && used->party == owing->party && settling->party == owing->party;
    }
};

/// A receivable that is set off against a payable settles the target on its one side and the source on the
/// other.
SettlementEnds EndsOf(const BillFinder& finder, const Settlement& settled) {
    const auto& [id, bill, source, target, amount, discount] = settled;
    SettlementEnds ends{.settling = finder.Find(bill), .used = nullptr, .owing = finder.FindOwing(target)};
    const bool setOff = ends.settling && ends.settling->kind == BillKind::ReceivableToPayable;
    if (setOff && !ends.owing) ends.owing = finder.FindOwing(source);
    ends.used = setOff || source == 0 || source == bill ? ends.settling : finder.Find(source);
    return ends;
}

void Settle(const BillFinder& finder, const Settlement& settled) {
    const SettlementEnds ends = EndsOf(finder, settled);
    if (!ends.Count()) return;
    ends.owing->open -= settled.amount + settled.discount;
    ends.used->open += settled.amount;
    ends.settling->open += settled.discount;
}

/// Steps through settlements up to the day.
class SettlementReader {
 public:
    SettlementReader(AccountSet& set, const OpenQuery& query, const Conditions& asked)
        : found_(set.database(), TextOf(query, asked)) {
        UpToDay(query).BindTo(found_, asked.BindTo(found_));
    }

    Statement& statement() { return found_; }
    bool Next() { return found_.Step(); }
    Settlement settlement() const {
        return {found_.Int(0), found_.Int(1), found_.Int(2), found_.Int(3), found_.Int(4), found_.Int(5)};
    }

 private:
    static Conditions UpToDay(const OpenQuery& query) {
        Conditions conditions;
        AddDayRange(conditions, "s.FDate", std::nullopt, query.day);
        return conditions;
    }
    static std::string TextOf(const OpenQuery& query, const Conditions& asked) {
        return "SELECT s.FSettlementID, s.FBillID, s.FSourceBillID, s.FTargetBillID, s.FAmount, s.FDiscount "
               "FROM t_Settlement s WHERE " +
               asked.Text() + " AND " + UpToDay(query).Text();
    }

    Statement found_;
};

std::vector<OpenAmount> ReadAll(AccountSet& set, const OpenQuery& query) {
    std::vector<OpenAmount> bills;
    BillReader(set, query, " NOT INDEXED", {}).AppendTo(bills);
    const BillFinder finder(bills);
    for (SettlementReader reader(set, query, {}); reader.Next();) {
        Settle(finder, reader.settlement());
    }
    return bills;
}

/// What is asked for, where it is little enough to be looked up.
std::optional<Conditions> NarrowBills(AccountSet& set, const OpenQuery& query) {
    Conditions asked;
    if (query.parties && AreFewParties(set, query.side, query.parties->size())) {
        AddBillsOf(asked, query.side, *query.parties);
        return asked;
    }
    if (!IsShortPeriod(set, query.firstDay, query.day)) return std::nullopt;
    AddKinds(asked, [&](BillKind kind) { return SignsOf(kind, query.side).Any(); });
    AddDayRange(asked, "b.FDate", query.firstDay, std::nullopt);
    return asked;
}

/// All settlements that the bills have a part in, each once.
std::vector<Settlement> SettlementsOf(AccountSet& set, const OpenQuery& query,
                                      const std::vector<OpenAmount>& bills) {
    Conditions ofBill;
    ofBill.Add({"(s.FBillID=? OR s.FTargetBillID=? OR s.FSourceBillID=?)"}, {0, 0, 0});
    SettlementReader reader(set, query, ofBill);
    std::vector<Settlement> settlements;
    for (const OpenAmount& bill : bills) {
        reader.statement().With(bill.bill, bill.bill, bill.bill);
        while (reader.Next()) {
            settlements.push_back(reader.settlement());
        }
    }
    std::ranges::sort(settlements, {}, &Settlement::id);
    const auto repeated = std::ranges::unique(settlements, {}, &Settlement::id);
    settlements.erase(repeated.begin(), repeated.end());
    return settlements;
}

/// Adds the bills at the other ends of the settlements.
void ReadOtherEnds(AccountSet& set, const OpenQuery& query, const std::vector<Settlement>& settlements,
                   std::vector<OpenAmount>& bills) {
    std::vector<std::int64_t> ends;
    const BillFinder finder(bills);
    for (const Settlement& settled : settlements) {
        for (const std::int64_t end : {settled.bill, settled.source, settled.target}) {
            if (end != 0 && !finder.Find(end)) ends.push_back(end);
        }
    }
    std::ranges::sort(ends);
    const auto repeated = std::ranges::unique(ends);
    ends.erase(repeated.begin(), repeated.end());
    Conditions byId;
    byId.Add({"b.FBillID=?"}, {0});
    BillReader reader(set, query, "", byId);
    for (const std::int64_t end : ends) {
        reader.statement().With(end);
        reader.AppendTo(bills);
    }
    std::ranges::stable_sort(bills, {}, &OpenAmount::bill);
}

/// Only what is asked for, and the bills that it was settled with.
std::vector<OpenAmount> ReadNarrow(AccountSet& set, const OpenQuery& query, const Conditions& narrow) {
    std::vector<OpenAmount> bills;
    BillReader(set, query, "", narrow).AppendTo(bills);
    std::vector<std::int64_t> asked;  // by id
    for (const OpenAmount& bill : bills) {
        asked.push_back(bill.bill);
    }
    const std::vector<Settlement> settlements = SettlementsOf(set, query, bills);
    ReadOtherEnds(set, query, settlements, bills);
    const BillFinder finder(bills);
    for (const Settlement& settled : settlements) {
        Settle(finder, settled);
    }
    std::erase_if(bills,
                  [&](const OpenAmount& bill) { return !std::ranges::binary_search(asked, bill.bill); });
    return bills;
}

}  // namespace

std::vector<OpenAmount> OpenAmounts(AccountSet& set, const OpenQuery& query) {
    const std::optional<Conditions> narrow = NarrowBills(set, query);
    return narrow ? ReadNarrow(set, query, *narrow) : ReadAll(set, query);
}

}  // namespace qor
