#include "embedded/ageing_rows.h"

#include <gtest/gtest.h>

#include "embedded/built_firm.h"
#include "embedded/open_amounts.h"
#include "embedded/plain_book.h"
#include "embedded/record_rows.h"
#include "platform/vector.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::BuiltFirm;
using test::Filter;
using test::PlainBook;
using test::RowsOf;

constexpr std::int64_t kDay = 45500;
const std::string kOfUser16 = " (CharIndex('16',B.FRightUserID)>0 OR ISNULL(B.FItemID,0)=0) ";

/// A group by the first and last day of its label; a last day of 0 is open-ended.
struct Days {
    std::int64_t first, last;
};
const std::vector<Days> kUsual = {{1, 30}, {31, 60}, {61, 90}, {91, 0}};

/// The groups as the dialog hands them on.
Ref<Vector> Vect(const std::vector<Days>& groups) {
    auto list = MakeRef<ArrayVector>();
    for (const Days& days : groups) {
        auto group = MakeRef<OrderedDictionary>();
        group->Put("FCaption", "组");
        group->Put("FValue", days.last == 0 ? Value("MaxCol") : Value(static_cast<double>(days.last - 1)));
        group->Put("FFirstValue", static_cast<double>(days.first - 1));
        list->Add(group);
    }
    return list;
}

/// What the slow computation is asked for beside the groups.
struct Asked {
    PartySide side = PartySide::Customer;
    std::int64_t day = kDay;
    std::string first, last;
    bool withOthers = true;
    std::string user;
};

Ref<OrderedDictionary> FilterOf(const Asked& asked, const std::vector<Days>& groups) {
    const Ref<OrderedDictionary> filter =
        Filter({{"EDate", FormatIsoDate(Date{static_cast<double>(asked.day)})},
                {"BSupplyNumber", asked.first},
                {"ESupplyNumber", asked.last},
                {"cmbClassType", asked.side == PartySide::Customer ? "0" : "1"},
                {"chkRPOher", asked.withOthers ? "1" : "0"},
                {"DataRightWhere", asked.user.empty() ? "" : kOfUser16}});
    filter->Put("Vect", Vect(groups));
    return filter;
}

using OpenByBill = std::map<std::pair<std::int64_t, std::int64_t>, std::int64_t>;

std::vector<std::string> Slow(const PlainBook& book, const OpenByBill& openByBill, const Asked& asked,
                              const std::vector<Days>& groups) {
    std::map<std::string, std::vector<std::int64_t>> amounts;  // by code: all, then the groups
    std::map<std::string, std::string> names;
    for (const auto& [key, open] : openByBill) {
        const auto& [bill, party] = key;
        if (!book.Lies(party, asked.first, asked.last) || !book.Sees(asked.user, party)) continue;
        const BillKind kind = book.Bill(bill)->kind;
        const bool other = kind == BillKind::OtherReceivable || kind == BillKind::OtherPayable;
        if (other && !asked.withOthers) continue;
        const std::string code = book.Item(party).number;
        names[code] = book.Item(party).name;
        auto& row = amounts.try_emplace(code, groups.size() + 1).first->second;
        row[0] += open;
        const std::int64_t dayOfLife = asked.day - book.Bill(bill)->day + 1;
        for (std::size_t i = 0; i < groups.size(); ++i) {
            const bool oldEnough = dayOfLife >= groups[i].first;
            if (oldEnough && (groups[i].last == 0 || dayOfLife <= groups[i].last)) row[i + 1] += open;
        }
    }
    std::vector<std::string> rows;
    for (const auto& [code, row] : amounts) {
        std::string text = code + "|" + names[code] + "|";
        bool any = false;
        for (const std::int64_t amount : row) {
            text += std::to_string(amount) + "|";
            any = any || amount != 0;
        }
        if (any) rows.push_back(text);
    }
    return rows;
}

TEST(Ageing, IsThatOfTheSlowBooksInEveryShapeOfFilter) {
    const std::vector<Days> shapes[] = {
        kUsual, {{1, 0}}, {{1, 7}, {8, 400}, {401, 0}}, {{1, 10}, {31, 60}, {61, 0}}};
    const Asked askeds[] = {
        {},
        {.side = PartySide::Supplier},
        {.day = 44561},
        {.day = 45838, .withOthers = false},
        {.side = PartySide::Supplier, .day = 45838, .withOthers = false},
        {.first = "01", .last = "03"},
        {.side = PartySide::Supplier, .first = "", .last = "01"},
        {.day = 45838, .user = "16"},
        {.side = PartySide::Supplier, .first = "02", .last = "", .withOthers = false, .user = "16"}};
    std::size_t found = 0;
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const Asked& asked : askeds) {
            const OpenByBill open = book.Open(asked.side, 0, asked.day);
            for (const auto& groups : shapes) {
                const auto slow = Slow(book, open, asked, groups);
                EXPECT_EQ(test::FirstDifference(RowsOf(*Ageing(set, *FilterOf(asked, groups))), slow), "")
                    << seed << " " << asked.day << " " << asked.first << " " << asked.user;
                found += slow.size();
            }
        }
    }
    EXPECT_GT(found, 500u);
}

TEST(Ageing, AllGroupsTogetherAreTheOpenAmountAndTheBalanceOfTheParty) {
    for (const std::uint64_t seed : {1u, 4u, 5u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const PartySide side : {PartySide::Customer, PartySide::Supplier}) {
            for (const std::int64_t day : {44600, 45200, 45838}) {
                std::map<std::string, std::int64_t> balances;
                for (const auto& [party, balance] : book.Balances(side, 0, day)) {
                    if (balance != 0) balances[book.Item(party).number] = balance;
                }
                const Ref<RecordSet> rows = Ageing(set, *FilterOf({.side = side, .day = day}, kUsual));
                std::map<std::string, std::int64_t> aged;
                for (; !rows->Eof(); rows->Move(1)) {
                    std::int64_t groups = 0;
                    for (const char* field : {"F29", "F59", "F89", "FMaxCol"}) {
                        groups += test::Cents(*rows, field);
                    }
                    EXPECT_EQ(groups, test::Cents(*rows, "FAmount"));
                    if (groups != 0) aged[rows->Field("FItemNumber").text()] = groups;
                }
                EXPECT_EQ(aged, balances) << seed << " " << day;
            }
        }
    }
}

TEST(Ageing, TheLimitsOfAGroupAreIncludedAsItsLabelSays) {
    struct Row {
        std::int64_t daysBack;
        const char* amounts;  // 1 to 30, 31 to 60, 61 to 90, from 91
    };
    // The cut-off day itself is day 1 of a bill.
    const Row rows[] = {{0, "100|0|0|0"},  {29, "100|0|0|0"}, {30, "0|100|0|0"}, {59, "0|100|0|0"},
                        {60, "0|0|100|0"}, {89, "0|0|100|0"}, {90, "0|0|0|100"}, {900, "0|0|0|100"}};
    for (const Row& row : rows) {
        BuiltFirm firm;
        const std::int64_t customer = firm.Customer(0);
        firm.Add({.kind = BillKind::Sale, .day = kDay - row.daysBack, .customer = customer, .amount = 100});
        AccountSet set = firm.Open();
        const auto aged = RowsOf(*Ageing(set, *FilterOf({}, kUsual)));
        ASSERT_EQ(aged.size(), 1u);
        EXPECT_TRUE(aged[0].ends_with(std::string("|100|") + row.amounts + "|")) << aged[0];
    }
}

TEST(Ageing, ABillOfTheNextDayIsNotThereYet) {
    BuiltFirm firm;
    firm.Add({.kind = BillKind::Sale, .day = kDay + 1, .customer = firm.Customer(0), .amount = 100});
    AccountSet set = firm.Open();
    EXPECT_TRUE(Ageing(set, *FilterOf({}, kUsual))->Eof());
    EXPECT_EQ(RowsOf(*Ageing(set, *FilterOf({.day = kDay + 1}, kUsual))).size(), 1u);
}

TEST(Ageing, WhatHappensLaterLeavesTheDayAsItWas) {
    BuiltFirm firm(3);
    const Asked sides[] = {{}, {.side = PartySide::Supplier}};
    std::vector<std::vector<std::string>> before, after;
    for (const Asked& asked : sides) {
        AccountSet set = firm.Open();
        before.push_back(RowsOf(*Ageing(set, *FilterOf(asked, kUsual))));
    }
    // All that is open is paid the next day, in part the day after, and later bills are voided.
    for (const PartySide side : {PartySide::Customer, PartySide::Supplier}) {
        AccountSet set = firm.Open();
        for (const OpenAmount& amount : OpenAmounts(set, {.side = side, .day = kDay, .checkState = 0})) {
            if (amount.open <= 1) continue;
            Bill money{.day = kDay + 1, .amount = amount.open - 1};
            money.kind = side == PartySide::Customer ? BillKind::Receipt : BillKind::Payment;
            (side == PartySide::Customer ? money.customer : money.supplier) = amount.party;
            const std::int64_t id = firm.Add(money);
            firm.Settle({.bill = id,
                         .source = id,
                         .target = amount.bill,
                         .day = kDay + 1,
                         .amount = amount.open - 1});
        }
    }
    firm.database().Run("UPDATE t_Bill SET FState=2 WHERE FBillID%3=0 AND FDate>" + std::to_string(kDay));
    for (const Asked& asked : sides) {
        AccountSet set = firm.Open();
        after.push_back(RowsOf(*Ageing(set, *FilterOf(asked, kUsual))));
        Asked later = asked;
        later.day = kDay + 1;
        EXPECT_NE(RowsOf(*Ageing(set, *FilterOf(later, kUsual))), after.back());
    }
    EXPECT_EQ(after, before);
    EXPECT_GT(before[0].size(), 5u);
}

TEST(Ageing, ReturnsAdvancesAndMoneyNotUsedAreNegativeAtTheirOwnAge) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    firm.Add({.kind = BillKind::Sale, .day = kDay - 10, .customer = customer, .amount = 500});
    firm.Add({.kind = BillKind::SaleReturn, .day = kDay - 40, .customer = customer, .amount = -200});
    firm.Add({.kind = BillKind::AdvanceReceipt, .day = kDay - 70, .customer = customer, .amount = 900});
    firm.Add({.kind = BillKind::Receipt, .day = kDay - 100, .customer = customer, .amount = 50});
    AccountSet set = firm.Open();
    const auto rows = RowsOf(*Ageing(set, *FilterOf({}, kUsual)));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_TRUE(rows[0].ends_with("|-650|500|-200|-900|-50|")) << rows[0];
}

TEST(Ageing, APartyStaysWhereItsGroupsCancelEachOtherAndGoesWhereNothingIsLeft) {
    BuiltFirm firm;
    const std::int64_t cancelling = firm.Customer(0), settled = firm.Customer(1);
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = cancelling, .amount = 500});
    firm.Add({.kind = BillKind::SaleReturn, .day = kDay - 40, .customer = cancelling, .amount = -500});
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = settled, .amount = 80, .settled = 80});
    AccountSet set = firm.Open();
    const auto rows = RowsOf(*Ageing(set, *FilterOf({}, kUsual)));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_TRUE(rows[0].ends_with("|0|500|-500|0|0|")) << rows[0];
}

TEST(Ageing, OnlyAuditedBillsCount) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    for (const BillState state : {BillState::NotAudited, BillState::Void}) {
        firm.Add({.kind = BillKind::Sale, .day = kDay, .state = state, .customer = customer, .amount = 100});
    }
    AccountSet set = firm.Open();
    EXPECT_TRUE(Ageing(set, *FilterOf({}, kUsual))->Eof());
}

TEST(Ageing, OtherClaimsComeOnRequest) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = customer, .amount = 1});
    firm.Add({.kind = BillKind::OtherReceivable, .day = kDay, .customer = customer, .amount = 10});
    firm.Add({.kind = BillKind::OtherIncome, .day = kDay, .customer = customer, .amount = 100});
    firm.Add({.kind = BillKind::OpeningReceivable, .day = kDay, .customer = customer, .amount = 1000});
    firm.Add({.kind = BillKind::SaleRebate, .day = kDay, .customer = customer, .amount = 5});
    AccountSet set = firm.Open();
    EXPECT_TRUE(RowsOf(*Ageing(set, *FilterOf({}, kUsual)))[0].ends_with("|1106|1106|0|0|0|"));
    EXPECT_TRUE(
        RowsOf(*Ageing(set, *FilterOf({.withOthers = false}, kUsual)))[0].ends_with("|1096|1096|0|0|0|"));
}

TEST(Ageing, TheFieldOfAGroupIsNamedAfterItsLimit) {
    AccountSet set(test::SampleFile());
    EXPECT_EQ(test::FieldsOf(*Ageing(set, *FilterOf({}, kUsual))),
              "FItemNumber FItemName FAmount F29 F59 F89 FMaxCol ");
    EXPECT_EQ(test::FieldsOf(*Ageing(set, *FilterOf({}, {{1, 45}, {46, 1000000000}, {1000000001, 0}}))),
              "FItemNumber FItemName FAmount F44 F999999999 FMaxCol ");
    EXPECT_EQ(test::FieldsOf(*Ageing(set, *Filter({}))), "FItemNumber FItemName FAmount ");
}

TEST(Ageing, AGroupWhoseLimitIsNoNumberHoldsNothing) {
    AccountSet set(test::SampleFile());
    const Ref<OrderedDictionary> filter = FilterOf({}, {});
    const Ref<Vector> groups = Vect({{1, 0}, {1, 0}});
    As<Dictionary>(groups->Item(1))->Put("FValue", "");
    As<Dictionary>(groups->Item(2))->Put("FFirstValue", "第一天");
    filter->Put("Vect", groups);
    const Ref<RecordSet> rows = Ageing(set, *filter);
    for (; !rows->Eof(); rows->Move(1)) {
        EXPECT_EQ(test::Cents(*rows, "F"), 0);
        EXPECT_EQ(test::Cents(*rows, "FMaxCol"), test::Cents(*rows, "FAmount")) << "from the first day on";
    }
}

TEST(Ageing, WithoutACutOffDayAllBillsCountAsOfTheLastOne) {
    AccountSet set(test::SampleFile());
    const Ref<OrderedDictionary> open = FilterOf({}, kUsual);
    open->Put("EDate", "");
    std::int64_t last = 0;
    for (const test::BookBill& bill : PlainBook(set).bills) {
        const bool counts = bill.state == 0 && SignsOf(bill.kind, PartySide::Customer).Any();
        if (counts && bill.customer != 0) last = std::max(last, bill.day);
    }
    EXPECT_EQ(RowsOf(*Ageing(set, *open)), RowsOf(*Ageing(set, *FilterOf({.day = last}, kUsual))));
}

TEST(Ageing, HostileCodesFindNobodyAndForeignClausesAreRefused) {
    AccountSet set(test::SampleFile());
    for (const char* text : {"' OR 1=1 --", "%", "_", "01'; DROP TABLE t_Bill; --"}) {
        EXPECT_TRUE(Ageing(set, *FilterOf({.first = text, .last = text}, kUsual))->Eof()) << text;
    }
    const Ref<OrderedDictionary> filter = FilterOf({}, kUsual);
    filter->Put("DataRightWhere", " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ");
    const auto error = test::ErrorOf([&] { Ageing(set, *filter); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), "数据权限条件的表别名不符：t1");
}

TEST(Ageing, AFirmWithoutBillsHasNoRows) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    EXPECT_TRUE(Ageing(set, *FilterOf({}, kUsual))->Eof());
    EXPECT_TRUE(Ageing(set, *FilterOf({.side = PartySide::Supplier}, kUsual))->Eof());
}

}  // namespace
}  // namespace qor
