#include "embedded/money_movements.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "embedded/bill_kinds.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"
#include "embedded/narrow_bills.h"
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

/// Which end of a bank transfer an account is, or both where no account is asked for.
enum class End { Both, From, To };

struct Movement {
    std::int64_t day, bill;
    End end;
    std::int64_t in, out;
    BillKind kind;
    const ItemTexts::Texts* party;
    const ItemTexts::Texts* department;
    const ItemTexts::Texts* employee;
    Value number, explanation;
};

constexpr SqlText kMovesMoney = "(b.FSettleAmount<>0 OR b.FBillType IN (5,6,7,8,22))";

static_assert(
    [] {
        for (const MoneyKind& row : kMoneyKinds) {
            const BillKindRow& signs = RowOf(row.kind);
            const auto kind = static_cast<std::int32_t>(row.kind);
            const bool whole = (kind >= 5 && kind <= 8) || kind == 22;
            if (whole == (signs.receivable != 0 || signs.payable != 0)) return false;
        }
        return true;
    }(),
    "the condition names the kinds whose whole amount is money");

class MovementReader {
 public:
    MovementReader(AccountSet& set, const Dictionary& dictionary)
        : set_(set),
          filter_(dictionary),
          firstDay_(filter_.Day("BDate")),
          lastDay_(filter_.Day("EDate")),
          items_(set, filter_.WantsShortNumbers()) {
        for (const MoneyKind& row : kMoneyKinds) {
            counts_[static_cast<std::size_t>(row.kind)] =
                row.includeKey.empty() || filter_.Flag(row.includeKey);
        }
        AddCheckState(conditions_, "b.FState", filter_.Number("CheckState"));
        AddPeople(conditions_, filter_);
        AddRights(conditions_, "b.FCustID", "o", ToText(dictionary.Get("DataRightWhere")));
    }

    const ReportFilter& filter() const { return filter_; }

    /// The bills of a short period are found by kind and date; for a long one all are read as they lie.
    void ReadPeriod() {
        if (!IsShortPeriod(set_, firstDay_, lastDay_)) {
            Conditions all;
            AddDayRange(all, "b.FDate", firstDay_, lastDay_);
            Read(all, " NOT INDEXED", End::Both);
            return;
        }
        for (const MoneyKind& row : kMoneyKinds) {
            if (!Counts(row.kind)) continue;
            Conditions ofKind;
            ofKind.Add({"b.FBillType=?"}, {static_cast<std::int64_t>(row.kind)});
            AddDayRange(ofKind, "b.FDate", firstDay_, lastDay_);
            Read(ofKind, "", End::Both);
        }
    }

    /// From the beginning: what lies ahead of BDate goes into the balance.
    void ReadAccount(std::int64_t account) {
        const auto read = [&](SqlText column, End end) {
            Conditions ofAccount;
            ofAccount.Add({column, "=?"}, {account});
            AddDayRange(ofAccount, "b.FDate", std::nullopt, lastDay_);
            Read(ofAccount, "", end);
        };
        read("b.FAcctID", End::From);
        read("b.FToAcctID", End::To);
    }

    /// By date, then as the bills were entered.
    std::vector<Movement>& Sorted() {
        const auto place = [](const Movement& row) { return std::tuple(row.day, row.bill, row.end); };
        if (!std::ranges::is_sorted(movements_, {}, place)) std::ranges::sort(movements_, {}, place);
        return movements_;
    }
    std::int64_t balanceBefore() const { return balanceBefore_; }

 private:
    bool Counts(BillKind kind) const { return counts_[static_cast<std::size_t>(kind)]; }

    void Read(Conditions conditions, SqlText indexing, End end) {
        conditions.Add({kMovesMoney});
        conditions.Add(conditions_);
        Statement found(set_.database(),
                        "SELECT b.FBillType, b.FDate, b.FAmount, b.FSettleAmount, b.FBillNo, b.FExplanation, "
                        "ifnull(b.FCustID,b.FSupplyID), b.FDeptID, b.FEmpID, b.FBillID FROM t_Bill b" +
                            std::string(indexing.view()) + " WHERE " + conditions.Text());
        conditions.BindTo(found);
        while (found.Step()) {
            const auto kind = static_cast<BillKind>(found.Int(0));
            if (!IsBillKind(found.Int(0)) || !Counts(kind)) continue;
            const BillKindRow& row = RowOf(kind);
            const bool paidAtOnce = row.receivable != 0 || row.payable != 0;
            const std::int64_t money = row.cash * (paidAtOnce ? found.Int(3) : found.Int(2));
            if (firstDay_ && found.Int(1) < *firstDay_) {
                balanceBefore_ += end == End::To ? -money : money;
            } else if (money != 0) {
                Add(found, kind, money, end);
            }
        }
    }

    void Add(const Statement& found, BillKind kind, std::int64_t money, End end) {
        const std::int64_t from = end == End::To ? 0 : money;
        const std::int64_t to = end != End::From && kind == BillKind::BankTransfer ? -money : 0;
        movements_.push_back({.day = found.Int(1),
                              .bill = found.Int(9),
                              .end = end,
                              .in = std::max<std::int64_t>(from, 0) + std::max<std::int64_t>(to, 0),
                              .out = -std::min<std::int64_t>(from, 0) - std::min<std::int64_t>(to, 0),
                              .kind = kind,
                              .party = &items_.Of(found.Int(6)),
                              .department = &items_.Of(found.Int(7)),
                              .employee = &items_.Of(found.Int(8)),
                              .number = found.Text(4),
                              .explanation = explanations_.Share(found.Text(5))});
    }

    AccountSet& set_;
    const ReportFilter filter_;
    const std::optional<std::int64_t> firstDay_, lastDay_;
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
        Add(day ? Value(Date{static_cast<double>(*day)}) : Value::Null(), blank_, blank_, 0, 0, "期初余额",
            blank_, blank_, blank_);
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
    reader.ReadPeriod();
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
