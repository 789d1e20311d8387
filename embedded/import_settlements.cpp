#include "embedded/import_settlements.h"

#include "embedded/import_bill_rows.h"
#include "embedded/import_kinds.h"

namespace qor {

namespace {

using Column = ImportTable::Column;

std::string Named(const BookedBill& bill) { return std::string(RowOf(bill.kind).name); }

/// Whether the bill is a claim on a customer: who owes it, 0 for a claim that is none.
std::int64_t Debtor(const BookedBill& bill) {
    const BillKindRow& row = RowOf(bill.kind);
    if (row.receivable != 0) return bill.customer;
    return row.target != 0 && row.received != 0 ? bill.toParty : 0;
}

/// The supplier that is owed the bill; 0 for a claim that is none of a supplier.
std::int64_t Creditor(const BookedBill& bill) {
    const BillKindRow& row = RowOf(bill.kind);
    if (row.payable != 0) return bill.supplier;
    return row.target != 0 && row.paid != 0 ? bill.toParty : 0;
}

class Settlements {
 public:
    Settlements(ImportBooks& books, BillWriter& writer)
        : books_(books),
          writer_(writer),
          table_(books.Open(kSettlementsFile)),
          bill_(table_.Find("bill")),
          target_(table_.Find("target")),
          source_(table_.Find("source")),
          date_(table_.Find("date")),
          amount_(table_.Find("amount")),
          discount_(table_.Find("discount")),
          stands_(books.database,
                  "SELECT FTargetBillID, ifnull(FSourceBillID,0), FAmount, FDiscount FROM t_Settlement WHERE "
                  "FBillID=? ORDER BY FSettlementID LIMIT 1 OFFSET ?") {}

    void Import() {
        while (table_.Next()) {
            BookedBill* bill = ReadBillOfRow(books_, table_, bill_);
            if (!bill) continue;
            if (!MaySettle(*bill)) continue;
            ReadSettlement(*bill);
            bill->unsound |= books_.uncertain || !table_.RowIsSound();
        }
        books_.Close(kSettlementsFile, table_);
    }

 private:
    bool MaySettle(const BookedBill& bill) {
        if (!Settles(bill.kind)) {
            table_.Mistake(bill_, "is a " + Named(bill) + ", which settles nothing");
        } else if (bill.state == BillState::Void) {
            table_.Mistake(bill_, "is void and settles nothing");
        }
        return table_.RowIsSound();
    }

    void ReadSettlement(BookedBill& bill) {
        SettlementRow row{.bill = bill.id, .day = table_.Read(date_, ReadDay, bill.day)};
        row.amount = table_.Read(amount_, ReadCents);
        row.discount = table_.Read(discount_, ReadCents);
        if (row.day != bill.day && table_.RowIsSound())
            table_.Mistake(date_, "is not the day of the settling bill, " + DayText(bill.day));
        if (row.discount != 0 && !SettlesWithMoney(bill.kind))
            table_.Mistake(discount_, "must be blank; a " + Named(bill) + " lets nothing go");
        BookedBill* target = ReadOther(target_);
        BookedBill* source = nullptr;
        if (target) CheckTarget(bill, *target);
        if (table_.RowIsSound()) source = ReadSource(bill);
        if (!target || books_.uncertain || !table_.RowIsSound()) return;
        row.target = target->id;
        row.source = source ? source->id : 0;
        Count(bill, row);
        if (bill.stood) return CheckStands(bill, row);
        TakeOff(*target, target_, row.amount + row.discount);
        if (source && source != &bill) TakeOff(*source, source_, row.amount);
        if (table_.RowIsSound()) writer_.Write(row);
    }

    /// Another bill of the row; nothing where nothing can be said about it.
    BookedBill* ReadOther(Column column) {
        const std::string_view number = table_.Word(column);
        if (number.empty()) return nullptr;
        BookedBill* bill = books_.bills.Find(number);
        if (bill && !bill->unsound) return bill;
        if (bill) {
            books_.uncertain = true;
        } else if (!books_.MayStandIn(kBillsFile.name)) {
            table_.Mistake(column, Shown(number) + " is neither in bills.csv nor in the account set");
        }
        return nullptr;
    }

    void CheckUsable(const BookedBill& bill, const BookedBill& other, Column column) {
        if (other.state == BillState::Void) table_.Mistake(column, "is void");
        if (other.day > bill.day)
            table_.Mistake(column, "is of a later day, " + DayText(other.day) +
                                       ", than the bill that settles it, " + DayText(bill.day));
    }

    void CheckTarget(const BookedBill& bill, const BookedBill& target) {
        const bool receives = RowOf(bill.kind).received != 0;
        const std::int64_t party = receives ? Debtor(target) : Creditor(target);
        if (party == 0)
            return table_.Mistake(target_,
                                  "is a " + Named(target) + ", which a " + Named(bill) + " cannot settle");
        if (party != (receives ? bill.customer : bill.supplier))
            return table_.Mistake(target_, "is a bill of another party");
        CheckUsable(bill, target, target_);
    }

    /// The bill that the row uses up: the receipt or payment itself, an advance, or the claim to offset.
    BookedBill* ReadSource(BookedBill& bill) {
        const bool given = !table_.Word(source_).empty();
        if (RowOf(bill.kind).target != 0) {
            if (given) table_.Mistake(source_, "must be blank; the claim moves to another party");
            return nullptr;
        }
        BookedBill* source = given ? ReadOther(source_) : nullptr;
        if (SettlesWithMoney(bill.kind)) {
            if (source && source != &bill) table_.Mistake(source_, "must be blank or the bill itself");
            return &bill;
        }
        if (!given) table_.Mistake(source_, "is blank; a " + Named(bill) + " uses another bill up");
        if (source) CheckSource(bill, *source);
        return source;
    }

    void CheckSource(const BookedBill& bill, const BookedBill& source) {
        const BillKindRow& row = RowOf(bill.kind);
        const bool offsets = row.received != 0 && row.paid != 0;
        const bool fits = offsets             ? Creditor(source) != 0
                          : row.received != 0 ? source.kind == BillKind::AdvanceReceipt
                                              : source.kind == BillKind::AdvancePayment;
        if (!fits)
            return table_.Mistake(source_,
                                  "is a " + Named(source) + ", which a " + Named(bill) + " cannot use up");
        const bool same = offsets             ? Creditor(source) == bill.supplier
                          : row.received != 0 ? source.customer == bill.customer
                                              : source.supplier == bill.supplier;
        if (!same) return table_.Mistake(source_, "is a bill of another party");
        CheckUsable(bill, source, source_);
    }

    static void Count(BookedBill& bill, const SettlementRow& row) {
        ++bill.settlements;
        bill.settles += row.amount;
        bill.letsGo += row.discount;
    }

    void CheckStands(const BookedBill& bill, const SettlementRow& row) {
        const bool there = stands_.With(bill.id, bill.settlements - 1).Step();
        CheckRowStands(table_, bill_,
                       there && stands_.Int(0) == row.target && stands_.Int(1) == row.source &&
                           stands_.Int(2) == row.amount && stands_.Int(3) == row.discount);
    }

    void TakeOff(BookedBill& from, Column column, std::int64_t amount) {
        const bool beyond =
            from.open < 0 ? amount < from.open || amount > 0 : amount > from.open || amount < 0;
        if (beyond)
            return table_.Mistake(column, "has " + CentsText(from.open) + " open; " + CentsText(amount) +
                                              " cannot be taken of it");
        from.open -= amount;
    }

    ImportBooks& books_;
    BillWriter& writer_;
    ImportTable table_;
    Column bill_, target_, source_, date_, amount_, discount_;
    Statement stands_;
};

}  // namespace

void ImportSettlements(ImportBooks& books, BillWriter& writer) { Settlements(books, writer).Import(); }

}  // namespace qor
