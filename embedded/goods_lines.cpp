#include "embedded/goods_lines.h"

#include <algorithm>

namespace qor {

namespace {

/// Bills that lie further apart than this are looked up one by one.
constexpr std::int64_t kFarApart = 16;

}  // namespace

GoodsLines::GoodsLines(AccountSet& set, bool shortNumbers, std::vector<std::int64_t> bills)
    : items_(set, shortNumbers),
      article_(set.database(), "SELECT FModel, FUnitID FROM t_Goods WHERE FItemID=?"),
      bills_(std::move(bills)) {
    std::ranges::sort(bills_);
    const auto repeated = std::ranges::unique(bills_);
    bills_.erase(repeated.begin(), repeated.end());
    if (!bills_.empty()) Read(set);
}

void GoodsLines::Read(AccountSet& set) {
    Statement found(
        set.database(),
        "SELECT FBillID, FItemID, FAuxName, FBatchNo, FShowUnitID, FQty, FPrice, FShowRate, FAmount "
        "FROM t_GoodsEntry WHERE FBillID BETWEEN ? AND ? ORDER BY FBillID, FIndex");
    const std::int64_t first = bills_.front(), last = bills_.back();
    const bool together = (last - first) / kFarApart < std::ssize(bills_);
    if (together) found.With(first, last);
    bool onLine = together && found.Step();
    ends_.reserve(bills_.size());
    for (const std::int64_t bill : bills_) {
        if (!together) onLine = found.With(bill, bill).Step();
        for (; onLine && found.Int(0) <= bill; onLine = found.Step()) {
            if (found.Int(0) == bill) ReadLine(found);
        }
        ends_.push_back(lines_.size());
    }
}

void GoodsLines::ReadLine(const Statement& found) {
    lines_.push_back({.goods = &GoodsOf(found.Int(1)),
                      .shownUnit = &items_.Of(found.Int(4)),
                      .aux = texts_.Share(found.Text(2)),
                      .batch = texts_.Share(found.Text(3)),
                      .quantity = found.Int(5),
                      .price = found.Int(6),
                      .showRate = found.Int(7),
                      .amount = found.Int(8)});
}

const LineGoods& GoodsLines::GoodsOf(std::int64_t id) {
    const auto [place, isNew] = goods_.try_emplace(id);
    LineGoods& goods = place->second;
    if (!isNew) return goods;
    const bool known = article_.With(id).Step();
    goods.item = &items_.Of(id);
    goods.unit = &items_.Of(known ? article_.Int(1) : 0);
    if (known) goods.model = article_.Text(0);
    return goods;
}

std::span<const GoodsLineRow> GoodsLines::Of(std::int64_t bill) const {
    const auto found = std::ranges::lower_bound(bills_, bill);
    if (found == bills_.end() || *found != bill) return {};
    const auto place = static_cast<std::size_t>(found - bills_.begin());
    const std::size_t first = place == 0 ? 0 : ends_[place - 1];
    return std::span(lines_).subspan(first, ends_[place] - first);
}

}  // namespace qor
