#include "embedded/consignments.h"

#include <algorithm>
#include <ranges>
#include <utility>
#include <vector>

#include "embedded/bill_kinds.h"
#include "embedded/money.h"

namespace qor {

namespace {

/// A line of goods, or a bill without lines as one of its amount.
struct Line {
    std::int64_t item, quantity, amount;
    std::int64_t settled = 0;  // of the quantity of a line that went out

    std::int64_t Worth(std::int64_t pieces) const { return ShareOf(amount, pieces, quantity); }
};

/// Moves `pieces` of the line over, back where they are negative; answers what they were worth.
std::int64_t Settle(Line& line, std::int64_t pieces) {
    const std::int64_t before = line.Worth(line.settled);
    line.settled += pieces;
    return line.Worth(line.settled) - before;
}

class OutGoods {
 public:
    explicit OutGoods(std::vector<Line> lines) : lines_(std::move(lines)) {
        std::erase_if(lines_, [](const Line& line) { return line.quantity <= 0; });
    }

    /// What went out first is settled first; what comes back was settled last.
    std::int64_t Settle(const Line& sold) {
        std::int64_t rest = sold.quantity, worth = 0;
        const auto take = [&](Line& line) {
            if (line.item != sold.item) return;
            const std::int64_t pieces = std::clamp(rest, -line.settled, line.quantity - line.settled);
            worth += qor::Settle(line, pieces);
            rest -= pieces;
        };
        if (rest > 0) std::ranges::for_each(lines_, take);
        if (rest < 0) std::ranges::for_each(lines_ | std::views::reverse, take);
        return worth;
    }

 private:
    std::vector<Line> lines_;
};

class LineReader {
 public:
    explicit LineReader(AccountSet& set)
        : lines_(set.database(),
                 "SELECT FItemID, FQty, FAmount FROM t_GoodsEntry WHERE FBillID=? ORDER BY FIndex") {}

    std::vector<Line> Of(std::int64_t bill, std::int64_t amount) {
        std::vector<Line> lines;
        lines_.With(bill);
        while (lines_.Step()) {
            lines.push_back({.item = lines_.Int(0), .quantity = lines_.Int(1), .amount = lines_.Int(2)});
        }
        if (lines.empty()) lines.push_back({.item = 0, .quantity = amount, .amount = amount});
        return lines;
    }

 private:
    Statement lines_;
};

}  // namespace

SettledConsignments::SettledConsignments(AccountSet& set, const Conditions& bills,
                                         const Conditions& consignments) {
    Statement found(set.database(),
                    "SELECT b.FBillID, b.FAmount, r.FBillID, r.FAmount FROM t_Bill b CROSS JOIN t_Bill r ON "
                    "r.FBillID=b.FRelatedID AND r.FCustID=b.FCustID AND r.FDate<=b.FDate WHERE b.FBillType=? "
                    "AND r.FBillType=? AND " +
                        bills.Text() + " AND " + consignments.Text() + " ORDER BY b.FDate, b.FBillID");
    found.Bind(1, static_cast<std::int64_t>(BillKind::ConsignmentSale));
    found.Bind(2, static_cast<std::int64_t>(BillKind::Consignment));
    consignments.BindTo(found, bills.BindTo(found, 3));
    LineReader lines(set);
    std::unordered_map<std::int64_t, OutGoods> out;
    while (found.Step()) {
        const std::int64_t consignment = found.Int(2);
        auto goods = out.find(consignment);
        if (goods == out.end())
            goods = out.emplace(consignment, OutGoods(lines.Of(consignment, found.Int(3)))).first;
        std::int64_t& raised = raised_[found.Int(0)];
        for (const Line& sold : lines.Of(found.Int(0), found.Int(1))) {
            raised += goods->second.Settle(sold);
        }
    }
}

}  // namespace qor
