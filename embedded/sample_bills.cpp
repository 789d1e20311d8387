#include "embedded/sample_bills.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "embedded/bill_writer.h"
#include "embedded/open_bills.h"
#include "embedded/sample_names.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int64_t kNeverPaid = 1 << 20;  // days
constexpr std::int64_t kNotYetAuditedDays = 40;
constexpr std::int64_t kCounterStep = 100;

/// One side of the firm's business: its customers or its suppliers.
struct Side {
    std::vector<SampleFirm::Party>& parties;
    std::int64_t Bill::*party;
    BillKind receipt, advance, useOfAdvance, transfer, rebate;
    OpenBills open{parties};
    std::vector<OpenBill> advances{};
};

class BillMaker {
 public:
    BillMaker(Database& database, Dice& dice, SampleFirm& firm, const SampleSpan& span)
        : dice_(dice), firm_(firm), span_(span), writer_(database) {
        const std::size_t perMonth = static_cast<std::size_t>(span.bills / 12);
        numberWidth_ = std::max<std::size_t>(4, std::to_string(perMonth).size());
    }

    void MakeAll(const std::function<void(double)>& progress) {
        MakeOpeningBills();
        const std::int64_t days = span_.lastDay - span_.firstDay + 1;
        std::int64_t all = 0, passed = 0;
        for (std::int64_t i = 0; i < days; ++i) {
            all += WeightOf(i);
        }
        const std::int64_t opening = made_;
        for (std::int64_t i = 0; i < days; ++i) {
            StartDay(span_.firstDay + i);
            passed += WeightOf(i);
            const std::int64_t target = opening + (span_.bills - opening) * passed / all;
            while (made_ < target) {
                MakeOne();
                if (made_ % kCounterStep == 0)
                    progress(static_cast<double>(made_) / static_cast<double>(span_.bills));
            }
        }
    }

 private:
    using Maker = bool (BillMaker::*)();
    struct Weight {
        std::int32_t weight;
        Maker make;  // false where such a bill is not possible today
    };
    static std::span<const Weight> Weights();

    // The calendar.

    /// How busy a day is: working days most, and every year a little more than the last.
    std::int64_t WeightOf(std::int64_t dayOfSpan) const {
        constexpr std::array<std::int64_t, 7> kByWeekday = {40, 10, 100, 104, 98, 96, 108};  // from Saturday
        const std::int64_t day = span_.firstDay + dayOfSpan;
        return kByWeekday[static_cast<std::size_t>(day % 7)] * (100 + dayOfSpan / 30);
    }

    void StartDay(std::int64_t day) {
        day_ = day;
        const CalendarTime date = ToCalendar(Date{static_cast<double>(day)});
        if (date.month == month_) return;
        month_ = date.month;
        monthText_ = std::to_string(date.year) + (date.month < 10 ? "0" : "") + std::to_string(date.month);
        numbers_.fill(0);
    }

    // What all bills share.

    Bill NewBill(BillKind kind) {
        Bill bill;
        bill.id = ++made_;
        bill.kind = kind;
        bill.day = day_;
        bill.state = NewState();
        bill.biller = dice_.Pick(firm_.users);
        std::string number = std::to_string(++numbers_[static_cast<std::size_t>(kind)]);
        if (number.size() < numberWidth_) number.insert(0, numberWidth_ - number.size(), '0');
        bill.number = std::string(RowOf(kind).prefix) + "-" + monthText_ + "-" + number;
        if (bill.state == BillState::Audited && dice_.Chance(600)) {
            bill.voucher = "记-" + std::to_string(dice_.Between(1, 900));
        }
        return bill;
    }

    BillState NewState() {
        if (dice_.Chance(15)) return BillState::Void;
        const bool recent = day_ > span_.lastDay - kNotYetAuditedDays;
        return dice_.Chance(recent ? 350 : 6) ? BillState::NotAudited : BillState::Audited;
    }

    void SetParty(Bill& bill, Side& side, std::size_t party) {
        const SampleFirm::Party& chosen = side.parties[party];
        bill.*side.party = chosen.id;
        SetEmployee(bill, dice_.Chance(900) ? chosen.employee : dice_.Index(firm_.employees.size()));
    }

    void SetEmployee(Bill& bill, std::size_t employee) {
        bill.employee = firm_.employees[employee].id;
        bill.department = firm_.employees[employee].department;
    }

    /// Few parties make most of the business, and the last twentieth none at all.
    std::size_t AnyParty(const Side& side) {
        const std::size_t count = side.parties.size() - side.parties.size() / 20 - 1;
        return std::min(dice_.Index(count), dice_.Index(count));
    }

    std::int64_t AnyAccount() { return dice_.Pick(firm_.accounts); }

    /// Leaves what was not paid at once open, if the bill counts.
    void LeaveOpen(const Bill& bill, Side& side, std::size_t party, std::int64_t open) {
        if (bill.state != BillState::Audited) return;
        const std::int64_t late = dice_.Chance(60) ? kNeverPaid : dice_.Between(-5, 45);
        side.open.Add({bill.id, party, open}, bill.day + side.parties[party].creditDays + late);
    }

    /// Pays a bill at once, not at all or in part.
    void SettleAtOnce(Bill& bill, std::uint32_t wholePerThousand) {
        const std::uint32_t thrown = dice_.Below(1000);
        if (thrown < wholePerThousand) {
            bill.settled = bill.amount;
        } else if (thrown < wholePerThousand + 100) {
            bill.settled = bill.amount * dice_.Between(20, 80) / 100;
        }
        if (bill.settled != 0) bill.account = AnyAccount();
    }

    // Goods.

    GoodsLine AnyGoodsLine(bool selling, std::int64_t sign) {
        const SampleFirm::Goods& goods = dice_.Pick(firm_.goods);
        const std::int64_t percent = selling ? dice_.Between(95, 125) : dice_.Between(60, 80);
        const std::int64_t priceFen = std::max<std::int64_t>(1, goods.priceFen * percent / 100);
        const std::int64_t many = std::max<std::int64_t>(2, 2000000 / goods.priceFen);
        std::int64_t tenths = dice_.Between(1, std::min<std::int64_t>(many, 2000)) * 10;
        if (goods.weighed) tenths += dice_.Between(0, 9);
        GoodsLine line;
        line.item = goods.id;
        line.quantity = sign * tenths * 1000;
        line.price = priceFen * 100;
        line.amount = sign * ((tenths * priceFen + 5) / 10);
        const bool whole = goods.showRate > 1 && tenths % (goods.showRate * 10) == 0;
        line.showUnit = whole ? goods.showUnit : goods.unit;
        line.showRate = whole ? goods.showRate : 1;
        if (dice_.Chance(50)) line.aux = dice_.Chance(500) ? "红色" : "蓝色";
        if (goods.weighed) line.batch = "P" + monthText_;
        return line;
    }

    std::vector<GoodsLine> AnyGoods(bool selling, std::int64_t sign, Bill& bill) {
        std::vector<GoodsLine> lines(static_cast<std::size_t>(dice_.Between(1, 3)));
        for (GoodsLine& line : lines) {
            line = AnyGoodsLine(selling, sign);
            bill.amount += line.amount;
        }
        return lines;
    }

    template <class Line>
    void Write(const Bill& bill, const std::vector<Line>& lines) {
        writer_.Write(bill);
        int index = 0;
        for (const Line& line : lines) {
            writer_.Write(bill, ++index, line);
        }
    }

    bool MakeGoodsBill(BillKind kind, Side& side, bool selling, std::int64_t sign) {
        Bill bill = NewBill(kind);
        const std::size_t party = AnyParty(side);
        SetParty(bill, side, party);
        const std::vector<GoodsLine> lines = AnyGoods(selling, sign, bill);
        SettleAtOnce(bill, 250);
        bill.dueDay = day_ + side.parties[party].creditDays;
        if (dice_.Chance(500)) bill.invoice = std::to_string(dice_.Between(10000000, 99999999));
        Write(bill, lines);
        if (selling && dice_.Chance(20)) {
            writer_.WriteHeadField(bill, static_cast<int>(dice_.Between(1, 6)), "合同HT-" + monthText_);
        }
        LeaveOpen(bill, side, party, bill.amount - bill.settled);
        return true;
    }

    bool MakeSale() { return MakeGoodsBill(BillKind::Sale, sales_, true, 1); }
    bool MakeSaleReturn() { return MakeGoodsBill(BillKind::SaleReturn, sales_, true, -1); }
    bool MakePurchase() { return MakeGoodsBill(BillKind::Purchase, purchases_, false, 1); }
    bool MakePurchaseReturn() { return MakeGoodsBill(BillKind::PurchaseReturn, purchases_, false, -1); }

    // Goods that move before they are billed.

    struct Moved {
        std::int64_t bill;
        std::size_t party;
        std::vector<GoodsLine> lines;
    };

    bool MakeMovement(BillKind kind, Side& side, bool selling, std::vector<Moved>& moved) {
        Bill bill = NewBill(kind);
        const std::size_t party = AnyParty(side);
        SetParty(bill, side, party);
        std::vector<GoodsLine> lines = AnyGoods(selling, 1, bill);
        Write(bill, lines);
        if (bill.state == BillState::Audited) moved.push_back({bill.id, party, std::move(lines)});
        return true;
    }

    /// Takes lines of an earlier movement over into a bill of its own: some, or all where `whole`.
    bool FinishMovement(BillKind kind, Side& side, std::vector<Moved>& moved, bool whole, std::int64_t sign) {
        if (moved.empty()) return false;
        const std::size_t place = dice_.Index(std::min<std::size_t>(moved.size(), 20));
        Moved& from = moved[place];
        Bill bill = NewBill(kind);
        SetParty(bill, side, from.party);
        bill.related = from.bill;
        const std::size_t taken = whole ? from.lines.size() : 1 + dice_.Index(from.lines.size());
        std::vector<GoodsLine> lines(from.lines.begin(),
                                     from.lines.begin() + static_cast<std::ptrdiff_t>(taken));
        for (GoodsLine& line : lines) {
            line.quantity *= sign;
            line.amount *= sign;
            bill.amount += line.amount;
        }
        if (kind == BillKind::ConsignmentSale) SettleAtOnce(bill, 200);
        Write(bill, lines);
        if (bill.state != BillState::Audited) return true;
        if (kind == BillKind::ConsignmentSale) LeaveOpen(bill, side, from.party, bill.amount - bill.settled);
        from.lines.erase(from.lines.begin(), from.lines.begin() + static_cast<std::ptrdiff_t>(taken));
        if (from.lines.empty()) moved.erase(moved.begin() + static_cast<std::ptrdiff_t>(place));
        return true;
    }

    bool MakeConsignment() { return MakeMovement(BillKind::Consignment, sales_, true, consigned_); }
    bool MakeConsignmentSale() {
        return FinishMovement(BillKind::ConsignmentSale, sales_, consigned_, false, 1);
    }
    bool MakeEstimate() { return MakeMovement(BillKind::Estimate, purchases_, false, estimated_); }
    bool MakeEstimateReversal() {
        return FinishMovement(BillKind::EstimateReversal, purchases_, estimated_, true, -1);
    }

    // Income, expenses and other claims, by class.

    /// A class that is disabled by now was used in the first half of the years only.
    const SampleFirm::Class& AnyClass(const std::vector<SampleFirm::Class>& classes) {
        for (;;) {
            const SampleFirm::Class& chosen = dice_.Pick(classes);
            if (!chosen.disabled || day_ - span_.firstDay < (span_.lastDay - span_.firstDay) / 2)
                return chosen;
        }
    }

    std::vector<ClassLine> AnyClassLines(const std::vector<SampleFirm::Class>& classes,
                                         std::span<const std::string_view> notes, Bill& bill) {
        std::vector<ClassLine> lines(dice_.Chance(780) ? 1u : static_cast<std::size_t>(dice_.Between(2, 3)));
        for (ClassLine& line : lines) {
            const SampleFirm::Class& chosen = AnyClass(classes);
            line.itemClass = chosen.id;
            line.amount = chosen.typicalFen * dice_.Between(30, 220) / 100 + dice_.Between(0, 99);
            if (dice_.Chance(10)) line.amount = -line.amount;  // a correction
            if (const std::string_view note = dice_.Pick(notes); !note.empty()) {
                line.note = std::to_string(month_) + "月" + chosen.name + "，" + std::string(note);
            }
            bill.amount += line.amount;
        }
        return lines;
    }

    /// Shares out what was paid at once over the lines, in their order; the last one takes the rest.
    static void ShareSettled(const Bill& bill, std::vector<ClassLine>& lines) {
        std::int64_t rest = bill.settled;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const bool whole = bill.settled == bill.amount;
            const std::int64_t share =
                whole ? lines[i].amount : std::min(rest, std::max<std::int64_t>(lines[i].amount, 0));
            lines[i].settled = i + 1 == lines.size() ? rest : share;
            rest -= lines[i].settled;
        }
    }

    bool MakeClassBill(BillKind kind, Side& side, const std::vector<SampleFirm::Class>& classes,
                       std::span<const std::string_view> notes, bool withCash) {
        Bill bill = NewBill(kind);
        const bool hasParty = !withCash || dice_.Chance(650);
        const std::size_t party = AnyParty(side);
        if (hasParty) {
            SetParty(bill, side, party);
        } else if (dice_.Chance(900)) {
            SetEmployee(bill, dice_.Index(firm_.employees.size()));
        }
        std::vector<ClassLine> lines = AnyClassLines(classes, notes, bill);
        if (withCash) SettleAtOnce(bill, hasParty ? 600 : 1000);
        ShareSettled(bill, lines);
        if (hasParty) bill.dueDay = day_ + side.parties[party].creditDays;
        Write(bill, lines);
        if (hasParty) LeaveOpen(bill, side, party, bill.amount - bill.settled);
        return true;
    }

    bool MakeOtherIncome() {
        return MakeClassBill(BillKind::OtherIncome, sales_, firm_.incomeClasses, kSampleIncomeNotes, true);
    }
    bool MakeExpense() {
        return MakeClassBill(BillKind::Expense, purchases_, firm_.expenseClasses, kSampleExpenseNotes, true);
    }
    bool MakeOtherReceivable() {
        return MakeClassBill(BillKind::OtherReceivable, sales_, firm_.incomeClasses, kSampleIncomeNotes,
                             false);
    }
    bool MakeOtherPayable() {
        return MakeClassBill(BillKind::OtherPayable, purchases_, firm_.expenseClasses, kSampleExpenseNotes,
                             false);
    }

    // Money.

    /// What a payment takes of one open bill: all of it mostly, sometimes less, now and then with the odd
    /// amount let go.
    SettlementRow PaymentOf(const OpenBill& target) {
        SettlementRow row{
            .bill = 0, .source = 0, .target = target.bill, .day = day_, .amount = target.open, .discount = 0};
        if (target.open > 100000 && dice_.Chance(150)) {
            row.amount = target.open * dice_.Between(20, 80) / 100;
        } else if (target.open > 20000 && dice_.Chance(40)) {
            row.discount = target.open % 1000;
            row.amount -= row.discount;
        }
        return row;
    }

    bool MakeSettlingBill(Side& side) {
        OpenBill* first = side.open.NextDue(day_);
        if (!first) return false;
        Bill bill = NewBill(side.receipt);
        const std::size_t party = first->party;
        SetParty(bill, side, party);
        bill.account = AnyAccount();

        std::vector<std::pair<OpenBill*, SettlementRow>> rows{{first, PaymentOf(*first)}};
        bill.amount = rows[0].second.amount;
        for (OpenBill* other : side.open.Of(party)) {
            if (other == first || rows.size() > 2 || !dice_.Chance(400)) continue;
            const SettlementRow row = PaymentOf(*other);
            if (bill.amount + row.amount <= 0) continue;
            rows.emplace_back(other, row);
            bill.amount += row.amount;
        }
        for (const auto& [target, row] : rows) {
            bill.discount += row.discount;
        }
        bill.explanation = side.receipt == BillKind::Receipt ? "收货款" : "付货款";
        writer_.Write(bill);
        if (bill.state == BillState::Void) {
            side.open.PutOff(*first, day_ + 1);
            return true;
        }
        for (auto& [target, row] : rows) {
            Settle(bill, bill.id, *target, row.amount, row.discount);
        }
        if (first->open > 0) side.open.PutOff(*first, day_ + dice_.Between(10, 40));
        return true;
    }

    void Settle(const Bill& bill, std::int64_t source, OpenBill& target, std::int64_t amount,
                std::int64_t discount) {
        writer_.Write(SettlementRow{.bill = bill.id,
                                    .source = source,
                                    .target = target.bill,
                                    .day = bill.day,
                                    .amount = amount,
                                    .discount = discount});
        target.open -= amount + discount;
    }

    bool MakeAdvance(Side& side) {
        Bill bill = NewBill(side.advance);
        const std::size_t party = AnyParty(side);
        SetParty(bill, side, party);
        bill.account = AnyAccount();
        bill.amount = dice_.Between(5, 300) * 10000;
        bill.explanation = "订金";
        writer_.Write(bill);
        if (bill.state == BillState::Audited) side.advances.push_back({bill.id, party, bill.amount});
        return true;
    }

    bool MakeReceipt() { return MakeSettlingBill(sales_); }
    bool MakePayment() { return MakeSettlingBill(purchases_); }
    bool MakeAdvanceReceipt() { return MakeAdvance(sales_); }
    bool MakeAdvancePayment() { return MakeAdvance(purchases_); }

    bool MakeRebate(Side& side) {
        Bill bill = NewBill(side.rebate);
        const std::size_t party = AnyParty(side);
        SetParty(bill, side, party);
        bill.amount = dice_.Between(10, 900) * 1000;
        SettleAtOnce(bill, 300);
        bill.explanation = "按年度协议返利";
        writer_.Write(bill);
        LeaveOpen(bill, side, party, bill.settled - bill.amount);
        return true;
    }
    bool MakeSaleRebate() { return MakeRebate(sales_); }
    bool MakePurchaseRebate() { return MakeRebate(purchases_); }

    bool MakeBankTransfer() {
        Bill bill = NewBill(BillKind::BankTransfer);
        if (dice_.Chance(800)) SetEmployee(bill, dice_.Index(firm_.employees.size()));
        const std::size_t from = dice_.Index(firm_.accounts.size());
        const std::size_t step = 1 + dice_.Index(firm_.accounts.size() - 1);
        bill.account = firm_.accounts[from];
        bill.toAccount = firm_.accounts[(from + step) % firm_.accounts.size()];
        bill.amount = dice_.Between(1, 200) * 50000;
        bill.explanation = "资金调拨";
        writer_.Write(bill);
        return true;
    }

    // Write-offs: no money moves.

    /// Writes a write-off whose amount is settled on `target`, unless it is void.
    Bill WriteOff(BillKind kind, Side& side, std::int64_t otherSide, std::int64_t toParty,
                  std::int64_t source, OpenBill& target, std::int64_t amount) {
        Bill bill = NewBill(kind);
        SetParty(bill, side, target.party);
        (&side == &sales_ ? bill.supplier : bill.customer) = otherSide;
        bill.toParty = toParty;
        bill.amount = amount;
        bill.explanation = "核销";
        writer_.Write(bill);
        if (bill.state != BillState::Void) Settle(bill, source, target, amount, 0);
        return bill;
    }

    bool UseAdvance(Side& side) {
        if (side.advances.empty()) return false;
        const std::size_t place = dice_.Index(side.advances.size());
        OpenBill& advance = side.advances[place];
        OpenBill* target = side.open.OldestOwed(advance.party);
        if (!target) return false;
        const std::int64_t amount = std::min(advance.open, target->open);
        if (WriteOff(side.useOfAdvance, side, 0, 0, advance.bill, *target, amount).state == BillState::Void)
            return true;
        advance.open -= amount;
        if (advance.open == 0)
            side.advances.erase(side.advances.begin() + static_cast<std::ptrdiff_t>(place));
        return true;
    }
    bool MakeAdvanceToReceivable() { return UseAdvance(sales_); }
    bool MakeAdvanceToPayable() { return UseAdvance(purchases_); }

    bool MakeReceivableToPayable() {
        const std::size_t match = dice_.Index(firm_.suppliers.size());
        const std::size_t party = firm_.suppliers[match].match;
        if (party == SampleFirm::kNoMatch) return false;
        OpenBill* owed = sales_.open.OldestOwed(party);
        OpenBill* owing = purchases_.open.OldestOwed(match);
        if (!owed || !owing) return false;
        const std::int64_t amount = std::min(owed->open, owing->open);
        const Bill bill = WriteOff(BillKind::ReceivableToPayable, sales_, firm_.suppliers[match].id, 0,
                                   owing->bill, *owed, amount);
        if (bill.state != BillState::Void) owing->open -= amount;
        return true;
    }

    bool Transfer(Side& side) {
        const std::size_t party = AnyParty(side), to = AnyParty(side);
        OpenBill* target = party == to ? nullptr : side.open.OldestOwed(party);
        if (!target) return false;
        const std::int64_t amount = target->open;
        const Bill bill = WriteOff(side.transfer, side, 0, side.parties[to].id, 0, *target, amount);
        LeaveOpen(bill, side, to, amount);
        return true;
    }
    bool MakeReceivableTransfer() { return Transfer(sales_); }
    bool MakePayableTransfer() { return Transfer(purchases_); }

    // The first day and the choice of what comes next.

    void MakeOpeningBills() {
        StartDay(span_.firstDay - 1);
        const std::int64_t most = span_.bills / 40;
        MakeOpening(BillKind::OpeningReceivable, sales_, most);
        MakeOpening(BillKind::OpeningPayable, purchases_, most);
        month_ = 0;
    }

    void MakeOpening(BillKind kind, Side& side, std::int64_t most) {
        for (std::size_t party = 0; party < side.parties.size() && most > 0; ++party) {
            if (!dice_.Chance(300)) continue;
            Bill bill = NewBill(kind);
            bill.state = BillState::Audited;
            SetParty(bill, side, party);
            bill.amount = dice_.Between(100, 90000) * 100;
            bill.explanation = "期初余额";
            writer_.Write(bill);
            LeaveOpen(bill, side, party, bill.amount);
            --most;
        }
    }

    void MakeOne() {
        auto thrown = static_cast<std::int32_t>(dice_.Below(1000));
        for (const Weight& row : Weights()) {
            thrown -= row.weight;
            if (thrown >= 0) continue;
            if (!(this->*row.make)()) MakeSale();
            return;
        }
    }

    Dice& dice_;
    SampleFirm& firm_;
    const SampleSpan span_;
    BillWriter writer_;
    Side sales_{firm_.customers,
                &Bill::customer,
                BillKind::Receipt,
                BillKind::AdvanceReceipt,
                BillKind::AdvanceToReceivable,
                BillKind::ReceivableTransfer,
                BillKind::SaleRebate};
    Side purchases_{firm_.suppliers,
                    &Bill::supplier,
                    BillKind::Payment,
                    BillKind::AdvancePayment,
                    BillKind::AdvanceToPayable,
                    BillKind::PayableTransfer,
                    BillKind::PurchaseRebate};
    std::vector<Moved> consigned_, estimated_;
    std::int64_t made_ = 0;
    std::int64_t day_ = 0;
    int month_ = 0;
    std::string monthText_;
    std::array<std::int64_t, std::size(kBillKinds) + 1> numbers_{};
    std::size_t numberWidth_ = 4;
};

std::span<const BillMaker::Weight> BillMaker::Weights() {
    static constexpr Weight kWeights[] = {
        {195, &BillMaker::MakeSale},
        {18, &BillMaker::MakeSaleReturn},
        {110, &BillMaker::MakePurchase},
        {9, &BillMaker::MakePurchaseReturn},
        {160, &BillMaker::MakeReceipt},
        {95, &BillMaker::MakePayment},
        {16, &BillMaker::MakeAdvanceReceipt},
        {9, &BillMaker::MakeAdvancePayment},
        {118, &BillMaker::MakeOtherIncome},
        {152, &BillMaker::MakeExpense},
        {18, &BillMaker::MakeOtherReceivable},
        {14, &BillMaker::MakeOtherPayable},
        {12, &BillMaker::MakeSaleRebate},
        {6, &BillMaker::MakePurchaseRebate},
        {12, &BillMaker::MakeConsignment},
        {11, &BillMaker::MakeConsignmentSale},
        {8, &BillMaker::MakeEstimate},
        {6, &BillMaker::MakeEstimateReversal},
        {8, &BillMaker::MakeAdvanceToReceivable},
        {4, &BillMaker::MakeAdvanceToPayable},
        {3, &BillMaker::MakeReceivableToPayable},
        {3, &BillMaker::MakeReceivableTransfer},
        {2, &BillMaker::MakePayableTransfer},
        {11, &BillMaker::MakeBankTransfer},
    };
    static_assert([] {
        std::int32_t all = 0;
        for (const Weight& row : kWeights) {
            all += row.weight;
        }
        return all;
    }() == 1000);
    return kWeights;
}

}  // namespace

void MakeSampleBills(Database& database, Dice& dice, SampleFirm& firm, const SampleSpan& span,
                     const std::function<void(double)>& progress) {
    BillMaker(database, dice, firm, span).MakeAll(progress);
}

}  // namespace qor
