#include "embedded/account_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "embedded/account_asked.h"
#include "embedded/built_firm.h"
#include "embedded/record_rows.h"
#include "embedded/served_host.h"

namespace qor {
namespace {

using test::AccountsAsked;
using test::BuiltFirm;
using test::Cents;
using test::FilterOf;
using test::PlainBook;
using test::RowsOf;
using test::ServedHost;

constexpr std::int64_t kDay = 45000;

struct Detail {
    const char* name;
    PartySide side;
    Ref<RecordSet> (*report)(AccountSet&, const Dictionary&);
};

constexpr Detail kDetails[] = {
    {"receivable", PartySide::Customer, ReceivableDetail},
    {"payable", PartySide::Supplier, PayableDetail},
};

class AccountRowsOf : public ::testing::TestWithParam<Detail> {
 protected:
    std::vector<std::string> Rows(AccountSet& set, AccountsAsked asked) {
        asked.side = GetParam().side;
        return RowsOf(*GetParam().report(set, *FilterOf(asked)));
    }
    std::vector<std::string> Slow(const PlainBook& book, AccountsAsked asked) {
        asked.side = GetParam().side;
        return SlowDetail(book, asked);
    }
};

INSTANTIATE_TEST_SUITE_P(BothSides, AccountRowsOf, ::testing::ValuesIn(kDetails),
                         [](const auto& detail) { return std::string(detail.param.name); });

TEST_P(AccountRowsOf, AreThoseOfTheSlowBooksInEveryShapeOfFilter) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const AccountsAsked& asked : test::ShapesOfFilter()) {
            EXPECT_EQ(Rows(set, asked), Slow(book, asked)) << seed << " " << asked.firstDay;
        }
    }
}

TEST_P(AccountRowsOf, OnePartyHasItsBillsAndOneTotal) {
    AccountSet set(test::SampleFile(2));
    const PlainBook book(set);
    for (const std::int64_t id : PartiesOf(book, {.side = GetParam().side})) {
        const std::string code = book.Item(id).number;
        const AccountsAsked asked{.firstDay = 45000, .lastDay = 45600, .firstParty = code, .lastParty = code};
        EXPECT_EQ(Rows(set, asked), Slow(book, asked)) << code;
    }
}

TEST(AccountRows, AUserFieldOfTheBillsHeadChoosesBills) {
    BuiltFirm firm(3);
    firm.database().Run(
        "INSERT OR REPLACE INTO t_BillHeadField SELECT FBillID, 2, 'Ab%c' || (FBillID%7) FROM t_Bill");
    AccountSet set = firm.Open();
    const PlainBook book(set);
    const AccountsAsked shapes[] = {
        {.headField = 2, .headText = "Ab%c3", .headSomewhere = false},
        {.headField = 2, .headText = "b%c3", .headSomewhere = true},
        {.headField = 2, .headText = "%", .headSomewhere = true},
        {.firstDay = 45200,
         .hidesNoBalance = true,
         .hidesNoMovement = true,
         .headField = 2,
         .headText = "b%c4",
         .headSomewhere = true},
        {.headField = 2, .headText = "b%c3", .headSomewhere = false},
        {.headField = 3, .headText = "合同", .headSomewhere = true},
        {.consignments = true, .headField = 2, .headText = "c5", .headSomewhere = true},
    };
    for (const AccountsAsked& asked : shapes) {
        EXPECT_EQ(RowsOf(*ReceivableDetail(set, *FilterOf(asked))), SlowDetail(book, asked))
            << asked.headText;
    }
    EXPECT_EQ(RowsOf(*ReceivableDetail(set, *FilterOf({.headField = 2, .headText = "AB%C3"}))),
              SlowDetail(book, shapes[0]))
        << "letters of any case";
}

TEST(AccountRows, BillsOfOneDayStandAsTheyWereEnteredAndWithoutAmountsOnlyWhenAskedFor) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    firm.Add({.kind = BillKind::Sale, .number = "Z", .day = kDay, .customer = customer, .amount = 300});
    firm.Add({.kind = BillKind::Sale, .number = "A", .day = kDay, .customer = customer, .amount = 200});
    firm.Add({.kind = BillKind::Sale, .number = "M", .day = kDay - 1, .customer = customer, .amount = 0});
    AccountSet set = firm.Open();
    const std::string code = firm.NumberOf(customer);
    const auto numbers = [&](bool hidesZero) {
        const Ref<RecordSet> rows = ReceivableDetail(
            set, *FilterOf({.firstParty = code, .lastParty = code, .hidesNoMovement = hidesZero}));
        std::string found;
        for (; !rows->Eof(); rows->Move(1)) {
            found +=
                rows->Field("FBillNo").text() + ":" + std::to_string(Cents(*rows, "FBalanceAmount")) + " ";
        }
        return found;
    };
    EXPECT_EQ(numbers(false), ":0 M:0 Z:300 A:500 :500 ");
    EXPECT_EQ(numbers(true), ":0 Z:300 A:500 :500 ");
}

TEST(AccountRows, ATransferStandsInBothAccounts) {
    BuiltFirm firm;
    const std::int64_t from = firm.Customer(0), to = firm.Customer(1);
    firm.Add({.kind = BillKind::Sale, .day = kDay, .customer = from, .amount = 900});
    firm.Add({.kind = BillKind::ReceivableTransfer,
              .day = kDay + 1,
              .customer = from,
              .toParty = to,
              .amount = 900});
    AccountSet set = firm.Open();
    const PlainBook book(set);
    const AccountsAsked asked{.hidesNoMovement = true};
    const auto rows = RowsOf(*ReceivableDetail(set, *FilterOf(asked)));
    EXPECT_EQ(rows, SlowDetail(book, asked));
    EXPECT_EQ(rows.size(), 8u) << "opening, sale, transfer, total; opening, transfer, total; all";
}

struct Drill {
    const char* summary;
    const char* raised;
    const char* settled;
};

/// Opens the detail of every row of a summary as a host does, and compares the amounts.
void ExpectRowsAreTheSumsOfTheirDetails(const Drill& drill, const Ref<OrderedDictionary>& filter,
                                        std::int32_t user) {
    ServedHost host(user, 2);
    const Ref<Object> summary = host.Create(drill.summary);
    summary->Put("Filter", Value(filter));
    summary->Call("GetReportData");
    ASSERT_EQ(test::Entry(*summary, "Result", "Error"), Value(""));
    const Ref<RecordSet> rows = As<RecordSet>(summary->Get("Rs"));
    const std::int32_t count = static_cast<ColumnarRecordSet&>(*rows).RowCount();
    ASSERT_GT(count, 3);
    for (std::int32_t row = 0; row < count; ++row) {
        const Value opened = summary->Call("GetDetailReport", row);
        rows->MoveFirst();
        rows->Move(row);
        if (rows->Field("FSumSort").int32() > 0) {
            EXPECT_TRUE(opened.IsNothing());
            continue;
        }
        ASSERT_FALSE(opened.IsNothing()) << row;
        const Ref<RecordSet> detail = As<RecordSet>(opened.object()->Get("Rs"));
        std::int64_t raised = 0, settled = 0, balance = 0;
        ASSERT_FALSE(detail->Eof()) << row;
        EXPECT_EQ(Cents(*detail, "FBalanceAmount"), Cents(*rows, "FInitAmount"));
        for (; detail->Field("FSumSort").int32() == 0; detail->Move(1)) {
            raised += Cents(*detail, drill.raised);
            settled += Cents(*detail, drill.settled) + Cents(*detail, "FPreAmount");
            balance = Cents(*detail, "FBalanceAmount");
        }
        EXPECT_EQ(raised, Cents(*rows, drill.raised));
        EXPECT_EQ(settled, Cents(*rows, drill.settled));
        EXPECT_EQ(balance, Cents(*rows, "FBalanceAmount"));
    }
}

TEST(AccountRows, ASummarysRowIsTheSumOfItsDetail) {
    const Drill drills[] = {
        {"Rpt10503", "FReceivableAmount", "FReceiveAmount"},
        {"Rpt10531", "FReceivableAmount", "FReceiveAmount"},
        {"Rpt10505", "FPayableAmount", "FPayAmount"},
        {"Rpt10532", "FPayableAmount", "FPayAmount"},
    };
    const AccountsAsked shapes[] = {
        {.firstDay = 45000, .lastDay = 45400, .checkState = 0},
        {.firstDay = 45300, .lastDay = 45838, .others = false, .consignments = true, .estimates = true},
        {.firstDay = 45300,
         .lastDay = 45838,
         .firstDepartment = "01",
         .lastDepartment = "02",
         .hidesNoBalance = true,
         .firstLevel = 1,
         .lastLevel = 1},
    };
    for (const Drill& drill : drills) {
        for (AccountsAsked asked : shapes) {
            asked.side =
                std::string(drill.raised) == "FPayableAmount" ? PartySide::Supplier : PartySide::Customer;
            ExpectRowsAreTheSumsOfTheirDetails(drill, FilterOf(asked), asked.firstLevel == 0 ? 1 : 16);
        }
    }
}

}  // namespace
}  // namespace qor
