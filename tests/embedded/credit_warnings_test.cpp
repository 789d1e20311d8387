#include "embedded/credit_warnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "embedded/built_firm.h"
#include "embedded/plain_book.h"
#include "embedded/record_rows.h"
#include "embedded/served_host.h"

namespace qor {
namespace {

using test::BookBill;
using test::BuiltFirm;
using test::Cents;
using test::Filter;
using test::PlainBook;
using test::RowsOf;
using testing::IsEmpty;

constexpr std::int64_t kToday = 45500;
const std::string kOfUser16 = " (CharIndex('16',o.FRightUserID)>0 OR ISNULL(o.FItemID,0)=0) ";

struct Warnings {
    const char* name;
    PartySide side;
    Ref<RecordSet> (*report)(AccountSet&, const Dictionary&);
};

constexpr Warnings kWarnings[] = {
    {"customers", PartySide::Customer, CustomerCreditWarnings},
    {"suppliers", PartySide::Supplier, SupplierCreditWarnings},
};

/// What a bill raises in a party's account before anything is paid; 0 for bills that settle.
std::int64_t Raised(const BookBill& bill, std::int64_t party, PartySide side) {
    const SideSigns signs = SignsOf(bill.kind, side);
    if (signs.target != 0 && bill.toParty == party) return bill.amount;
    return bill.Party(side) == party ? signs.raised * bill.amount : 0;
}

std::string Cell(std::int64_t number) { return std::to_string(number) + "|"; }

/// The rows, worked out bill by bill from the plain book.
std::vector<std::string> Slow(const PlainBook& book, PartySide side, std::int64_t today,
                              const std::string& user) {
    const auto open = book.Open(side, 2, today);
    std::map<std::int64_t, std::int64_t> balances;
    for (const auto& [place, amount] : open) {
        balances[place.second] += amount;
    }
    std::vector<std::tuple<std::string, std::int64_t, std::int64_t, std::string>> found;
    for (const auto& [place, amount] : open) {
        const BookBill& bill = *book.Bill(place.first);
        const test::BookItem& party = book.Item(place.second);
        const std::int64_t raised = Raised(bill, place.second, side);
        if (amount <= 0 || raised <= 0 || !book.Sees(user, place.second)) continue;
        const std::int64_t due = bill.dueDay != 0 ? bill.dueDay : bill.day + party.creditDays;
        const std::int64_t balance = balances[place.second];
        const bool above = party.creditLimit > 0 && balance > party.creditLimit;
        if (due > today + 7 && !above) continue;
        const std::string over = due < today ? Cell((today - due) * 100) : "-|";
        const std::string soon = due >= today && due <= today + 7 ? Cell((due - today) * 100) : "-|";
        const std::int64_t rate = above ? std::llround(static_cast<double>(balance - party.creditLimit) *
                                                       10000.0 / static_cast<double>(party.creditLimit))
                                        : 0;
        found.emplace_back(party.number, due, bill.id,
                           party.number + "|" + party.name + "|" + Cell(bill.day) + bill.number + "|" +
                               Cell(due) + over + soon + Cell(raised) + Cell(raised - amount) + Cell(amount) +
                               Cell(balance) + Cell(party.creditLimit) + Cell(rate) +
                               book.Item(bill.department).name + "|" + book.Item(bill.employee).name + "|");
    }
    std::ranges::sort(found);
    std::vector<std::string> rows;
    for (const auto& entry : found) {
        rows.push_back(std::get<3>(entry));
    }
    return rows;
}

class CreditWarningsOf : public ::testing::TestWithParam<Warnings> {
 protected:
    std::vector<std::string> Rows(AccountSet& set, std::int64_t today, const std::string& clause = "") {
        set.SetToday(today);
        return RowsOf(*GetParam().report(set, *Filter({{"OK", true}, {"DataRightWhere", clause}})));
    }
};

INSTANTIATE_TEST_SUITE_P(BothSides, CreditWarningsOf, ::testing::ValuesIn(kWarnings),
                         [](const auto& warnings) { return std::string(warnings.param.name); });

TEST_P(CreditWarningsOf, AreThoseOfTheSlowBooksOnEveryDay) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const std::int64_t today : {44000, 44800, 45500, 45838, 46000}) {
            EXPECT_EQ(Rows(set, today), Slow(book, GetParam().side, today, "")) << seed << " " << today;
        }
        EXPECT_EQ(Rows(set, kToday, kOfUser16), Slow(book, GetParam().side, kToday, "16")) << seed;
    }
}

TEST_P(CreditWarningsOf, WhatHappensLaterChangesNothing) {
    BuiltFirm firm(1);
    AccountSet set = firm.Open();
    const auto before = Rows(set, kToday);
    ASSERT_FALSE(before.empty());
    firm.database().Run("UPDATE t_Bill SET FState=2 WHERE FDate>45500 AND FBillID%3=0");
    EXPECT_EQ(Rows(set, kToday), before);
}

TEST_P(CreditWarningsOf, AFirmWithoutBillsHasNone) {
    BuiltFirm firm;
    AccountSet set = firm.Open();
    EXPECT_THAT(Rows(set, kToday), IsEmpty());
}

/// The overdue and soon days of one bill that is due `left` days from today, "-" for none; "" without a row.
std::string DaysOf(std::int64_t left, bool aboveLimit) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    firm.database().Run("UPDATE t_Party SET FCreditLimit=1000");
    firm.Add({.kind = BillKind::Sale,
              .day = kToday - 30,
              .customer = customer,
              .amount = aboveLimit ? 1250 : 1000,
              .dueDay = kToday + left});
    AccountSet set = firm.Open();
    set.SetToday(kToday);
    const Ref<RecordSet> rows = CustomerCreditWarnings(set, *Filter({}));
    if (rows->Eof()) return "";
    EXPECT_EQ(Cents(*rows, "FRate"), aboveLimit ? 2500 : 0);
    return test::CellText(rows->Field("FOverDate")) + " " + test::CellText(rows->Field("FSoonDate"));
}

TEST(CreditWarnings, ABillIsOverdueFromTheDayAfterItsDueDateAndSoonDueForAWeekAhead) {
    EXPECT_EQ(DaysOf(-1, false), "100 -");
    EXPECT_EQ(DaysOf(0, false), "- 0");
    EXPECT_EQ(DaysOf(7, false), "- 700");
    EXPECT_EQ(DaysOf(8, false), "");
    EXPECT_EQ(DaysOf(8, true), "- -") << "a party above its limit";
}

TEST(CreditWarnings, ABillWithoutADueDateIsDueAfterThePartysCreditDays) {
    BuiltFirm firm;
    firm.database().Run("UPDATE t_Party SET FCreditDays=10");
    firm.Add(
        {.kind = BillKind::OtherReceivable, .day = kToday - 15, .customer = firm.Customer(0), .amount = 500});
    AccountSet set = firm.Open();
    set.SetToday(kToday);
    const Ref<RecordSet> rows = CustomerCreditWarnings(set, *Filter({}));
    EXPECT_EQ(rows->Field("FDeadLine").date().serial, kToday - 5);
    EXPECT_EQ(Cents(*rows, "FOverDate"), 500);
}

TEST(CreditWarnings, TheRateOfTheLargestAmountsIsExact) {
    BuiltFirm firm;
    const std::int64_t customer = firm.Customer(0);
    firm.database().Run("UPDATE t_Party SET FCreditLimit=300000000000000 WHERE FItemID=" +
                        std::to_string(customer));
    firm.Add({.kind = BillKind::Sale, .day = 45000, .customer = customer, .amount = 999'999'999'999'999});
    AccountSet set = firm.Open();
    const Ref<RecordSet> rows = CustomerCreditWarnings(set, *Filter({}));
    ASSERT_EQ(rows->RowCount(), 1);
    EXPECT_EQ(rows->Field("FRate"), Value(233.33));
    EXPECT_EQ(rows->Field("FUnCheckAmount"), Value(9'999'999'999'999.99));
}

TEST(CreditWarnings, TodayIsTheDaySetThenTheBooksOwnThenTheClocks) {
    const test::TempFolder folder;
    std::filesystem::copy_file(test::SampleFile(), folder / "books.db");
    {
        AccountSet set(folder / "books.db");
        EXPECT_EQ(set.Today(), 45838) << "a sample firm lives on its last day";
        set.SetToday(kToday);
        EXPECT_EQ(set.Today(), kToday);
    }
    Database(folder / "books.db", Database::Mode::Create)
        .Run("DELETE FROM t_SystemProfile WHERE FKey='Today'");
    AccountSet set(folder / "books.db");
    EXPECT_EQ(set.OwnToday(), std::nullopt);
    EXPECT_GT(set.Today(), 45838);
    EXPECT_LT(set.Today(), 100000);
}

TEST(CreditWarnings, ARunOfTheReportReachesTheHostWithTheUsersRights) {
    test::ServedHost host(16);
    host.tier.accountSet().SetToday(kToday);
    const Ref<Object> report = host.Create("Rpt10507");
    report->Call("ShowFilter");
    report->Call("GetReportData");
    EXPECT_EQ(test::Entry(*report, "Result", "Error"), Value(""));
    AccountSet set(test::SampleFile());
    EXPECT_EQ(RowsOf(*As<RecordSet>(report->Get("Rs"))),
              Slow(PlainBook(set), PartySide::Customer, kToday, "16"));
}

}  // namespace
}  // namespace qor
