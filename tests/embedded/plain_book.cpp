#include "embedded/plain_book.h"

#include <algorithm>
#include <cctype>

namespace qor::test {

namespace {

std::string Lowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return c < 128 ? std::tolower(c) : c; });
    return text;
}

bool Raises(const BookBill& bill, PartySide side) { return SignsOf(bill.kind, side).raised != 0; }

bool UsesAdvance(const BookBill& bill) {
    return bill.kind == BillKind::AdvanceToReceivable || bill.kind == BillKind::AdvanceToPayable;
}

}  // namespace

PlainBook::PlainBook(AccountSet& set) {
    Statement item(set.database(),
                   "SELECT i.FItemID, FItemClassID, FNumber, FName, FDetail=1 AND FDeleted=0, FRightUserID, "
                   "FBeginAmount, FModel, FUnitID, FMatchSupplyID, FCreditLimit, FCreditDays FROM t_Item i "
                   "LEFT JOIN t_Party p ON p.FItemID=i.FItemID LEFT JOIN t_Account a ON a.FItemID=i.FItemID "
                   "LEFT JOIN t_Goods g ON g.FItemID=i.FItemID");
    while (item.Step()) {
        items[item.Int(0)] = {static_cast<std::int32_t>(item.Int(1)),
                              std::string(item.Text(2)),
                              std::string(item.Text(3)),
                              item.Int(4) != 0,
                              std::string(item.Text(5)),
                              item.Int(6),
                              std::string(item.Text(7)),
                              item.Int(8),
                              item.Int(9),
                              item.Int(10),
                              item.Int(11)};
    }
    Statement bill(set.database(),
                   "SELECT FBillID, FBillType, FBillNo, FDate, FState, FCustID, FSupplyID, FToPartyID, "
                   "FDeptID, FEmpID, FAcctID, FToAcctID, FAmount, FSettleAmount, FDiscount, FBillerID, "
                   "FInvoiceNo, FVchNumber, FExplanation, FRelatedID, FDueDate FROM t_Bill ORDER BY FBillID");
    while (bill.Step()) {
        bills.push_back({bill.Int(0),
                         static_cast<BillKind>(bill.Int(1)),
                         std::string(bill.Text(2)),
                         bill.Int(3),
                         bill.Int(4),
                         bill.Int(5),
                         bill.Int(6),
                         bill.Int(7),
                         bill.Int(8),
                         bill.Int(9),
                         bill.Int(10),
                         bill.Int(11),
                         bill.Int(12),
                         bill.Int(13),
                         bill.Int(14),
                         bill.Int(15),
                         std::string(bill.Text(16)),
                         std::string(bill.Text(17)),
                         std::string(bill.Text(18)),
                         bill.Int(19),
                         bill.Int(20)});
    }
    Statement settlement(
        set.database(),
        "SELECT FBillID, FSourceBillID, FTargetBillID, FDate, FAmount, FDiscount FROM t_Settlement");
    while (settlement.Step()) {
        settlements.push_back({settlement.Int(0), settlement.Int(1), settlement.Int(2), settlement.Int(3),
                               settlement.Int(4), settlement.Int(5)});
    }
    Statement line(
        set.database(),
        "SELECT FBillID, FIndex, FItemID, FQty, FPrice, FAmount, FShowUnitID, FShowRate, FAuxName, "
        "FBatchNo FROM t_GoodsEntry ORDER BY FBillID, FIndex");
    while (line.Step()) {
        goods.push_back({line.Int(0), line.Int(1), line.Int(2), line.Int(3), line.Int(4), line.Int(5),
                         line.Int(6), line.Int(7), std::string(line.Text(8)), std::string(line.Text(9))});
    }
    Statement field(set.database(), "SELECT FBillID, FIndex, FText FROM t_BillHeadField");
    while (field.Step()) {
        headFields[{field.Int(0), field.Int(1)}] = field.Text(2);
    }
    Statement user(set.database(), "SELECT FUserID, FName FROM t_User");
    while (user.Step()) {
        users[user.Int(0)] = user.Text(1);
    }
}

const BookItem& PlainBook::Item(std::int64_t id) const {
    static const BookItem none;
    const auto found = items.find(id);
    return found == items.end() ? none : found->second;
}

const BookBill* PlainBook::Bill(std::int64_t id) const {
    const auto found = std::ranges::lower_bound(bills, id, {}, &BookBill::id);
    return found != bills.end() && found->id == id ? &*found : nullptr;
}

bool PlainBook::Lies(std::int64_t item, const std::string& first, const std::string& last) const {
    if (first.empty() && last.empty()) return true;
    if (item == 0) return false;
    const std::string code = Lowered(Item(item).number), end = Lowered(last);
    if (code < Lowered(first)) return false;
    return last.empty() || code <= end || code.starts_with(end + ".");
}

bool PlainBook::Sees(const std::string& user, std::int64_t party) const {
    return user.empty() || party == 0 || Item(party).rightUsers.find(user) != std::string::npos;
}

bool PlainBook::Counts(const BookBill& bill, int checkState, std::int64_t lastDay) {
    return bill.state != 2 && (checkState == 2 || bill.state == checkState) && bill.day <= lastDay;
}

std::map<std::pair<std::int64_t, std::int64_t>, std::int64_t> PlainBook::Open(PartySide side, int checkState,
                                                                              std::int64_t lastDay) const {
    std::map<std::pair<std::int64_t, std::int64_t>, std::int64_t> open;
    for (const BookBill& bill : bills) {
        if (!Counts(bill, checkState, lastDay)) continue;
        const SideSigns signs = SignsOf(bill.kind, side);
        if (signs.Any() && bill.Party(side) != 0) {
            open[{bill.id, bill.Party(side)}] = signs.raised * (bill.amount - bill.settled) -
                                                signs.settled * (bill.amount + bill.discount) -
                                                signs.advance * bill.amount;
        }
        if (signs.target != 0 && bill.toParty != 0) open[{bill.id, bill.toParty}] = bill.amount;
    }
    for (const BookSettlement& row : settlements) {
        const BookBill *bill = Bill(row.bill), *source = Bill(row.source), *target = Bill(row.target);
        if (!bill || !target || row.day > lastDay) continue;
        if (!Counts(*bill, checkState, lastDay)) continue;
        const std::int64_t party = bill->Party(side);
        // Of a set-off each side sees the bill that is its own.
        const bool sourceIsOurs = bill->kind == BillKind::ReceivableToPayable && source &&
                                  Raises(*source, side) && !Raises(*target, side);
        const std::pair owing{(sourceIsOurs ? source : target)->id, party};
        const std::pair used{UsesAdvance(*bill) ? row.source : row.bill, party};
        if (!open.contains(owing) || !open.contains(used) || !open.contains({row.bill, party})) continue;
        open[owing] -= row.amount + row.discount;
        open[used] += row.amount;
        open[{row.bill, party}] += row.discount;
    }
    return open;
}

std::map<std::int64_t, std::int64_t> PlainBook::Balances(PartySide side, int checkState,
                                                         std::int64_t lastDay) const {
    std::map<std::int64_t, std::int64_t> balances;
    for (const BookBill& bill : bills) {
        if (!Counts(bill, checkState, lastDay) || !SignsOf(bill.kind, side).Any()) continue;
        const BillKindRow& row = RowOf(bill.kind);
        const bool selling = side == PartySide::Customer;
        const std::int64_t raised = selling ? row.receivable : row.payable;
        const std::int64_t settled = selling ? row.received : row.paid;
        const std::int64_t advance = selling ? row.advanceIn : row.advanceOut;
        if (const std::int64_t party = bill.Party(side)) {
            balances[party] += raised * bill.amount - raised * bill.settled;
            balances[party] -= settled * bill.amount + settled * bill.discount + advance * bill.amount;
        }
        if (settled != 0 && row.target != 0 && bill.toParty != 0) balances[bill.toParty] += bill.amount;
    }
    return balances;
}

}  // namespace qor::test
