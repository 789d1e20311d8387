#include "embedded/party_ledger.h"

#include <gtest/gtest.h>

#include <map>

#include "embedded/plain_book.h"
#include "embedded/sample_fixture.h"

namespace qor {
namespace {

using test::PlainBook;

constexpr PartySide kSides[] = {PartySide::Customer, PartySide::Supplier};

std::map<std::int64_t, std::int64_t> Balances(AccountSet& set, const LedgerQuery& query) {
    std::map<std::int64_t, std::int64_t> balances;
    PartyLedger ledger(set, query);
    while (ledger.Next()) {
        const Movement& movement = ledger.movement();
        balances[ledger.parties()[movement.party].id] += movement.sums.Balance();
    }
    return balances;
}

TEST(PartyLedger, ItsBalancesAreThoseOfThePlainBookOnEveryDay) {
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        AccountSet set(test::SampleFile(seed));
        const PlainBook book(set);
        for (const PartySide side : kSides) {
            for (const std::int64_t day : {44561, 45000, 45500, 45838}) {
                for (const std::int32_t state : {0, 1, 2}) {
                    EXPECT_EQ(Balances(set, {.side = side, .lastDay = day, .checkState = state}),
                              book.Balances(side, state, day))
                        << seed << " " << day << " " << state;
                }
            }
            EXPECT_EQ(Balances(set, {.side = side}), book.Balances(side, 2, 1 << 30));
        }
    }
}

}  // namespace
}  // namespace qor
