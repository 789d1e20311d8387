#include "reports/income/category_summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/income/category_summary_twins.h"

namespace qor {
namespace {

using test::Columns;
using test::Entry;
using test::Keys;
using test::Log;
using test::Shown;
using testing::ElementsAre;
using testing::HasSubstr;

class CategorySummary : public test::SummaryTest {
 protected:
    std::string DataMember() const { return "Get" + GetParam().reportClass + "Data"; }
    /// A filter as a host makes it, by hand.
    Ref<Dictionary> HostFilter(std::initializer_list<std::pair<std::string_view, Value>> entries) {
        const Ref<Dictionary> filter = host.platform.NewDictionary();
        for (const auto& [key, value] : entries) {
            filter->Put(key, value);
        }
        return filter;
    }
    /// A run with a host's filter.
    void RunWith(const Ref<Dictionary>& filter) {
        report = host.Create(GetParam().reportClass);
        report->Put("Filter", filter);
        report->Call("GetReportData");
    }
    std::string Level(int level) const {
        const std::string number = std::to_string(level);
        return "\"" + GetParam().level + number + "级$\" \"\" \"1\" \"FTypeName" + number +
               "\" int16(1) False";
    }
    /// The amounts behind the levels.
    Log Amounts(bool appType1) const {
        const std::string hidden = appType1 ? "True" : "False";
        return {"\"" + GetParam().receive + "\" \"\" \"6\" \"FReceiveAmount\" int16(0) " + hidden,
                "\"" + GetParam().settle + "\" \"\" \"6\" \"FSettleAmount\" int16(" + (appType1 ? "1" : "0") +
                    ") False",
                "\"总金额$\" \"\" \"6\" \"FAmount\" int16(1) " + hidden};
    }
    static Log Joined(Log columns, const Log& more) {
        columns.insert(columns.end(), more.begin(), more.end());
        return columns;
    }
    Log Title() {
        Log rows;
        const Ref<Vector> title = As<Vector>(report->Get("Title"));
        for (std::int32_t i = 1; title && i <= title->Count(); ++i) {
            rows.push_back(Shown(title->Item(i)));
        }
        return rows;
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, CategorySummary, testing::ValuesIn(test::kSummaryTwins),
                         [](const auto& twin) { return twin.param.reportClass; });

TEST_P(CategorySummary, SaysWhatItIs) {
    report = host.Create(GetParam().reportClass);
    EXPECT_EQ(Shown(report->Get("Property")), "{Name: \"" + GetParam().name +
                                                  "\", RptProperty: int16(2), DetailRptID: int16(" +
                                                  GetParam().detailClass.substr(3) + ")}");
    EXPECT_NE(report->FindMember("GetDetailReport"), kNoMember);
    EXPECT_EQ(report->FindMember("AddDataRight"), kNoMember);
}

TEST_P(CategorySummary, OneColumnALevel) {
    RunWith(HostFilter({{GetParam().groupKey, "0"}, {"BLevel", "2"}, {"ELevel", "3"}}));
    EXPECT_EQ(Columns(*report), Joined({Level(2), Level(3)}, Amounts(false)));
}

TEST_P(CategorySummary, SummedByPartyThePartyComesFirst) {
    RunWith(HostFilter({{GetParam().groupKey, "1"}, {"BLevel", "1"}, {"ELevel", "1"}}));
    EXPECT_EQ(Columns(*report),
              Joined({GetParam().partyNumber, GetParam().partyName, Level(1)}, Amounts(false)));
}

TEST_P(CategorySummary, ABeginLevelAboveTheEndLevelLeavesTheAmounts) {
    RunWith(HostFilter({{GetParam().groupKey, "0"}, {"BLevel", "3"}, {"ELevel", "2"}}));
    EXPECT_EQ(Columns(*report), Amounts(false));
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(true));
}

TEST_P(CategorySummary, TheAmountsFollowTheApplicationType) {
    host.platform.Bag().Put("AppType", 1);
    RunWith(HostFilter({{GetParam().groupKey, "0"}, {"BLevel", "1"}, {"ELevel", "1"}}));
    EXPECT_EQ(Columns(*report), Joined({Level(1)}, Amounts(true)));
}

TEST_P(CategorySummary, ARefreshLeavesTheNewColumnsAlone) {
    const Ref<Dictionary> filter = HostFilter({{GetParam().groupKey, "1"}, {"BLevel", "1"}, {"ELevel", "3"}});
    RunWith(filter);
    filter->Put(GetParam().groupKey, "0");
    filter->Put("ELevel", "1");
    report->Call("Refresh");
    EXPECT_EQ(Columns(*report), Joined({Level(1)}, Amounts(false)));
}

TEST_P(CategorySummary, ALevelThatIsNoNumberFailsTheFetch) {
    RunWith(HostFilter({{GetParam().groupKey, "0"}, {"BLevel", "first"}, {"ELevel", "1"}}));
    EXPECT_EQ(Entry(*report, "Result", "OK"), Value(false));
    EXPECT_EQ(Entry(*report, "Result", "Error"), Value(Describe(Automation::TypeMismatch)));
    EXPECT_TRUE(report->Get("Rs").IsNothing());
}

// The title.

struct Caption {
    std::string_view beginType, endType, beginLevel, endLevel;
    std::string_view types, levels;  // behind their labels
};

constexpr Caption kCaptions[] = {
    {"", "", "1", "2", "所有", "1  --  2 级"},     {"01", "", "1", "1", "01  --  ", "1  --  1 级"},
    {"", "09", "", "3", "  --  09", "  --  3 级"}, {"01", "09", "2", "", "01  --  09", "2  --   级"},
    {" ", "", "", "", "   --  ", "所有"},
};

TEST_P(CategorySummary, MakesItsOwnCaptions) {
    for (const Caption& row : kCaptions) {
        RunWith(HostFilter({{"DtpBDate", "2020-09-01"},
                            {"DtpEDate", "2020-09-15"},
                            {"BTypeIn", row.beginType},
                            {"ETypeIn", row.endType},
                            {"BLevel", row.beginLevel},
                            {"ELevel", row.endLevel}}));
        EXPECT_THAT(Title(), ElementsAre("{FCaption: \"起始日期：2020/09/01\", FIndex: int16(0)}",
                                         "{FCaption: \"截止日期：2020/09/15\", FIndex: int16(1)}",
                                         "{FCaption: \"" + GetParam().typeRange + std::string(row.types) +
                                             "\", FIndex: int16(2)}",
                                         "{FCaption: \"类别级次：" + std::string(row.levels) +
                                             "\", FIndex: int16(3)}"));
        EXPECT_EQ(Entry(*report, "Property", "ShowInPreview"), Value())
            << "these are not the common captions";
    }
}

TEST_P(CategorySummary, DatesAreWrittenWithSlashesWhateverTheyComeAs) {
    for (const Value& date : {Value("2020-09-01"), Value("2020/9/1 10:30"), Value(ToDate("2020-09-01")),
                              Value(ToDate("2020-09-01 18:00:00")), Value(44075)}) {
        RunWith(HostFilter({{"DtpBDate", date}}));
        EXPECT_EQ(Title().at(0), "{FCaption: \"起始日期：2020/09/01\", FIndex: int16(0)}") << Shown(date);
    }
}

TEST_P(CategorySummary, WhatIsNoDateStandsAsItIs) {
    RunWith(HostFilter({{"DtpBDate", "月初"}}));
    EXPECT_EQ(Title().at(0), "{FCaption: \"起始日期：月初\", FIndex: int16(0)}");
    EXPECT_EQ(Title().at(1), "{FCaption: \"截止日期：\", FIndex: int16(1)}");
}

TEST_P(CategorySummary, TheIncomeSummaryNamesItsBeginDateAfterTheEndDate) {
    RunWith(HostFilter({{"DtpBDate", "2020-09-01"}, {"DtpEDate", "2020-09-15"}}));
    EXPECT_EQ(Shown(Entry(*report, "Result", "RptTitleObject")),
              "{ShowDateDiff: \"" + GetParam().beginDateName + ",2020-09-01|DtpEDate,2020-09-15\"}");
}

// The fetch.

TEST_P(CategorySummary, TheRightsAreAddedWhenTheComponentStands) {
    Filter(ConfirmAtOnce);
    EXPECT_THAT(ServerLogOf([this] { report->Call("GetReportData"); }),
                ElementsAre("call QOREBCGLView.GLData.AccessCheck(int16(1006), int16(2), int16(4))",
                            "create QORMArApRpt.Data", "create QOREBSBase.SecurityInfo",
                            "call QOREBSBase.SecurityInfo.NeedAutorized(\"UserID=16;UserName=demo;\")",
                            "release QOREBSBase.SecurityInfo",
                            HasSubstr("call QORMArApRpt.Data." + DataMember() +
                                      "(\"UserID=16;UserName=demo;\", &{DtpBDate: "),
                            "release QORMArApRpt.Data"));
    EXPECT_THAT(Keys(report->Get("Filter")), testing::EndsWith("UserID OK DataRightWhere bLongNumber"));
}

TEST_P(CategorySummary, BothAreLimitedByTheRightsToCustomers) {
    host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    const auto clauseFor = [this](std::string_view classes) {
        host.platform.Bag().Put("AuthrizeItemClassList", std::string(classes));
        Filter(ConfirmAtOnce);
        report->Call("GetReportData");
        return Entry(*report, "Filter", "DataRightWhere");
    };
    EXPECT_EQ(clauseFor("1"), Value(" (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) "));
    EXPECT_EQ(clauseFor("8"), Value(""));
}

}  // namespace
}  // namespace qor
