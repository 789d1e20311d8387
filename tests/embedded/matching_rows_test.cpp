#include "embedded/matching_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "embedded/account_asked.h"
#include "embedded/account_totals.h"
#include "embedded/built_firm.h"
#include "embedded/record_rows.h"

namespace qor {
namespace {

using test::AccountEntry;
using test::AccountsAsked;
using test::BookBill;
using test::BuiltFirm;
using test::Cents;
using test::Filter;
using test::PlainBook;
using test::RowsOf;
using testing::IsEmpty;

constexpr std::int64_t kDay = 45000;
const std::string kOfUser16 =
    " (CharIndex('16',ts.FRightUserID)>0 OR ISNULL(ts.FItemID,0)=0)  And "
    " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";

/// What the slow computation is asked for, beside the ranges of parties.
struct Asked {
    AccountsAsked both{.firstDay = 45000, .lastDay = 45400};
    std::string firstCustomer, lastCustomer, firstSupplier, lastSupplier;
};

Ref<OrderedDictionary> FilterOf(const Asked& asked) {
    const AccountsAsked& both = asked.both;
    const auto check = [](bool on) { return on ? "1" : "0"; };
    return Filter(
        {{"BDate", both.firstDay == 0 ? "" : FormatIsoDate(Date{static_cast<double>(both.firstDay)})},
         {"EDate", FormatIsoDate(Date{static_cast<double>(both.lastDay)})},
         {"BCustNumber", asked.firstCustomer},
         {"ECustNumber", asked.lastCustomer},
         {"BSupplyNumber", asked.firstSupplier},
         {"ESupplyNumber", asked.lastSupplier},
         {"BDeptNumber", both.firstDepartment},
         {"EDeptNumber", both.lastDepartment},
         {"BEmpNumber", both.firstEmployee},
         {"EEmpNumber", both.lastEmployee},
         {"chkIncludeGJ", check(both.estimates)},
         {"chkIncludeOtherPay", check(both.others)},
         {"chkIncludeOtherReceive", check(both.others)},
         {"chkIncludeHX", check(both.writeOffs)},
         {"chkNotShowBalZero", check(both.hidesNoBalance)},
         {"chkNotShowBillZero", check(both.hidesNoMovement)},
         {"ChkShowDetail", "0"},
         {"CheckState", static_cast<std::int16_t>(both.checkState)},
         {"DataRightWhere", both.user.empty() ? "" : kOfUser16}});
}

std::string Cell(std::int64_t number) { return std::to_string(number) + "|"; }

using Amounts =
    std::array<std::int64_t, 6>;  // advance, raised, settled of the customer, then of the supplier

std::string Cells(const Amounts& amounts, const Amounts& balance) {
    std::string cells;
    for (const std::int64_t amount : amounts) {
        cells += Cell(amount);
    }
    return cells + Cell(balance[1] - balance[2] - balance[0]) + Cell(balance[4] - balance[5] - balance[3]);
}

void Add(Amounts& sums, const Amounts& more) {
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sums[i] += more[i];
    }
}

bool AreZero(const Amounts& amounts) {
    return std::ranges::all_of(amounts, [](std::int64_t amount) { return amount == 0; });
}

/// What each bill did on either side of one pair of parties, by day and number of entry.
std::map<std::pair<std::int64_t, const BookBill*>, Amounts> Bills(const PlainBook& book, const Asked& asked,
                                                                  std::int64_t customer,
                                                                  std::int64_t supplier) {
    std::map<std::pair<std::int64_t, const BookBill*>, Amounts> bills;
    for (const PartySide side : {PartySide::Customer, PartySide::Supplier}) {
        AccountsAsked one = asked.both;
        one.side = side;
        one.user.clear();
        for (const AccountEntry& entry : Entries(book, one)) {
            if (entry.party != (side == PartySide::Customer ? customer : supplier)) continue;
            const std::size_t first = side == PartySide::Customer ? 0 : 3;
            Amounts amounts{};
            amounts[first] = entry.advance;
            amounts[first + 1] = entry.raised;
            amounts[first + 2] = entry.settled;
            Add(bills[{entry.bill->day, entry.bill}], amounts);
        }
    }
    return bills;
}

std::vector<std::string> Slow(const PlainBook& book, const Asked& asked) {
    std::map<std::string, std::pair<std::int64_t, std::int64_t>> pairs;
    for (const auto& [id, item] : book.items) {
        if (item.itemClass != item_class::kCustomer || item.match == 0) continue;
        if (!book.Lies(id, asked.firstCustomer, asked.lastCustomer)) continue;
        if (!book.Lies(item.match, asked.firstSupplier, asked.lastSupplier)) continue;
        if (book.Sees(asked.both.user, id) && book.Sees(asked.both.user, item.match)) {
            pairs[item.number] = {id, item.match};
        }
    }
    std::vector<std::string> rows;
    Amounts all{}, allBalance{};
    std::size_t shown = 0;
    for (const auto& [code, pair] : pairs) {
        const test::BookItem &customer = book.Item(pair.first), &supplier = book.Item(pair.second);
        const std::string behind =
            customer.number + "|" + customer.name + "|" + supplier.number + "|" + supplier.name + "|";
        Amounts balance{}, period{};
        std::vector<std::string> own;
        std::string opening;
        const auto open = [&] {
            if (!opening.empty()) return;
            const std::string day = asked.both.firstDay == 0 ? "-" : std::to_string(asked.both.firstDay);
            opening = day + "|期初余额|||" + customer.number + " " + customer.name + "，" + supplier.number +
                      " " + supplier.name + "|" + Cells({}, balance) + "||" + behind + "0|";
        };
        for (const auto& [place, amounts] : Bills(book, asked, pair.first, pair.second)) {
            const BookBill& bill = *place.second;
            if (bill.day >= asked.both.firstDay) open();
            Add(balance, amounts);
            if (bill.day < asked.both.firstDay) continue;
            Add(period, amounts);
            if (asked.both.hidesNoMovement && AreZero(amounts)) continue;
            own.push_back(Cell(bill.day) + std::string(RowOf(bill.kind).name) + "|" + bill.number + "|" +
                          bill.voucher + "|" + bill.explanation + "|" + Cells(amounts, balance) +
                          book.Item(bill.department).name + "|" + book.Item(bill.employee).name + "|" +
                          behind + "0|");
        }
        open();
        const bool settled =
            balance[1] - balance[2] - balance[0] == 0 && balance[4] - balance[5] - balance[3] == 0;
        if (asked.both.hidesNoBalance && settled) continue;
        if (asked.both.hidesNoMovement && own.empty()) continue;
        rows.push_back(opening);
        rows.insert(rows.end(), own.begin(), own.end());
        rows.push_back("-|小计||||" + Cells(period, balance) + "||" + behind + "1|");
        Add(all, period);
        Add(allBalance, balance);
        ++shown;
    }
    if (shown > 1) rows.push_back("-|合计||||" + Cells(all, allBalance) + "||||||2|");
    return rows;
}

const Asked kShapes[] = {
    {},
    {.both = {}},
    {.both = {.firstDay = 45300,
              .lastDay = 45838,
              .checkState = 0,
              .hidesNoBalance = true,
              .hidesNoMovement = true}},
    {.both = {.firstDay = 45300, .lastDay = 45838, .others = false, .estimates = true, .writeOffs = false}},
    {.both = {.firstDay = 45000, .lastDay = 45400, .user = "16"}},
    {.both = {.firstDay = 45000, .lastDay = 45400, .firstDepartment = "01", .lastDepartment = "02"}},
    {.both = {.firstDay = 45837, .lastDay = 45837, .hidesNoMovement = true}},
    {.firstCustomer = "01", .lastCustomer = "03"},
    {.firstSupplier = "01", .lastSupplier = "01"},
};

TEST(MatchingBalance, IsThatOfTheSlowBooksInEveryShapeOfFilter) {
    std::size_t rows = 0;
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const Asked& asked : kShapes) {
            const auto slow = Slow(book, asked);
            EXPECT_EQ(RowsOf(*MatchingBalance(set, *FilterOf(asked))), slow)
                << seed << " " << asked.both.firstDay;
            rows += slow.size();
        }
    }
    EXPECT_GT(rows, 500u);
}

TEST(MatchingBalance, BothClosingBalancesAreThoseOfTheSummaries) {
    AccountSet set(test::SampleFile(2));
    const Ref<RecordSet> rows =
        MatchingBalance(set, *FilterOf({.both = {.lastDay = 45400, .checkState = 0}}));
    const auto closing = [&](Ref<RecordSet> (*summary)(AccountSet&, const Dictionary&), const char* begin,
                             const char* end, const Value& code) {
        const auto filter = Filter({{"EDate", "2024-04-18"}, {"CheckState", 0}, {begin, code}, {end, code}});
        return Cents(*summary(set, *filter), "FBalanceAmount");
    };
    ASSERT_EQ(FormatIsoDate(Date{45400}), "2024-04-18");
    int parties = 0;
    for (; !rows->Eof(); rows->Move(1)) {
        if (rows->Field("FSumSort").int32() != 1) continue;
        ++parties;
        EXPECT_EQ(Cents(*rows, "FRecBalanceAmount"),
                  closing(ReceivableSummary, "BCustNumber", "ECustNumber", rows->Field("FCustNumber")));
        EXPECT_EQ(Cents(*rows, "FPayBalanceAmount"),
                  closing(PayableSummary, "BSupplyNumber", "ESupplyNumber", rows->Field("FSupplyNumber")));
    }
    EXPECT_GT(parties, 1);
}

/// A customer and a supplier that are one party.
struct LinkedFirm : BuiltFirm {
    LinkedFirm() {
        database().Run("UPDATE t_Party SET FMatchSupplyID=0");
        Link(customer);
    }
    void Link(std::int64_t other) {
        database().Run("UPDATE t_Party SET FMatchSupplyID=" + std::to_string(supplier) +
                       " WHERE FItemID=" + std::to_string(other));
    }
    std::int64_t customer = Customer(0), supplier = Supplier(0);
};

TEST(MatchingBalance, ASetOffIsOneRowOnBothSides) {
    LinkedFirm firm;
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = firm.customer, .amount = 900});
    firm.Add({.kind = BillKind::Purchase, .day = kDay, .supplier = firm.supplier, .amount = 400});
    firm.Add({.kind = BillKind::ReceivableToPayable,
              .day = kDay + 1,
              .customer = firm.customer,
              .supplier = firm.supplier,
              .amount = 400});
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = MatchingBalance(set, *Filter({}));
    ASSERT_EQ(static_cast<ColumnarRecordSet&>(*rows).RowCount(), 5);
    rows->Move(3);
    EXPECT_EQ(Cents(*rows, "FRecRealAmount"), 400);
    EXPECT_EQ(Cents(*rows, "FPayRealAmount"), 400);
    EXPECT_EQ(Cents(*rows, "FRecBalanceAmount"), 500);
    EXPECT_EQ(Cents(*rows, "FPayBalanceAmount"), 0);
}

TEST(MatchingBalance, CustomersThatShareASupplierShareOneAccount) {
    LinkedFirm firm;
    const std::int64_t second = firm.Customer(1);
    firm.Link(second);
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = firm.customer, .amount = 100});
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = second, .amount = 20});
    firm.Add({.kind = BillKind::Purchase, .day = kDay, .supplier = firm.supplier, .amount = 3});
    firm.Add({.kind = BillKind::ReceivableTransfer,
              .day = kDay + 1,
              .customer = second,
              .toParty = firm.customer,
              .amount = 20});
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = MatchingBalance(set, *Filter({}));
    ASSERT_EQ(static_cast<ColumnarRecordSet&>(*rows).RowCount(), 6) << "opening, four bills, total";
    rows->Move(4);
    EXPECT_EQ(Cents(*rows, "FRecAmount"), 20);
    EXPECT_EQ(Cents(*rows, "FRecRealAmount"), 20);
    EXPECT_EQ(Cents(*rows, "FRecBalanceAmount"), 120);
    EXPECT_EQ(Cents(*rows, "FPayBalanceAmount"), 3);
}

TEST(MatchingBalance, ALinkIsForUsersWhoSeeBothItsEnds) {
    struct Case {
        const char *customer, *supplier;
        bool shown;
    };
    for (const Case& rights : {Case{"1,16", "1,16", true}, {"1,16", "1", false}, {"1", "1,16", false}}) {
        LinkedFirm firm;
        firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = firm.customer, .amount = 100});
        Statement see(firm.database(), "UPDATE t_Party SET FRightUserID=? WHERE FItemID=?");
        see.With(std::string_view(rights.customer), firm.customer).Run();
        see.With(std::string_view(rights.supplier), firm.supplier).Run();
        AccountSet set = firm.Open();
        const auto rows = MatchingBalance(set, *Filter({{"DataRightWhere", kOfUser16}}));
        EXPECT_EQ(!rows->Eof(), rights.shown) << rights.customer << " and " << rights.supplier;
    }
}

TEST(MatchingBalance, GoodsLinesShareOutWhatTheirBillRaised) {
    LinkedFirm firm;
    const std::int64_t bill = firm.Add(
        {.kind = BillKind::Purchase, .day = kDay, .supplier = firm.supplier, .amount = 1000, .settled = 300});
    const std::int64_t goods = firm.Goods(0);
    GoodsLine line;
    line.item = goods;
    line.showUnit = goods;
    line.quantity = 120000;
    line.price = 25000;
    line.amount = 600;
    line.showRate = 12;
    firm.AddLine(bill, 1, line);
    line.amount = 390;
    firm.AddLine(bill, 2, line);
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = MatchingBalance(set, *Filter({{"ChkShowDetail", "1"}}));
    ASSERT_EQ(static_cast<ColumnarRecordSet&>(*rows).RowCount(), 4);
    rows->Move(1);
    EXPECT_EQ(Cents(*rows, "FPayAmount"), 600);
    EXPECT_EQ(Cents(*rows, "FPayRealAmount"), 0);
    EXPECT_EQ(Cents(*rows, "FQty"), 1200);
    EXPECT_EQ(Cents(*rows, "FShowQty"), 100);
    EXPECT_EQ(Cents(*rows, "FPrice"), 250);
    EXPECT_EQ(Cents(*rows, "FShowPrice"), 3000);
    rows->Move(1);
    EXPECT_EQ(Cents(*rows, "FPayAmount"), 400) << "the rest of the bill";
    EXPECT_EQ(Cents(*rows, "FPayRealAmount"), 300);
    EXPECT_EQ(Cents(*rows, "FPayBalanceAmount"), 700);
}

TEST(MatchingBalance, GoodsLinesChangeNoTotal) {
    AccountSet set(test::SampleFile(3));
    const auto totals = [&](const char* detail) {
        const Ref<OrderedDictionary> filter = FilterOf({});
        filter->Put("ChkShowDetail", detail);
        const Ref<RecordSet> rows = MatchingBalance(set, *filter);
        std::string found;
        for (; !rows->Eof(); rows->Move(1)) {
            if (rows->Field("FSumSort").int32() == 0) continue;
            for (const char* field : {"FRecAmount", "FPayAmount", "FRecBalanceAmount", "FPayBalanceAmount"}) {
                found += Cell(Cents(*rows, field));
            }
        }
        return found;
    };
    EXPECT_EQ(totals("1"), totals("0"));
}

TEST(MatchingBalance, WithoutLinksThereIsNothing) {
    BuiltFirm firm(1);
    firm.database().Run("UPDATE t_Party SET FMatchSupplyID=0");
    AccountSet set = firm.Open();
    EXPECT_THAT(RowsOf(*MatchingBalance(set, *Filter({}))), IsEmpty());
}

TEST(MatchingBalance, APartyWithoutBillsHasOnlyItsZeros) {
    LinkedFirm firm;
    AccountSet set = firm.Open();
    EXPECT_EQ(RowsOf(*MatchingBalance(set, *Filter({}))).size(), 2u);
    EXPECT_THAT(RowsOf(*MatchingBalance(set, *Filter({{"chkNotShowBalZero", "1"}}))), IsEmpty());
    EXPECT_THAT(RowsOf(*MatchingBalance(set, *Filter({{"chkNotShowBillZero", "1"}}))), IsEmpty());
}

}  // namespace
}  // namespace qor
