#include "embedded/cash_book.h"

#include "platform/conversions.h"

namespace qor {

CashBook::CashBook(AccountSet& set, const Dictionary& dictionary)
    : database_(set.database()), visible_(set, "o", ToText(dictionary.Get("DataRightWhere"))) {
    const ReportFilter filter(dictionary);
    firstDay_ = filter.Day("BDate");
    hidesZeroBalance_ = filter.Flag("NotShowBalZero");
    hidesUnmoved_ = filter.Flag("NotShowBillZero");
    withOtherClaims_ = filter.Flag("IncludARAP");

    AddDayRange(conditions_, "b.FDate", std::nullopt, filter.Day("EDate"));
    AddCheckState(conditions_, "b.FState", filter.Number("CheckState"));
    AddPeople(conditions_, filter);

    Conditions chosen;
    AddCodeRange(chosen, "a.FItemID", item_class::kAccount, filter.Code("BAcctNumber"),
                 filter.Code("EAcctNumber"));
    if (const std::string name = filter.Code("AcctName"); !name.empty()) {
        chosen.Add({"instr(lower(i.FName),lower(?))>0"}, {name});
    }
    Statement account(
        database_,
        "SELECT a.FItemID, i.FNumber, i.FName, a.FBeginAmount FROM t_Account a JOIN t_Item i ON "
        "i.FItemID=a.FItemID WHERE " +
            chosen.Text() + " ORDER BY i.FNumber");
    chosen.BindTo(account);
    while (account.Step()) {
        places_[account.Int(0)] = accounts_.size();
        accounts_.push_back({.number = account.Text(1), .name = account.Text(2), .begin = account.Int(3)});
    }
}

Statement CashBook::Bills(SqlText columns) {
    // The bills of one account stand in its index; of several, reading all bills as they lie is faster.
    Conditions conditions = conditions_;
    const bool isOne = places_.size() == 1;
    if (isOne) {
        const std::int64_t account = places_.begin()->first;
        conditions.Add({"(b.FAcctID=? OR b.FToAcctID=?)"}, {account, account});
    }
    Statement bills(
        database_,
        "SELECT b.FAcctID, b.FToAcctID, b.FBillType, b.FDate, b.FAmount, b.FSettleAmount, b.FCustID" +
            std::string(columns.view()) + " FROM t_Bill b " + (isOne ? "" : "NOT INDEXED ") + "WHERE " +
            conditions.Text());
    conditions.BindTo(bills);
    return bills;
}

std::int64_t CashBook::FlowOf(BillKind kind, std::int64_t amount, std::int64_t settledAtOnce) const {
    const BillKindRow& row = RowOf(kind);
    const bool isClaim = row.receivable != 0 || row.payable != 0;
    if (row.cash == 0 && withOtherClaims_) {
        if (kind == BillKind::OtherReceivable) return settledAtOnce;
        if (kind == BillKind::OtherPayable) return -settledAtOnce;
    }
    return row.cash * (isClaim ? settledAtOnce : amount);
}

bool CashBook::Book(std::int64_t id, Movement& movement) {
    const auto found = places_.find(id);
    if (found == places_.end()) return false;
    movement.account = found->second;
    CashAccount& account = accounts_[movement.account];
    if (firstDay_ && movement.day < *firstDay_) {
        account.begin += movement.flow;
        return false;
    }
    (movement.flow > 0 ? account.in : account.out) += movement.flow > 0 ? movement.flow : -movement.flow;
    account.moved = true;
    return true;
}

}  // namespace qor
