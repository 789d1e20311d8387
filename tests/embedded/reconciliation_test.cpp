// Reports of different families that must close on the same figures.
#include <gtest/gtest.h>

#include <map>

#include "embedded/account_totals.h"
#include "embedded/ageing_rows.h"
#include "embedded/cash_rows.h"
#include "embedded/money_movements.h"
#include "embedded/record_rows.h"
#include "embedded/sample_fixture.h"
#include "embedded/statement_rows.h"
#include "platform/vector.h"

namespace qor {
namespace {

using test::Cents;
using test::Filter;

using Amounts = std::map<std::string, std::int64_t>;  // what is not zero, by code

Amounts AmountsOf(RecordSet& rows, std::string_view code, std::string_view amount) {
    Amounts amounts;
    for (; !rows.Eof(); rows.Move(1)) {
        const std::string of = rows.Field(code).text();
        if (!of.empty() && Cents(rows, amount) != 0) amounts[of] = Cents(rows, amount);
    }
    return amounts;
}

/// The last balance of each party's rows.
Amounts ClosingOf(RecordSet& statement) {
    Amounts closing;
    std::string code;
    for (; !statement.Eof(); statement.Move(1)) {
        const std::string heading = statement.Field("FExplanation").text();
        if (statement.Field("FBillTypeName") == Value("期初余额"))
            code = heading.substr(0, heading.find(' '));
        closing[code] = Cents(statement, "FBalanceAmount");
    }
    std::erase_if(closing, [](const auto& entry) { return entry.second == 0; });
    return closing;
}

std::string Clause(const char* alias) {
    const std::string name = alias;
    return " (CharIndex('16'," + name + ".FRightUserID)>0 OR ISNULL(" + name + ".FItemID,0)=0) ";
}

struct Side {
    PartySide side;
    Ref<RecordSet> (*summary)(AccountSet& set, const Dictionary& filter);
    const char* code;
    const char* classType;
};

constexpr Side kSides[] = {{PartySide::Customer, ReceivableSummary, "FCustNumber", "0"},
                           {PartySide::Supplier, PayableSummary, "FSupplyNumber", "1"}};

TEST(Reconciliation, SummaryAgeingAndStatementCloseOnOneBalanceForEveryUser) {
    auto groups = MakeRef<ArrayVector>();
    for (const double limit : {29.0, 59.0, -1.0}) {
        auto group = MakeRef<OrderedDictionary>();
        group->Put("FValue", limit < 0 ? Value("MaxCol") : Value(limit));
        group->Put("FFirstValue", limit < 0 ? 60.0 : limit - 29);
        groups->Add(group);
    }
    for (const std::uint64_t seed : {1u, 2u, 3u, 4u}) {
        AccountSet set(test::SampleFile(seed));
        for (const Side& side : kSides) {
            for (const double day : {44600.0, 45321.0, 45838.0}) {
                for (const bool limited : {false, true}) {
                    const auto filter = Filter({{"BDate", Date{day - 100}},
                                                {"EDate", Date{day}},
                                                {"CheckState", std::int16_t{0}},
                                                {"DataRightWhere", limited ? Clause("t1") : ""}});
                    const Amounts balances =
                        AmountsOf(*side.summary(set, *filter), side.code, "FBalanceAmount");
                    EXPECT_GT(balances.size(), limited ? 0u : 3u);
                    EXPECT_EQ(ClosingOf(*StatementOfAccount(set, side.side, *filter).rows), balances)
                        << seed << " " << side.code << " " << day;
                    const auto aged = Filter({{"EDate", Date{day}},
                                              {"cmbClassType", side.classType},
                                              {"DataRightWhere", limited ? Clause("B") : ""}});
                    aged->Put("Vect", groups);
                    EXPECT_EQ(AmountsOf(*Ageing(set, *aged), "FItemNumber", "FAmount"), balances)
                        << seed << " " << side.code << " " << day;
                    Amounts inGroups;
                    for (const char* field : {"F29", "F59", "FMaxCol"}) {
                        for (const auto& [code, amount] :
                             AmountsOf(*Ageing(set, *aged), "FItemNumber", field)) {
                            inGroups[code] += amount;
                        }
                    }
                    std::erase_if(inGroups, [](const auto& entry) { return entry.second == 0; });
                    EXPECT_EQ(inGroups, balances) << seed << " " << side.code << " " << day;
                }
            }
        }
    }
}

TEST(Reconciliation, TheCashLedgerClosesOnTheBalanceOfEachAccountsMovements) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const auto filter = Filter({{"BDate", Date{45000}}, {"EDate", Date{45500}}, {"CheckState", "0"}});
        for (const char* key : {"IncludeR", "IncludeP", "IncludePurchase", "IncludeSale", "IncludeBank",
                                "IncludeXSFL", "IncludeCGFL"}) {
            filter->Put(key, std::int16_t{1});
        }
        const Ref<RecordSet> ledger = CashLedger(set, *filter);
        int accounts = 0;
        for (; !ledger->Eof(); ledger->Move(1)) {
            if (ledger->Field("FSumSort") != Value(std::int32_t{0})) continue;
            filter->Put("AcctNumber", ledger->Field("FAcctNumber"));
            const Ref<RecordSet> movements = AccountMovements(set, *filter);
            EXPECT_EQ(movements->Field("FBalanceAmount"), ledger->Field("FBeginAmount"));
            movements->Move(movements->RowCount() - 1);
            EXPECT_EQ(movements->Field("FBalanceAmount"), ledger->Field("FEndAmount"));
            ++accounts;
        }
        EXPECT_GT(accounts, 3);
    }
}

}  // namespace
}  // namespace qor
