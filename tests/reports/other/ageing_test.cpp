#include "reports/other/ageing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/conversions.h"
#include "support/person.h"

namespace qor {
namespace {

using test::Columns;
using test::Entry;
using test::Keys;
using test::Log;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr const char* kReminder =
    "box \"请先审核所有收付款类单据，以确保应收或应付账龄数据准确分析!\" \"信息提示\" 64";
const Log kProfileRead = {"create QOREBCBASE.UserProfile",
                          "call QOREBCBASE.UserProfile.Load(\"QOR\", \"ARAP\")",
                          "read QOREBCBASE.UserProfile.Dictionary", "release QOREBCBASE.UserProfile"};

class AgeingTest : public testing::Test {
 protected:
    AgeingTest() {
        host.InDialog(test::Confirm);
        RememberReminder("1");
    }

    void RememberReminder(Value seen) {
        const Ref<Dictionary> profile = MakeRef<OrderedDictionary>();
        profile->Put("ZLFXB", std::move(seen));
        host.platform.userProfile["QOR/ARAP"] = profile;
    }
    bool ReminderShown() {
        host.platform.windows().boxes.clear();
        report->Call("ShowFilter");
        return !host.platform.windows().boxes.empty();
    }
    test::Script& Data() { return host.platform.Component("QORMArApRpt.Data10530"); }
    Log Fetch() {
        return host.LogOf([&] { report->Call("GetReportData"); });
    }
    std::string Result() { return Shown(report->Get("Result")); }

    static Value Group(const char* caption, Value limit) {
        const Ref<Dictionary> group = MakeRef<OrderedDictionary>();
        group->Put("FCaption", caption);
        group->Put("FValue", std::move(limit));
        return group;
    }
    static Ref<Dictionary> Filter(std::initializer_list<std::pair<const char*, Value>> entries) {
        Ref<Dictionary> filter = MakeRef<OrderedDictionary>();
        for (const auto& [key, value] : entries) {
            filter->Put(key, value);
        }
        return filter;
    }

    test::ReportHost host;
    Ref<Object> report = host.Create("Rpt10530");
};

TEST_F(AgeingTest, TellsTheHostWhatItIs) {
    EXPECT_EQ(Shown(report->Get("Property")),
              "{Name: \"账龄分析表\", RptProperty: int16(6), FrozenColumn: int16(4)}");
    EXPECT_EQ(Result(), "{OK: False, Error: \"\"}");
    for (const char* member : {"GetDetailReport", "AddDataRight", "GetMutilPageData"}) {
        EXPECT_EQ(report->FindMember(member), kNoMember) << member;
    }
}

TEST_F(AgeingTest, KeepsTheLongNumberOfTheOneMadeLastForTheProcess) {
    EXPECT_TRUE(host.process.ageingLongNumber);
    host.platform.Component("QOREBSBase.SystemProfile").Answers("GetProfile", Value(0));
    const Ref<Object> another = host.Create("Rpt10530");
    EXPECT_FALSE(host.process.ageingLongNumber);
}

// The reminder.

TEST_F(AgeingTest, AUserWhoHasNotSeenTheReminderSeesItBeforeTheDialogAndNeverAgain) {
    RememberReminder("0");
    bool seenFirst = false;
    host.InDialog([&](Form& dialog) {
        seenFirst = !host.platform.windows().boxes.empty();
        test::Person(dialog).Click("cmdCacel");
    });
    const Log log = host.LogOf([&] { report->Call("ShowFilter"); });
    const Log asked(log.begin(), log.begin() + 10);
    EXPECT_THAT(asked, ElementsAre(kProfileRead[0], kProfileRead[1], kProfileRead[2], kProfileRead[3],
                                   kReminder, kProfileRead[0], kProfileRead[1], kProfileRead[2],
                                   "call QOREBCBASE.UserProfile.Save(\"QOR\", \"ARAP\")", kProfileRead[3]));
    EXPECT_TRUE(seenFirst);
    EXPECT_EQ(host.platform.userProfile["QOR/ARAP"]->Get("ZLFXB"), Value("1"));
    EXPECT_FALSE(ReminderShown());
}

TEST_F(AgeingTest, OnlyTheTextZeroOrNothingAtAllShowsTheReminder) {
    struct Case {
        Value kept;
        bool shown;
    };
    for (const Case& c : {Case{"0", true}, Case{"1", false}, Case{"", false}, Case{"2", false}, Case{0, true},
                          Case{Value::Null(), false}}) {
        RememberReminder(c.kept);
        EXPECT_EQ(ReminderShown(), c.shown) << Shown(c.kept);
    }
    host.platform.userProfile.clear();
    EXPECT_TRUE(ReminderShown());
}

TEST_F(AgeingTest, AFailureToReadSkipsTheReminder) {
    host.platform.Component("QOREBCBASE.UserProfile").Raises("Load", Error(-5, "profile", "broken"));
    EXPECT_FALSE(ReminderShown());
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(true));
}

TEST_F(AgeingTest, AFailureToRememberEndsTheFilterWithEverythingAsItWas) {
    RememberReminder("0");
    host.platform.Component("QOREBCBASE.UserProfile").Raises("Save", Error(-5, "profile", "broken"));
    bool opened = false;
    host.InDialog([&](Form&) { opened = true; });
    EXPECT_TRUE(ReminderShown());
    EXPECT_FALSE(opened);
    EXPECT_EQ(Result(), "{OK: False, Error: \"\"}");
    EXPECT_TRUE(report->Get("Filter").IsNothing());
}

// From the dialog to the filter.

TEST_F(AgeingTest, AConfirmedDialogIsTheFilter) {
    EXPECT_TRUE(report->Call("ShowFilter").IsEmpty());
    EXPECT_EQ(Shown(report->Get("Filter")),
              "{EDate: \"2020-09-15\", BSupplyNumber: \"\", ESupplyNumber: \"\", cmbClassType: \"0\", "
              "chkRPOher: \"1\", grid: \"1至30天,30,0|31至60天,60,31|61至90天,90,61|91天以上,......,91\", "
              "Vect: <QRB.Vector>, UserID: 16, OK: True}");
    EXPECT_EQ(Result(), "{OK: True, Error: \"\"}");
}

TEST_F(AgeingTest, ACancelledDialogLeavesTheFilterAndTheMessage) {
    report->Put("Filter", Value::Nothing());
    host.InDialog([](Form& dialog) { test::Person(dialog).Click("cmdCacel"); });
    report->Call("ShowFilter");
    EXPECT_EQ(Result(), "{OK: False, Error: \"请选择过滤条件！\"}");
    EXPECT_TRUE(report->Get("Filter").IsNothing());
    EXPECT_THAT(Fetch(), IsEmpty());
}

// The fetch.

TEST_F(AgeingTest, AFetchAsksForNoAccessAndNoLongNumber) {
    report->Call("ShowFilter");
    const std::string sent = Shown(report->Get("Filter"));
    EXPECT_THAT(Fetch(),
                ElementsAre("pump", "pump",  // ahead of the run, and the first message
                            "create QOREBSBase.SecurityInfo",
                            "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                            "release QOREBSBase.SecurityInfo", "create QORMArApRpt.Data10530", "pump",
                            "pump",  // the bar goes, the second message comes
                            "call QORMArApRpt.Data10530.GetRpt10530Data(\"UserID=16;UserName=demo;\", &" +
                                sent.substr(0, sent.size() - 1) + ", DataRightWhere: \"\"})",
                            "release QORMArApRpt.Data10530", "pump", "pump", "pump"));
    EXPECT_EQ(Result(), "{OK: True, Error: \"\", RptTitleObject: {}}");
    EXPECT_TRUE(report->Get("Title").IsNothing());
    EXPECT_EQ(ObjectIn(report->Get("Rs")).ClassName(), "ADODB.Recordset");
}

TEST_F(AgeingTest, EveryAgeGroupIsAColumn) {
    report->Call("ShowFilter");
    Fetch();
    EXPECT_THAT(Columns(*report), ElementsAre("\"往来单位代码$\" \"\" \"1\" \"FItemNumber\" int16(1) False",
                                              "\"往来单位名称$\" \"\" \"1\" \"FItemName\" int16(1) False",
                                              "\"金额$\" \"\" \"6\" \"FAmount\" int16(1) False",
                                              "\"1至30天$\" \"\" \"6\" \"F29\" int16(1) False",
                                              "\"31至60天$\" \"\" \"6\" \"F59\" int16(1) False",
                                              "\"61至90天$\" \"\" \"6\" \"F89\" int16(1) False",
                                              "\"91天以上$\" \"\" \"6\" \"FMaxCol\" int16(1) False"));
    EXPECT_FALSE(host.process.currentColumnList);
}

TEST_F(AgeingTest, TheColumnsFollowTheFilterAtEveryFetch) {
    const Ref<Vector> groups = MakeRef<ArrayVector>();
    const Ref<Dictionary> filter = Filter({{"cmbClassType", "0"}, {"Vect", groups}});
    report->Put("Filter", filter);
    report->Call("Refresh");
    EXPECT_EQ(Columns(*report).size(), 3u);

    groups->Add(Group("a", 29.0));
    groups->Add(Group("b", ""));
    groups->Add(Group("c", Value::Null()));
    groups->Add(Group("d", "MaxCol"));
    report->Call("Refresh");
    const Log columns = Columns(*report);
    EXPECT_THAT(
        Log(columns.begin() + 3, columns.end()),
        ElementsAre("\"a$\" \"\" \"6\" \"F29\" int16(1) False", "\"b$\" \"\" \"6\" \"F\" int16(1) False",
                    "\"c$\" \"\" \"6\" \"F\" int16(1) False",
                    "\"d$\" \"\" \"6\" \"FMaxCol\" int16(1) False"));

    report->Put("Filter", Filter({{"cmbClassType", "0"}}));
    report->Call("Refresh");
    EXPECT_EQ(Columns(*report).size(), 3u);
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(true));
}

TEST_F(AgeingTest, TheDataRightFollowsTheParty) {
    host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    constexpr const char* kClause = "\" (CharIndex('16',B.FRightUserID)>0 OR ISNULL(B.FItemID,0)=0) \"";
    struct Case {
        Value party;
        const char* rights;
        const char* clause;
    };
    for (const Case& c : {Case{"0", "1", kClause}, Case{"0", "8", "\"\""}, Case{"", "1", kClause},
                          Case{Value(), "1", kClause}, Case{"x", "1", kClause}, Case{"1", "8", kClause},
                          Case{"1", "1", "\"\""}, Case{"-1", "8", kClause}, Case{2, "8", kClause}}) {
        host.platform.Bag().Put("AuthrizeItemClassList", c.rights);
        report->Put("Filter", Filter({{"cmbClassType", c.party}}));
        report->Call("Refresh");
        EXPECT_EQ(Shown(Entry(*report, "Filter", "DataRightWhere")), c.clause)
            << Shown(c.party) << " with " << c.rights;
    }
}

TEST_F(AgeingTest, AReplacedFilterIsKept) {
    const Ref<Dictionary> replacement = Filter({{"from", "server"}});
    Data().Answers("GetRpt10530Data", [&](Arguments a) {
        *a[1] = replacement;
        return Value::Nothing();
    });
    report->Call("ShowFilter");
    Fetch();
    EXPECT_EQ(Shown(report->Get("Filter")), "{from: \"server\"}");
}

// Failures.

TEST_F(AgeingTest, AFailedFetchKeepsTheDataWritesNoSourceAndReleasesTheComponentLast) {
    report->Call("ShowFilter");
    Fetch();
    const Value before = report->Get("Rs");
    Data().Raises("GetRpt10530Data", Error(-7, "server", "no such period"));
    const Log log = Fetch();
    EXPECT_THAT(Log(log.end() - 4, log.end()),
                ElementsAre("pump", "pump", "pump", "release QORMArApRpt.Data10530"));
    EXPECT_EQ(Result(), "{OK: False, Error: \"no such period\", RptTitleObject: {}}");
    EXPECT_EQ(report->Get("Rs"), before);
    EXPECT_FALSE(before.IsNothing());
}

TEST_F(AgeingTest, WithoutAFilterTheFixedColumnsStandAndTheFetchFails) {
    report->Call("Refresh");
    EXPECT_EQ(Columns(*report).size(), 3u);
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(false));
    EXPECT_NE(ToText(Entry(*report, "Result", "Error")), "");
    EXPECT_EQ(Keys(report->Get("Result")), "OK Error");
}

TEST_F(AgeingTest, AFilterWithSomethingElseForGroupsFailsInTheResult) {
    const Ref<Vector> notGroups = MakeRef<ArrayVector>();
    notGroups->Add("text");
    for (const Value& vect : {Value("text"), Value(notGroups), Value(7)}) {
        report->Put("Filter", Filter({{"cmbClassType", "0"}, {"Vect", vect}}));
        report->Call("Refresh");
        EXPECT_EQ(Entry(*report, "Result", "OK"), Value(false)) << Shown(vect);
    }
}

TEST_F(AgeingTest, AMissingComponentFailsInTheResult) {
    report->Call("ShowFilter");
    host.platform.makeClass = nullptr;
    host.platform.Remove("QORMArApRpt.Data10530");
    Fetch();
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(false));
    EXPECT_FALSE(ToText(Entry(*report, "Result", "Error")).empty());
}

}  // namespace
}  // namespace qor
