// The library's own services and reports on the embedded middle tier: what one side asks, the other answers.
#include <gtest/gtest.h>

#include <cmath>

#include "embedded/served_host.h"

namespace qor {
namespace {

using test::ServedHost;

TEST(WholeRun, TheServicesUnderstandTheirServer) {
    ServedHost host(16);
    EXPECT_EQ(host.process.session.GetPropsString(), host.tier.PropsString());
    host.process.session.ParsePropsString(host.process.session.GetPropsString());
    EXPECT_EQ(host.process.session.GetUserID(), 16);
    EXPECT_EQ(host.process.session.GetPropsValue("AcctName"), "示例商贸有限公司");
    EXPECT_EQ(host.process.systemProfile.CurrentPeriodFirstDay(), "2025-06-01");
    EXPECT_TRUE(host.process.systemProfile.UseLongNumber());
    EXPECT_TRUE(host.process.systemProfile.DisplayDeleted());
    std::string start = "?", end = "?";
    host.process.systemProfile.GetStartPeriodDates(start, end);
    EXPECT_EQ(start + " " + end, "2022-01-01 2022-01-31");
}

TEST(WholeRun, TheClauseThatTheClientWritesIsTheOneThatTheServerTakes) {
    ServedHost host(16);
    const Ref<Dictionary> item = host.process.dataRights.NewRightItem("t_Organization", "t1", "1");
    const Ref<Vector> items = host.platform.NewVector();
    items->Add(item);
    std::string clause;
    ASSERT_TRUE(host.process.dataRights.AddRightClause(items.get(), clause));
    EXPECT_EQ(clause, " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ");
}

TEST(WholeRun, ALookupFindsTheTypedCode) {
    ServedHost host;
    const Ref<Object> lookup = host.process.itemPicker.ItemLookup(1121, "06", "", 1);
    ASSERT_TRUE(lookup);
    EXPECT_EQ(ObjectIn(lookup->Get("ReturnObject")).Get("Number"), Value("06"));
    EXPECT_FALSE(host.process.itemPicker.ItemLookup(1121, "", "", 1));
}

/// The total of FAmount over a confirmed run of a report with its defaults, in cents; -1 where it failed.
std::int64_t TotalOf(ServedHost& host, std::string_view reportClass) {
    host.InDialog([](Form& dialog) { User(dialog).Click(test::ControlOf<Button>(dialog, "cmdOK")); });
    const Ref<Object> report = host.Create(reportClass);
    report->Call("ShowFilter");
    report->Call("GetReportData");
    EXPECT_EQ(test::Entry(*report, "Result", "Error"), Value(""));
    if (test::Entry(*report, "Result", "OK") != Value(true)) return -1;
    const Ref<RecordSet> rows = As<RecordSet>(report->Get("Rs"));
    std::int64_t total = 0;
    for (; !rows->Eof(); rows->Move(1)) {
        total += std::llround(rows->Field("FAmount").number() * 100);
    }
    return total;
}

struct Side {
    const char* report;
    const char* kind;
};

/// What the report must total: audited bills of June 2025 in classes that are not disabled.
std::int64_t Expected(MiddleTier& tier, const Side& side, const std::string& party) {
    Statement sum(
        tier.accountSet().database(),
        "SELECT sum(e.FAmount) FROM t_Bill b, t_ClassEntry e, t_Item c WHERE e.FBillID=b.FBillID AND "
        "c.FItemID=e.FClassID AND c.FDeleted=0 AND b.FState=0 AND b.FDate BETWEEN 45809 AND 45838 AND "
        "b.FBillType=" +
            std::string(side.kind) + party);
    sum.Step();
    return sum.Int(0);
}

TEST(WholeRun, TheDetailsTotalWhatTheBooksHold) {
    for (const Side& side : {Side{"Rpt10522", "11"}, Side{"Rpt10524", "12"}}) {
        ServedHost host;
        const std::int64_t expected = Expected(host.tier, side, "");
        EXPECT_NE(expected, 0);
        EXPECT_EQ(TotalOf(host, side.report), expected) << side.report;
    }
}

TEST(WholeRun, AUserWithLimitedRightsSeesHisParties) {
    const std::pair<Side, const char*> sides[] = {
        {{"Rpt10522", "11"},
         " AND (b.FCustID IS NULL OR b.FCustID IN (SELECT FItemID FROM t_Organization WHERE "
         "FRightUserID LIKE '%16%'))"},
        {{"Rpt10524", "12"},
         " AND (b.FSupplyID IS NULL OR b.FSupplyID IN (SELECT FItemID FROM t_Supplier WHERE "
         "FRightUserID LIKE '%16%'))"},
    };
    for (const auto& [side, party] : sides) {
        ServedHost host(16);
        const std::int64_t expected = Expected(host.tier, side, party);
        EXPECT_NE(expected, Expected(host.tier, side, ""));
        EXPECT_EQ(TotalOf(host, side.report), expected) << side.report;
    }
}

}  // namespace
}  // namespace qor
