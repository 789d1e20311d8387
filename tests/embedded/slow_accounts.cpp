#include "embedded/slow_accounts.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace qor::test {

namespace {

bool IsSelling(const AccountsAsked& asked) { return asked.side == PartySide::Customer; }

/// The bill counts under every condition that is not about its party or its kind.
bool Counts(const PlainBook& book, const BookBill& bill, const AccountsAsked& asked) {
    if (!PlainBook::Counts(bill, asked.checkState, asked.lastDay)) return false;
    if (!book.Lies(bill.department, asked.firstDepartment, asked.lastDepartment)) return false;
    if (!book.Lies(bill.employee, asked.firstEmployee, asked.lastEmployee)) return false;
    if (asked.headField == 0) return true;
    const auto field = book.headFields.find({bill.id, asked.headField});
    if (field == book.headFields.end()) return false;
    return asked.headSomewhere ? field->second.find(asked.headText) != std::string::npos
                               : field->second == asked.headText;
}

bool SettlesCounted(const PlainBook& book, const BookBill& bill, const AccountsAsked& asked) {
    const BookBill* from = book.Bill(bill.related);
    return from && from->kind == BillKind::Consignment && from->day <= bill.day &&
           from->customer == bill.customer && Counts(book, *from, asked) && Counts(book, bill, asked);
}

/// What the goods of a bill that settles a consignment were worth when they went out: all settlements of the
/// consignment are gone through anew, and each takes its goods from the lines that are left.
std::int64_t RaisedAlready(const PlainBook& book, const BookBill& bill, const AccountsAsked& asked) {
    if (!asked.consignments || !SettlesCounted(book, bill, asked)) return 0;
    std::vector<const BookBill*> settling;
    for (const BookBill& other : book.bills) {
        if (other.kind == BillKind::ConsignmentSale && other.related == bill.related &&
            SettlesCounted(book, other, asked))
            settling.push_back(&other);
    }
    std::ranges::stable_sort(settling, {}, &BookBill::day);
    std::vector<BookGoods> left;
    std::ranges::copy_if(book.goods, std::back_inserter(left),
                         [&](const BookGoods& line) { return line.bill == bill.related; });
    for (const BookBill* other : settling) {
        std::int64_t worth = 0;
        for (const BookGoods& sold : book.goods) {
            if (sold.bill != other->id) continue;
            std::int64_t pieces = sold.quantity;
            for (BookGoods& line : left) {
                if (line.item != sold.item || line.quantity == 0 || pieces == 0) continue;
                const std::int64_t taken = std::min(pieces, line.quantity);
                const std::int64_t part = line.amount * taken / line.quantity;
                line.amount -= part;
                line.quantity -= taken;
                pieces -= taken;
                worth += part;
            }
        }
        if (other == &bill) return worth;
    }
    return 0;
}

/// What a bill does in the account of its own party; false for nothing.
bool OwnEntry(const PlainBook& book, const BookBill& bill, const AccountsAsked& asked, AccountEntry& entry) {
    const bool selling = IsSelling(asked);
    switch (bill.kind) {
        case BillKind::Sale:
        case BillKind::SaleReturn:
        case BillKind::OpeningReceivable:
        case BillKind::OtherIncome:
        case BillKind::ConsignmentSale:
            if (!selling) return false;
            entry.raised = bill.amount - RaisedAlready(book, bill, asked);
            entry.settled = bill.settled;
            return true;
        case BillKind::Purchase:
        case BillKind::PurchaseReturn:
        case BillKind::OpeningPayable:
        case BillKind::Expense:
            entry.raised = bill.amount;
            entry.settled = bill.settled;
            return !selling;
        case BillKind::OtherReceivable:
            entry.raised = bill.amount;
            entry.settled = bill.settled;
            return selling && asked.others;
        case BillKind::OtherPayable:
            entry.raised = bill.amount;
            entry.settled = bill.settled;
            return !selling && asked.others;
        case BillKind::SaleRebate:
        case BillKind::PurchaseRebate:
            entry.raised = -bill.amount;
            entry.settled = -bill.settled;
            return selling == (bill.kind == BillKind::SaleRebate) && asked.rebates;
        case BillKind::Receipt:
        case BillKind::Payment:
            entry.settled = bill.amount + bill.discount;
            return selling == (bill.kind == BillKind::Receipt);
        case BillKind::AdvanceReceipt:
        case BillKind::AdvancePayment:
            entry.advance = bill.amount;
            return selling == (bill.kind == BillKind::AdvanceReceipt);
        case BillKind::AdvanceToReceivable:
        case BillKind::AdvanceToPayable:
            entry.settled = bill.amount + bill.discount;
            entry.advance = -bill.amount;
            return asked.writeOffs && selling == (bill.kind == BillKind::AdvanceToReceivable);
        case BillKind::ReceivableToPayable:
            entry.settled = bill.amount + bill.discount;
            return asked.writeOffs;
        case BillKind::ReceivableTransfer:
        case BillKind::PayableTransfer:
            entry.settled = bill.amount + bill.discount;
            return asked.writeOffs && selling == (bill.kind == BillKind::ReceivableTransfer);
        case BillKind::Consignment:
            entry.raised = bill.amount;
            return selling && asked.consignments;
        case BillKind::Estimate:
        case BillKind::EstimateReversal:
            entry.raised = bill.amount;
            return !selling && asked.estimates;
        case BillKind::BankTransfer:
            return false;
    }
    return false;
}

std::string Cell(std::int64_t number) { return std::to_string(number) + "|"; }

struct Sums {
    std::int64_t raised = 0, settled = 0, advance = 0;
    bool any = false;
    void Add(const AccountEntry& entry) {
        any |= entry.raised != 0 || entry.settled != 0 || entry.advance != 0;
        raised += entry.raised;
        settled += entry.settled;
        advance += entry.advance;
    }
    std::int64_t Balance() const { return raised - settled - advance; }
    bool AreZero() const { return raised == 0 && settled == 0 && advance == 0; }
};

struct SummaryRow {
    std::int64_t group, party;
    std::string levelCode;  // the code whose categories part the rows
    Sums before, within;
};

std::string Amounts(const std::vector<const SummaryRow*>& rows, bool withAdvances) {
    Sums before, within;
    for (const SummaryRow* row : rows) {
        before.Add({0, nullptr, row->before.raised, row->before.settled, row->before.advance});
        within.Add({0, nullptr, row->within.raised, row->within.settled, row->within.advance});
    }
    const std::int64_t owedBefore = before.raised - before.settled;
    const std::int64_t owedAfter = owedBefore + within.raised - within.settled;
    const std::int64_t advanceAfter = before.advance + within.advance;
    const std::string received = Cell(within.settled + within.advance);
    const std::string closing = Cell(owedAfter - advanceAfter);
    if (!withAdvances) return Cell(owedBefore - before.advance) + Cell(within.raised) + received + closing;
    return Cell(before.advance) + Cell(owedBefore) + Cell(owedBefore - before.advance) + Cell(within.raised) +
           Cell(within.advance) + Cell(within.settled) + received + Cell(advanceAfter) + Cell(owedAfter) +
           closing;
}

/// The code of the category at a level ("01.02" at 2 of "01.02.003"); "" where the code ends above or at it.
std::string CategoryOf(const std::string& code, int level) {
    std::size_t end = 0;
    for (int i = 0; i < level; ++i) {
        end = code.find('.', end == 0 ? 0 : end + 1);
        if (end == std::string::npos) return "";
    }
    return code.substr(0, end);
}

std::vector<SummaryRow> RowsToShow(const PlainBook& book, const AccountsAsked& asked) {
    std::map<std::pair<std::int64_t, std::int64_t>, SummaryRow> rows;
    if (asked.groupBy.empty()) {
        for (const std::int64_t party : PartiesOf(book, asked)) {
            rows[{0, party}] = {.group = 0, .party = party, .levelCode = book.Item(party).number};
        }
    }
    for (const AccountEntry& entry : Entries(book, asked)) {
        const std::int64_t group = asked.groupBy.empty()     ? 0
                                   : asked.groupBy == "Dept" ? entry.bill->department
                                                             : entry.bill->employee;
        SummaryRow& row = rows[{group, entry.party}];
        row.group = group;
        row.party = entry.party;
        if (!asked.groupBy.empty()) row.levelCode = book.Item(group).number;
        (entry.bill->day < asked.firstDay ? row.before : row.within).Add(entry);
    }
    std::vector<SummaryRow> shown;
    for (const auto& [key, row] : rows) {
        const BookItem& party = book.Item(row.party);
        const std::int64_t balance = row.before.Balance() + row.within.Balance();
        const bool unmoved = !row.within.any;
        if (asked.groupBy.empty() && !party.current && row.within.AreZero() && row.before.AreZero()) continue;
        if (asked.hidesNoBalance && balance == 0) continue;
        if (asked.hidesNoMovement && unmoved) continue;
        if (asked.hidesNeither && balance == 0 && unmoved) continue;
        shown.push_back(row);
    }
    std::ranges::sort(shown, {}, [&](const SummaryRow& row) {
        return std::tuple(row.levelCode, book.Item(row.party).number);
    });
    return shown;
}

/// Writes a summary: rows and totals, each total behind the last row that it covers.
struct SlowSummaryWriter {
    const PlainBook& book;
    const AccountsAsked& asked;
    std::vector<SummaryRow> rows;
    std::vector<std::string> texts{};

    std::string NameOfCategory(const std::string& code) const {
        const std::int32_t parties = IsSelling(asked) ? item_class::kCustomer : item_class::kSupplier;
        const std::int32_t wanted = asked.groupBy.empty()     ? parties
                                    : asked.groupBy == "Dept" ? item_class::kDepartment
                                                              : item_class::kEmployee;
        for (const auto& [id, item] : book.items) {
            if (item.itemClass == wanted && item.number == code) return item.name;
        }
        return "?";
    }
    /// The level columns down to `level`, and `text` in the next one.
    std::string Levels(const std::string& code, int level, const std::string& text) const {
        std::string cells;
        for (int i = asked.firstLevel; i > 0 && i <= asked.lastLevel; ++i) {
            const std::string category = i <= level ? CategoryOf(code, i) : "";
            cells += (i == level + 1 ? text : category.empty() ? "" : NameOfCategory(category)) + "|";
        }
        return cells;
    }
    std::string Group(std::int64_t group) const {
        if (asked.groupBy.empty()) return "";
        return book.Item(group).number + "|" + book.Item(group).name + "|";
    }
    template <class Covers>
    std::string AmountsWhere(Covers&& covers) const {
        std::vector<const SummaryRow*> covered;
        for (const SummaryRow& row : rows) {
            if (covers(row)) covered.push_back(&row);
        }
        return Amounts(covered, asked.withAdvances);
    }
    void AddTotal(const std::string& code, int level, const std::string& text, const std::string& amounts,
                  int sort) {
        const bool inColumn = asked.firstLevel > 0 && level < asked.lastLevel;
        const std::string rest = inColumn ? "" : text;
        const std::string names = asked.groupBy.empty() ? "0||" + rest + "|" : "|" + rest + "|0|||";
        texts.push_back(Levels(code, level, text) + names + amounts + Cell(sort));
    }
    void Write() {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const SummaryRow& row = rows[i];
            const std::string next = i + 1 < rows.size() ? rows[i + 1].levelCode : "/";
            const int all = asked.lastLevel;
            if (!asked.onlyTotals) {
                texts.push_back(Levels(row.levelCode, all, "") + Group(row.group) + Cell(row.party) +
                                book.Item(row.party).number + "|" + book.Item(row.party).name + "|" +
                                Amounts({&row}, asked.withAdvances) + "0|");
            }
            if (!asked.groupBy.empty() && next != row.levelCode) {
                texts.push_back(Levels(row.levelCode, all, "") + Group(row.group) + "0||小计|" +
                                AmountsWhere([&](const SummaryRow& r) { return r.group == row.group; }) +
                                "1|");
            }
            for (int level = all; level >= asked.firstLevel && level > 0; --level) {
                const std::string category = CategoryOf(row.levelCode, level);
                if (category.empty() || CategoryOf(next, level) == category) continue;
                AddTotal(row.levelCode, level, "小计", AmountsWhere([&](const SummaryRow& r) {
                             return CategoryOf(r.levelCode, level) == category;
                         }),
                         2);
            }
        }
        if (rows.empty()) return;
        AddTotal("", std::max(asked.firstLevel - 1, 0), "合计",
                 AmountsWhere([](const SummaryRow&) { return true; }), 3);
    }
};

}  // namespace

std::vector<std::int64_t> PartiesOf(const PlainBook& book, const AccountsAsked& asked) {
    const std::int32_t wanted = IsSelling(asked) ? item_class::kCustomer : item_class::kSupplier;
    std::map<std::string, std::int64_t> byCode;
    for (const auto& [id, item] : book.items) {
        if (item.itemClass != wanted || !book.Lies(id, asked.firstParty, asked.lastParty)) continue;
        if (book.Sees(asked.user, id)) byCode[item.number] = id;
    }
    std::vector<std::int64_t> parties;
    for (const auto& [code, id] : byCode) {
        parties.push_back(id);
    }
    return parties;
}

std::vector<AccountEntry> Entries(const PlainBook& book, const AccountsAsked& asked) {
    const std::vector<std::int64_t> parties = PartiesOf(book, asked);
    const auto isTaken = [&](std::int64_t party) {
        return std::ranges::find(parties, party) != parties.end();
    };
    std::vector<AccountEntry> entries;
    for (const BookBill& bill : book.bills) {
        if (!Counts(book, bill, asked)) continue;
        AccountEntry entry{bill.Party(asked.side), &bill, 0, 0, 0};
        if (!OwnEntry(book, bill, asked, entry)) continue;
        if (isTaken(entry.party)) entries.push_back(entry);
        const bool moves =
            bill.kind == BillKind::ReceivableTransfer || bill.kind == BillKind::PayableTransfer;
        if (moves && isTaken(bill.toParty)) entries.push_back({bill.toParty, &bill, bill.amount, 0, 0});
    }
    return entries;
}

std::vector<std::string> SlowSummary(const PlainBook& book, const AccountsAsked& asked) {
    SlowSummaryWriter writer{book, asked, RowsToShow(book, asked)};
    writer.Write();
    return writer.texts;
}

std::vector<std::string> SlowDetail(const PlainBook& book, const AccountsAsked& asked) {
    std::vector<AccountEntry> entries = Entries(book, asked);
    std::ranges::stable_sort(entries, {}, [](const AccountEntry& entry) { return entry.bill->day; });
    std::vector<std::string> texts;
    Sums all;
    std::int64_t closing = 0, shown = 0;
    for (const std::int64_t id : PartiesOf(book, asked)) {
        const BookItem& party = book.Item(id);
        const std::string behind = Cell(id) + party.number + "|" + party.name + "|";
        Sums before, within;
        std::vector<std::string> rows;
        for (const AccountEntry& entry : entries) {
            if (entry.party != id) continue;
            if (entry.bill->day < asked.firstDay) {
                before.Add(entry);
                continue;
            }
            within.Add(entry);
            const bool nothing = entry.raised == 0 && entry.settled == 0 && entry.advance == 0;
            if (asked.hidesNoMovement && nothing) continue;
            const BookBill& bill = *entry.bill;
            rows.push_back(Cell(bill.day) + std::string(RowOf(bill.kind).name) + "|" + bill.number + "|" +
                           bill.explanation + "|" + Cell(entry.advance) + Cell(entry.raised) +
                           Cell(entry.settled) + Cell(before.Balance() + within.Balance()) +
                           book.Item(bill.department).name + "|" + book.Item(bill.employee).name + "|" +
                           Cell(bill.id) + Cell(static_cast<std::int64_t>(bill.kind)) + behind + "0|");
        }
        const std::int64_t balance = before.Balance() + within.Balance();
        if (asked.hidesNoBalance && balance == 0) continue;
        if (rows.empty() && asked.hidesNoMovement) continue;
        if (rows.empty() && !party.current && before.Balance() == 0) continue;
        const std::string day = asked.firstDay == 0 ? "-|" : Cell(asked.firstDay);
        texts.push_back(day + "期初余额||" + party.number + " " + party.name + "|0|0|0|" +
                        Cell(before.Balance()) + "||0|0|" + behind + "0|");
        texts.insert(texts.end(), rows.begin(), rows.end());
        texts.push_back("-|小计|||" + Cell(within.advance) + Cell(within.raised) + Cell(within.settled) +
                        Cell(balance) + "||0|0|" + behind + "1|");
        all.Add({0, nullptr, within.raised, within.settled, within.advance});
        closing += balance;
        ++shown;
    }
    if (shown > 1) {
        texts.push_back("-|合计|||" + Cell(all.advance) + Cell(all.raised) + Cell(all.settled) +
                        Cell(closing) + "||0|0|0|||2|");
    }
    return texts;
}

}  // namespace qor::test
