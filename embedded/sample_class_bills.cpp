#include <algorithm>

#include "embedded/party_side.h"
#include "embedded/sample_makers.h"
#include "embedded/sample_names.h"

namespace qor {

namespace {

/// A class that is disabled by now was used in the first half of the years only.
const SampleFirm::Class& AnyClass(SampleDesk& desk, const std::vector<SampleFirm::Class>& classes) {
    const bool late = desk.day() - desk.span.firstDay >= (desk.span.lastDay - desk.span.firstDay) / 2;
    for (;;) {
        const SampleFirm::Class& chosen = desk.dice.Pick(classes);
        if (!chosen.disabled || !late) return chosen;
    }
}

/// One line mostly, whose amounts go into the bill's.
std::vector<ClassLine> AnyClassLines(SampleDesk& desk, bool income, Bill& bill) {
    Dice& dice = desk.dice;
    const auto& classes = income ? desk.firm.incomeClasses : desk.firm.expenseClasses;
    const auto& notes = income ? kSampleIncomeNotes : kSampleExpenseNotes;
    std::vector<ClassLine> lines(dice.Chance(780) ? 1u : static_cast<std::size_t>(dice.Between(2, 3)));
    for (ClassLine& line : lines) {
        const SampleFirm::Class& chosen = AnyClass(desk, classes);
        line.itemClass = chosen.id;
        line.amount = chosen.typicalFen * dice.Between(30, 220) / 100;
        line.amount += dice.Between(0, 99);
        if (dice.Chance(10)) line.amount = -line.amount;  // a correction
        if (const std::string_view note = dice.Pick(notes); !note.empty()) {
            line.note = std::to_string(desk.month()) + "月" + chosen.name + "，" + std::string(note);
        }
        bill.amount += line.amount;
    }
    return lines;
}

/// Shares out what was paid at once over the lines, in their order; the last one takes the rest.
void ShareSettled(const Bill& bill, std::vector<ClassLine>& lines) {
    const bool whole = bill.settled == bill.amount;
    std::int64_t rest = bill.settled;
    for (ClassLine& line : lines) {
        const std::int64_t most = std::max<std::int64_t>(line.amount, 0);
        line.settled = whole ? line.amount : std::min(rest, most);
        if (&line == &lines.back()) line.settled = rest;
        rest -= line.settled;
    }
}

}  // namespace

bool MakeClassBill(SampleDesk& desk, BillKind kind) {
    SampleSide& side = desk.SideOf(kind);
    const bool withCash = RowOf(kind).cash != 0;
    Bill bill = desk.NewBill(kind);
    const bool hasParty = !withCash || desk.dice.Chance(650);
    const std::size_t party = desk.AnyParty(side);
    if (hasParty) {
        desk.SetParty(bill, side, party);
        bill.dueDay = bill.day + side.parties[party].creditDays;
    } else if (desk.dice.Chance(900)) {
        desk.SetAnyEmployee(bill);
    }
    std::vector<ClassLine> lines = AnyClassLines(desk, &side == &desk.sales, bill);
    constexpr std::uint32_t kAlways = 1000, kMostly = 600, kSeldom = 50;
    desk.SettleAtOnce(bill, IsOtherClaim(kind) ? kSeldom : hasParty ? kMostly : kAlways);
    ShareSettled(bill, lines);
    desk.Write(bill, lines);
    if (hasParty) desk.LeaveOpen(bill, side, party, bill.amount - bill.settled);
    return true;
}

}  // namespace qor
