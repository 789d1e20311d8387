#include "embedded/import_whole_bills.h"

#include "embedded/import_kinds.h"

namespace qor {

namespace {

class WholeBills {
 public:
    explicit WholeBills(ImportBooks& books)
        : books_(books),
          rows_(books.database,
                "SELECT (SELECT count(*) FROM t_ClassEntry WHERE FBillID=?1)+(SELECT count(*) FROM "
                "t_GoodsEntry "
                "WHERE FBillID=?1)+(SELECT count(*) FROM t_BillHeadField WHERE FBillID=?1)+(SELECT count(*) "
                "FROM "
                "t_Settlement WHERE FBillID=?1)") {}

    void Check() {
        for (const BookedBill& bill : books_.bills.all()) {
            if (bill.line == 0) continue;
            books_.billCount.Add(!bill.stood, bill.changed);
            if (bill.unsound) continue;
            CheckLines(bill);
            CheckSettled(bill);
            if (bill.stood) CheckRows(bill);
        }
    }

 private:
    void Refuse(const BookedBill& bill, const char* column, std::string why) {
        books_.mistakes.Add(kBillsFile.name, bill.line, column, std::move(why));
    }

    void CheckLines(const BookedBill& bill) {
        const LineSort sort = RulesOf(bill.kind).lines;
        if (sort == LineSort::None) return;
        const bool goods = sort == LineSort::Goods;
        const std::string file(goods ? kGoodsLinesFile.name : kClassLinesFile.name);
        if (books_.incomplete.contains(file)) return;
        if (bill.lines == 0)
            return Refuse(
                bill, "number",
                "has no lines in " + file + "; a " + std::string(RowOf(bill.kind).name) + " has some");
        const std::string sums = "; its lines in " + file + " sum up to ";
        if (bill.lineAmount != bill.amount)
            Refuse(bill, "amount", "is " + CentsText(bill.amount) + sums + CentsText(bill.lineAmount));
        if (!goods && bill.lineSettled != bill.settled)
            Refuse(bill, "settled", "is " + CentsText(bill.settled) + sums + CentsText(bill.lineSettled));
    }

    void CheckSettled(const BookedBill& bill) {
        const bool isVoid = bill.state == BillState::Void;
        if (isVoid && bill.open != OpenAtFirst(bill.kind, bill.amount, bill.settled))
            Refuse(bill, "state", "is void, but other bills settle it or use it up");
        if (isVoid || !Settles(bill.kind) || books_.incomplete.contains(kSettlementsFile.name)) return;
        if (bill.settles != bill.amount)
            Refuse(bill, "amount",
                   "is " + CentsText(bill.amount) + "; its rows in settlements.csv settle " +
                       CentsText(bill.settles) + "; what settles no bill is booked as an advance");
        if (bill.letsGo != bill.discount)
            Refuse(bill, "discount",
                   "is " + CentsText(bill.discount) + "; its rows in settlements.csv let " +
                       CentsText(bill.letsGo) + " go");
    }

    void CheckRows(const BookedBill& bill) {
        rows_.With(bill.id).Step();
        const std::int64_t rows = std::int64_t{bill.lines} + bill.fields + bill.settlements;
        if (rows_.Int(0) != rows)
            Refuse(bill, "number",
                   "has " + std::to_string(rows) + " rows in the other files and " +
                       std::to_string(rows_.Int(0)) + " in the account set; a booked bill is not changed");
    }

    ImportBooks& books_;
    Statement rows_;
};

}  // namespace

void CheckWholeBills(ImportBooks& books) { WholeBills(books).Check(); }

}  // namespace qor
