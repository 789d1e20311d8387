#include "embedded/settlement_lists.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <string>
#include <vector>

#include "embedded/code_ranks.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"
#include "embedded/narrow_bills.h"
#include "embedded/open_amounts.h"
#include "embedded/report_conditions.h"
#include "embedded/right_clause.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// A kind of bill that is listed, and the key that takes it in.
struct ListedKind {
    BillKind kind;
    std::string_view includeKey;
};

constexpr std::string_view kBills = "chkIncludeBill", kOther = "chkIncludeOther";
constexpr std::string_view kAdvances = "chkIncludePre", kRebates = "chkIncludeRebate";

constexpr ListedKind kCustomerKinds[] = {
    // clang-format off
    {BillKind::Sale,               kBills},
    {BillKind::SaleReturn,         kBills},
    {BillKind::ConsignmentSale,    kBills},
    {BillKind::OpeningReceivable,  kBills},
    {BillKind::OtherReceivable,    kOther},
    {BillKind::OtherIncome,        kOther},
    {BillKind::ReceivableTransfer, kOther},
    {BillKind::AdvanceReceipt,     kAdvances},
    {BillKind::SaleRebate,         kRebates},
    // clang-format on
};

constexpr ListedKind kSupplierKinds[] = {
    // clang-format off
    {BillKind::Purchase,        kBills},
    {BillKind::PurchaseReturn,  kBills},
    {BillKind::OpeningPayable,  kBills},
    {BillKind::OtherPayable,    kOther},
    {BillKind::Expense,         kOther},
    {BillKind::PayableTransfer, kOther},
    {BillKind::AdvancePayment,  kAdvances},
    {BillKind::PurchaseRebate,  kRebates},
    // clang-format on
};

/// What differs between the two lists.
struct ListSide {
    PartySide side;
    std::span<const ListedKind> kinds;
    std::int32_t parties;
    std::string_view firstPartyKey, lastPartyKey;
};

constexpr ListSide kReceipts = {PartySide::Customer, kCustomerKinds, item_class::kCustomer, "BCustNumber",
                                "ECustNumber"};
constexpr ListSide kPayments = {PartySide::Supplier, kSupplierKinds, item_class::kSupplier, "BSupplyNumber",
                                "ESupplyNumber"};

struct ListedBill {
    std::int64_t party, department, employee;
    BillKind kind;
    std::int64_t day;
    std::int64_t amount, open;
    Value number, explanation;
};

/// The parties that the range of codes and the rights leave, by id.
std::vector<std::int64_t> PartiesOf(AccountSet& set, const ListSide& side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    Conditions conditions;
    conditions.Add({"i.FItemClassID=?"}, {std::int64_t{side.parties}});
    AddCodeRange(conditions, "i.FItemID", side.parties, filter.Code(side.firstPartyKey),
                 filter.Code(side.lastPartyKey));
    AddRights(conditions, "i.FItemID", "t1", ToText(dictionary.Get("DataRightWhere")));
    Statement found(set.database(),
                    "SELECT i.FItemID FROM t_Item i WHERE " + conditions.Text() + " ORDER BY 1");
    conditions.BindTo(found);
    std::vector<std::int64_t> parties;
    while (found.Step()) {
        parties.push_back(found.Int(0));
    }
    return parties;
}

/// What the filter takes of all bills and what is open of them, by id. A transfer is listed in the account of
/// the party that it is put on.
std::vector<OpenAmount> ChooseAmounts(AccountSet& set, const ListSide& side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    std::array<bool, std::size(kBillKinds) + 1> isListed{};
    for (const ListedKind& row : side.kinds) {
        isListed[static_cast<std::size_t>(row.kind)] = filter.Flag(row.includeKey);
    }
    const std::vector<std::int64_t> parties = PartiesOf(set, side, dictionary);
    const auto firstDay = filter.Day("BDate");
    const bool onlyOpen = filter.Flag("chkShowNonZero");
    std::vector<OpenAmount> amounts = OpenAmounts(set, {.side = side.side,
                                                        .day = filter.Day("EDate"),
                                                        .checkState = filter.Number("cmbCheckState"),
                                                        .parties = parties,
                                                        .firstDay = firstDay});
    std::erase_if(amounts, [&](const OpenAmount& bill) {
        const bool takenFrom = SignsOf(bill.kind, side.side).target != 0 && bill.amount < 0;
        return !isListed[static_cast<std::size_t>(bill.kind)] || takenFrom || (onlyOpen && bill.open == 0) ||
               (firstDay && bill.day < *firstDay) || !std::ranges::binary_search(parties, bill.party);
    });
    return amounts;
}

/// Reads the bills of the amounts, as far as the ranges of departments and employees hold them.
std::vector<ListedBill> ReadBills(AccountSet& set, const ReportFilter& filter,
                                  const std::vector<OpenAmount>& amounts) {
    std::vector<ListedBill> bills;
    if (amounts.empty()) return bills;
    Conditions conditions;
    conditions.Add({"b.FBillID>=? AND b.FBillID<=?"}, {amounts.front().bill, amounts.back().bill});
    AddPeople(conditions, filter);
    Statement found(set.database(),
                    "SELECT b.FBillID, b.FDeptID, b.FEmpID, b.FBillNo, b.FExplanation FROM t_Bill b "
                    "NOT INDEXED WHERE " +
                        conditions.Text() + " ORDER BY b.FBillID");
    conditions.BindTo(found);
    SharedTexts explanations;
    const bool together = (amounts.back().bill - amounts.front().bill) / kNarrowShare < std::ssize(amounts);
    bool onBill = together && found.Step();
    for (const OpenAmount& amount : amounts) {
        if (!together) onBill = found.With(amount.bill, amount.bill).Step();
        while (onBill && found.Int(0) < amount.bill)
            onBill = found.Step();
        if (!onBill || found.Int(0) != amount.bill) continue;
        bills.push_back({.party = amount.party,
                         .department = found.Int(1),
                         .employee = found.Int(2),
                         .kind = amount.kind,
                         .day = amount.day,
                         .amount = amount.amount,
                         .open = amount.open,
                         .number = found.Text(3),
                         .explanation = explanations.Share(found.Text(4))});
    }
    return bills;
}

/// What the list is sorted by, as cboSortBy counts.
enum class SortBy : std::int32_t { Date, Party, Department, Employee, Open };

/// The key of each bill.
std::vector<std::int64_t> SortKeys(AccountSet& set, const ListSide& side, SortBy sortBy,
                                   const std::vector<ListedBill>& bills) {
    std::vector<std::int64_t> keys;
    keys.reserve(bills.size());
    const auto byCode = [&](std::int32_t itemClass, std::int64_t ListedBill::*item) {
        const CodeRanks ranks(set, itemClass);
        for (const ListedBill& bill : bills) {
            keys.push_back(static_cast<std::int64_t>(ranks.Of(bill.*item)));
        }
    };
    const auto byNumber = [&](std::int64_t ListedBill::*number) {
        for (const ListedBill& bill : bills) {
            keys.push_back(bill.*number);
        }
    };
    switch (sortBy) {
        case SortBy::Date:
            byNumber(&ListedBill::day);
            break;
        case SortBy::Party:
            byCode(side.parties, &ListedBill::party);
            break;
        case SortBy::Department:
            byCode(item_class::kDepartment, &ListedBill::department);
            break;
        case SortBy::Employee:
            byCode(item_class::kEmployee, &ListedBill::employee);
            break;
        case SortBy::Open:
            byNumber(&ListedBill::open);
            break;
    }
    return keys;
}

/// The places of the bills in the filter's order; those with one key by date and number, upwards always.
std::vector<std::size_t> Order(AccountSet& set, const ListSide& side, const ReportFilter& filter,
                               const std::vector<ListedBill>& bills) {
    const std::int32_t sortBy = filter.Number("cboSortBy").value_or(0);
    if (sortBy < 0 || sortBy > static_cast<std::int32_t>(SortBy::Open)) {
        RaiseAccountSetError("排序方式无效：" + std::to_string(sortBy));
    }
    const bool down = filter.Flag("OptSortDesc") && !filter.Flag("OptSortAsc");
    const std::vector<std::int64_t> keys = SortKeys(set, side, SortBy{sortBy}, bills);
    std::vector<std::size_t> order(bills.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, [&](std::size_t a, std::size_t b) {
        if (keys[a] != keys[b]) return down ? keys[a] > keys[b] : keys[a] < keys[b];
        if (bills[a].day != bills[b].day) return bills[a].day < bills[b].day;
        const int number = bills[a].number.text().compare(bills[b].number.text());
        return number != 0 ? number < 0 : a < b;
    });
    return order;
}

Ref<RecordSet> SettlementList(AccountSet& set, const ListSide& side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    std::vector<ListedBill> bills = ReadBills(set, filter, ChooseAmounts(set, side, dictionary));
    const std::vector<std::size_t> order = Order(set, side, filter, bills);
    ItemTexts items(set, filter.WantsShortNumbers());
    std::vector<Value> kindNames;
    for (const BillKindRow& row : kBillKinds) {
        kindNames.emplace_back(row.name);
    }
    auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{
        "FDate", "FBillNo", "FBillType", "FAllAmount", "FCheckAmount", "FUnCheckAmount", "FDeptNumber",
        "FDeptName", "FEmpNumber", "FEmpName", "FExplanation"});
    rows->Reserve(bills.size());
    for (const std::size_t place : order) {
        ListedBill& bill = bills[place];
        const ItemTexts::Texts& department = items.Of(bill.department);
        const ItemTexts::Texts& employee = items.Of(bill.employee);
        std::size_t column = 0;
        const auto add = [&](Value value) { rows->AddCell(column++, std::move(value)); };
        add(Date{static_cast<double>(bill.day)});
        add(std::move(bill.number));
        add(kindNames[static_cast<std::size_t>(bill.kind) - 1]);
        add(Yuan(bill.amount));
        add(Yuan(bill.amount - bill.open));
        add(Yuan(bill.open));
        add(department.number);
        add(department.name);
        add(employee.number);
        add(employee.name);
        add(std::move(bill.explanation));
    }
    return rows;
}

}  // namespace

Ref<RecordSet> ReceiptList(AccountSet& set, const Dictionary& filter) {
    return SettlementList(set, kReceipts, filter);
}

Ref<RecordSet> PaymentList(AccountSet& set, const Dictionary& filter) {
    return SettlementList(set, kPayments, filter);
}

}  // namespace qor
