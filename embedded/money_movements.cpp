#include "embedded/money_movements.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <vector>

#include "embedded/bill_kinds.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"
#include "embedded/report_conditions.h"
#include "embedded/right_clause.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// A kind of bill that moves money, and the key that takes it in; "" for what always counts.
struct MoneyKind {
    BillKind kind;
    std::string_view includeKey;
};

constexpr MoneyKind kMoneyKinds[] = {
    // clang-format off
    {BillKind::Sale,            "IncludeSale"},
    {BillKind::SaleReturn,      "IncludeSale"},
    {BillKind::Purchase,        "IncludePurchase"},
    {BillKind::PurchaseReturn,  "IncludePurchase"},
    {BillKind::Receipt,         "IncludeR"},
    {BillKind::AdvanceReceipt,  "IncludeR"},
    {BillKind::Payment,         "IncludeP"},
    {BillKind::AdvancePayment,  "IncludeP"},
    {BillKind::OtherIncome,     ""},
    {BillKind::Expense,         ""},
    {BillKind::SaleRebate,      "IncludeXSFL"},
    {BillKind::PurchaseRebate,  "IncludeCGFL"},
    {BillKind::ConsignmentSale, "IncludeSale"},
    {BillKind::BankTransfer,    "IncludeBank"},
    // clang-format on
};

static_assert(
    [] {
        for (const BillKindRow& row : kBillKinds) {
            const bool listed = std::ranges::count(kMoneyKinds, row.kind, &MoneyKind::kind) == 1;
            if (listed != (row.cash != 0)) return false;
        }
        return true;
    }(),
    "every kind that moves money stands in the table once");

struct Movement {
    BillKind kind;
    std::int64_t day;
    std::int64_t in, out;
    const ItemTexts::Texts* party;
    const ItemTexts::Texts* department;
    const ItemTexts::Texts* employee;
    Value number, explanation;
};

/// Which end of a bank transfer an account is, or both where no account is asked for.
enum class End { Both, From, To };

class MovementReader {
 public:
    MovementReader(AccountSet& set, const Dictionary& dictionary)
        : set_(set), filter_(dictionary), items_(set, filter_.WantsShortNumbers()) {
        for (const MoneyKind& row : kMoneyKinds) {
            counts_[static_cast<std::size_t>(row.kind)] =
                row.includeKey.empty() || filter_.Flag(row.includeKey);
        }
        AddCheckState(conditions_, "b.FState", filter_.Number("CheckState"));
        AddCodeRange(conditions_, "b.FDeptID", item_class::kDepartment, filter_.Code("BDeptNumber"),
                     filter_.Code("EDeptNumber"));
        AddCodeRange(conditions_, "b.FEmpID", item_class::kEmployee, filter_.Code("BEmpNumber"),
                     filter_.Code("EEmpNumber"));
        if (std::string name = filter_.Code("BillerName"); !name.empty()) {
            conditions_.Add(
                {"b.FBillerID IN (SELECT FUserID FROM t_User WHERE instr(lower(FName),lower(?))>0)"},
                {std::move(name)});
        }
        AddRights(conditions_, "b.FCustID", "o", ToText(dictionary.Get("DataRightWhere")));
    }

    const ReportFilter& filter() const { return filter_; }

    void ReadKinds() {
        for (const MoneyKind& row : kMoneyKinds) {
            const auto kind = static_cast<std::int64_t>(row.kind);
            if (Counts(row.kind)) Read({"b.FBillType=?"}, kind, filter_.Day("BDate"), End::Both);
        }
    }

    /// From the beginning: what lies ahead of BDate goes into the balance.
    void ReadAccount(std::int64_t account) {
        Read({"b.FAcctID=?"}, account, std::nullopt, End::From);
        Read({"b.FToAcctID=?"}, account, std::nullopt, End::To);
    }

    /// By date, kind and number, those of one bill as they were read.
    std::vector<Movement>& Sorted() {
        std::ranges::stable_sort(movements_, [](const Movement& a, const Movement& b) {
            if (a.day != b.day) return a.day < b.day;
            if (a.kind != b.kind) return a.kind < b.kind;
            return a.number.text() < b.number.text();
        });
        return movements_;
    }
    std::int64_t balanceBefore() const { return balanceBefore_; }

 private:
    bool Counts(BillKind kind) const { return counts_[static_cast<std::size_t>(kind)]; }

    void Read(SqlText way, std::int64_t value, std::optional<std::int64_t> firstDay, End end) {
        Conditions conditions;
        conditions.Add({way}, {value});
        AddDayRange(conditions, "b.FDate", firstDay, filter_.Day("EDate"));
        conditions.Add(conditions_);
        Statement found(set_.database(),
                        "SELECT b.FBillType, b.FDate, b.FAmount, b.FSettleAmount, b.FBillNo, b.FExplanation, "
                        "ifnull(b.FCustID,b.FSupplyID), b.FDeptID, b.FEmpID FROM t_Bill b WHERE " +
                            conditions.Text());
        conditions.BindTo(found);
        const std::int64_t shownFrom =
            filter_.Day("BDate").value_or(std::numeric_limits<std::int64_t>::min());
        while (found.Step()) {
            const auto kind = static_cast<BillKind>(found.Int(0));
            if (!Counts(kind)) continue;
            const BillKindRow& row = RowOf(kind);
            const bool paidAtOnce = row.receivable != 0 || row.payable != 0;
            const std::int64_t money = row.cash * (paidAtOnce ? found.Int(3) : found.Int(2));
            if (money == 0) continue;
            if (found.Int(1) < shownFrom) {
                balanceBefore_ += end == End::To ? -money : money;
            } else {
                Add(found, kind, money, end);
            }
        }
    }

    void Add(const Statement& found, BillKind kind, std::int64_t money, End end) {
        const bool comesBack = end != End::From && kind == BillKind::BankTransfer;
        const bool goes = end != End::To;
        const std::int64_t first = goes ? money : 0, second = comesBack ? -money : 0;
        movements_.push_back({.kind = kind,
                              .day = found.Int(1),
                              .in = std::max<std::int64_t>(first, 0) + std::max<std::int64_t>(second, 0),
                              .out = -std::min<std::int64_t>(first, 0) - std::min<std::int64_t>(second, 0),
                              .party = &items_.Of(found.Int(6)),
                              .department = &items_.Of(found.Int(7)),
                              .employee = &items_.Of(found.Int(8)),
                              .number = found.Text(4),
                              .explanation = explanations_.Share(found.Text(5))});
    }

    AccountSet& set_;
    const ReportFilter filter_;
    Conditions conditions_;
    std::array<bool, std::size(kBillKinds) + 1> counts_{};
    ItemTexts items_;
    SharedTexts explanations_;
    std::vector<Movement> movements_;
    std::int64_t balanceBefore_ = 0;
};

/// Fills the record set; FBalanceAmount is there where there is an account.
class MovementWriter {
 public:
    explicit MovementWriter(bool withBalance) : withBalance_(withBalance), set_(MakeSet(withBalance)) {
        for (const BillKindRow& row : kBillKinds) {
            kindNames_.emplace_back(row.name);
        }
    }

    void AddOpening(std::optional<std::int64_t> day, std::int64_t balance) {
        balance_ = balance;
        Add(day ? Value(Date{static_cast<double>(*day)}) : Value(), blank_, blank_, 0, 0, "期初余额", blank_,
            blank_, blank_);
    }

    Ref<RecordSet> Write(std::vector<Movement>& movements) {
        set_->Reserve(movements.size() + 1);
        for (Movement& row : movements) {
            balance_ += row.in - row.out;
            Add(Date{static_cast<double>(row.day)}, std::move(row.number),
                kindNames_[static_cast<std::size_t>(row.kind) - 1], row.in, row.out,
                std::move(row.explanation), row.party->name, row.department->name, row.employee->name);
        }
        return set_;
    }

 private:
    static Ref<ColumnarRecordSet> MakeSet(bool withBalance) {
        std::vector<std::string> fields = {"FDate", "FBillNo", "FBillTypeName", "FInAmount", "FOutAmount"};
        if (withBalance) fields.emplace_back("FBalanceAmount");
        for (const char* field : {"FExplanation", "FName", "FDeptName", "FEmpName"}) {
            fields.emplace_back(field);
        }
        return MakeRef<ColumnarRecordSet>(std::move(fields));
    }

    void Add(Value day, Value number, Value kind, std::int64_t in, std::int64_t out, Value explanation,
             Value party, Value department, Value employee) {
        std::size_t column = 0;
        const auto add = [&](Value value) { set_->AddCell(column++, std::move(value)); };
        add(std::move(day));
        add(std::move(number));
        add(std::move(kind));
        add(Yuan(in));
        add(Yuan(out));
        if (withBalance_) add(Yuan(balance_));
        add(std::move(explanation));
        add(std::move(party));
        add(std::move(department));
        add(std::move(employee));
    }

    const bool withBalance_;
    Ref<ColumnarRecordSet> set_;
    std::vector<Value> kindNames_;
    std::int64_t balance_ = 0;
    const Value blank_ = "";
};

struct OpenedAccount {
    std::int64_t id, opening;
};

std::vector<OpenedAccount> AccountsOf(AccountSet& set, const std::string& code) {
    Conditions range;
    AddCodeRange(range, "a.FItemID", item_class::kAccount, code, code);
    Statement found(set.database(),
                    "SELECT a.FItemID, a.FBeginAmount FROM t_Account a WHERE " + range.Text());
    range.BindTo(found);
    std::vector<OpenedAccount> accounts;
    while (found.Step()) {
        accounts.push_back({found.Int(0), found.Int(1)});
    }
    return accounts;
}

}  // namespace

Ref<RecordSet> MoneyMovements(AccountSet& set, const Dictionary& filter) {
    MovementReader reader(set, filter);
    reader.ReadKinds();
    return MovementWriter(false).Write(reader.Sorted());
}

Ref<RecordSet> AccountMovements(AccountSet& set, const Dictionary& filter) {
    MovementReader reader(set, filter);
    const std::vector<OpenedAccount> accounts = AccountsOf(set, reader.filter().Code("AcctNumber"));
    std::int64_t opening = 0;
    for (const OpenedAccount& account : accounts) {
        opening += account.opening;
        reader.ReadAccount(account.id);
    }
    MovementWriter writer(true);
    if (!accounts.empty()) writer.AddOpening(reader.filter().Day("BDate"), opening + reader.balanceBefore());
    return writer.Write(reader.Sorted());
}

}  // namespace qor
