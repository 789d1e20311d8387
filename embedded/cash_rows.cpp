#include "embedded/cash_rows.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <utility>

#include "embedded/cash_book.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"
#include "embedded/rows_by_account.h"

namespace qor {

namespace {

constexpr SqlText kJournalColumns =
    ", b.FBillID, ifnull(b.FCustID,b.FSupplyID), b.FDeptID, b.FEmpID, b.FBillNo, b.FExplanation";

/// The movements of the period, dealt out by account.
class Journal {
 public:
    struct Row {
        CashBook::Movement movement;
        std::int64_t bill;
        const ItemTexts::Texts* party;
        const ItemTexts::Texts* department;
        const ItemTexts::Texts* employee;
        std::size_t texts;  // number and explanation
    };

    Journal(AccountSet& set, CashBook& book) : items_(set, false), rows_(book.accounts().size()) {
        for (const BillKindRow& row : kBillKinds) {
            kindNames_[static_cast<std::size_t>(row.kind)] = row.name;
        }
        book.Read(kJournalColumns, [this](const CashBook::Movement& movement, const Statement& bill) {
            constexpr int kFirst = CashBook::kFirstColumn;
            ++count_;
            rows_.Add(movement.account,
                      {.movement = movement,
                       .bill = bill.Int(kFirst),
                       .party = &items_.Of(bill.Int(kFirst + 1)),
                       .department = &items_.Of(bill.Int(kFirst + 2)),
                       .employee = &items_.Of(bill.Int(kFirst + 3)),
                       .texts = texts_.Add({bill.Text(kFirst + 4), bill.Text(kFirst + 5)})});
        });
        rows_.Deal([](const Row& row) { return std::pair(row.movement.day, row.bill); });
    }

    std::size_t count() const { return count_; }
    std::span<const Row> Of(std::size_t account) { return rows_.Of(account); }
    RowTexts::Reader TextsOf(const Row& row) const { return texts_.From(row.texts); }
    Value Shared(std::string_view explanation) { return explanations_.Share(explanation); }
    const Value& NameOf(BillKind kind) const { return kindNames_[static_cast<std::size_t>(kind)]; }

 private:
    ItemTexts items_;
    std::array<Value, std::size(kBillKinds) + 1> kindNames_;
    RowsByAccount<Row> rows_;
    RowTexts texts_;
    SharedTexts explanations_;
    std::size_t count_ = 0;
};

void AddOpening(ColumnarRecordSet& set, const CashAccount& account, std::optional<std::int64_t> firstDay) {
    const Value day = firstDay ? Value(Date{static_cast<double>(*firstDay)}) : Value::Null();
    set.AddRow({account.number, account.name, day, "", "", Yuan(0), Yuan(0), Yuan(account.begin), "期初余额",
                "", "", ""});
}

void AddMovements(ColumnarRecordSet& set, const CashAccount& account, Journal& journal,
                  std::span<const Journal::Row> rows) {
    std::int64_t balance = account.begin;
    for (const Journal::Row& row : rows) {
        RowTexts::Reader texts = journal.TextsOf(row);
        const std::int64_t flow = row.movement.flow;
        balance += flow;
        std::size_t column = 0;
        const auto add = [&](Value value) { set.AddCell(column++, std::move(value)); };
        add(account.number);
        add(account.name);
        add(Date{static_cast<double>(row.movement.day)});
        add(texts.Next());
        add(journal.NameOf(row.movement.kind));
        add(Yuan(std::max<std::int64_t>(flow, 0)));
        add(Yuan(std::max<std::int64_t>(-flow, 0)));
        add(Yuan(balance));
        add(journal.Shared(texts.Next()));
        add(row.party->name);
        add(row.department->name);
        add(row.employee->name);
    }
}

}  // namespace

Ref<RecordSet> CashJournal(AccountSet& set, const Dictionary& filter) {
    CashBook book(set, filter);
    Journal journal(set, book);
    auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{
        "FAcctNumber", "FAcctName", "FDate", "FBillNo", "FBillTypeName", "FInAmount", "FOutAmount",
        "FBalanceAmount", "FExplanation", "FName", "FDeptName", "FEmpName"});
    rows->Reserve(journal.count() + book.accounts().size());
    for (std::size_t i = 0; i < book.accounts().size(); ++i) {
        const CashAccount& account = book.accounts()[i];
        if (!book.Shows(account)) continue;
        AddOpening(*rows, account, book.firstDay());
        AddMovements(*rows, account, journal, journal.Of(i));
    }
    return rows;
}

Ref<RecordSet> CashLedger(AccountSet& set, const Dictionary& filter) {
    CashBook book(set, filter);
    book.Read("", [](const CashBook::Movement&, const Statement&) {});
    auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{
        "FAcctNumber", "FAcctName", "FBeginAmount", "FInAmount", "FOutAmount", "FEndAmount", "FSumSort"});
    const auto add = [&](const CashAccount& account, std::int32_t sumSort) {
        rows->AddRow({account.number, account.name, Yuan(account.begin), Yuan(account.in), Yuan(account.out),
                      Yuan(account.End()), sumSort});
    };
    CashAccount total{.number = "", .name = "合计", .begin = 0};
    for (const CashAccount& account : book.accounts()) {
        if (!book.Shows(account)) continue;
        add(account, 0);
        total.begin += account.begin;
        total.in += account.in;
        total.out += account.out;
    }
    if (rows->RowCount() > 0) add(total, 1);
    return rows;
}

}  // namespace qor
