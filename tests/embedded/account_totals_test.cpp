#include "embedded/account_totals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "embedded/account_asked.h"
#include "embedded/built_firm.h"
#include "embedded/open_amounts.h"
#include "embedded/record_rows.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::AccountsAsked;
using test::BuiltFirm;
using test::Cents;
using test::FieldsOf;
using test::Filter;
using test::FilterOf;
using test::PlainBook;
using test::RowsOf;
using testing::Each;
using testing::IsEmpty;

constexpr std::int64_t kDay = 45000;

struct Summary {
    const char* name;
    PartySide side;
    bool withAdvances;
    Ref<RecordSet> (*report)(AccountSet&, const Dictionary&);
    const char* number;
    const char* raised;
    const char* settled;
};

constexpr Summary kSummaries[] = {
    {"receivable", PartySide::Customer, false, ReceivableSummary, "FCustNumber", "FReceivableAmount",
     "FReceiveAmount"},
    {"payable", PartySide::Supplier, false, PayableSummary, "FSupplyNumber", "FPayableAmount", "FPayAmount"},
    {"receivableAdvance", PartySide::Customer, true, ReceivableAdvanceSummary, "FCustNumber",
     "FReceivableAmount", "FReceiveAmount"},
    {"payableAdvance", PartySide::Supplier, true, PayableAdvanceSummary, "FSupplyNumber", "FPayableAmount",
     "FPayAmount"},
};

class AccountTotalsOf : public ::testing::TestWithParam<Summary> {
 protected:
    Ref<RecordSet> Run(AccountSet& set, AccountsAsked asked) {
        asked.side = GetParam().side;
        return GetParam().report(set, *FilterOf(asked));
    }
    std::vector<std::string> Slow(const PlainBook& book, AccountsAsked asked) {
        asked.side = GetParam().side;
        asked.withAdvances = GetParam().withAdvances;
        return SlowSummary(book, asked);
    }
    bool IsSelling() const { return GetParam().side == PartySide::Customer; }
};

INSTANTIATE_TEST_SUITE_P(All, AccountTotalsOf, ::testing::ValuesIn(kSummaries),
                         [](const auto& summary) { return std::string(summary.param.name); });

TEST_P(AccountTotalsOf, AreThoseOfTheSlowBooksInEveryShapeOfFilter) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const AccountsAsked& asked : test::ShapesOfFilter()) {
            EXPECT_EQ(RowsOf(*Run(set, asked)), Slow(book, asked)) << seed << " " << asked.firstDay;
        }
    }
}

TEST_P(AccountTotalsOf, LevelsAndGroupsAreThoseOfTheSlowBooks) {
    AccountSet set(test::SampleFile(2));
    const PlainBook book(set);
    const AccountsAsked shapes[] = {
        {.firstDay = 45000, .lastDay = 45400, .firstLevel = 1, .lastLevel = 1},
        {.firstDay = 45000, .lastDay = 45400, .hidesNeither = true, .firstLevel = 1, .lastLevel = 2},
        {.firstDay = 45000, .lastDay = 45400, .firstLevel = 2, .lastLevel = 3},
        {.firstDay = 45000, .lastDay = 45400, .firstLevel = 1, .lastLevel = 2, .onlyTotals = true},
        {.firstDay = 45000, .lastDay = 45400, .firstLevel = 1, .lastLevel = 1, .groupBy = "Dept"},
        {.firstDay = 45000, .lastDay = 45400, .firstLevel = 1, .lastLevel = 1, .groupBy = "Emp"},
        {.firstDay = 45000,
         .lastDay = 45400,
         .user = "16",
         .firstLevel = 1,
         .lastLevel = 2,
         .groupBy = "Dept"},
        {.firstDay = 45000,
         .lastDay = 45400,
         .hidesNoBalance = true,
         .firstLevel = 1,
         .lastLevel = 1,
         .groupBy = "Dept",
         .onlyTotals = true},
    };
    for (const AccountsAsked& asked : shapes) {
        EXPECT_EQ(RowsOf(*Run(set, asked)), Slow(book, asked)) << asked.lastLevel << asked.groupBy;
    }
}

TEST_P(AccountTotalsOf, WithoutLevelsNeitherGroupingNorTotalsOnlyIsAskedFor) {
    AccountSet set(test::SampleFile());
    const Ref<OrderedDictionary> filter = FilterOf({.side = GetParam().side, .onlyTotals = true});
    const auto plain = RowsOf(*Run(set, {}));
    filter->Put("GroupBy", "FDeptNumber");
    EXPECT_EQ(RowsOf(*GetParam().report(set, *filter)), plain);
}

TEST_P(AccountTotalsOf, TheGroupIsReadFromSumByWhereGroupByIsMissing) {
    AccountSet set(test::SampleFile());
    const AccountsAsked asked{.side = GetParam().side, .firstLevel = 1, .lastLevel = 1, .groupBy = "Dept"};
    const Ref<OrderedDictionary> filter = FilterOf(asked);
    filter->Put("GroupBy", "");
    filter->Put("SumBy", "部门" + std::string(50, ' ') + "|FDeptNumber");
    EXPECT_EQ(RowsOf(*GetParam().report(set, *filter)), RowsOf(*Run(set, asked)));
}

TEST_P(AccountTotalsOf, TheFieldsAreThoseOfTheColumnsAndFSumSort) {
    AccountSet set(test::SampleFile());
    const std::string party = IsSelling() ? "FCust" : "FSupply";
    const std::string names = party + "Id " + party + "Number " + party + "Name ";
    const std::string raised = std::string(GetParam().raised) + " ";
    const std::string settled = std::string(GetParam().settled) + " ";
    const std::string amounts = GetParam().withAdvances
                                    ? "FInitPreAmount FInitSuppAmount FInitAmount " + raised +
                                          "FCurPreAmount FCurSuppAmount " + settled +
                                          "FEndPreAmount FEndSuppAmount FBalanceAmount FSumSort "
                                    : "FInitAmount " + raised + settled + "FBalanceAmount FSumSort ";
    EXPECT_EQ(FieldsOf(*Run(set, {})), names + amounts);
    EXPECT_EQ(FieldsOf(*Run(set, {.firstLevel = 1, .lastLevel = 2, .groupBy = "Emp"})),
              "FItemLevel01Name FItemLevel02Name FEmpNumber FEmpName " + names + amounts);
    EXPECT_EQ(FieldsOf(*Run(set, {.firstLevel = 2, .lastLevel = 1})), names + amounts);
}

TEST_P(AccountTotalsOf, TheClosingBalanceOfAPeriodOpensTheNext) {
    AccountSet set(test::SampleFile(3));
    std::map<std::string, std::int64_t> closing;
    for (std::int64_t day = 44500; day < 45900; day += 200) {
        const Ref<RecordSet> rows = Run(set, {.firstDay = day, .lastDay = day + 199, .checkState = 0});
        std::map<std::string, std::int64_t> opening = std::exchange(closing, {});
        for (; !rows->Eof(); rows->Move(1)) {
            const std::string party = rows->Field(GetParam().number).text();
            if (!opening.empty()) {
                EXPECT_EQ(Cents(*rows, "FInitAmount"), opening[party]) << party;
            }
            closing[party] = Cents(*rows, "FBalanceAmount");
        }
    }
    EXPECT_GT(closing.size(), 3u);
}

TEST_P(AccountTotalsOf, TheClosingBalanceIsWhatIsOpen) {
    AccountSet set(test::SampleFile(2));
    std::map<std::string, std::int64_t> open;
    const PlainBook book(set);
    for (const OpenAmount& bill :
         OpenAmounts(set, {.side = GetParam().side, .day = 45500, .checkState = 0})) {
        open[book.Item(bill.party).number] += bill.open;
    }
    const Ref<RecordSet> rows = Run(set, {.firstDay = 45400, .lastDay = 45500, .checkState = 0});
    for (; rows->Field("FSumSort").int32() == 0; rows->Move(1)) {
        EXPECT_EQ(Cents(*rows, "FBalanceAmount"), open[rows->Field(GetParam().number).text()]);
    }
}

TEST_P(AccountTotalsOf, PartsAddUpInEveryRow) {
    AccountSet set(test::SampleFile());
    const Ref<RecordSet> rows =
        Run(set, {.firstDay = 45000, .lastDay = 45500, .firstLevel = 1, .lastLevel = 1});
    for (; !rows->Eof(); rows->Move(1)) {
        const auto at = [&](const char* field) { return Cents(*rows, field); };
        EXPECT_EQ(at("FInitAmount") + at(GetParam().raised) - at(GetParam().settled), at("FBalanceAmount"));
        if (!GetParam().withAdvances) continue;
        EXPECT_EQ(at("FInitSuppAmount") - at("FInitPreAmount"), at("FInitAmount"));
        EXPECT_EQ(at("FCurPreAmount") + at("FCurSuppAmount"), at(GetParam().settled));
        EXPECT_EQ(at("FEndSuppAmount") - at("FEndPreAmount"), at("FBalanceAmount"));
        EXPECT_EQ(at("FInitPreAmount") + at("FCurPreAmount"), at("FEndPreAmount"));
    }
}

TEST_P(AccountTotalsOf, AFirmWithoutBillsShowsItsPartiesWithNothing) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = Run(set, {.firstDay = kDay, .lastDay = kDay});
    EXPECT_GT(static_cast<ColumnarRecordSet&>(*rows).RowCount(), 5);
    for (; !rows->Eof(); rows->Move(1)) {
        EXPECT_EQ(Cents(*rows, "FBalanceAmount"), 0);
    }
    EXPECT_THAT(RowsOf(*Run(set, {.hidesNoMovement = true})), IsEmpty());
    EXPECT_THAT(RowsOf(*Run(set, {.hidesNoBalance = true, .firstLevel = 1, .lastLevel = 2})), IsEmpty());
    EXPECT_THAT(RowsOf(*Run(set, {.firstLevel = 1, .lastLevel = 2, .groupBy = "Dept"})), IsEmpty());
}

TEST_P(AccountTotalsOf, WhatHappensAfterTheLastDayChangesNothing) {
    BuiltFirm firm(1);
    AccountSet set = firm.Open();
    const AccountsAsked asked{.firstDay = 45000, .lastDay = 45500};
    const auto before = RowsOf(*Run(set, asked));
    const std::int64_t customer = firm.Customer(0), supplier = firm.Supplier(0);
    firm.database().Run("UPDATE t_Bill SET FState=2 WHERE FDate>45500 AND FBillID%3=0");
    firm.Add({.kind = BillKind::Receipt, .day = 45501, .customer = customer, .amount = 12345});
    firm.Add({.kind = BillKind::Payment, .day = 45501, .supplier = supplier, .amount = 12345});
    EXPECT_EQ(RowsOf(*Run(set, asked)), before);
    EXPECT_NE(RowsOf(*Run(set, {.firstDay = 45000, .lastDay = 45501})), before);
}

TEST_P(AccountTotalsOf, ACodeOfWildCardsAndQuotesIsOneParty) {
    BuiltFirm firm;
    const std::int64_t odd = IsSelling() ? firm.Customer(1) : firm.Supplier(1);
    firm.database().Run("UPDATE t_Item SET FNumber='9%_''\"[x]' WHERE FItemID=" + std::to_string(odd));
    const auto bill = [&](std::int64_t party) {
        return IsSelling() ? Bill{.kind = BillKind::Sale, .day = kDay, .customer = party, .amount = 700}
                           : Bill{.kind = BillKind::Purchase, .day = kDay, .supplier = party, .amount = 700};
    };
    firm.Add(bill(odd));
    firm.Add(bill(IsSelling() ? firm.Customer(0) : firm.Supplier(0)));
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = Run(set, {.firstParty = "9%_'\"[x]", .lastParty = "9%_'\"[x]"});
    EXPECT_EQ(static_cast<ColumnarRecordSet&>(*rows).RowCount(), 2);
    EXPECT_EQ(rows->Field(GetParam().number), Value("9%_'\"[x]"));
    EXPECT_EQ(Cents(*rows, "FBalanceAmount"), 700);
}

TEST_P(AccountTotalsOf, ABalanceMayBeNegative) {
    BuiltFirm firm;
    const std::int64_t party = IsSelling() ? firm.Customer(0) : firm.Supplier(0);
    firm.Add(IsSelling() ? Bill{.kind = BillKind::SaleReturn,
                                .day = kDay,
                                .customer = party,
                                .amount = -5000,
                                .settled = -2000}
                         : Bill{.kind = BillKind::PurchaseReturn,
                                .day = kDay,
                                .supplier = party,
                                .amount = -5000,
                                .settled = -2000});
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = Run(set, {.hidesNoBalance = true});
    EXPECT_EQ(Cents(*rows, GetParam().raised), -5000);
    EXPECT_EQ(Cents(*rows, GetParam().settled), -2000);
    EXPECT_EQ(Cents(*rows, "FBalanceAmount"), -3000);
}

TEST(AccountTotals, AnAdvanceLowersTheBalanceUntilItIsUsedUp) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    firm.Add({.kind = BillKind::AdvanceReceipt, .day = kDay, .customer = customer, .amount = 5000});
    firm.Add({.kind = BillKind::Sale, .day = kDay + 1, .customer = customer, .amount = 3000});
    firm.Add({.kind = BillKind::AdvanceToReceivable, .day = kDay + 2, .customer = customer, .amount = 3000});
    AccountSet set = firm.Open();
    const auto row = [&](std::int64_t first, std::int64_t last) {
        return RowsOf(*ReceivableAdvanceSummary(
            set, *FilterOf({.firstDay = first, .lastDay = last, .hidesNeither = true})))[0];
    };
    const std::string party = std::to_string(customer) + "|" + firm.NumberOf(customer) + "|";
    EXPECT_THAT(row(kDay, kDay), testing::EndsWith("|0|0|0|0|5000|0|5000|5000|0|-5000|0|"));
    EXPECT_THAT(row(kDay + 1, kDay + 1), testing::EndsWith("|5000|0|-5000|3000|0|0|0|5000|3000|-2000|0|"));
    EXPECT_THAT(row(kDay + 2, kDay + 2),
                testing::EndsWith("|5000|3000|-2000|0|-3000|3000|0|2000|0|-2000|0|"));
    EXPECT_THAT(row(kDay, kDay + 2), testing::StartsWith(party));
}

TEST(AccountTotals, GoodsOnConsignmentAreOwedOnceWhenAskedFor) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    const std::int64_t out =
        firm.Add({.kind = BillKind::Consignment, .day = kDay, .customer = customer, .amount = 9000});
    firm.Add({.kind = BillKind::ConsignmentSale,
              .day = kDay + 5,
              .customer = customer,
              .amount = 4000,
              .settled = 1000,
              .related = out});
    AccountSet set = firm.Open();
    const auto closing = [&](bool consignments, std::int64_t day) {
        return Cents(*ReceivableSummary(set, *FilterOf({.lastDay = day, .consignments = consignments})),
                     "FBalanceAmount");
    };
    EXPECT_EQ(closing(false, kDay + 4), 0);
    EXPECT_EQ(closing(true, kDay + 4), 9000);
    EXPECT_EQ(closing(false, kDay + 5), 3000);
    EXPECT_EQ(closing(true, kDay + 5), 8000) << "5000 still out, 3000 billed and not paid";
    firm.database().Run("UPDATE t_Bill SET FState=2 WHERE FBillID=" + std::to_string(out));
    EXPECT_EQ(closing(true, kDay + 5), 3000) << "a void consignment has raised nothing";
}

TEST(AccountTotals, AConsignmentIsSettledByItsGoodsWhateverTheirPriceThen) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0), bread = firm.Goods(0), salt = firm.Goods(1);
    const auto add = [&](BillKind kind, int day, std::int64_t related, const std::vector<GoodsLine>& lines) {
        Bill bill{.kind = kind, .day = kDay + day, .customer = customer, .related = related};
        for (const GoodsLine& line : lines) {
            bill.amount += line.amount;
        }
        const std::int64_t id = firm.Add(bill);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            firm.AddLine(id, static_cast<int>(i) + 1, lines[i]);
        }
        return id;
    };
    const auto sold = [&](int day, std::int64_t out, std::int64_t goods, int pieces, std::int64_t amount) {
        add(BillKind::ConsignmentSale, day, out,
            {{.item = goods, .quantity = pieces * 10'000LL, .amount = amount}});
    };
    const std::int64_t out = add(BillKind::Consignment, 0, 0,
                                 {{.item = bread, .quantity = 30'000, .amount = 1000},
                                  {.item = salt, .quantity = 20'000, .amount = 500},
                                  {.item = bread, .quantity = 10'000, .amount = 400}});
    sold(1, out, bread, 1, 450);   // 333 of the first line
    sold(2, out, bread, 3, 900);   // the rest of it, and the third line
    sold(3, out, salt, 3, 700);    // all of the salt, and one piece that never went out
    sold(4, out, salt, -1, -200);  // half of the salt comes back
    AccountSet set = firm.Open();
    const auto closing = [&](bool consignments, int day) {
        const AccountsAsked asked{.lastDay = kDay + day, .consignments = consignments};
        return Cents(*ReceivableSummary(set, *FilterOf(asked)), "FBalanceAmount");
    };
    EXPECT_EQ(closing(true, 0), 1900);
    EXPECT_EQ(closing(true, 1), 1567 + 450);
    EXPECT_EQ(closing(true, 2), 500 + 1350);
    EXPECT_EQ(closing(true, 3), 2050) << "nothing is out any more, so that it is what was billed";
    EXPECT_EQ(closing(false, 3), 2050);
    EXPECT_EQ(closing(true, 4), 250 + 1850);
}

TEST(AccountTotals, BillsThatCancelEachOtherOutHaveHappened) {
    BuiltFirm firm;
    for (const std::int64_t amount : {700, -700}) {
        firm.Add({.kind = amount > 0 ? BillKind::Sale : BillKind::SaleReturn,
                  .day = kDay,
                  .customer = firm.Customer(1),
                  .amount = amount});
    }
    firm.Add({.kind = BillKind::Sale, .day = kDay - 9, .customer = firm.Customer(2), .amount = 50});
    AccountSet set = firm.Open();
    const auto rows = [&](std::string_view key) {
        return ReceivableSummary(set, *Filter({{"BDate", Date{double{kDay}}}, {key, "1"}}));
    };
    EXPECT_EQ(rows("OccurNotZero")->RowCount(), 2) << "one customer and the total";
    EXPECT_EQ(rows("OccurNotZero")->Field("FCustId"), Value(static_cast<std::int32_t>(firm.Customer(1))));
    EXPECT_EQ(rows("NotShowZero")->RowCount(), 3);
    EXPECT_EQ(rows("NotShowBalZero")->Field("FCustId"), Value(static_cast<std::int32_t>(firm.Customer(2))));
}

TEST(AccountTotals, AnEstimateIsOwedUntilItIsReversed) {
    BuiltFirm firm;
    const std::int64_t supplier = firm.Supplier(0);
    firm.Add({.kind = BillKind::Estimate, .day = kDay, .supplier = supplier, .amount = 6000});
    firm.Add({.kind = BillKind::EstimateReversal, .day = kDay + 9, .supplier = supplier, .amount = -6000});
    AccountSet set = firm.Open();
    const auto closing = [&](bool estimates, std::int64_t day) {
        return Cents(
            *PayableSummary(set,
                            *FilterOf({.side = PartySide::Supplier, .lastDay = day, .estimates = estimates})),
            "FBalanceAmount");
    };
    EXPECT_EQ(closing(true, kDay), 6000);
    EXPECT_EQ(closing(true, kDay + 9), 0);
    EXPECT_EQ(closing(false, kDay), 0);
}

TEST(AccountTotals, AShortFilterGivesTheBalanceOfTheBooks) {
    AccountSet set(test::SampleFile());
    EXPECT_EQ(RowsOf(*ReceivableSummary(set, *Filter({}))), RowsOf(*ReceivableSummary(set, *FilterOf({}))));
}

TEST(AccountTotals, MoreLevelsThanAnyClassHasAreRefused) {
    AccountSet set(test::SampleFile());
    const auto error = test::ErrorOf([&] {
        ReceivableSummary(set,
                          *Filter({{"MultiLevel", 1}, {"MultiLevelBegin", 1}, {"MultiLevelEnd", "1000000"}}));
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), "类别级次无效：1 至 1000000");
}

}  // namespace
}  // namespace qor
