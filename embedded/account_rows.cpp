#include "embedded/account_rows.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "embedded/account_side.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"
#include "embedded/rows_by_account.h"

namespace qor {

namespace {

enum SumSort : std::int32_t { kRow = 0, kPartyTotal = 1, kGrandTotal = 2 };

struct BillRow {
    std::int64_t day, bill;
    BillKind kind;
    LedgerSums sums;
    const ItemTexts::Texts* department;
    const ItemTexts::Texts* employee;
    std::size_t texts;  // number and explanation
};

/// The account of one party.
struct Account {
    LedgerParty party;
    std::int64_t opening = 0;
    LedgerSums current{};
    std::span<const BillRow> bills{};  // of the period, by day, within a day as they were entered

    std::int64_t Closing() const { return opening + current.Balance(); }
};

class Detail {
 public:
    Detail(AccountSet& set, const AccountSide& side, const Dictionary& dictionary)
        : side_(side), filter_(dictionary), firstDay_(filter_.Day("BDate")), items_(set, false) {
        ReadAccounts(set, dictionary);
        for (const BillKindRow& row : kBillKinds) {
            kindNames_[static_cast<std::size_t>(row.kind)] = row.name;
        }
    }

    Ref<RecordSet> Write() {
        set_ = MakeRef<ColumnarRecordSet>(std::vector<std::string>{
            "FDate", "FBillTypeName", "FBillNo", "FExplanation", "FPreAmount", side_.raisedField,
            side_.settledField, "FBalanceAmount", "FDeptName", "FEmpName", "FBillID", "FBillType",
            side_.idField, side_.numberField, side_.nameField, "FSumSort"});
        std::size_t rows = 1;
        for (const Account& account : accounts_) {
            rows += account.bills.size() + 2;
        }
        set_->Reserve(rows);
        LedgerSums all;
        std::int64_t closing = 0;
        for (const Account& account : accounts_) {
            WriteAccount(account);
            all += account.current;
            closing += account.Closing();
        }
        if (accounts_.size() > 1) WriteSummary({}, "合计", "", all, closing, kGrandTotal);
        return set_;
    }

 private:
    void ReadAccounts(AccountSet& set, const Dictionary& dictionary) {
        PartyLedger ledger(set, AccountQuery(side_, dictionary),
                           ", b.FDeptID, b.FEmpID, b.FBillNo, b.FExplanation");
        for (const LedgerParty& party : ledger.parties()) {
            accounts_.push_back({party});
        }
        bills_.emplace(accounts_.size());
        const bool withoutZeroBills = filter_.Flag("NotShowBillZero");
        while (ledger.Next()) {
            const Movement& movement = ledger.movement();
            Account& account = accounts_[movement.party];
            if (firstDay_ && movement.day < *firstDay_) {
                account.opening += movement.sums.Balance();
                continue;
            }
            account.current += movement.sums;
            if (withoutZeroBills && movement.sums.AreZero()) continue;
            constexpr int kMore = PartyLedger::kMore;
            const Statement& row = ledger.row();
            bills_->Add(movement.party, {.day = movement.day,
                                         .bill = movement.bill,
                                         .kind = movement.kind,
                                         .sums = movement.sums,
                                         .department = &items_.Of(row.Int(kMore)),
                                         .employee = &items_.Of(row.Int(kMore + 1)),
                                         .texts = texts_.Add({row.Text(kMore + 2), row.Text(kMore + 3)})});
        }
        bills_->Deal([](const BillRow& row) { return std::pair(row.day, row.bill); });
        for (std::size_t i = 0; i < accounts_.size(); ++i) {
            accounts_[i].bills = bills_->Of(i);
        }
        std::erase_if(accounts_, [&](const Account& account) { return IsHidden(account); });
    }

    bool IsHidden(const Account& account) const {
        if (filter_.Flag("NotShowBalZero") && account.Closing() == 0) return true;
        if (!account.bills.empty()) return false;
        return filter_.Flag("NotShowBillZero") || (!account.party.current && account.opening == 0);
    }

    void WriteAccount(const Account& account) {
        const ItemTexts::Texts& party = items_.Of(account.party.id);
        WriteSummary(account.party, "期初余额", party.number.text() + " " + party.name.text(), {},
                     account.opening, kRow);
        std::int64_t balance = account.opening;
        for (const BillRow& bill : account.bills) {
            balance += bill.sums.Balance();
            WriteBill(account.party, bill, balance);
        }
        WriteSummary(account.party, "小计", "", account.current, balance, kPartyTotal);
    }

    void WriteBill(const LedgerParty& party, const BillRow& bill, std::int64_t balance) {
        RowTexts::Reader texts = texts_.From(bill.texts);
        column_ = 0;
        AddCell(Date{static_cast<double>(bill.day)});
        AddCell(kindNames_[static_cast<std::size_t>(bill.kind)]);
        AddCell(texts.Next());
        AddCell(explanations_.Share(texts.Next()));
        AddAmounts(bill.sums, balance);
        AddCell(bill.department->name);
        AddCell(bill.employee->name);
        AddCell(static_cast<std::int32_t>(bill.bill));
        AddCell(static_cast<std::int32_t>(bill.kind));
        AddParty(party, kRow);
    }

    /// A row that is no bill: an opening balance, dated on the first day, or a total.
    void WriteSummary(const LedgerParty& party, const char* kind, Value explanation, const LedgerSums& sums,
                      std::int64_t balance, SumSort sort) {
        column_ = 0;
        AddCell(sort == kRow && firstDay_ ? Value(Date{static_cast<double>(*firstDay_)}) : Value::Null());
        AddCell(kind);
        AddCell(blank_);
        AddCell(std::move(explanation));
        AddAmounts(sums, balance);
        AddCell(blank_);
        AddCell(blank_);
        AddCell(std::int32_t{0});
        AddCell(std::int32_t{0});
        AddParty(party, sort);
    }

    void AddAmounts(const LedgerSums& sums, std::int64_t balance) {
        AddCell(Yuan(sums.advance));
        AddCell(Yuan(sums.raised));
        AddCell(Yuan(sums.settled));
        AddCell(Yuan(balance));
    }

    void AddParty(const LedgerParty& party, SumSort sort) {
        const ItemTexts::Texts& texts = items_.Of(party.id);
        AddCell(static_cast<std::int32_t>(party.id));
        AddCell(texts.number);
        AddCell(texts.name);
        AddCell(std::int32_t{sort});
    }

    void AddCell(Value value) { set_->AddCell(column_++, std::move(value)); }

    const AccountSide& side_;
    const ReportFilter filter_;
    const std::optional<std::int64_t> firstDay_;
    ItemTexts items_;
    std::array<Value, std::size(kBillKinds) + 1> kindNames_;  // by kind
    std::vector<Account> accounts_;
    std::optional<RowsByAccount<BillRow>> bills_;
    RowTexts texts_;
    SharedTexts explanations_;
    Ref<ColumnarRecordSet> set_;
    std::size_t column_ = 0;
    const Value blank_ = "";
};

}  // namespace

Ref<RecordSet> ReceivableDetail(AccountSet& set, const Dictionary& filter) {
    return Detail(set, kReceivableSide, filter).Write();
}

Ref<RecordSet> PayableDetail(AccountSet& set, const Dictionary& filter) {
    return Detail(set, kPayableSide, filter).Write();
}

}  // namespace qor
