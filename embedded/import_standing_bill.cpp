#include "embedded/import_standing_bill.h"

#include "embedded/import_kinds.h"

namespace qor {

namespace {

struct NumberField {
    const char* column;
    std::int64_t Bill::*value;
    std::string (*text)(std::int64_t);  // how it is shown; nothing for an item
};

constexpr NumberField kNumbers[] = {
    {"date", &Bill::day, DayText},
    {"customer", &Bill::customer, nullptr},
    {"supplier", &Bill::supplier, nullptr},
    {"to_party", &Bill::toParty, nullptr},
    {"department", &Bill::department, nullptr},
    {"employee", &Bill::employee, nullptr},
    {"account", &Bill::account, nullptr},
    {"to_account", &Bill::toAccount, nullptr},
    {"amount", &Bill::amount, CentsText},
    {"settled", &Bill::settled, CentsText},
    {"discount", &Bill::discount, CentsText},
    {"due_date", &Bill::dueDay, DayText},
    {"biller", &Bill::biller, nullptr},
};

struct TextField {
    const char* column;
    std::string Bill::*value;
};

constexpr TextField kTexts[] = {{"invoice", &Bill::invoice}, {"explanation", &Bill::explanation}};

}  // namespace

StandingBills::StandingBills(ImportBooks& books, ImportTable& table)
    : books_(books),
      table_(table),
      stored_(books.database,
              "SELECT FBillType, FDate, FState, FCustID, FSupplyID, FToPartyID, FDeptID, FEmpID, FAcctID, "
              "FToAcctID, FAmount, FSettleAmount, FDiscount, FDueDate, FRelatedID, FBillerID, FInvoiceNo, "
              "FVchNumber, FExplanation FROM t_Bill WHERE FBillID=?"),
      move_(books.database, "UPDATE t_Bill SET FState=?2, FVchNumber=nullif(?3,'') WHERE FBillID=?1"),
      settled_(books.database,
               "SELECT FTargetBillID, FAmount+FDiscount, nullif(FSourceBillID,FBillID), FAmount FROM "
               "t_Settlement WHERE FBillID=?"),
      letGo_(books.database, "DELETE FROM t_Settlement WHERE FBillID=?") {}

Bill StandingBills::Stored(std::int64_t id) {
    Bill bill;
    stored_.With(id).Step();
    bill.kind = static_cast<BillKind>(stored_.Int(0));
    bill.day = stored_.Int(1);
    bill.state = static_cast<BillState>(stored_.Int(2));
    int column = 3;
    for (std::int64_t Bill::*const value :
         {&Bill::customer, &Bill::supplier, &Bill::toParty, &Bill::department, &Bill::employee,
          &Bill::account, &Bill::toAccount, &Bill::amount, &Bill::settled, &Bill::discount, &Bill::dueDay,
          &Bill::related, &Bill::biller}) {
        bill.*value = stored_.Int(column++);
    }
    for (std::string Bill::*const value : {&Bill::invoice, &Bill::voucher, &Bill::explanation}) {
        bill.*value = stored_.Text(column++);
    }
    return bill;
}

void StandingBills::Refuse(std::int64_t line, std::string_view column, const std::string& standing) {
    table_.MistakeAt(line, table_.Find(column),
                     "differs from the bill in the account set" +
                         (standing.empty() ? "" : ", which has " + standing) +
                         "; a booked bill is not changed: make it void and book another one");
}

void StandingBills::BringUpToDate(BookedBill& booked, const Bill& read) {
    const Bill stands = Stored(booked.id);
    if (read.kind != stands.kind) Refuse(booked.line, "kind", std::string(RowOf(stands.kind).name));
    for (const NumberField& field : kNumbers) {
        const std::int64_t standing = stands.*field.value;
        if (read.*field.value == standing) continue;
        Refuse(booked.line, field.column, field.text && standing != 0 ? field.text(standing) : "");
    }
    for (const TextField& field : kTexts) {
        if (read.*field.value != stands.*field.value)
            Refuse(booked.line, field.column, Shown(stands.*field.value));
    }
    if (stands.state == BillState::Void && read.state != BillState::Void)
        Refuse(booked.line, "state", std::string(kStateWords[static_cast<std::size_t>(stands.state)]));
    booked.unsound = !table_.RowIsSound();
    if (read.state == stands.state && read.voucher == stands.voucher) return;
    booked.changed = true;
    booked.state = read.state;
    move_.With(booked.id, static_cast<std::int32_t>(read.state), std::string_view(read.voucher)).Run();
    if (read.state == BillState::Void && stands.state != BillState::Void) LetGo(booked.id);
}

void StandingBills::LetGo(std::int64_t id) {
    settled_.With(id);
    while (settled_.Step()) {
        if (BookedBill* target = books_.bills.WithId(settled_.Int(0))) target->open += settled_.Int(1);
        if (BookedBill* source = books_.bills.WithId(settled_.Int(2))) source->open += settled_.Int(3);
    }
    letGo_.With(id).Run();
}

void StandingBills::CheckRelated(const BookedBill& booked, std::int64_t related) {
    if (Stored(booked.id).related != related) Refuse(booked.line, "related_bill", "");
}

}  // namespace qor
