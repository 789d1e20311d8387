// The goods lines of bills, whether the bills lie together or far apart.
#include "embedded/goods_lines.h"

#include <gtest/gtest.h>

#include <map>

#include "embedded/sample_fixture.h"

namespace qor {
namespace {

/// "code|base unit|shown unit|quantity|price|rate|amount" for each line.
using Lines = std::map<std::int64_t, std::vector<std::string>>;

Lines AsTheyLie(AccountSet& set) {
    Lines lines;
    Statement found(
        set.database(),
        "SELECT e.FBillID, i.FNumber||'|'||u.FName||'|'||s.FName||'|'||e.FQty||'|'||e.FPrice||'|'||"
        "e.FShowRate||'|'||e.FAmount FROM t_GoodsEntry e JOIN t_Item i ON i.FItemID=e.FItemID "
        "JOIN t_Goods g ON g.FItemID=e.FItemID JOIN t_Item u ON u.FItemID=g.FUnitID "
        "JOIN t_Item s ON s.FItemID=e.FShowUnitID ORDER BY e.FBillID, e.FIndex");
    while (found.Step()) {
        lines[found.Int(0)].emplace_back(found.Text(1));
    }
    return lines;
}

std::vector<std::string> Told(std::span<const GoodsLineRow> rows) {
    std::vector<std::string> lines;
    for (const GoodsLineRow& row : rows) {
        lines.push_back(row.goods->item->number.text() + "|" + row.goods->unit->name.text() + "|" +
                        row.shownUnit->name.text() + "|" + std::to_string(row.quantity) + "|" +
                        std::to_string(row.price) + "|" + std::to_string(row.showRate) + "|" +
                        std::to_string(row.amount));
    }
    return lines;
}

TEST(GoodsLines, AreThoseOfTheirBillsHoweverFarTheBillsLieApart) {
    AccountSet set(test::SampleFile());
    const Lines all = AsTheyLie(set);
    ASSERT_GT(all.size(), 500u);
    for (const std::int64_t step : {1, 7, 400}) {
        std::vector<std::int64_t> bills;
        for (std::int64_t bill = all.rbegin()->first; bill > 0; bill -= step) {
            bills.push_back(bill);
        }
        bills.push_back(bills.front());
        const GoodsLines lines(set, false, bills);
        std::size_t withGoods = 0;
        for (const std::int64_t bill : bills) {
            const auto known = all.find(bill);
            EXPECT_EQ(Told(lines.Of(bill)), known == all.end() ? std::vector<std::string>{} : known->second)
                << bill;
            withGoods += known != all.end();
        }
        EXPECT_GT(withGoods, 1u) << step;
        EXPECT_TRUE(lines.Of(1 << 30).empty());
    }
}

TEST(GoodsLines, OfNoBillAreNone) {
    AccountSet set(test::SampleFile());
    EXPECT_TRUE(GoodsLines(set, false, {}).Of(1).empty());
}

}  // namespace
}  // namespace qor
