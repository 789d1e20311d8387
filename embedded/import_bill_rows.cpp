#include "embedded/import_bill_rows.h"

#include <unordered_map>

#include "embedded/import_kinds.h"

namespace qor {

namespace {

using Column = ImportTable::Column;

bool CarriesLines(ImportTable& table, Column column, const BookedBill& bill, bool carries) {
    if (!carries)
        table.Mistake(column, "is a " + std::string(RowOf(bill.kind).name) + ", which has no lines here");
    return carries;
}

class ClassLines {
 public:
    ClassLines(ImportBooks& books, BillWriter& writer)
        : books_(books),
          writer_(writer),
          table_(books.Open(kClassLinesFile)),
          bill_(table_.Find("bill")),
          class_(table_.Find("class")),
          amount_(table_.Find("amount")),
          settled_(table_.Find("settled")),
          note_(table_.Find("note")),
          stands_(
              books.database,
              "SELECT 1 FROM t_ClassEntry WHERE (FBillID,FIndex,FClassID,FAmount,FSettleAmount)=(?,?,?,?,?) "
              "AND ifnull(FNote,'')=?") {}

    void Import() {
        while (table_.Next()) {
            if (BookedBill* bill = ReadBillOfRow(books_, table_, bill_)) ReadLine(*bill);
        }
        books_.Close(kClassLinesFile, table_);
    }

 private:
    void ReadLine(BookedBill& booked) {
        const LineSort sort = RulesOf(booked.kind).lines;
        const bool income = sort == LineSort::Income;
        if (!CarriesLines(table_, bill_, booked, income || sort == LineSort::Expense)) return;
        ClassLine line;
        line.itemClass =
            ReadItem(books_, table_, class_, income ? item_class::kIncome : item_class::kExpense);
        line.amount = table_.Read(amount_, ReadCents);
        const bool whole = booked.settled == booked.amount;  // a blank says what the bill says
        line.settled = table_.Read(settled_, ReadCents, whole ? line.amount : 0);
        line.note = table_.Text(note_);
        booked.unsound |= books_.uncertain || !table_.RowIsSound();
        const int index = ++booked.lines;
        booked.lineAmount += line.amount;
        booked.lineSettled += line.settled;
        if (booked.unsound) return;
        const Bill bill{.id = booked.id};
        if (!booked.stood) return writer_.Write(bill, index, line);
        stands_.With(bill.id, index, line.itemClass, line.amount, line.settled, std::string_view(line.note));
        CheckRowStands(table_, bill_, stands_.Step());
    }

    ImportBooks& books_;
    BillWriter& writer_;
    ImportTable table_;
    Column bill_, class_, amount_, settled_, note_;
    Statement stands_;
};

class GoodsLines {
 public:
    GoodsLines(ImportBooks& books, BillWriter& writer)
        : books_(books),
          writer_(writer),
          table_(books.Open(kGoodsLinesFile)),
          bill_(table_.Find("bill")),
          goods_(table_.Find("goods")),
          quantity_(table_.Find("quantity")),
          price_(table_.Find("price")),
          amount_(table_.Find("amount")),
          unit_(table_.Find("unit")),
          rate_(table_.Find("unit_rate")),
          aux_(table_.Find("aux")),
          batch_(table_.Find("batch")),
          note_(table_.Find("note")),
          stands_(books.database,
                  "SELECT 1 FROM t_GoodsEntry WHERE "
                  "(FBillID,FIndex,FItemID,FQty,FPrice,FAmount,FShowUnitID,FShowRate,ifnull(FAuxName,''),"
                  "ifnull(FBatchNo,''),ifnull(FNote,''))=(?,?,?,?,?,?,?,?,?,?,?)") {
        Statement unit(books.database, "SELECT FItemID, FUnitID, FShowUnitID, FShowRate FROM t_Goods");
        while (unit.Step()) {
            units_[unit.Int(0)] = {unit.Int(1), unit.Int(2), unit.Int(3)};
        }
    }

    void Import() {
        while (table_.Next()) {
            if (BookedBill* bill = ReadBillOfRow(books_, table_, bill_)) ReadLine(*bill);
        }
        books_.Close(kGoodsLinesFile, table_);
    }

 private:
    struct Units {
        std::int64_t base, show, rate;
    };

    void ReadLine(BookedBill& booked) {
        if (!CarriesLines(table_, bill_, booked, RulesOf(booked.kind).lines == LineSort::Goods)) return;
        GoodsLine line;
        line.item = ReadItem(books_, table_, goods_, item_class::kGoods);
        line.quantity = table_.Read(quantity_, ReadTenThousandths);
        line.price = table_.Read(price_, ReadTenThousandths);
        line.amount = table_.Read(amount_, ReadCents);
        ReadUnit(line);
        line.aux = table_.Text(aux_);
        line.batch = table_.Text(batch_);
        line.note = table_.Text(note_);
        if (line.price < 0) table_.Mistake(price_, "must not be negative; a return has a negative quantity");
        if ((line.quantity < 0 && line.amount > 0) || (line.quantity > 0 && line.amount < 0))
            table_.Mistake(amount_, "has another sign than the quantity");
        booked.unsound |= books_.uncertain || !table_.RowIsSound();
        const int index = ++booked.lines;
        booked.lineAmount += line.amount;
        if (booked.unsound) return;
        const Bill bill{.id = booked.id};
        if (!booked.stood) return writer_.Write(bill, index, line);
        stands_.With(bill.id, index, line.item, line.quantity, line.price, line.amount, line.showUnit,
                     line.showRate, std::string_view(line.aux), std::string_view(line.batch),
                     std::string_view(line.note));
        CheckRowStands(table_, bill_, stands_.Step());
    }

    /// The unit that the line is shown in: one of the goods' two, or another with its rate.
    void ReadUnit(GoodsLine& line) {
        constexpr std::int64_t kMostRate = 1'000'000;
        const auto found = units_.find(line.item);
        if (found == units_.end()) return;
        const Units& units = found->second;
        const std::int64_t unit = ReadItem(books_, table_, unit_, item_class::kUnit);
        line.showUnit = unit != 0 ? unit : units.base;
        const bool known = line.showUnit == units.base || line.showUnit == units.show;
        if (!known && table_.Word(rate_).empty())
            table_.Mistake(rate_,
                           "is blank; the goods have no such unit, so the line must say how many base "
                           "units make one");
        line.showRate =
            table_.ReadWholeNumber(rate_, 1, kMostRate, line.showUnit == units.base ? 1 : units.rate);
        if (line.showUnit == units.base && line.showRate > 1)
            table_.Mistake(rate_, "must be 1: the line is shown in the base unit");
    }

    ImportBooks& books_;
    BillWriter& writer_;
    ImportTable table_;
    Column bill_, goods_, quantity_, price_, amount_, unit_, rate_, aux_, batch_, note_;
    Statement stands_;
    std::unordered_map<std::int64_t, Units> units_;
};

}  // namespace

BookedBill* ReadBillOfRow(ImportBooks& books, ImportTable& table, Column column) {
    const std::string_view number = table.Word(column);
    books.uncertain = false;
    if (number.empty()) table.MarkIncomplete();
    if (number.empty()) return nullptr;
    BookedBill* bill = books.bills.Find(number);
    if (!bill && books.MayStandIn(kBillsFile.name)) return nullptr;
    if (!bill || bill->line == 0) {
        table.Mistake(column, Shown(number) + " is not in bills.csv; the rows of a bill come with the bill");
        return nullptr;
    }
    return bill->unsound ? nullptr : bill;
}

void CheckRowStands(ImportTable& table, Column bill, bool same) {
    if (!same)
        table.Mistake(bill,
                      "this row of the bill differs from the one in the account set; a booked bill is "
                      "not changed: make it void and book another one");
}

void ImportClassLines(ImportBooks& books, BillWriter& writer) { ClassLines(books, writer).Import(); }

void ImportGoodsLines(ImportBooks& books, BillWriter& writer) { GoodsLines(books, writer).Import(); }

void ImportBillFields(ImportBooks& books, BillWriter& writer) {
    constexpr std::int64_t kMostFields = 99;
    ImportTable table = books.Open(kBillFieldsFile);
    const Column billColumn = table.Find("bill"), field = table.Find("field"), text = table.Find("text");
    Statement written(books.database, "SELECT FText FROM t_BillHeadField WHERE FBillID=? AND FIndex=?");
    while (table.Next()) {
        BookedBill* booked = ReadBillOfRow(books, table, billColumn);
        const std::int64_t index = table.ReadWholeNumber(field, 1, kMostFields);
        if (!booked || !table.RowIsSound()) continue;
        ++booked->fields;
        const bool there = written.With(booked->id, index).Step();
        if (booked->stood) {
            CheckRowStands(table, billColumn, there && written.Text(0) == table.Text(text));
        } else if (there) {
            table.Mistake(field, "stands twice for this bill");
        } else {
            writer.WriteHeadField(Bill{.id = booked->id}, static_cast<int>(index), table.Text(text));
        }
    }
}

}  // namespace qor
