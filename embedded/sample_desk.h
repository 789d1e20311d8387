// The desk at which the sample firm's bills are written: the day, the numbers of the bills, and both sides of
// the business with what is still open there.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "embedded/bill_writer.h"
#include "embedded/open_bills.h"
#include "embedded/sample_bills.h"

namespace qor {

/// Goods that left or came before they were billed, by the lines not yet billed.
struct MovedGoods {
    std::int64_t bill;
    std::size_t party;
    std::vector<GoodsLine> lines;
};

/// One side of the firm's business: its customers or its suppliers.
struct SampleSide {
    std::vector<SampleFirm::Party>& parties;
    std::int64_t Bill::*party;
    OpenBills open{parties};
    std::vector<OpenBill> advances{};
    std::vector<MovedGoods> moved{};
};

class SampleDesk {
 public:
    SampleDesk(Database& database, Dice& throwing, SampleFirm& whose, const SampleSpan& when);

    void StartDay(std::int64_t day);
    std::int64_t day() const { return day_; }
    int month() const { return month_; }
    const std::string& monthText() const { return monthText_; }  // such as "202009"
    std::int64_t made() const { return made_; }

    /// A bill of today with its number, its state and its voucher.
    Bill NewBill(BillKind kind);
    /// The same with a party of one side, and the employee who looks after it.
    Bill NewBill(BillKind kind, const SampleSide& side, std::size_t party);
    SampleSide& SideOf(BillKind kind);
    void SetParty(Bill& bill, const SampleSide& side, std::size_t party);
    void SetAnyEmployee(Bill& bill) { SetEmployee(bill, dice.Index(firm.employees.size())); }
    /// Few parties make most of the business, and the last twentieth none at all.
    std::size_t AnyParty(const SampleSide& side);
    std::int64_t AnyAccount() { return dice.Pick(firm.accounts); }
    /// Pays a bill at once: all of it in `wholePerThousand` of cases, a part in some more.
    void SettleAtOnce(Bill& bill, std::uint32_t wholePerThousand);
    /// Leaves what was not paid at once open, if the bill counts.
    void LeaveOpen(const Bill& bill, SampleSide& side, std::size_t party, std::int64_t open);

    template <class Line>
    void Write(const Bill& bill, const std::vector<Line>& lines) {
        writer.Write(bill);
        int index = 0;
        for (const Line& line : lines) {
            writer.Write(bill, ++index, line);
        }
    }

    Dice& dice;
    SampleFirm& firm;
    const SampleSpan span;
    BillWriter writer;
    SampleSide sales{firm.customers, &Bill::customer};
    SampleSide purchases{firm.suppliers, &Bill::supplier};

 private:
    BillState NewState();
    void SetEmployee(Bill& bill, std::size_t employee);

    std::int64_t made_ = 0;
    std::int64_t day_ = 0;
    int month_ = 0;
    std::string monthText_;
    std::array<std::int64_t, std::size(kBillKinds) + 1> numbers_{};  // given this month, by kind
    std::size_t numberWidth_ = 4;
};

}  // namespace qor
