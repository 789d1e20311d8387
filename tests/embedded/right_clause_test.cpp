#include "embedded/right_clause.h"

#include <gtest/gtest.h>

#include "support/raises.h"

namespace qor {
namespace {

constexpr std::string_view kOfUser16 = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";

TEST(RightClause, NoTextIsNoCondition) {
    EXPECT_TRUE(ParseRightClause("").empty());
    EXPECT_TRUE(ParseRightClause("   ").empty());
}

TEST(RightClause, OneCondition) {
    EXPECT_EQ(ParseRightClause(kOfUser16), (std::vector<RightCondition>{{"t1", "16"}}));
}

TEST(RightClause, SeveralConditionsKeepTheirOrder) {
    const std::string clause =
        " (CharIndex('-7',ts.FRightUserID)>0 OR ISNULL(ts.FItemID,0)=0)  And " + std::string(kOfUser16);
    EXPECT_EQ(ParseRightClause(clause), (std::vector<RightCondition>{{"ts", "-7"}, {"t1", "16"}}));
}

TEST(RightClause, AnyOtherTextIsRefused) {
    const std::string clause(kOfUser16);
    const std::string refused[] = {
        "1=1",
        clause + "OR 1=1",
        clause + clause,
        clause + " Or " + clause,
        clause + " And ",
        clause + " AND " + clause,
        " And " + clause,
        clause + " ",
        clause.substr(1),
        clause.substr(0, clause.size() - 1),
        " (CharIndex('16' ,t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
        " (CharIndex('',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
        " (CharIndex('-',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
        " (CharIndex('1234567',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
        " (CharIndex('16'' OR 1=1 --',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
        " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t2.FItemID,0)=0) ",
        " (CharIndex('16',t1;.FRightUserID)>0 OR ISNULL(t1;.FItemID,0)=0) ",
        " (CharIndex('16',.FRightUserID)>0 OR ISNULL(.FItemID,0)=0) ",
        " (CharIndex('16',t1.FRightUserID)>=0 OR ISNULL(t1.FItemID,0)=0) ",
        " (charindex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ",
    };
    for (const std::string& text : refused) {
        const auto error = test::ErrorOf([&] { ParseRightClause(text); });
        ASSERT_TRUE(error) << text;
        EXPECT_EQ(error->description(), "无法识别的数据权限条件") << text;
    }
}

TEST(RightClause, AnotherAliasThanTheReportsIsRefused) {
    Conditions conditions;
    const auto error = test::ErrorOf([&] { AddRights(conditions, "b.FCustID", "o", kOfUser16); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), "数据权限条件的表别名不符：t1");
}

}  // namespace
}  // namespace qor
