#include "embedded/open_amounts.h"

#include <gtest/gtest.h>

#include <map>
#include <numeric>

#include "embedded/built_firm.h"
#include "embedded/plain_book.h"

namespace qor {
namespace {

using test::BuiltFirm;
using test::PlainBook;

constexpr PartySide kSides[] = {PartySide::Customer, PartySide::Supplier};
constexpr std::int64_t kDay = 45000;

std::map<std::pair<std::int64_t, std::int64_t>, std::int64_t> ByBill(const std::vector<OpenAmount>& amounts) {
    std::map<std::pair<std::int64_t, std::int64_t>, std::int64_t> open;
    for (const OpenAmount& amount : amounts) {
        EXPECT_TRUE(open.emplace(std::pair{amount.bill, amount.party}, amount.open).second) << amount.bill;
    }
    return open;
}

std::map<std::int64_t, std::int64_t> ByParty(const std::vector<OpenAmount>& amounts) {
    std::map<std::int64_t, std::int64_t> open;
    for (const OpenAmount& amount : amounts) {
        open[amount.party] += amount.open;
    }
    return open;
}

/// What is open of one bill on a day, of audited bills; in the account of `party` where it has two.
std::int64_t Open(BuiltFirm& firm, std::int64_t bill, std::int64_t day, PartySide side = PartySide::Customer,
                  std::int64_t party = 0) {
    AccountSet set = firm.Open();
    for (const OpenAmount& amount : OpenAmounts(set, {.side = side, .day = day, .checkState = 0})) {
        if (amount.bill == bill && (party == 0 || amount.party == party)) return amount.open;
    }
    return -999;
}

TEST(OpenAmounts, AreThoseOfTheSlowBooksOnEveryDayInEveryState) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const PartySide side : kSides) {
            for (const int state : {0, 1, 2}) {
                for (const std::int64_t day : {44561, 45000, 45500, 45838}) {
                    const auto amounts = OpenAmounts(set, {.side = side, .day = day, .checkState = state});
                    EXPECT_EQ(ByBill(amounts), book.Open(side, state, day)) << seed << " " << day;
                    EXPECT_EQ(ByParty(amounts), book.Balances(side, state, day)) << seed << " " << day;
                }
            }
            EXPECT_EQ(ByBill(OpenAmounts(set, {.side = side})), book.Open(side, 2, 1 << 30));
        }
    }
}

/// What the slow books hold of the bills that the test picks.
template <class Test>
auto Picked(std::map<std::pair<std::int64_t, std::int64_t>, std::int64_t> open, Test test) {
    std::erase_if(open, [&](const auto& entry) { return !test(entry.first.first, entry.first.second); });
    return open;
}

TEST(OpenAmounts, OfOnePartyAreReadAloneAndAreTheSame) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const PartySide side : kSides) {
            for (const std::int64_t day : {45000, 45838}) {
                const auto all = book.Open(side, 0, day);
                for (const auto& [party, balance] : book.Balances(side, 0, day)) {
                    auto amounts =
                        OpenAmounts(set, {.side = side, .day = day, .checkState = 0, .parties = {{party}}});
                    EXPECT_LT(amounts.size() * 2, all.size()) << "other parties' bills were read";
                    std::erase_if(amounts, [&](const OpenAmount& row) { return row.party != party; });
                    EXPECT_EQ(ByBill(amounts), Picked(all, [&](auto, auto of) { return of == party; }))
                        << seed << " " << party;
                }
            }
        }
    }
}

TEST(OpenAmounts, OfAShortPeriodAreReadAloneAndAreTheSame) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        std::map<std::int64_t, std::int64_t> dayOf;
        for (const OpenAmount& row : OpenAmounts(set, {.side = PartySide::Customer})) {
            dayOf[row.bill] = row.day;
        }
        for (const OpenAmount& row : OpenAmounts(set, {.side = PartySide::Supplier})) {
            dayOf[row.bill] = row.day;
        }
        for (const PartySide side : kSides) {
            for (const int state : {0, 1, 2}) {
                for (const std::int64_t day : {44700, 45500, 45838}) {
                    const auto all = book.Open(side, state, day);
                    const std::int64_t first = day - 40;
                    const auto amounts =
                        OpenAmounts(set, {.side = side, .day = day, .checkState = state, .firstDay = first});
                    const auto expected =
                        Picked(all, [&](auto bill, auto) { return dayOf.at(bill) >= first; });
                    EXPECT_FALSE(state != 1 && expected.empty()) << seed << " " << day;
                    EXPECT_EQ(ByBill(amounts), expected) << seed << " " << state << " " << day;
                }
            }
        }
    }
}

TEST(OpenAmounts, ComeByIdWithWhatTheBillRaisedAndHadPaidAtOnce) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = customer, .amount = 1000, .settled = 300});
    firm.Add({.kind = BillKind::SaleReturn, .day = kDay, .customer = customer, .amount = -200});
    firm.Add({.kind = BillKind::SaleRebate, .day = kDay, .customer = customer, .amount = 50, .settled = 20});
    firm.Add({.kind = BillKind::Receipt, .day = kDay, .customer = customer, .amount = 400, .discount = 5});
    firm.Add({.kind = BillKind::AdvanceReceipt, .day = kDay, .customer = customer, .amount = 70});
    AccountSet set = firm.Open();
    std::string rows;
    for (const OpenAmount& row : OpenAmounts(set, {.side = PartySide::Customer})) {
        EXPECT_EQ(row.party, customer);
        EXPECT_EQ(row.day, kDay);
        rows += std::to_string(row.bill) + ":" + std::to_string(row.amount) + "," +
                std::to_string(row.atOnce) + "," + std::to_string(row.open) + " ";
    }
    EXPECT_EQ(rows, "1:1000,300,700 2:-200,0,-200 3:-50,-20,-30 4:-405,0,-405 5:-70,0,-70 ");
}

TEST(OpenAmounts, ASettlementCountsFromItsDayOn) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    const auto sale = firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = customer, .amount = 1000});
    const auto receipt = firm.Add(
        {.kind = BillKind::Receipt, .day = kDay + 10, .customer = customer, .amount = 600, .discount = 15});
    firm.Settle({.bill = receipt,
                 .source = receipt,
                 .target = sale,
                 .day = kDay + 10,
                 .amount = 600,
                 .discount = 15});
    EXPECT_EQ(Open(firm, sale, kDay - 1), -999);
    EXPECT_EQ(Open(firm, sale, kDay), 1000);
    EXPECT_EQ(Open(firm, sale, kDay + 9), 1000);
    EXPECT_EQ(Open(firm, sale, kDay + 10), 385);
    EXPECT_EQ(Open(firm, receipt, kDay + 10), 0);
}

TEST(OpenAmounts, MoneyThatSettledNothingStaysOpenAgainstTheParty) {
    BuiltFirm firm;
    const std::int64_t supplier = firm.Supplier(0);
    const auto bill =
        firm.Add({.kind = BillKind::Purchase, .day = kDay, .supplier = supplier, .amount = 1000});
    const auto payment =
        firm.Add({.kind = BillKind::Payment, .day = kDay + 1, .supplier = supplier, .amount = 700});
    firm.Settle({.bill = payment, .source = payment, .target = bill, .day = kDay + 5, .amount = 650});
    EXPECT_EQ(Open(firm, bill, kDay + 4, PartySide::Supplier), 1000);
    EXPECT_EQ(Open(firm, payment, kDay + 4, PartySide::Supplier), -700);
    EXPECT_EQ(Open(firm, bill, kDay + 5, PartySide::Supplier), 350);
    EXPECT_EQ(Open(firm, payment, kDay + 5, PartySide::Supplier), -50);
}

TEST(OpenAmounts, AnAdvanceIsOpenUntilItIsUsed) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(1);
    const auto advance =
        firm.Add({.kind = BillKind::AdvanceReceipt, .day = kDay, .customer = customer, .amount = 500});
    const auto sale =
        firm.Add({.kind = BillKind::Sale, .day = kDay + 1, .customer = customer, .amount = 800});
    const auto use = firm.Add(
        {.kind = BillKind::AdvanceToReceivable, .day = kDay + 2, .customer = customer, .amount = 300});
    firm.Settle({.bill = use, .source = advance, .target = sale, .day = kDay + 2, .amount = 300});
    EXPECT_EQ(Open(firm, advance, kDay + 1), -500);
    EXPECT_EQ(Open(firm, advance, kDay + 2), -200);
    EXPECT_EQ(Open(firm, sale, kDay + 2), 500);
    EXPECT_EQ(Open(firm, use, kDay + 2), 0);
}

TEST(OpenAmounts, AReceivableSetOffAgainstAPayableSettlesBoth) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0), supplier = firm.Supplier(0);
    const auto sale = firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = customer, .amount = 900});
    const auto purchase =
        firm.Add({.kind = BillKind::Purchase, .day = kDay, .supplier = supplier, .amount = 400});
    const auto setOff = firm.Add({.kind = BillKind::ReceivableToPayable,
                                  .day = kDay + 3,
                                  .customer = customer,
                                  .supplier = supplier,
                                  .amount = 400});
    firm.Settle({.bill = setOff, .source = purchase, .target = sale, .day = kDay + 3, .amount = 400});
    EXPECT_EQ(Open(firm, sale, kDay + 3), 500);
    EXPECT_EQ(Open(firm, setOff, kDay + 3), 0);
    EXPECT_EQ(Open(firm, purchase, kDay + 3, PartySide::Supplier), 0);
    EXPECT_EQ(Open(firm, setOff, kDay + 3, PartySide::Supplier), 0);
}

TEST(OpenAmounts, ATransferTakesFromOnePartyAndIsOpenAtTheOther) {
    BuiltFirm firm;
    const std::int64_t from = firm.Customer(0), to = firm.Customer(1);
    const auto sale = firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = from, .amount = 900});
    const auto transfer = firm.Add({.kind = BillKind::ReceivableTransfer,
                                    .day = kDay + 1,
                                    .customer = from,
                                    .toParty = to,
                                    .amount = 900});
    firm.Settle({.bill = transfer, .target = sale, .day = kDay + 1, .amount = 900});
    const auto receipt =
        firm.Add({.kind = BillKind::Receipt, .day = kDay + 2, .customer = to, .amount = 100});
    firm.Settle({.bill = receipt, .source = receipt, .target = transfer, .day = kDay + 2, .amount = 100});
    EXPECT_EQ(Open(firm, sale, kDay + 1), 0);
    EXPECT_EQ(Open(firm, transfer, kDay + 1, PartySide::Customer, from), 0);
    EXPECT_EQ(Open(firm, transfer, kDay + 1, PartySide::Customer, to), 900);
    EXPECT_EQ(Open(firm, transfer, kDay + 2, PartySide::Customer, to), 800);
}

TEST(OpenAmounts, AVoidOrUnauditedReceiptSettlesNothing) {
    for (const BillState state : {BillState::Void, BillState::NotAudited}) {
        BuiltFirm firm;
        const std::int64_t customer = firm.Customer(0);
        const auto sale =
            firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = customer, .amount = 1000});
        const auto receipt = firm.Add(
            {.kind = BillKind::Receipt, .day = kDay, .state = state, .customer = customer, .amount = 1000});
        firm.Settle({.bill = receipt, .source = receipt, .target = sale, .day = kDay, .amount = 1000});
        EXPECT_EQ(Open(firm, sale, kDay), 1000);
        EXPECT_EQ(Open(firm, receipt, kDay), -999) << "it does not count";
        AccountSet set = firm.Open();
        const auto both = ByBill(OpenAmounts(set, {.side = PartySide::Customer}));
        EXPECT_EQ(both.at({sale, customer}), state == BillState::Void ? 1000 : 0);
    }
}

TEST(OpenAmounts, MoneyOnABillThatDoesNotCountStaysOpenItself) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    const auto sale = firm.Add({.kind = BillKind::Sale,
                                .day = kDay,
                                .state = BillState::Void,
                                .customer = customer,
                                .amount = 1000});
    const auto receipt =
        firm.Add({.kind = BillKind::Receipt, .day = kDay, .customer = customer, .amount = 1000});
    firm.Settle({.bill = receipt, .source = receipt, .target = sale, .day = kDay, .amount = 1000});
    EXPECT_EQ(Open(firm, receipt, kDay), -1000);
}

TEST(OpenAmounts, IdsMayLieFarApart) {
    BuiltFirm firm(2);
    AccountSet before = firm.Open();
    const auto near = OpenAmounts(before, {.side = PartySide::Supplier});
    firm.database().Run(
        "UPDATE t_Settlement SET FBillID=FBillID*1000, FSourceBillID=FSourceBillID*1000, "
        "FTargetBillID=FTargetBillID*1000; UPDATE t_Bill SET FBillID=-FBillID; "
        "UPDATE t_Bill SET FBillID=FBillID*-1000");
    AccountSet after = firm.Open();
    const auto far = OpenAmounts(after, {.side = PartySide::Supplier});
    ASSERT_EQ(far.size(), near.size());
    for (std::size_t i = 0; i < far.size(); ++i) {
        ASSERT_EQ(far[i].bill, near[i].bill * 1000);
        ASSERT_EQ(far[i].open, near[i].open);
    }
}

TEST(OpenAmounts, AFirmWithoutBillsHasNone) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    for (const PartySide side : kSides) {
        EXPECT_TRUE(OpenAmounts(set, {.side = side, .day = kDay}).empty());
    }
}

}  // namespace
}  // namespace qor
