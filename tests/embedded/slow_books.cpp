#include "embedded/slow_books.h"

#include <algorithm>
#include <cctype>
#include <tuple>

namespace qor::test {

namespace {

std::string Lowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return c < 128 ? std::tolower(c) : c; });
    return text;
}

}  // namespace

SlowBooks::SlowBooks(AccountSet& set) {
    Statement item(
        set.database(),
        "SELECT i.FItemID, FItemClassID, FNumber, FName, FDeleted, FRightUserID FROM t_Item i LEFT JOIN "
        "t_Party p ON p.FItemID=i.FItemID");
    while (item.Step()) {
        items[item.Int(0)] = {static_cast<std::int32_t>(item.Int(1)), std::string(item.Text(2)),
                              std::string(item.Text(3)), item.Int(4) != 0, std::string(item.Text(5))};
    }
    Statement bill(
        set.database(),
        "SELECT FBillID, FBillType, FBillNo, FDate, FState, FCustID, FSupplyID, FDeptID, FEmpID, FAcctID "
        "FROM t_Bill");
    while (bill.Step()) {
        places[bill.Int(0)] = bills.size();
        bills.push_back({bill.Int(0), bill.Int(1), std::string(bill.Text(2)), bill.Int(3), bill.Int(4),
                         bill.Int(5), bill.Int(6), bill.Int(7), bill.Int(8), bill.Int(9)});
    }
    Statement line(set.database(),
                   "SELECT FBillID, FIndex, FClassID, FAmount, FSettleAmount, FNote FROM t_ClassEntry");
    while (line.Step()) {
        lines.push_back(
            {line.Int(0), line.Int(1), line.Int(2), line.Int(3), line.Int(4), std::string(line.Text(5))});
    }
}

const PlainItem& SlowBooks::Item(std::int64_t id) const {
    static const PlainItem none;
    const auto found = items.find(id);
    return found == items.end() ? none : found->second;
}

bool SlowBooks::Lies(std::int64_t item, const Codes& range) const {
    if (range.first.empty() && range.last.empty()) return true;
    if (item == 0) return false;
    const std::string code = Lowered(Item(item).number), last = Lowered(range.last);
    if (code < Lowered(range.first)) return false;
    return last.empty() || code <= last || code.starts_with(last + ".");
}

bool SlowBooks::Sees(const std::string& user, std::int64_t party) const {
    return user.empty() || party == 0 || Item(party).rightUsers.find(user) != std::string::npos;
}

std::vector<const PlainLine*> SlowBooks::Lines(BillKind kind, BillKind sideOf,
                                               const PlainFilter& filter) const {
    std::vector<const PlainLine*> taken;
    for (const PlainLine& line : lines) {
        const PlainBill& bill = *BillOf(line);
        const std::int64_t party = sideOf == BillKind::Expense ? bill.supplier : bill.customer;
        if (bill.kind != static_cast<std::int64_t>(kind) || bill.state == 2) continue;
        if (filter.checkState != 2 && bill.state != filter.checkState) continue;
        if (bill.day < filter.firstDay || bill.day > filter.lastDay) continue;
        if (!filter.withDisabled && Item(line.itemClass).disabled) continue;
        if (!Lies(line.itemClass, filter.classes) || !Lies(party, filter.parties)) continue;
        if (!Lies(bill.department, filter.departments) || !Lies(bill.employee, filter.employees)) continue;
        if (Sees(filter.rightUser, party)) taken.push_back(&line);
    }
    return taken;
}

std::vector<std::string> SlowBooks::Detail(BillKind kind, const PlainFilter& filter) const {
    std::vector<std::tuple<std::string, std::int64_t, std::string, std::int64_t, std::string>> found;
    for (const PlainLine* taken : Lines(kind, kind, filter)) {
        const PlainLine& line = *taken;
        const PlainBill& bill = *BillOf(line);
        const std::int64_t party = kind == BillKind::Expense ? bill.supplier : bill.customer;
        std::string row;
        for (const std::string& cell :
             {Item(line.itemClass).name, std::to_string(bill.day), Item(party).number, Item(party).name,
              Item(bill.account).name, std::to_string(line.amount - line.settled),
              std::to_string(line.settled), std::to_string(line.amount), Item(bill.employee).number,
              Item(bill.employee).name, Item(bill.department).number, Item(bill.department).name, bill.number,
              line.note}) {
            row += cell + "|";
        }
        found.emplace_back(Item(line.itemClass).number, bill.day, bill.number, line.index, row);
    }
    std::ranges::sort(found);
    std::vector<std::string> rows;
    for (const auto& entry : found) {
        rows.push_back(std::get<4>(entry));
    }
    return rows;
}

}  // namespace qor::test
