#include "embedded/slow_statement.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

#include "embedded/sample_fixture.h"

namespace qor::test {

namespace {

const std::string kOfUser16 = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";

struct SlowSums {
    std::int64_t raised = 0, real = 0, discount = 0;
    std::int64_t Balance() const { return raised - real - discount; }
};

/// What one bill does in the account of one party, kind by kind; nothing where it is none of its bills.
std::optional<SlowSums> SumsFor(const BookBill& bill, std::int64_t party, const StatementAsked& asked) {
    const bool selling = asked.side == PartySide::Customer;
    const bool own = bill.Party(asked.side) == party;
    const bool transfer = bill.kind == BillKind::ReceivableTransfer || bill.kind == BillKind::PayableTransfer;
    const auto number = static_cast<int>(bill.kind);
    if (number >= 17 && number <= 21 && !asked.withWriteOffs) return std::nullopt;
    if (transfer && selling != (bill.kind == BillKind::ReceivableTransfer)) return std::nullopt;
    if (transfer && bill.toParty == party) return SlowSums{.raised = bill.amount};
    if (!own) return std::nullopt;
    switch (bill.kind) {
        case BillKind::Sale:
        case BillKind::SaleReturn:
        case BillKind::ConsignmentSale:
        case BillKind::OtherReceivable:
        case BillKind::OtherIncome:
        case BillKind::OpeningReceivable:
            if (!selling) return std::nullopt;
            return SlowSums{.raised = bill.amount, .real = bill.settled};
        case BillKind::Purchase:
        case BillKind::PurchaseReturn:
        case BillKind::OtherPayable:
        case BillKind::Expense:
        case BillKind::OpeningPayable:
            if (selling) return std::nullopt;
            return SlowSums{.raised = bill.amount, .real = bill.settled};
        case BillKind::SaleRebate:
        case BillKind::PurchaseRebate:
            if (selling != (bill.kind == BillKind::SaleRebate)) return std::nullopt;
            return SlowSums{.raised = -bill.amount, .real = -bill.settled};
        case BillKind::Receipt:
        case BillKind::Payment:
            if (selling != (bill.kind == BillKind::Receipt)) return std::nullopt;
            return SlowSums{.real = bill.amount, .discount = bill.discount};
        case BillKind::AdvanceReceipt:
        case BillKind::AdvancePayment:
            if (selling != (bill.kind == BillKind::AdvanceReceipt)) return std::nullopt;
            return SlowSums{.real = bill.amount};
        case BillKind::AdvanceToReceivable:
        case BillKind::AdvanceToPayable:
            if (selling != (bill.kind == BillKind::AdvanceToReceivable)) return std::nullopt;
            return SlowSums{};
        case BillKind::ReceivableToPayable:
        case BillKind::ReceivableTransfer:
        case BillKind::PayableTransfer:
            return SlowSums{.real = bill.amount};
        case BillKind::Estimate:
        case BillKind::EstimateReversal:
            if (selling || !asked.withEstimates) return std::nullopt;
            return SlowSums{.raised = bill.amount};
        default:
            return std::nullopt;
    }
}

std::string Fixed(double value) { return std::to_string(std::llround(value * 100)); }

}  // namespace

std::vector<std::string> SlowStatement(const PlainBook& book, const StatementAsked& asked) {
    std::map<std::string, std::int64_t> parties;  // by code
    const std::int32_t itemClass = PartyClassOf(asked.side);
    for (const auto& [id, item] : book.items) {
        const bool taken = item.itemClass == itemClass && book.Lies(id, asked.first, asked.last);
        if (taken && book.Sees(asked.user, id)) parties[item.number] = id;
    }
    std::vector<std::string> rows;
    for (const auto& [code, party] : parties) {
        std::int64_t begin = 0;
        bool known = book.Item(party).current, moved = false;
        std::vector<std::pair<const BookBill*, SlowSums>> bills;
        for (const BookBill& bill : book.bills) {
            const auto sums = SumsFor(bill, party, asked);
            if (!sums || !PlainBook::Counts(bill, asked.checkState, asked.lastDay)) continue;
            if (!book.Lies(bill.department, asked.firstDepartment, asked.lastDepartment)) continue;
            if (!book.Lies(bill.employee, asked.firstEmployee, asked.lastEmployee)) continue;
            known = true;
            if (bill.day < asked.firstDay) {
                begin += sums->Balance();
            } else {
                bills.emplace_back(&bill, *sums);
            }
        }
        std::ranges::stable_sort(bills, {}, [](const auto& entry) { return entry.first->day; });
        std::int64_t balance = begin;
        const std::string none = asked.withGoods ? "||||||-|-||-|-|" : "";
        std::vector<std::string> own{(asked.firstDay == 0 ? "-" : std::to_string(asked.firstDay)) +
                                     "|期初余额|||" + none + code + " " + book.Item(party).name + "|0|0|0|" +
                                     std::to_string(begin) + "||||"};
        for (const auto& [bill, sums] : bills) {
            const bool zero = sums.raised == 0 && sums.real == 0 && sums.discount == 0;
            moved = moved || !zero;
            if (zero && asked.hidesZeroBills) continue;
            std::vector<const BookGoods*> lines;
            for (const BookGoods& line : book.goods) {
                if (asked.withGoods && line.bill == bill->id) lines.push_back(&line);
            }
            SlowSums rest = sums;
            for (std::size_t i = 0; i < std::max<std::size_t>(lines.size(), 1); ++i) {
                const bool last = i + 1 >= lines.size();
                const SlowSums shown = last ? rest : SlowSums{.raised = lines[i]->amount};
                rest.raised -= shown.raised;
                balance += shown.Balance();
                std::string row = std::to_string(bill->day) + "|" + std::string(RowOf(bill->kind).name) +
                                  "|" + bill->number + "|" + bill->voucher + "|";
                if (asked.withGoods && lines.empty()) row += none;
                if (!lines.empty()) {
                    const BookGoods& line = *lines[i];
                    const BookItem& item = book.Item(line.item);
                    const auto quantity = static_cast<double>(line.quantity) / 10000;
                    const auto price = static_cast<double>(line.price) / 10000;
                    const auto rate = static_cast<double>(line.showRate);
                    row += item.name + "|" + item.number + "|" + item.model + "|" + line.aux + "|" +
                           line.batch + "|" + book.Item(item.unit).name + "|" + Fixed(quantity) + "|" +
                           Fixed(price) + "|" + book.Item(line.showUnit).name + "|" + Fixed(quantity / rate) +
                           "|" + Fixed(price * rate) + "|";
                }
                row += bill->explanation + "|";
                for (const std::int64_t amount : {shown.raised, shown.real, shown.discount, balance}) {
                    row += std::to_string(amount) + "|";
                }
                own.push_back(row + book.Item(bill->department).name + "|" + book.Item(bill->employee).name +
                              "|" + bill->invoice + "|");
            }
        }
        if (!known || (balance == 0 && (asked.hidesZeroBalance || (asked.hidesZero && !moved)))) continue;
        rows.insert(rows.end(), own.begin(), own.end());
    }
    return rows;
}

Ref<OrderedDictionary> StatementFilter(const StatementAsked& asked) {
    const auto flag = [](bool value) { return static_cast<std::int16_t>(value ? 1 : 0); };
    return Filter({{"BDate", asked.firstDay == 0 ? Value() : Date{static_cast<double>(asked.firstDay)}},
                   {"EDate", Date{static_cast<double>(asked.lastDay)}},
                   {"BItemNumber", asked.first},
                   {"EItemNumber", asked.last},
                   {"BDeptNumber", asked.firstDepartment},
                   {"EDeptNumber", asked.lastDepartment},
                   {"BEmpNumber", asked.firstEmployee},
                   {"EEmpNumber", asked.lastEmployee},
                   {"ShowDetail", flag(asked.withGoods)},
                   {"ShowCheckBill", flag(asked.withWriteOffs)},
                   {"NotShowBalZero", flag(asked.hidesZeroBalance)},
                   {"NotShowBillZero", flag(asked.hidesZeroBills)},
                   {"IncludeGJ", flag(asked.withEstimates)},
                   {"PrintByPg", flag(false)},
                   {"NotShowZero", flag(asked.hidesZero)},
                   {"CheckState", static_cast<std::int16_t>(asked.checkState)},
                   {"DataRightWhere", asked.user.empty() ? "" : kOfUser16}});
}

}  // namespace qor::test
