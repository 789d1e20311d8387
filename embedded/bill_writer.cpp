#include "embedded/bill_writer.h"

namespace qor {

namespace {

/// Null for what a bill does not have: a number of 0 and an empty text.
template <class T>
void BindIf(Statement& statement, int index, const T& value) {
    if (value != T{}) {
        statement.Bind(index, value);
    } else {
        statement.Bind(index, nullptr);
    }
}

}  // namespace

BillWriter::BillWriter(Database& database)
    : bill_(database, "INSERT INTO t_Bill VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
      classLine_(database, "INSERT INTO t_ClassEntry VALUES(?,?,?,?,?,?)"),
      goodsLine_(database, "INSERT INTO t_GoodsEntry VALUES(?,?,?,?,?,?,?,?,?,?,?)"),
      settlement_(database,
                  "INSERT INTO t_Settlement(FBillID,FSourceBillID,FTargetBillID,FDate,FAmount,FDiscount) "
                  "VALUES(?,?,?,?,?,?)"),
      headField_(database, "INSERT INTO t_BillHeadField VALUES(?,?,?)") {}

void BillWriter::Write(const Bill& bill) {
    bill_.With(bill.id, static_cast<std::int32_t>(bill.kind), bill.number, bill.day,
               static_cast<std::int32_t>(bill.state));
    BindIf(bill_, 6, bill.customer);
    BindIf(bill_, 7, bill.supplier);
    BindIf(bill_, 8, bill.toParty);
    BindIf(bill_, 9, bill.department);
    BindIf(bill_, 10, bill.employee);
    BindIf(bill_, 11, bill.account);
    BindIf(bill_, 12, bill.toAccount);
    bill_.Bind(13, bill.amount);
    bill_.Bind(14, bill.settled);
    bill_.Bind(15, bill.discount);
    BindIf(bill_, 16, bill.dueDay);
    BindIf(bill_, 17, bill.related);
    BindIf(bill_, 18, bill.biller);
    BindIf(bill_, 19, bill.invoice);
    BindIf(bill_, 20, bill.voucher);
    BindIf(bill_, 21, bill.explanation);
    bill_.Run();
}

void BillWriter::Write(const Bill& bill, int index, const ClassLine& line) {
    classLine_.With(bill.id, index, line.itemClass, line.amount, line.settled);
    BindIf(classLine_, 6, line.note);
    classLine_.Run();
}

void BillWriter::Write(const Bill& bill, int index, const GoodsLine& line) {
    goodsLine_.With(bill.id, index, line.item, line.quantity, line.price, line.amount, line.showUnit,
                    line.showRate);
    BindIf(goodsLine_, 9, line.aux);
    BindIf(goodsLine_, 10, line.batch);
    BindIf(goodsLine_, 11, line.note);
    goodsLine_.Run();
}

void BillWriter::Write(const SettlementRow& settlement) {
    settlement_.With(settlement.bill, nullptr, settlement.target, settlement.day, settlement.amount,
                     settlement.discount);
    BindIf(settlement_, 2, settlement.source);
    settlement_.Run();
}

void BillWriter::WriteHeadField(const Bill& bill, int index, std::string_view text) {
    headField_.With(bill.id, index, text).Run();
}

}  // namespace qor
