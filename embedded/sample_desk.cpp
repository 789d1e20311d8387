#include "embedded/sample_desk.h"

#include <algorithm>

#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int64_t kNeverPaid = 1 << 20;  // days
constexpr std::int64_t kNotYetAuditedDays = 40;

}  // namespace

SampleDesk::SampleDesk(Database& database, Dice& throwing, SampleFirm& whose, const SampleSpan& when)
    : dice(throwing), firm(whose), span(when), writer(database) {
    const std::string perMonth = std::to_string(span.bills / 12);
    numberWidth_ = std::max(numberWidth_, perMonth.size());
}

SampleSide& SampleDesk::SideOf(BillKind kind) {
    const BillKindRow& row = RowOf(kind);
    const bool estimate = kind == BillKind::Estimate || kind == BillKind::EstimateReversal;
    const bool buying = row.payable != 0 || row.paid != 0 || row.advanceOut != 0 || estimate;
    return buying ? purchases : sales;
}

void SampleDesk::StartDay(std::int64_t day) {
    day_ = day;
    const CalendarTime date = ToCalendar(Date{static_cast<double>(day)});
    if (date.month == month_) return;
    month_ = date.month;
    monthText_ = std::to_string(date.year) + (date.month < 10 ? "0" : "") + std::to_string(date.month);
    numbers_.fill(0);
}

Bill SampleDesk::NewBill(BillKind kind) {
    Bill bill;
    bill.id = ++made_;
    bill.kind = kind;
    bill.day = day_;
    bill.state = NewState();
    bill.biller = dice.Pick(firm.users);
    std::string number = std::to_string(++numbers_[static_cast<std::size_t>(kind)]);
    if (number.size() < numberWidth_) number.insert(0, numberWidth_ - number.size(), '0');
    bill.number = std::string(RowOf(kind).prefix) + "-" + monthText_ + "-" + number;
    if (bill.state == BillState::Audited && dice.Chance(600)) {
        bill.voucher = "记-" + std::to_string(dice.Between(1, 900));
    }
    return bill;
}

Bill SampleDesk::NewBill(BillKind kind, const SampleSide& side, std::size_t party) {
    Bill bill = NewBill(kind);
    SetParty(bill, side, party);
    return bill;
}

BillState SampleDesk::NewState() {
    if (dice.Chance(15)) return BillState::Void;
    const bool recent = day_ > span.lastDay - kNotYetAuditedDays;
    return dice.Chance(recent ? 350 : 6) ? BillState::NotAudited : BillState::Audited;
}

void SampleDesk::SetParty(Bill& bill, const SampleSide& side, std::size_t party) {
    const SampleFirm::Party& chosen = side.parties[party];
    bill.*side.party = chosen.id;
    SetEmployee(bill, dice.Chance(900) ? chosen.employee : dice.Index(firm.employees.size()));
}

void SampleDesk::SetEmployee(Bill& bill, std::size_t employee) {
    bill.employee = firm.employees[employee].id;
    bill.department = firm.employees[employee].department;
}

std::size_t SampleDesk::AnyParty(const SampleSide& side) {
    const std::size_t count = side.parties.size() - side.parties.size() / 20 - 1;
    return std::min(dice.Index(count), dice.Index(count));
}

void SampleDesk::LeaveOpen(const Bill& bill, SampleSide& side, std::size_t party, std::int64_t open) {
    if (bill.state != BillState::Audited) return;
    const std::int64_t late = dice.Chance(60) ? kNeverPaid : dice.Between(-5, 45);
    side.open.Add({bill.id, party, open}, bill.day + side.parties[party].creditDays + late);
}

void SampleDesk::SettleAtOnce(Bill& bill, std::uint32_t wholePerThousand) {
    const std::uint32_t thrown = dice.Below(1000);
    if (thrown < wholePerThousand) {
        bill.settled = bill.amount;
    } else if (thrown < wholePerThousand + 100) {
        bill.settled = bill.amount * dice.Between(20, 80) / 100;
    }
    if (bill.settled != 0) bill.account = AnyAccount();
}

}  // namespace qor
