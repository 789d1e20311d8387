#include <algorithm>

#include "embedded/sample_makers.h"

namespace qor {

namespace {

GoodsLine AnyGoodsLine(SampleDesk& desk, bool selling, std::int64_t sign) {
    Dice& dice = desk.dice;
    const SampleFirm::Goods& goods = dice.Pick(desk.firm.goods);
    const std::int64_t percent = selling ? dice.Between(95, 125) : dice.Between(60, 80);
    const std::int64_t priceFen = std::max<std::int64_t>(1, goods.priceFen * percent / 100);
    const std::int64_t many = std::max<std::int64_t>(2, 2000000 / goods.priceFen);
    std::int64_t tenths = dice.Between(1, std::min<std::int64_t>(many, 2000)) * 10;
    if (goods.weighed) tenths += dice.Between(0, 9);
    GoodsLine line;
    line.item = goods.id;
    line.quantity = sign * tenths * 1000;
    line.price = priceFen * 100;
    line.amount = sign * ((tenths * priceFen + 5) / 10);
    const bool whole = goods.showRate > 1 && tenths % (goods.showRate * 10) == 0;
    line.showUnit = whole ? goods.showUnit : goods.unit;
    line.showRate = whole ? goods.showRate : 1;
    if (dice.Chance(50)) line.aux = dice.Chance(500) ? "红色" : "蓝色";
    if (goods.weighed) line.batch = "P" + desk.monthText();
    return line;
}

/// One to three lines, whose amounts go into the bill's.
std::vector<GoodsLine> AnyGoods(SampleDesk& desk, std::int64_t sign, Bill& bill) {
    const bool selling = &desk.SideOf(bill.kind) == &desk.sales;
    std::vector<GoodsLine> lines(static_cast<std::size_t>(desk.dice.Between(1, 3)));
    for (GoodsLine& line : lines) {
        line = AnyGoodsLine(desk, selling, sign);
        bill.amount += line.amount;
    }
    return lines;
}

}  // namespace

bool MakeGoodsBill(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    const bool back = kind == BillKind::SaleReturn || kind == BillKind::PurchaseReturn;
    const std::size_t party = desk.AnyParty(side);
    Bill bill = desk.NewBill(kind, side, party);
    const std::vector<GoodsLine> lines = AnyGoods(desk, back ? -1 : 1, bill);
    desk.SettleAtOnce(bill, 250);
    bill.dueDay = bill.day + side.parties[party].creditDays;
    if (desk.dice.Chance(500)) bill.invoice = std::to_string(desk.dice.Between(10000000, 99999999));
    desk.Write(bill, lines);
    if (kind == BillKind::Sale && desk.dice.Chance(20)) {
        const auto field = static_cast<int>(desk.dice.Between(1, 6));
        desk.writer.WriteHeadField(bill, field, "合同HT-" + desk.monthText());
    }
    desk.LeaveOpen(bill, side, party, bill.amount - bill.settled);
    return true;
}

bool MakeGoodsMoved(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    const std::size_t party = desk.AnyParty(side);
    Bill bill = desk.NewBill(kind, side, party);
    std::vector<GoodsLine> lines = AnyGoods(desk, 1, bill);
    desk.Write(bill, lines);
    if (bill.state == BillState::Audited) side.moved.push_back({bill.id, party, std::move(lines)});
    return true;
}

bool MakeMovedBilled(SampleDesk& desk, BillKind kind) {
    constexpr std::size_t kOldest = 20;
    const bool selling = kind == BillKind::ConsignmentSale;  // some lines; an estimate goes back as a whole
    SampleSide& side = desk.SideOf(kind);
    if (side.moved.empty()) return false;
    const std::size_t place = desk.dice.Index(std::min(side.moved.size(), kOldest));
    MovedGoods& from = side.moved[place];
    Bill bill = desk.NewBill(kind, side, from.party);
    bill.related = from.bill;
    const std::size_t taken = selling ? 1 + desk.dice.Index(from.lines.size()) : from.lines.size();
    const auto end = from.lines.begin() + static_cast<std::ptrdiff_t>(taken);
    std::vector<GoodsLine> lines(from.lines.begin(), end);
    for (GoodsLine& line : lines) {
        line.quantity *= selling ? 1 : -1;
        line.amount *= selling ? 1 : -1;
        bill.amount += line.amount;
    }
    if (selling) desk.SettleAtOnce(bill, 200);
    desk.Write(bill, lines);
    if (bill.state != BillState::Audited) return true;
    if (selling) desk.LeaveOpen(bill, side, from.party, bill.amount - bill.settled);
    from.lines.erase(from.lines.begin(), end);
    if (from.lines.empty()) side.moved.erase(side.moved.begin() + static_cast<std::ptrdiff_t>(place));
    return true;
}

}  // namespace qor
