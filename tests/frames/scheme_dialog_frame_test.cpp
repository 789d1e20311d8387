#include <gmock/gmock.h>

#include "frames/failing_store.h"
#include "frames/scheme_frame_fixture.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::ErrorOf;
using test::SchemeFrameTest;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

// How it begins.

TEST_F(SchemeFrameTest, WithoutASchemeTheDefaultsComeUpOnTheWholePanel) {
    EXPECT_TRUE(dialog.frame.BeginShow());
    EXPECT_THAT(form.events, ElementsAre("whole", "defaults"));
    EXPECT_EQ(form.OnPanel(), "as made as made 1");
    EXPECT_FALSE(dialog.frame.CurrentScheme());
}

TEST_F(SchemeFrameTest, TheLastUsedSchemeComesUp) {
    store.Save(10502, "甲", {{"BCustNumber", "c1"}, {"NotShowBalZero", std::int16_t{1}}});
    EXPECT_TRUE(dialog.frame.BeginShow());
    EXPECT_EQ(form.OnPanel(), "c1  1");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "甲");
    EXPECT_THAT(dialog.frame.SchemeNames(), ElementsAre("甲"));
}

TEST_F(SchemeFrameTest, AHandedSchemeGoesBeforeASavedOne) {
    store.Save(10502, "甲", {{"BCustNumber", "c1"}});
    dialog.frame.LoadScheme(Filter());
    EXPECT_TRUE(dialog.frame.BeginShow());
    EXPECT_EQ(form.OnPanel(), "01.001  1");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "");
    EXPECT_THAT(dialog.frame.SchemeNames(), ElementsAre("甲"));
}

TEST_F(SchemeFrameTest, ALaterShowLeavesThePanelsAlone) {
    dialog.frame.BeginShow();
    dialog.frame.SwitchPanel(false);
    form.common = "typed";
    form.events.clear();
    EXPECT_TRUE(dialog.frame.BeginShow());
    EXPECT_THAT(form.events, IsEmpty());
    EXPECT_EQ(form.common, "typed");
}

TEST_F(SchemeFrameTest, AStoreThatFailsIsToldOnceAndTheDefaultsComeUp) {
    test::FailingStore failing;
    Dialog troubled(platform, failing);
    EXPECT_TRUE(troubled.frame.BeginShow());
    EXPECT_THAT(troubled.form.events, ElementsAre("whole", "defaults"));
    ASSERT_EQ(platform.windows().boxes.size(), 1u);
    EXPECT_EQ(platform.windows().boxes[0].text, "方案文件坏了");
    EXPECT_EQ(platform.windows().boxes[0].title, "信息提示");
    troubled.frame.Confirm();
    EXPECT_EQ(Shown(troubled.form.result),
              R"({BCustNumber: "as made", BDeptNumber: "as made", NotShowBalZero: int16(1)})");
}

// How it ends.

TEST_F(SchemeFrameTest, OkGathersThePanelAndCloses) {
    dialog.frame.BeginShow();
    form.customer = "c2";
    form.events.clear();
    dialog.frame.Confirm();
    EXPECT_THAT(form.events, ElementsAre("closing 0", "close"));
    EXPECT_EQ(Shown(form.result), R"({BCustNumber: "c2", BDeptNumber: "as made", NotShowBalZero: int16(1)})");
}

TEST_F(SchemeFrameTest, OkOnTheShortPanelLaysItsKeysOverTheWholePanels) {
    dialog.frame.BeginShow();
    form.department = "d1";
    dialog.frame.SwitchPanel(false);
    form.common = "short";
    dialog.frame.Confirm();
    EXPECT_EQ(Shown(form.result), R"({BCustNumber: "short", BDeptNumber: "d1", NotShowBalZero: int16(1)})");
}

TEST_F(SchemeFrameTest, EachConfirmationIsANewDictionary) {
    dialog.frame.BeginShow();
    dialog.frame.Confirm();
    const Ref<Dictionary> first = form.result;
    first->Put("OK", true);
    dialog.frame.BeginShow();
    dialog.frame.Confirm();
    EXPECT_NE(form.result, first);
    EXPECT_FALSE(form.result->Lookup("OK"));
}

TEST_F(SchemeFrameTest, CancelClosesAndConfirmsNothing) {
    dialog.frame.BeginShow();
    dialog.frame.Confirm();
    const Ref<Dictionary> confirmed = dialog.frame.CurrentScheme();
    form.customer = "typed";
    form.events.clear();
    dialog.frame.Cancel();
    EXPECT_THAT(form.events, ElementsAre("closing 1", "close"));
    EXPECT_EQ(dialog.frame.CurrentScheme(), confirmed);
}

// Confirmed without being shown.

TEST_F(SchemeFrameTest, AHandedFilterFillsThePanelAndIsConfirmedAsADialogWritesIt) {
    const Ref<Dictionary> handed = Filter();
    dialog.autoFilter = -2;
    dialog.frame.LoadScheme(handed);
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_THAT(form.events, ElementsAre("whole", "to panel", "closing 0", "close"));
    EXPECT_EQ(Shown(form.result), R"({BCustNumber: "01.001", BDeptNumber: "", NotShowBalZero: int16(1)})");
    EXPECT_NE(form.result, handed);
}

TEST_F(SchemeFrameTest, TheLinkIsReadAnewAtEveryShowAndThePanelIsWhatCounts) {
    dialog.autoFilter = -2;
    dialog.frame.LoadScheme(Filter());
    EXPECT_FALSE(dialog.frame.BeginShow());
    dialog.autoFilter = -1;
    EXPECT_TRUE(dialog.frame.BeginShow());
    form.customer = "c3";
    dialog.frame.Confirm();
    dialog.autoFilter = -2;
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_EQ(ToText(form.result->Get("BCustNumber")), "c3");
}

TEST_F(SchemeFrameTest, WithNothingHandedThePanelIsConfirmed) {
    dialog.autoFilter = -2;
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_THAT(form.events, ElementsAre("whole", "defaults", "closing 0", "close"));
    EXPECT_EQ(Shown(form.result),
              R"({BCustNumber: "as made", BDeptNumber: "as made", NotShowBalZero: int16(1)})");
}

/// A host's dictionary that cannot be counted.
class Uncounted final : public Dictionary {
 public:
    bool Lookup(std::string_view key) const override { return key == "BCustNumber"; }
    Value Get(std::string_view) const override { return "01.001"; }
    void Put(std::string_view, Value) override {}
    void Remove(std::string_view) override {}
    std::size_t Count() const override { Raise(Automation::NoSuchMember); }
    std::string KeyAt(std::size_t) const override { Raise(Automation::NoSuchMember); }
};

TEST_F(SchemeFrameTest, AFilterThatCannotBeCountedIsConfirmedByThePanel) {
    dialog.autoFilter = -2;
    dialog.frame.LoadScheme(MakeRef<Uncounted>());
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_EQ(Shown(form.result), R"({BCustNumber: "01.001", BDeptNumber: "", NotShowBalZero: int16(0)})");
}

TEST_F(SchemeFrameTest, ADrillDownShowsNoMessageAboutTheStore) {
    test::FailingStore failing;
    Dialog troubled(platform, failing);
    troubled.autoFilter = -2;
    troubled.frame.LoadScheme(Filter());
    EXPECT_FALSE(troubled.frame.BeginShow());
    EXPECT_THAT(platform.windows().boxes, IsEmpty());
}

// The two panels.

TEST_F(SchemeFrameTest, ValuesGoAlongFromPanelToPanel) {
    dialog.frame.BeginShow();
    form.customer = "c1";
    form.department = "d1";
    form.events.clear();
    EXPECT_TRUE(dialog.frame.ShowsWholePanel());
    dialog.frame.SwitchPanel(false);
    EXPECT_FALSE(dialog.frame.ShowsWholePanel());
    EXPECT_EQ(form.common, "c1");
    form.common = "c2";
    dialog.frame.SwitchPanel(true);
    EXPECT_EQ(form.OnPanel(), "c2 d1 1");
    EXPECT_THAT(form.events, ElementsAre("common", "to panel", "whole"));
}

TEST_F(SchemeFrameTest, SwitchingToThePanelThatIsUpDoesNothing) {
    dialog.frame.BeginShow();
    form.events.clear();
    dialog.frame.SwitchPanel(true);
    EXPECT_THAT(form.events, IsEmpty());
    dialog.frame.SwitchPanel(false);
    form.common = "typed";
    dialog.frame.SwitchPanel(false);
    EXPECT_EQ(form.common, "typed");
}

TEST_F(SchemeFrameTest, DefaultsOnTheShortPanelKeepTheCodesTypedThere) {
    dialog.frame.BeginShow();
    form.zero = 0;
    dialog.frame.SwitchPanel(false);
    form.common = "typed";
    dialog.frame.ShowDefaults();
    EXPECT_EQ(form.common, "typed");
    EXPECT_EQ(form.OnPanel(), "typed as made 1");
}

// Saved schemes.

TEST_F(SchemeFrameTest, ASavedSchemeHoldsExactlyWhatTheFormWrites) {
    dialog.frame.BeginShow();
    form.customer = "“甲”|;=";
    dialog.frame.SaveScheme(" 月末 ");
    const SavedScheme expected{
        {"BCustNumber", "“甲”|;="}, {"BDeptNumber", "as made"}, {"NotShowBalZero", std::int16_t{1}}};
    EXPECT_EQ(store.Find(10502, "月末"), expected);
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "月末");
    EXPECT_THAT(dialog.frame.SchemeNames(), ElementsAre("月末"));
}

TEST_F(SchemeFrameTest, SavingOnTheShortPanelTakesItsKeysToo) {
    dialog.frame.BeginShow();
    dialog.frame.SwitchPanel(false);
    form.common = "short";
    dialog.frame.SaveScheme("甲");
    EXPECT_EQ(store.Find(10502, "甲")->front(), (SchemeItem{"BCustNumber", "short"}));
}

TEST_F(SchemeFrameTest, ALoadedSchemeFillsThePanelThatIsUp) {
    store.Save(10502, "甲", {{"BCustNumber", "c1"}});
    store.Save(10502, "乙", {{"BCustNumber", "c2"}});
    dialog.frame.BeginShow();
    dialog.frame.LoadSavedScheme("甲");
    EXPECT_EQ(form.OnPanel(), "c1  0");
    EXPECT_EQ(store.LastUsed(10502), "甲");
    dialog.frame.SwitchPanel(false);
    dialog.frame.LoadSavedScheme("乙");
    EXPECT_EQ(form.common, "c2");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "乙");
}

TEST_F(SchemeFrameTest, DeletingTheCurrentSchemeLeavesTheScreenAndTheNextDialogHasTheDefaults) {
    dialog.frame.BeginShow();
    form.customer = "c1";
    dialog.frame.SaveScheme("甲");
    dialog.frame.DeleteScheme("甲");
    EXPECT_EQ(form.customer, "c1");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "");
    EXPECT_THAT(dialog.frame.SchemeNames(), IsEmpty());
    Dialog next(platform, store);
    next.frame.BeginShow();
    EXPECT_THAT(next.form.events, ElementsAre("whole", "defaults"));
}

TEST_F(SchemeFrameTest, DefaultsOnDemandAreNoScheme) {
    store.Save(10502, "甲", {{"BCustNumber", "c1"}});
    dialog.frame.BeginShow();
    dialog.frame.ShowDefaults();
    EXPECT_EQ(form.OnPanel(), "c1  1") << "the defaults leave the codes";
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "");
    EXPECT_EQ(store.LastUsed(10502), "甲");
}

TEST_F(SchemeFrameTest, WrongNamesAreRefusedAndNothingMoves) {
    dialog.frame.BeginShow();
    form.events.clear();
    EXPECT_EQ(ErrorOf([&] { dialog.frame.SaveScheme(" "); })->description(), "请输入过滤方案的名称。");
    EXPECT_EQ(ErrorOf([&] { dialog.frame.LoadSavedScheme("丙"); })->description(),
              "没有名为“丙”的过滤方案。");
    EXPECT_EQ(ErrorOf([&] { dialog.frame.DeleteScheme("丙"); })->description(), "没有名为“丙”的过滤方案。");
    EXPECT_THAT(form.events, IsEmpty());
}

TEST_F(SchemeFrameTest, AnotherProcessesSchemesStandInTheListOfTheNextShow) {
    dialog.frame.BeginShow();
    store.Save(10502, "甲", {});
    EXPECT_THAT(dialog.frame.SchemeNames(), IsEmpty());
    dialog.frame.BeginShow();
    EXPECT_THAT(dialog.frame.SchemeNames(), ElementsAre("甲"));
}

}  // namespace
}  // namespace qor
