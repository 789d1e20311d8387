#include "dialogs/plain_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/plain_dialog_fixture.h"

namespace qor {
namespace {

using test::Confirm;
using test::Person;
using test::PlainDialogTest;
using test::Shown;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PlainDialogTest, ComesUpWithItsCaptionsAndCheckStates) {
    Filter([](Person& user) {
        EXPECT_EQ(user.form().ClassName(), "frmFilter10522");
        EXPECT_EQ(user.form().caption(), "过滤");
        EXPECT_EQ(user.Caption("cmdOK"), "确定(&O)");
        EXPECT_EQ(user.Caption("cmdCacel"), "取消(&E)");
        EXPECT_EQ(user.Caption("Label1"), "起始日期:");
        EXPECT_EQ(user.Caption("Label2"), "截至日期:");
        EXPECT_EQ(user.Caption("lblStatus"), "单据状态:");
        EXPECT_THAT(test::ControlOf<DropDown>(user.form(), "cmbCheckState").items(),
                    ElementsAre("已审核", "未审核", "全部"));
        EXPECT_EQ(user.Any("DtpBDate").container()->name(), "fraPeriod");
        EXPECT_EQ(user.Any("cmlISIC").kind(), Control::Kind::Inert);
    });
}

TEST_F(PlainDialogTest, StartsItsFrameAtTheFirstActivation) {
    NoteFrames();
    Filter([this](Person&) {
        ASSERT_GE(notes.size(), 3u);
        EXPECT_EQ(notes[0], "SchemeOption 1 False");
        EXPECT_EQ(notes[1], "SchemeOption 2 False");
        EXPECT_EQ(notes[2], "InitScheme 10522 收入类别明细表");
    });
}

TEST_F(PlainDialogTest, TheFrameStartsUnderTheIdentifierThatTheHostGave) {
    NoteFrames();
    const auto started = [this](std::string_view identifier) {
        notes.clear();
        report = host.Create("Rpt10522");
        report->Put("ExtFirter", identifier);
        report->Call("ShowFilter");
        return notes.at(2);
    };
    EXPECT_EQ(started("10999"), "InitScheme 10999 收入类别明细表");
    EXPECT_EQ(started("10522abc"), "InitScheme 10522 收入类别明细表");
    EXPECT_EQ(started(""), "InitScheme 0 收入类别明细表");
}

TEST_F(PlainDialogTest, ASecondActivationChangesNothing) {
    NoteFrames();
    Filter([this](Person& user) {
        user.Select("cmbCheckState", 2);
        user.form().SetCaption("其他");
        notes.clear();
        user.form().Activate();
        EXPECT_THAT(notes, IsEmpty());
        EXPECT_EQ(user.Reads("cmbCheckState"), "2");
        EXPECT_EQ(user.form().caption(), "其他");
    });
}

TEST_F(PlainDialogTest, AFailingSchemeOptionIsToldAndTheDialogComesUp) {
    NoteFrames(true);
    Filter([this](Person&) {
        EXPECT_THAT(notes, Contains("InitScheme 10522 收入类别明细表"));
        EXPECT_THAT(Lines("box "), ElementsAre("box \"没有这个选项\" \"\" 0"));
    });
}

TEST_F(PlainDialogTest, ResultSaysNotConfirmedFromLoadOn) {
    Filter([](Person& user) { EXPECT_EQ(ResultOf(user), "{OK: False}"); });
}

TEST_F(PlainDialogTest, CancelLeavesFilterAndErrorAsTheyWere) {
    Filter([](Person& user) {
        EXPECT_TRUE(user.Click("cmdCacel"));
        EXPECT_FALSE(user.form().IsVisible());
        EXPECT_TRUE(user.form().IsLoaded()) << "the report unloads it";
        EXPECT_EQ(ResultOf(user), "{OK: False}");
    });
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: False, Error: \"\"}");
    EXPECT_TRUE(report->Get("Filter").IsNothing());
}

TEST_F(PlainDialogTest, EscapeCancels) {
    Filter([](Person& user) {
        user.Key("txtItem(0)", 27);
        EXPECT_FALSE(user.form().IsVisible());
        EXPECT_EQ(ResultOf(user), "{OK: False}");
    });
    EXPECT_EQ(test::Entry(*report, "Result", "OK"), Value(false));
}

TEST_F(PlainDialogTest, TheReportUnloadsTheDialog) {
    Ref<Form> dialog;
    Filter([&](Person& user) {
        dialog = Ref<Form>(&user.form());
        user.Click("cmdOK");
        EXPECT_FALSE(user.form().IsVisible());
        EXPECT_TRUE(user.form().IsLoaded());
    });
    EXPECT_FALSE(dialog->IsLoaded());
}

TEST_F(PlainDialogTest, EnterMovesToTheNextControlAndConfirmsNothing) {
    Filter([](Person& user) {
        user.Key("txtItem(0)", 13);
        EXPECT_EQ(user.FocusedControl(), "cmdItem(0)");
        user.Type("txtItem(0)", "01\r02");
        EXPECT_EQ(user.Reads("txtItem(0)"), "01");
        user.Key("cmdOK", 13);
        EXPECT_EQ(user.FocusedControl(), "cmdCacel");
        EXPECT_TRUE(user.form().IsVisible());
        EXPECT_EQ(ResultOf(user), "{OK: False}");
    });
}

TEST_F(PlainDialogTest, NoApostropheCanBeTyped) {
    Filter([](Person& user) {
        user.Type("txtItem(2)", "0'1' or ''='");
        EXPECT_EQ(user.Reads("txtItem(2)"), "01 or =");
        user.Key("txtItem(2)", 222);
        EXPECT_EQ(user.Reads("txtItem(2)"), "01 or =");
    });
}

TEST_F(PlainDialogTest, AWrongDateOrderKeepsTheDialogOpen) {
    host.schemes.Save(10522, "反", {{"DtpBDate", "2020-09-20"}, {"DtpEDate", "2020-09-10"}});
    Filter([this](Person& user) {
        user.Click("cmdOK");
        EXPECT_THAT(Lines("box "), ElementsAre("box \"起始日期不能大于截止日期!\" \"信息提示：\" 64"));
        EXPECT_EQ(user.Reads("DtpBDate"), "2020-09-10");
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-10");
        EXPECT_TRUE(user.form().IsVisible());
        EXPECT_EQ(ResultOf(user), "{OK: False}");
        user.Click("cmdCacel");
    });
    EXPECT_EQ(test::Entry(*report, "Result", "OK"), Value(false));
}

TEST_F(PlainDialogTest, TheCorrectedDatesAreConfirmedByTheNextOK) {
    host.schemes.Save(10522, "反", {{"DtpBDate", "2020-09-20"}, {"DtpEDate", "2020-09-10"}});
    Filter([](Person& user) {
        user.Click("cmdOK");
        user.Click("cmdOK");
        EXPECT_FALSE(user.form().IsVisible());
    });
    EXPECT_EQ(test::Entry(*report, "Filter", "DtpBDate"), Value("2020-09-10"));
}

TEST_F(PlainDialogTest, EqualDatesPass) {
    Filter([](Person& user) {
        user.Date("DtpBDate", "2020-09-15");
        user.Click("cmdOK");
        EXPECT_FALSE(user.form().IsVisible());
    });
    EXPECT_THAT(Lines("box "), IsEmpty());
    EXPECT_EQ(test::Entry(*report, "Result", "OK"), Value(true));
}

TEST_F(PlainDialogTest, TheTimeOfDayPlaysNoPartInTheDateOrder) {
    host.schemes.Save(10522, "同日",
                      {{"DtpBDate", "2020-09-15 18:00:00"}, {"DtpEDate", "2020-09-15 09:00:00"}});
    Filter([](Person& user) { user.Click("cmdOK"); });
    EXPECT_THAT(Lines("box "), IsEmpty());
    EXPECT_EQ(test::Entry(*report, "Filter", "DtpBDate"), Value("2020-09-15 18:00:00"));
}

TEST_F(PlainDialogTest, TheGuardTakesAnOKBackWhileItCorrectsADate) {
    Filter([this](Person& user) {
        user.Date("DtpBDate", "2020-09-20");
        EXPECT_FALSE(user.Click("cmdOK"));
        EXPECT_EQ(user.FocusedControl(), "DtpBDate");
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-20");
        EXPECT_THAT(Lines("box "), ElementsAre("box \"[起始日期]不能大于[截至日期]。\" \"\" 64"));
        EXPECT_TRUE(user.Click("cmdOK"));
    });
    EXPECT_EQ(test::Entry(*report, "Filter", "DtpEDate"), Value("2020-09-20"));
}

TEST_F(PlainDialogTest, TheUserIsTheOneOfTheSessionAtOK) {
    Filter([this](Person& user) {
        host.platform.session["PropsString"] = "UserName=other;UserID=42;";
        user.Click("cmdOK");
    });
    EXPECT_EQ(test::Entry(*report, "Filter", "UserID"), Value(42));
}

TEST_F(PlainDialogTest, EveryConfirmationHandsOverANewDictionary) {
    report = host.Create("Rpt10522");
    host.InDialog(Confirm);
    report->Call("ShowFilter");
    const Value first = report->Get("Filter");
    report->Call("ShowFilter");
    EXPECT_NE(first.object(), report->Get("Filter").object());
}

TEST_F(PlainDialogTest, ASessionWithoutAUserEndsTheFilterWithEverythingAsItWas) {
    host.platform.session["PropsString"] = "UserName=demo;";
    Filter([](Person& user) { user.Click("cmdOK"); });
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: False, Error: \"\"}");
    EXPECT_TRUE(report->Get("Filter").IsNothing());
}

TEST_F(PlainDialogTest, ApplicationType1HidesTheCheckStateAndStillSendsIt) {
    host.platform.Bag().Put("AppType", 1);
    for (const std::string_view reportClass : {"Rpt10521", "Rpt10522", "Rpt10523", "Rpt10524"}) {
        host.schemes.Save(ToInt32(reportClass.substr(3)), "旧", {{"CheckState", "2"}});
        Filter(reportClass, [](Person& user) {
            EXPECT_FALSE(user.Sees("lblStatus"));
            EXPECT_FALSE(user.Sees("cmbCheckState"));
            user.Click("cmdOK");
        });
        EXPECT_EQ(test::Entry(*report, "Filter", "CheckState"), Value(std::int16_t{2})) << reportClass;
    }
}

TEST_F(PlainDialogTest, OtherApplicationTypesShowTheCheckState) {
    for (const std::int32_t appType : {2, 3, 4}) {
        host.platform.Bag().Put("AppType", appType);
        Filter([appType](Person& user) {
            EXPECT_TRUE(user.Sees("lblStatus")) << appType;
            EXPECT_TRUE(user.Sees("cmbCheckState")) << appType;
        });
    }
}

}  // namespace
}  // namespace qor
