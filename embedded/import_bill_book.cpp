#include "embedded/import_bill_book.h"

#include <algorithm>

#include "embedded/import_kinds.h"

namespace qor {

BillBook::BillBook(Database& database) {
    Statement bill(database,
                   "SELECT FBillID, FBillNo, FBillType, FState, FDate, FCustID, FSupplyID, FToPartyID, "
                   "FAmount, FSettleAmount, FDiscount FROM t_Bill");
    while (bill.Step()) {
        BookedBill& booked = Put(bill.Text(1), bill.Int(0));
        booked.kind = static_cast<BillKind>(bill.Int(2));
        booked.state = static_cast<BillState>(bill.Int(3));
        booked.stood = true;
        booked.day = bill.Int(4);
        booked.customer = bill.Int(5);
        booked.supplier = bill.Int(6);
        booked.toParty = bill.Int(7);
        booked.amount = bill.Int(8);
        booked.settled = bill.Int(9);
        booked.discount = bill.Int(10);
        booked.open = OpenAtFirst(booked.kind, booked.amount, booked.settled);
        byId_[booked.id] = bills_.size() - 1;
    }
    TakeOffSettled(database);
}

void BillBook::TakeOffSettled(Database& database) {
    Statement settled(database,
                      "SELECT s.FTargetBillID, s.FAmount+s.FDiscount, nullif(s.FSourceBillID,s.FBillID), "
                      "s.FAmount FROM t_Settlement s JOIN t_Bill b ON b.FBillID=s.FBillID WHERE b.FState<>2");
    while (settled.Step()) {
        if (BookedBill* target = WithId(settled.Int(0))) target->open -= settled.Int(1);
        if (BookedBill* source = WithId(settled.Int(2))) source->open -= settled.Int(3);
    }
}

BookedBill& BillBook::Put(std::string_view number, std::int64_t id) {
    byNumber_.emplace(number, bills_.size());
    bills_.push_back({.id = id});
    nextId_ = std::max(nextId_, id + 1);
    return bills_.back();
}

BookedBill* BillBook::Find(std::string_view number) {
    const auto found = byNumber_.find(number);
    return found == byNumber_.end() ? nullptr : &bills_[found->second];
}

BookedBill& BillBook::Add(std::string_view number) { return Put(number, nextId_); }

BookedBill* BillBook::WithId(std::int64_t id) {
    const auto found = byId_.find(id);
    return found == byId_.end() ? nullptr : &bills_[found->second];
}

}  // namespace qor
