#include "embedded/sample_bills.h"

#include <array>

#include "embedded/sample_makers.h"

namespace qor {

namespace {

constexpr std::int64_t kProgressStep = 100;  // bills

struct Share {
    std::int32_t share;
    BillKind kind;
    bool (*make)(SampleDesk& desk, BillKind kind);
};

/// Of a thousand bills. What is not possible when its turn comes becomes a sale.
constexpr Share kShares[] = {
    {195, BillKind::Sale, MakeGoodsBill},
    {18, BillKind::SaleReturn, MakeGoodsBill},
    {110, BillKind::Purchase, MakeGoodsBill},
    {9, BillKind::PurchaseReturn, MakeGoodsBill},
    {160, BillKind::Receipt, MakeSettlingBill},
    {95, BillKind::Payment, MakeSettlingBill},
    {16, BillKind::AdvanceReceipt, MakeAdvance},
    {9, BillKind::AdvancePayment, MakeAdvance},
    {118, BillKind::OtherIncome, MakeClassBill},
    {152, BillKind::Expense, MakeClassBill},
    {18, BillKind::OtherReceivable, MakeClassBill},
    {14, BillKind::OtherPayable, MakeClassBill},
    {12, BillKind::SaleRebate, MakeRebate},
    {6, BillKind::PurchaseRebate, MakeRebate},
    {12, BillKind::Consignment, MakeGoodsMoved},
    {11, BillKind::ConsignmentSale, MakeMovedBilled},
    {8, BillKind::Estimate, MakeGoodsMoved},
    {6, BillKind::EstimateReversal, MakeMovedBilled},
    {8, BillKind::AdvanceToReceivable, MakeUseOfAdvance},
    {4, BillKind::AdvanceToPayable, MakeUseOfAdvance},
    {3, BillKind::ReceivableToPayable, MakeReceivableToPayable},
    {3, BillKind::ReceivableTransfer, MakeTransfer},
    {2, BillKind::PayableTransfer, MakeTransfer},
    {11, BillKind::BankTransfer, MakeBankTransfer},
};

static_assert(
    [] {
        std::int32_t all = 0;
        for (const Share& row : kShares) {
            all += row.share;
        }
        return all;
    }() == 1000,
    "the shares are of a thousand");

void MakeOneBill(SampleDesk& desk) {
    auto thrown = static_cast<std::int32_t>(desk.dice.Below(1000));
    for (const Share& row : kShares) {
        thrown -= row.share;
        if (thrown >= 0) continue;
        if (!row.make(desk, row.kind)) MakeGoodsBill(desk, BillKind::Sale);
        return;
    }
}

/// How busy a day is: working days most, and every month a little more than the last.
std::int64_t WeightOf(std::int64_t day, const SampleSpan& span) {
    constexpr std::array<std::int64_t, 7> kByWeekday = {40, 10, 100, 104, 98, 96, 108};  // from Saturday
    return kByWeekday[static_cast<std::size_t>(day % 7)] * (100 + (day - span.firstDay) / 30);
}

}  // namespace

void MakeSampleBills(Database& database, Dice& dice, SampleFirm& firm, const SampleSpan& span,
                     const std::function<void(double)>& progress) {
    SampleDesk desk(database, dice, firm, span);
    desk.StartDay(span.firstDay - 1);
    MakeOpeningBills(desk, BillKind::OpeningReceivable, span.bills / 40);
    MakeOpeningBills(desk, BillKind::OpeningPayable, span.bills / 40);

    std::int64_t all = 0, passed = 0;
    for (std::int64_t day = span.firstDay; day <= span.lastDay; ++day) {
        all += WeightOf(day, span);
    }
    const std::int64_t opening = desk.made();
    for (std::int64_t day = span.firstDay; day <= span.lastDay; ++day) {
        desk.StartDay(day);
        passed += WeightOf(day, span);
        const std::int64_t target = opening + (span.bills - opening) * passed / all;
        while (desk.made() < target) {
            MakeOneBill(desk);
            if (desk.made() % kProgressStep == 0) {
                progress(static_cast<double>(desk.made()) / static_cast<double>(span.bills));
            }
        }
    }
}

}  // namespace qor
