#include "embedded/open_amounts.h"

#include <algorithm>
#include <limits>

#include "embedded/report_conditions.h"

namespace qor {

namespace {

std::vector<OpenAmount> BillsOf(AccountSet& set, const OpenQuery& query) {
    Conditions conditions;
    AddDayRange(conditions, "b.FDate", std::nullopt, query.day);
    AddCheckState(conditions, "b.FState", query.checkState);
    const bool selling = query.side == PartySide::Customer;
    Statement found(set.database(),
                    std::string("SELECT b.FBillID, b.FBillType, b.FDate, b.FAmount, b.FSettleAmount, "
                                "b.FDiscount, b.FToPartyID, ") +
                        (selling ? "b.FCustID" : "b.FSupplyID") + " FROM t_Bill b NOT INDEXED WHERE " +
                        conditions.Text() + " ORDER BY b.FBillID");
    conditions.BindTo(found);
    std::vector<OpenAmount> bills;
    while (found.Step()) {
        if (!IsBillKind(found.Int(1))) continue;
        const auto kind = static_cast<BillKind>(found.Int(1));
        const SideSigns signs = SignsOf(kind, query.side);
        if (!signs.Any()) continue;
        const std::int64_t amount = found.Int(3), party = found.Int(7);
        OpenAmount bill{.bill = found.Int(0), .kind = kind, .party = party, .day = found.Int(2)};
        bill.amount =
            signs.raised * amount - signs.settled * (amount + found.Int(5)) - signs.advance * amount;
        bill.atOnce = signs.raised * found.Int(4);
        bill.open = bill.amount - bill.atOnce;
        if (party != 0) bills.push_back(bill);
        if (signs.target == 0) continue;
        bill.party = found.Int(6);
        bill.amount = bill.open = signs.target * amount;
        if (bill.party != 0) bills.push_back(bill);
    }
    return bills;
}

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
SettlementEnds EndsOf(const BillFinder& finder, std::int64_t bill, std::int64_t source, std::int64_t target) {
    SettlementEnds ends{.settling = finder.Find(bill), .used = nullptr, .owing = finder.FindOwing(target)};
    const bool setOff = ends.settling && ends.settling->kind == BillKind::ReceivableToPayable;
    if (setOff && !ends.owing) ends.owing = finder.FindOwing(source);
    ends.used = setOff || source == 0 || source == bill ? ends.settling : finder.Find(source);
    return ends;
}

}  // namespace

std::vector<OpenAmount> OpenAmounts(AccountSet& set, const OpenQuery& query) {
    std::vector<OpenAmount> bills = BillsOf(set, query);
    const BillFinder finder(bills);
    Conditions conditions;
    AddDayRange(conditions, "s.FDate", std::nullopt, query.day);
    Statement settled(set.database(),
                      "SELECT s.FBillID, s.FSourceBillID, s.FTargetBillID, s.FAmount, s.FDiscount "
                      "FROM t_Settlement s WHERE " +
                          conditions.Text());
    conditions.BindTo(settled);
    while (settled.Step()) {
        const SettlementEnds ends = EndsOf(finder, settled.Int(0), settled.Int(1), settled.Int(2));
        if (!ends.Count()) continue;
        const std::int64_t amount = settled.Int(3), discount = settled.Int(4);
        ends.owing->open -= amount + discount;
        ends.used->open += amount;
        ends.settling->open += discount;
    }
    return bills;
}

}  // namespace qor
