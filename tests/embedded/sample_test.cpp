#include "embedded/sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/bill_kinds.h"
#include "platform/conversions.h"
#include "support/raises.h"
#include "support/temp_folder.h"

namespace qor {
namespace {

using test::TempFolder;

std::int64_t Count(AccountSet& set, const std::string& statement) {
    Statement counted(set.database(), statement);
    return counted.Step() ? counted.Int(0) : -1;
}

/// The error of making a sample, "" if it was made.
std::string Refusal(const std::filesystem::path& file, const SampleOptions& options = {.bills = 10}) {
    const auto error = test::ErrorOf([&] { MakeSample(file, options); });
    if (!error) return "";
    EXPECT_EQ(error->number(), kAccountSetError);
    return error->description();
}

TEST(Sample, TheSameOptionsGiveTheSameBytes) {
    const TempFolder folder;
    MakeSample(folder / "a", {.bills = 3000, .seed = 7});
    MakeSample(folder / "b", {.bills = 3000, .seed = 7});
    EXPECT_EQ(test::ContentOf(folder / "a"), test::ContentOf(folder / "b"));
}

TEST(Sample, AnotherSeedIsAnotherFirm) {
    const TempFolder folder;
    MakeSample(folder / "a", {.bills = 500, .seed = 1});
    MakeSample(folder / "b", {.bills = 500, .seed = 2});
    EXPECT_NE(test::ContentOf(folder / "a"), test::ContentOf(folder / "b"));
}

TEST(Sample, TheLastDayIsTheOneAskedFor) {
    const TempFolder folder;
    const Date today = *DateFromCalendar(2020, 9, 15);
    MakeSample(folder / "a", {.bills = 2000, .today = today});
    AccountSet set(folder / "a");
    EXPECT_EQ(Count(set, "SELECT max(FDate) FROM t_Bill"), static_cast<std::int64_t>(today.serial));
    EXPECT_EQ(set.Profile("IC", "CurrentYear"), "2020");
    EXPECT_EQ(set.Profile("IC", "CurrentPeriod"), "9");
    EXPECT_EQ(set.Profile("IC", "StartYear"), "2017");
    EXPECT_EQ(Count(set, "SELECT FStartDate FROM t_PeriodDate WHERE FYear=2017 AND FPeriod=1"),
              static_cast<std::int64_t>(DateFromCalendar(2017, 1, 1)->serial));
    EXPECT_EQ(Count(set, "SELECT FEndDate FROM t_PeriodDate WHERE FYear=2020 AND FPeriod=2"),
              static_cast<std::int64_t>(DateFromCalendar(2020, 2, 29)->serial));
}

TEST(Sample, AnExistingFileIsRefusedAndStaysAsItWas) {
    const TempFolder folder;
    test::PutContent(folder / "books", "mine");
    EXPECT_EQ(Refusal(folder / "books"), "文件已经存在，不会覆盖：" + (folder / "books").string());
    EXPECT_EQ(test::ContentOf(folder / "books"), "mine");
}

TEST(Sample, AFailureLeavesNothingBehind) {
    const TempFolder folder;
    EXPECT_EQ(Refusal(folder / "a", {.bills = -1}), "单据数不能小于零");
    EXPECT_NE(Refusal(folder / "no such folder/a"), "");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(Sample, ProgressRisesToOne) {
    const TempFolder folder;
    std::vector<double> shares;
    MakeSample(folder / "a", {.bills = 1000}, [&](double share) { shares.push_back(share); });
    ASSERT_GT(shares.size(), 5u);
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_EQ(shares.back(), 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1)
        << "unfinished files stay";
}

TEST(Sample, AFirmMayHaveFewBillsOrNone) {
    const TempFolder folder;
    for (const std::int64_t bills : {0, 1, 2, 9, 40, 41}) {
        const auto file = folder / std::to_string(bills);
        MakeSample(file, {.bills = bills});
        AccountSet set(file);
        EXPECT_EQ(Count(set, "SELECT count(*) FROM t_Bill"), bills);
        EXPECT_GT(Count(set, "SELECT count(*) FROM t_Organization"), 20);
    }
}

/// What must hold in every sample firm: each statement counts what breaks it.
struct Rule {
    const char* name;
    const char* breaches;
};

constexpr Rule kRules[] = {
    {"references lead somewhere", "SELECT count(*) FROM pragma_foreign_key_check"},
    {"the file is sound", "SELECT count(*) FROM pragma_integrity_check WHERE integrity_check<>'ok'"},
    {"a category has no bills",
     "SELECT count(*) FROM t_Bill b JOIN t_Item i ON i.FItemID IN "
     "(b.FCustID,b.FSupplyID,b.FDeptID,b.FAcctID) WHERE "
     "i.FDetail=0"},
    {"a class line's class is no category",
     "SELECT count(*) FROM t_ClassEntry e JOIN t_Item i ON i.FItemID=e.FClassID WHERE i.FDetail=0"},
    {"a level counts the code's parts",
     "SELECT count(*) FROM t_Item WHERE FLevel<>1+length(FNumber)-length(replace(FNumber,'.',''))"},
    {"a code begins with its category's",
     "SELECT count(*) FROM t_Item i JOIN t_Item p ON p.FItemID=i.FParentID WHERE "
     "substr(i.FNumber,1,length(p.FNumber)+1)<>p.FNumber||'.' OR i.FLevel<>p.FLevel+1"},
    {"what lies below the first level has a category",
     "SELECT count(*) FROM t_Item WHERE (FLevel>1)<>(FParentID IS NOT NULL)"},
    {"a class bill is the sum of its lines",
     "SELECT count(*) FROM (SELECT b.FBillID FROM t_Bill b JOIN t_ClassEntry e ON e.FBillID=b.FBillID GROUP "
     "BY "
     "b.FBillID HAVING sum(e.FAmount)<>b.FAmount OR sum(e.FSettleAmount)<>b.FSettleAmount)"},
    {"a goods bill is the sum of its lines",
     "SELECT count(*) FROM (SELECT b.FBillID FROM t_Bill b JOIN t_GoodsEntry e ON e.FBillID=b.FBillID GROUP "
     "BY "
     "b.FBillID HAVING sum(e.FAmount)<>b.FAmount)"},
    {"income and expenses have class lines",
     "SELECT count(*) FROM t_Bill b WHERE FBillType IN (9,10,11,12) AND NOT EXISTS(SELECT 1 FROM "
     "t_ClassEntry e WHERE "
     "e.FBillID=b.FBillID)"},
    {"what is paid at once is paid on an account",
     "SELECT count(*) FROM t_Bill WHERE FSettleAmount<>0 AND FAcctID IS NULL"},
    {"without a party everything is paid at once",
     "SELECT count(*) FROM t_Bill WHERE FBillType IN (11,12) AND FCustID IS NULL AND FSupplyID IS NULL AND "
     "FSettleAmount<>FAmount"},
    {"a receipt's money is what it settles",
     "SELECT count(*) FROM (SELECT b.FBillID FROM t_Bill b JOIN t_Settlement s ON s.FBillID=b.FBillID GROUP "
     "BY "
     "b.FBillID HAVING sum(s.FAmount)<>b.FAmount OR sum(s.FDiscount)<>b.FDiscount)"},
    {"nothing is settled beyond its open amount",
     "SELECT count(*) FROM (SELECT b.FAmount-b.FSettleAmount AS rest, sum(s.FAmount+s.FDiscount) AS settled "
     "FROM "
     "t_Settlement s JOIN t_Bill b ON b.FBillID=s.FTargetBillID GROUP BY b.FBillID) WHERE "
     "abs(settled)>abs(rest)"},
    {"no advance is used up beyond its amount",
     "SELECT count(*) FROM (SELECT b.FAmount AS rest, sum(s.FAmount) AS used FROM t_Settlement s JOIN t_Bill "
     "b ON "
     "b.FBillID=s.FSourceBillID WHERE b.FBillType IN (6,8) GROUP BY b.FBillID) WHERE used>rest"},
    {"nothing is settled before it arose",
     "SELECT count(*) FROM t_Settlement s JOIN t_Bill b ON b.FBillID=s.FTargetBillID WHERE s.FDate<b.FDate"},
    {"a void bill settles nothing and is not settled",
     "SELECT count(*) FROM t_Settlement s JOIN t_Bill b ON b.FBillID IN "
     "(s.FBillID,s.FTargetBillID,s.FSourceBillID) "
     "WHERE b.FState=2"},
    {"a party settles its own bills",
     "SELECT count(*) FROM t_Settlement s JOIN t_Bill b ON b.FBillID=s.FBillID JOIN t_Bill t ON "
     "t.FBillID=s.FTargetBillID WHERE NOT (ifnull(b.FCustID,0) IN (t.FCustID,t.FToPartyID) OR "
     "ifnull(b.FSupplyID,0) IN (t.FSupplyID,t.FToPartyID))"},
    {"a matching supplier bears the customer's name",
     "SELECT count(*) FROM t_Organization o LEFT JOIN t_Supplier s ON s.FItemID=o.FMatchSupplyID WHERE "
     "o.FMatchSupplyID<>0 AND s.FName IS NOT o.FName"},
    {"a disabled class has no bills of the last year",
     "SELECT count(*) FROM t_ClassEntry e JOIN t_Item i ON i.FItemID=e.FClassID JOIN t_Bill b ON "
     "b.FBillID=e.FBillID "
     "WHERE i.FDeleted=1 AND b.FDate>45838-365"},
};

TEST(Sample, TheBooksAreSoundOnEverySeed) {
    const TempFolder folder;
    for (const std::uint64_t seed : {1u, 2u, 3u}) {
        const auto file = folder / std::to_string(seed);
        MakeSample(file, {.bills = 8000, .seed = seed});
        AccountSet set(file);
        for (const Rule& rule : kRules) {
            EXPECT_EQ(Count(set, rule.breaches), 0) << rule.name << ", seed " << seed;
        }
    }
}

/// What a sample firm must show, so that every report has something to tell.
constexpr Rule kRichness[] = {
    {"customers", "SELECT count(*) FROM t_Organization"},
    {"parties that are customer and supplier at once",
     "SELECT count(*) FROM t_Organization WHERE FMatchSupplyID<>0"},
    {"disabled income classes with bills",
     "SELECT count(*) FROM t_ClassEntry e JOIN t_Item i ON i.FItemID=e.FClassID WHERE i.FItemClassID=1121 "
     "AND FDeleted=1"},
    {"disabled expense classes with bills",
     "SELECT count(*) FROM t_ClassEntry e JOIN t_Item i ON i.FItemID=e.FClassID WHERE i.FItemClassID=1122 "
     "AND FDeleted=1"},
    {"income classes three levels deep", "SELECT count(*) FROM t_Item WHERE FItemClassID=1121 AND FLevel=3"},
    {"customers three levels deep", "SELECT count(*) FROM t_Item WHERE FItemClassID=1 AND FLevel=3"},
    {"parties with no bills",
     "SELECT count(*) FROM t_Organization o WHERE NOT EXISTS(SELECT 1 FROM t_Bill b WHERE "
     "b.FCustID=o.FItemID)"},
    {"income paid in part",
     "SELECT count(*) FROM t_Bill WHERE FBillType=11 AND FSettleAmount<>0 AND FSettleAmount<>FAmount"},
    {"income with no party", "SELECT count(*) FROM t_Bill WHERE FBillType=11 AND FCustID IS NULL"},
    {"bills of several classes", "SELECT count(*) FROM t_ClassEntry WHERE FIndex=2"},
    {"names with quotes or wild cards",
     "SELECT count(*) FROM t_Organization WHERE FName LIKE '%''%' OR instr(FName,'%')>0 OR "
     "instr(FName,'_')>0"},
    {"discounts", "SELECT count(*) FROM t_Bill WHERE FDiscount>0"},
    {"bills settled in parts",
     "SELECT count(*) FROM (SELECT 1 FROM t_Settlement GROUP BY FTargetBillID HAVING count(*)>1)"},
    {"head fields", "SELECT count(*) FROM t_BillHeadField"},
    {"parties only the administrator sees", "SELECT count(*) FROM t_Party WHERE FRightUserID='1'"},
};

TEST(Sample, EveryKindOfBillComesInEveryState) {
    const TempFolder folder;
    MakeSample(folder / "a", {.bills = 30000});
    AccountSet set(folder / "a");
    for (const BillKindRow& row : kBillKinds) {
        EXPECT_GT(Count(set, "SELECT count(*) FROM t_Bill WHERE FBillType=" +
                                 std::to_string(static_cast<std::int32_t>(row.kind))),
                  0)
            << row.name;
    }
    for (const int state : {0, 1, 2}) {
        EXPECT_GT(
            Count(set, "SELECT count(*) FROM t_Bill WHERE FBillType=11 AND FState=" + std::to_string(state)),
            10);
        EXPECT_GT(
            Count(set, "SELECT count(*) FROM t_Bill WHERE FBillType=12 AND FState=" + std::to_string(state)),
            10);
    }
    for (const Rule& rich : kRichness) {
        EXPECT_GT(Count(set, rich.breaches), 1) << rich.name;
    }
}

}  // namespace
}  // namespace qor
