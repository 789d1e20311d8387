#include "embedded/money.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

TEST(Money, AShareIsRoundedHalfAwayFromZero) {
    EXPECT_EQ(ShareOf(1000, 1, 3), 333);
    EXPECT_EQ(ShareOf(1000, 2, 3), 667);
    EXPECT_EQ(ShareOf(5, 1, 2), 3);
    EXPECT_EQ(ShareOf(-5, 1, 2), -3);
    EXPECT_EQ(ShareOf(7, 0, 9), 0);
    EXPECT_EQ(ShareOf(7, 9, 9), 7);
}

TEST(Money, AShareOfAnyAmountIsExact) {
    constexpr std::int64_t kMost = 999'999'999'999'999, kMany = 99'999'999'999'999;
    EXPECT_EQ(ShareOf(kMost, kMany, kMany), kMost);
    EXPECT_EQ(ShareOf(-kMost, kMany - 1, kMany), -999'999'999'999'989);
    EXPECT_EQ(ShareOf(kMost, 9'000, 1), 8'999'999'999'999'991'000);
}

}  // namespace
}  // namespace qor
