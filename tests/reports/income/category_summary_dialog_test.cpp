#include "reports/income/category_summary_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/income/category_summary_twins.h"

namespace qor {
namespace {

using test::Entry;
using test::Keys;
using test::Log;
using test::Person;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

class CategorySummaryDialogTest : public test::SummaryTest {
 protected:
    static std::string Levels(Person& user) {
        return user.Reads("txtlevel1") + "-" + user.Reads("txtlevel2");
    }
    void SchemeHolds(std::vector<SchemeItem> items) { host.schemes.Save(number(), "常用", items); }
};

INSTANTIATE_TEST_SUITE_P(Twins, CategorySummaryDialogTest, testing::ValuesIn(test::kSummaryTwins),
                         [](const auto& twin) { return twin.param.reportClass; });

TEST_P(CategorySummaryDialogTest, NamesItsControls) {
    Filter([](Person& user) {
        EXPECT_EQ(user.form().ClassName(), GetParam().dialog);
        EXPECT_EQ(user.Caption("Label4"), GetParam().typeCaption);
        EXPECT_EQ(user.Caption("Label9"), "至: ");
        EXPECT_EQ(user.Caption("Label7"), "类别级次:");
        EXPECT_EQ(user.Caption("Label6"), "至: ");
        EXPECT_EQ(user.Caption("lblStatus"), "单据状态:");
        EXPECT_EQ(user.Caption(GetParam().groupKey), GetParam().groupCaption);
        EXPECT_EQ(user.Caption("chkForbiddenTypeInclude"), GetParam().forbiddenCaption);
        EXPECT_EQ(user.Caption("chkIncludeOther"), GetParam().otherCaption);
        EXPECT_EQ(user.Caption("chkOccurNotZero"), "无发生额不显示");
        EXPECT_EQ(user.form().Find("txtItem(2)"), nullptr);
    });
}

TEST_P(CategorySummaryDialogTest, AsksForTheDeepestLevelBeforeItsFrameStarts) {
    LevelsAreDeep(4);
    NoteFrames();
    Log asked;
    host.platform.Component("QORMArApRpt.Data").Answers("GetItemMaxLevel", [&](Arguments arguments) -> Value {
        EXPECT_THAT(notes, IsEmpty());
        asked.push_back(Shown(*arguments[0]) + " " + Shown(*arguments[1]));
        return 4;
    });
    Filter([&](Person& user) {
        EXPECT_THAT(asked, ElementsAre("\"UserID=16;UserName=demo;\" int16(" +
                                       std::to_string(GetParam().typeClass) + ")"));
        user.form().Activate();
        EXPECT_EQ(asked.size(), 1u);
        EXPECT_EQ(Lines("QORMArApRpt.Data").front(), "create QORMArApRpt.Data");
        EXPECT_EQ(Lines("QORMArApRpt.Data").back(), "release QORMArApRpt.Data");
        for (const std::string_view spin : {"udBLevel", "udELevel"}) {
            EXPECT_EQ(test::ControlOf<Spin>(user.form(), spin).max(), 4) << spin;
        }
        EXPECT_EQ(notes.at(2), "InitScheme " + std::to_string(number()) + " " + GetParam().name);
    });
}

TEST_P(CategorySummaryDialogTest, WithoutADeepestLevelTheBoxesAcceptOnlyOne) {
    const auto acceptsOnlyOne = [this](std::string_view why) {
        Filter([&](Person& user) {
            EXPECT_EQ(test::ControlOf<Spin>(user.form(), "udBLevel").max(), 1) << why;
            EXPECT_EQ(test::ControlOf<Spin>(user.form(), "udELevel").max(), 1) << why;
            user.Text("txtlevel2", "3");
            EXPECT_EQ(Levels(user), "1-1") << why;
            EXPECT_EQ(user.Reads("cmbCheckState"), "0") << "the list is filled all the same";
            EXPECT_THAT(Lines("box "), IsEmpty()) << why;
        });
    };
    for (const Value& deepest : {Value(0), Value(1), Value("deep"), Value(70000), Value::Null(), Value()}) {
        LevelsAreDeep(deepest);
        acceptsOnlyOne(Shown(deepest));
    }
    host.platform.Component("QORMArApRpt.Data").Raises("GetItemMaxLevel", Error(-1, "Server", "down"));
    acceptsOnlyOne("a failing call");
    host.platform.Remove("QORMArApRpt.Data");
    acceptsOnlyOne("no server");
}

TEST_P(CategorySummaryDialogTest, ADeepestLevelMayComeAsText) {
    LevelsAreDeep("3");
    Filter([](Person& user) { EXPECT_EQ(test::ControlOf<Spin>(user.form(), "udELevel").max(), 3); });
}

TEST_P(CategorySummaryDialogTest, TheDefaultLevelsFollowTheApplicationType) {
    LevelsAreDeep(5);
    for (const std::int32_t appType : {1, 2, 4}) {
        host.platform.Bag().Put("AppType", appType);
        Filter([appType](Person& user) {
            EXPECT_EQ(Levels(user), appType == 1 ? "1-2" : "1-1") << appType;
            user.Text("txtlevel2", "4");
            user.Text("txtItem(1)", "09");
            user.Check(GetParam().groupKey, 1);
            user.Check("chkForbiddenTypeInclude", 1);
            user.Check("chkOccurNotZero", 0);
            user.frame().ShowDefaults();
            EXPECT_EQ(Levels(user), appType == 1 ? "1-2" : "1-1") << appType;
            EXPECT_EQ(user.Reads("txtItem(1)"), "");
            EXPECT_EQ(user.Reads(GetParam().groupKey), "0");
            EXPECT_EQ(user.Reads("chkForbiddenTypeInclude"), "0");
            EXPECT_EQ(user.Reads("chkIncludeOther"), "0");
            EXPECT_EQ(user.Reads("chkOccurNotZero"), "1");
            EXPECT_EQ(user.Reads("DtpBDate"), "2020-09-01");
            EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-15");
        });
    }
}

TEST_P(CategorySummaryDialogTest, ApplicationType1OverridesTheSchemesLevels) {
    LevelsAreDeep(5);
    host.platform.Bag().Put("AppType", 1);
    SchemeHolds({{"ELevel", "4"}, {"BLevel", "3"}, {"chkIncludeOther", "1"}});
    Filter([](Person& user) {
        EXPECT_EQ(Levels(user), "1-2");
        EXPECT_TRUE(user.Any("txtlevel1").enabled());
        EXPECT_TRUE(user.Sees("udBLevel"));
        EXPECT_TRUE(user.Sees("udELevel"));
        EXPECT_FALSE(user.Sees("chkIncludeOther"));
        EXPECT_EQ(user.Reads("chkIncludeOther"), "0");
        user.frame().LoadScheme("常用");
        EXPECT_EQ(user.Reads("txtlevel2"), "4") << "a scheme loaded later stands";
        EXPECT_EQ(user.Reads("chkIncludeOther"), "1");
        EXPECT_FALSE(user.Sees("chkIncludeOther"));
    });
}

TEST_P(CategorySummaryDialogTest, ApplicationType2OnlyTakesTheOtherBillsAway) {
    LevelsAreDeep(5);
    SchemeHolds({{"BLevel", "1"}, {"ELevel", "4"}, {"chkIncludeOther", "1"}});
    Filter([](Person& user) {
        EXPECT_EQ(Levels(user), "1-4");
        EXPECT_FALSE(user.Any("txtlevel1").enabled());
        EXPECT_FALSE(user.Text("txtlevel1", "2")) << "the begin level is not for typing";
        EXPECT_FALSE(user.Sees("chkIncludeOther"));
        EXPECT_EQ(user.Reads("chkIncludeOther"), "0");
    });
}

TEST_P(CategorySummaryDialogTest, OtherApplicationTypesKeepTheScheme) {
    LevelsAreDeep(5);
    host.platform.Bag().Put("AppType", 4);
    SchemeHolds({{"BLevel", "1"}, {"ELevel", "4"}, {"chkIncludeOther", "1"}});
    Filter([](Person& user) {
        EXPECT_EQ(Levels(user), "1-4");
        EXPECT_FALSE(user.Any("txtlevel1").enabled());
        EXPECT_TRUE(user.Sees("chkIncludeOther"));
        EXPECT_EQ(user.Reads("chkIncludeOther"), "1");
    });
}

TEST_P(CategorySummaryDialogTest, ASchemesLevelAboveTheMaximumIsCut) {
    LevelsAreDeep(3);
    SchemeHolds({{"ELevel", "9"}});
    Filter([](Person& user) { EXPECT_EQ(user.Reads("txtlevel2"), "3"); });
}

TEST_P(CategorySummaryDialogTest, ASchemeIsReadInTheOrderOfItsKeysSoAHighBeginLevelYields) {
    LevelsAreDeep(5);
    SchemeHolds({{"BLevel", "3"}, {"ELevel", "4"}});
    Filter([](Person& user) { EXPECT_EQ(Levels(user), "2-4") << "the end level was still 2"; });
}

TEST_P(CategorySummaryDialogTest, ThePickerOpensTheClassesSummed) {
    PickerAnswers("01.02");
    Filter([this](Person& user) {
        user.Click("cmdItem(1)");
        EXPECT_EQ(user.Reads("txtItem(1)"), "01.02");
        EXPECT_THAT(Lines("ItemLookUp(&" + std::to_string(GetParam().typeClass) + ","), testing::SizeIs(1));
    });
}

struct PickerKey {
    std::string_view box;
    std::string_view incomeFills, expenseFills;  // the code box that the picker fills; "" for none
};

constexpr PickerKey kPickerKeys[] = {
    {"txtItem(0)", "txtItem(0)", ""},
    {"txtItem(1)", "txtItem(1)", ""},
    {"txtlevel1", "", "txtItem(0)"},
    {"txtlevel2", "", "txtItem(1)"},
};

TEST_P(CategorySummaryDialogTest, F7AndF8OpenThePickerInTheCodeBoxesOrInTheLevelBoxes) {
    host.platform.Bag().Put("AppType", 1);
    PickerAnswers("01.02");
    Filter([](Person& user) {
        for (const PickerKey& row : kPickerKeys) {
            for (const std::int32_t code : {118, 119}) {
                user.Text("txtItem(0)", "");
                user.Text("txtItem(1)", "");
                user.Key(row.box, code);
                const auto fills = GetParam().reportClass == "Rpt10521" ? row.incomeFills : row.expenseFills;
                for (const std::string_view box : {"txtItem(0)", "txtItem(1)"}) {
                    EXPECT_EQ(user.Reads(box), box == fills ? "01.02" : "") << row.box << " " << code;
                }
            }
        }
    });
}

TEST_P(CategorySummaryDialogTest, HasNoNameList) {
    Filter([](Person& user) { user.Focus("txtItem(0)"); });
    EXPECT_THAT(Lines("QORGLNameListLib2"), IsEmpty());
}

TEST_P(CategorySummaryDialogTest, TheFilterHoldsEveryKeyInOrder) {
    Filter(ConfirmAtOnce);
    EXPECT_EQ(Keys(report->Get("Filter")), "DtpBDate DtpEDate BTypeIn ETypeIn BLevel ELevel " +
                                               GetParam().groupKey +
                                               " chkForbiddenTypeInclude chkIncludeOther chkOccurNotZero "
                                               "CheckState InvoiceStyle ShowTypeValue UserID OK");
    EXPECT_EQ(Entry(*report, "Filter", "BLevel"), Value("1"));
    EXPECT_EQ(Entry(*report, "Filter", "ELevel"), Value("1"));
    EXPECT_EQ(Entry(*report, "Filter", GetParam().groupKey), Value("0"));
    EXPECT_EQ(Entry(*report, "Filter", "chkOccurNotZero"), Value("1"));
    EXPECT_EQ(Entry(*report, "Filter", "InvoiceStyle"), Value(std::int16_t{0}));
    EXPECT_EQ(Entry(*report, "Filter", "CheckState"), Value(std::int16_t{0}));
    EXPECT_EQ(Entry(*report, "Filter", "UserID"), Value(16));
    EXPECT_EQ(Entry(*report, "Filter", "OK"), Value(true));
}

TEST_P(CategorySummaryDialogTest, TheTypeValueEndsWithABarWhereItIsSummedByParty) {
    for (const bool grouped : {false, true}) {
        Filter([grouped](Person& user) {
            user.Check(GetParam().groupKey, grouped ? 1 : 0);
            user.Click("cmdOK");
        });
        EXPECT_EQ(Entry(*report, "Filter", "ShowTypeValue"),
                  Value(GetParam().showType + (grouped ? "|" : "")));
        EXPECT_EQ(Entry(*report, "Filter", GetParam().groupKey), Value(grouped ? "1" : "0"));
    }
}

TEST_P(CategorySummaryDialogTest, OKFillsZeroLevelsBeforeItChecksTheDates) {
    LevelsAreDeep(5);
    SchemeHolds({{"DtpBDate", "2020-09-20"}, {"DtpEDate", "2020-09-10"}});
    Filter([this](Person& user) {
        auto& end = test::ControlOf<TextBox>(user.form(), "txtlevel2");
        end.onChange = nullptr;
        end.onValidate = nullptr;
        user.Text("txtlevel2", "0");
        user.Click("cmdOK");
        EXPECT_EQ(Levels(user), "1-2");
        EXPECT_THAT(Lines("box "), ElementsAre("box \"起始日期不能大于截止日期!\" \"信息提示：\" 64"));
        EXPECT_TRUE(user.form().IsVisible());
    });
}

TEST(CategorySummaryDialogLevels, ALowEndLevelPullsTheIncomesBeginDownAndIsHeldByTheExpenses) {
    const auto afterEndBecomesOne = [](std::string_view reportClass) {
        test::ReportHost host;
        host.platform.Component("QORMArApRpt.Data").Answers("GetItemMaxLevel", 5);
        host.platform.Bag().Put("AppType", 1);
        std::string levels;
        host.InDialog([&levels](Form& form) {
            Person user(form);
            user.Text("txtlevel2", "4");
            user.Text("txtlevel1", "3");
            user.Text("txtlevel2", "1");
            levels = user.Reads("txtlevel1") + "-" + user.Reads("txtlevel2");
        });
        host.Create(reportClass)->Call("ShowFilter");
        return levels;
    };
    EXPECT_EQ(afterEndBecomesOne("Rpt10521"), "1-1");
    EXPECT_EQ(afterEndBecomesOne("Rpt10523"), "3-3");
}

}  // namespace
}  // namespace qor
