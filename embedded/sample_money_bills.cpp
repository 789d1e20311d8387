#include <algorithm>
#include <utility>

#include "embedded/sample_makers.h"

namespace qor {

namespace {

/// What a payment takes of one open bill: all of it mostly, sometimes less, now and then with the odd amount
/// let go.
SettlementRow PaymentOf(SampleDesk& desk, const OpenBill& target) {
    SettlementRow row;
    row.amount = target.open;
    if (target.open > 100000 && desk.dice.Chance(150)) {
        row.amount = target.open * desk.dice.Between(20, 80) / 100;
    } else if (target.open > 20000 && desk.dice.Chance(40)) {
        row.discount = target.open % 1000;
        row.amount -= row.discount;
    }
    return row;
}

void Settle(SampleDesk& desk, const Bill& bill, std::int64_t source, OpenBill& target, SettlementRow row) {
    row.bill = bill.id;
    row.source = source;
    row.target = target.bill;
    row.day = bill.day;
    desk.writer.Write(row);
    target.open -= row.amount + row.discount;
}

using Paid = std::vector<std::pair<OpenBill*, SettlementRow>>;

/// What one payment settles: the bill that is due, and up to two more of the same party.
Paid ChoosePaid(SampleDesk& desk, SampleSide& side, OpenBill& due) {
    Paid paid{{&due, PaymentOf(desk, due)}};
    std::int64_t money = paid[0].second.amount;
    for (OpenBill* other : side.open.Of(due.party)) {
        if (other == &due || paid.size() > 2 || !desk.dice.Chance(400)) continue;
        const SettlementRow row = PaymentOf(desk, *other);
        if (money + row.amount <= 0) continue;
        paid.emplace_back(other, row);
        money += row.amount;
    }
    return paid;
}

/// Writes a write-off whose amount is settled on `target`, unless it is void.
bool WriteOff(SampleDesk& desk, Bill& bill, std::int64_t source, OpenBill& target) {
    bill.explanation = "核销";
    desk.writer.Write(bill);
    if (bill.state == BillState::Void) return false;
    SettlementRow row;
    row.amount = bill.amount;
    Settle(desk, bill, source, target, row);
    return true;
}

}  // namespace

bool MakeSettlingBill(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    OpenBill* due = side.open.NextDue(desk.day());
    if (!due) return false;
    Bill bill = desk.NewBill(kind, side, due->party);
    bill.account = desk.AnyAccount();
    bill.explanation = kind == BillKind::Receipt ? "收货款" : "付货款";
    const Paid paid = ChoosePaid(desk, side, *due);
    for (const auto& [target, row] : paid) {
        bill.amount += row.amount;
        bill.discount += row.discount;
    }
    desk.writer.Write(bill);
    if (bill.state == BillState::Void) {
        side.open.PutOff(*due, bill.day + 1);
        return true;
    }
    for (const auto& [target, row] : paid) {
        Settle(desk, bill, bill.id, *target, row);
    }
    if (due->open > 0) side.open.PutOff(*due, bill.day + desk.dice.Between(10, 40));
    return true;
}

bool MakeAdvance(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    const std::size_t party = desk.AnyParty(side);
    Bill bill = desk.NewBill(kind, side, party);
    bill.account = desk.AnyAccount();
    bill.amount = desk.dice.Between(5, 300) * 10000;
    bill.explanation = "订金";
    desk.writer.Write(bill);
    if (bill.state == BillState::Audited) side.advances.push_back({bill.id, party, bill.amount});
    return true;
}

bool MakeRebate(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    const std::size_t party = desk.AnyParty(side);
    Bill bill = desk.NewBill(kind, side, party);
    bill.amount = desk.dice.Between(10, 900) * 1000;
    bill.explanation = "按年度协议返利";
    desk.SettleAtOnce(bill, 300);
    desk.writer.Write(bill);
    desk.LeaveOpen(bill, side, party, bill.settled - bill.amount);
    return true;
}

bool MakeBankTransfer(SampleDesk& desk, BillKind kind) {
    const std::vector<std::int64_t>& accounts = desk.firm.accounts;
    Bill bill = desk.NewBill(kind);
    if (desk.dice.Chance(800)) desk.SetAnyEmployee(bill);
    const std::size_t from = desk.dice.Index(accounts.size());
    const std::size_t step = 1 + desk.dice.Index(accounts.size() - 1);
    bill.account = accounts[from];
    bill.toAccount = accounts[(from + step) % accounts.size()];
    bill.amount = desk.dice.Between(1, 200) * 50000;
    bill.explanation = "资金调拨";
    desk.writer.Write(bill);
    return true;
}

void MakeOpeningBills(SampleDesk& desk, BillKind kind, std::int64_t most) {
    SampleSide& side = desk.SideOf(kind);
    for (std::size_t party = 0; party < side.parties.size() && most > 0; ++party) {
        if (!desk.dice.Chance(300)) continue;
        Bill bill = desk.NewBill(kind);
        bill.state = BillState::Audited;
        desk.SetParty(bill, side, party);
        bill.amount = desk.dice.Between(100, 90000) * 100;
        bill.explanation = "期初余额";
        desk.writer.Write(bill);
        desk.LeaveOpen(bill, side, party, bill.amount);
        --most;
    }
}

bool MakeUseOfAdvance(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    if (side.advances.empty()) return false;
    const std::size_t place = desk.dice.Index(side.advances.size());
    OpenBill& advance = side.advances[place];
    OpenBill* target = side.open.OldestOwed(advance.party);
    if (!target) return false;
    Bill bill = desk.NewBill(kind, side, advance.party);
    bill.amount = std::min(advance.open, target->open);
    if (!WriteOff(desk, bill, advance.bill, *target)) return true;
    advance.open -= bill.amount;
    if (advance.open == 0) side.advances.erase(side.advances.begin() + static_cast<std::ptrdiff_t>(place));
    return true;
}

bool MakeReceivableToPayable(SampleDesk& desk, BillKind kind) {
    const std::size_t supplier = desk.dice.Index(desk.firm.suppliers.size());
    const std::size_t customer = desk.firm.suppliers[supplier].match;
    if (customer == SampleFirm::kNoMatch) return false;
    OpenBill* owed = desk.sales.open.OldestOwed(customer);
    OpenBill* owing = desk.purchases.open.OldestOwed(supplier);
    if (!owed || !owing) return false;
    Bill bill = desk.NewBill(kind, desk.sales, customer);
    bill.supplier = desk.firm.suppliers[supplier].id;
    bill.amount = std::min(owed->open, owing->open);
    if (WriteOff(desk, bill, owing->bill, *owed)) owing->open -= bill.amount;
    return true;
}

bool MakeTransfer(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    const std::size_t from = desk.AnyParty(side), to = desk.AnyParty(side);
    OpenBill* target = from == to ? nullptr : side.open.OldestOwed(from);
    if (!target) return false;
    Bill bill = desk.NewBill(kind, side, from);
    bill.toParty = side.parties[to].id;
    bill.amount = target->open;
    if (WriteOff(desk, bill, 0, *target)) desk.LeaveOpen(bill, side, to, bill.amount);
    return true;
}

}  // namespace qor
