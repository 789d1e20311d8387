#include "frames/scheme_dialog_frame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/date_types.h"
#include "frames/frame_platform.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::ErrorOf;
using test::Written;
using testing::ElementsAre;
using testing::IsEmpty;

/// A dialog with three values on the whole panel, of which the short one shows the first.
class TwoPanels final : public SchemeFrameHost {
 public:
    std::string customer = "as made", department = "as made", common = "as made";
    std::int16_t zero = 0;
    std::int32_t itemClass = 0;
    SchemeFrame* frame = nullptr;
    Ref<Dictionary> result;
    std::vector<std::string> events;

    void OnSchemeDefaults() override {
        events.emplace_back("defaults");
        zero = 1;
    }
    void OnSchemeClosing(std::int16_t& cancel) override {
        events.push_back("closing " + std::to_string(cancel));
        if (cancel == 0) result = frame->CurrentScheme();
    }
    void OnSchemeToPanel(Dictionary& scheme) override {
        events.emplace_back("to panel");
        customer = ToText(scheme.GetOr("BCustNumber", ""));
        department = ToText(scheme.GetOr("BDeptNumber", ""));
        zero = ToInt16(scheme.GetOr("NotShowBalZero", std::int16_t{0}));
    }
    void OnPanelToScheme(Dictionary& scheme) override {
        scheme.Put("BCustNumber", customer);
        scheme.Put("BDeptNumber", department);
        scheme.Put("NotShowBalZero", zero);
    }
    void OnSchemeToCommon(Dictionary& scheme) override { common = ToText(scheme.GetOr("BCustNumber", "")); }
    void OnCommonToScheme(Dictionary& scheme) override { scheme.Put("BCustNumber", common); }
    void OnItemClassOf(Control& control, std::int32_t& wanted) override {
        events.push_back("class of " + control.name());
        if (itemClass != 0) wanted = itemClass;
    }
    void ShowPanel(bool whole) override { events.emplace_back(whole ? "whole" : "common"); }
    void CloseDialog() override { events.emplace_back("close"); }

    std::string OnPanel() const { return customer + " " + department + " " + std::to_string(zero); }
};

class SchemeFrameTest : public testing::Test {
 protected:
    struct Dialog {
        Dialog(Platform& platform, SchemeStore& store) : frame(platform, store, form) {
            form.frame = &frame;
            frame.SetFrameRptID(10502);
            frame.LinkFrameAutoFilter(autoFilter);
        }
        std::int32_t autoFilter = -1;
        TwoPanels form;
        SchemeDialogFrame frame;
    };

    static Ref<Dictionary> Filter() {
        const auto filter = MakeRef<OrderedDictionary>();
        filter->Put("NotShowBalZero", "1");
        filter->Put("BCustNumber", "01.001");
        filter->Put("DataRightWhere", " 1=1 ");
        return filter;
    }

    test::FramePlatform platform;
    MemorySchemeStore store;
    Dialog dialog{platform, store};
    TwoPanels& form = dialog.form;
};

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
    ASSERT_EQ(platform.screen.boxes.size(), 1u);
    EXPECT_EQ(platform.screen.boxes[0].text, "方案文件坏了");
    EXPECT_EQ(platform.screen.boxes[0].title, "信息提示");
    troubled.frame.Confirm();
    EXPECT_EQ(Written(*troubled.form.result),
              "BCustNumber=as made BDeptNumber=as made NotShowBalZero=1:Integer");
}

// How it ends.

TEST_F(SchemeFrameTest, OkGathersThePanelAndCloses) {
    dialog.frame.BeginShow();
    form.customer = "c2";
    form.events.clear();
    dialog.frame.Confirm();
    EXPECT_THAT(form.events, ElementsAre("closing 0", "close"));
    EXPECT_EQ(Written(*form.result), "BCustNumber=c2 BDeptNumber=as made NotShowBalZero=1:Integer");
}

TEST_F(SchemeFrameTest, OkOnTheShortPanelLaysItsKeysOverTheWholePanels) {
    dialog.frame.BeginShow();
    form.department = "d1";
    dialog.frame.SwitchPanel(false);
    form.common = "short";
    dialog.frame.Confirm();
    EXPECT_EQ(Written(*form.result), "BCustNumber=short BDeptNumber=d1 NotShowBalZero=1:Integer");
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

TEST_F(SchemeFrameTest, AHandedFilterIsConfirmedAsItIsInANewDictionary) {
    const Ref<Dictionary> handed = Filter();
    dialog.autoFilter = -2;
    dialog.frame.LoadScheme(handed);
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_THAT(form.events, ElementsAre("whole", "to panel", "closing 0"));
    EXPECT_EQ(Written(*form.result), "NotShowBalZero=1 BCustNumber=01.001 DataRightWhere= 1=1 ");
    EXPECT_NE(form.result, handed);
    EXPECT_EQ(form.OnPanel(), "01.001  1") << "a later show begins with it";
}

TEST_F(SchemeFrameTest, AHandedFilterStandsUntilTheUserConfirmsAnother) {
    dialog.autoFilter = -2;
    dialog.frame.LoadScheme(Filter());
    dialog.frame.BeginShow();
    dialog.autoFilter = -1;
    EXPECT_TRUE(dialog.frame.BeginShow()) << "the link is read anew at every show";
    form.customer = "typed and given up";
    dialog.frame.Cancel();
    dialog.autoFilter = -2;
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_EQ(ToText(form.result->Get("BCustNumber")), "01.001");

    dialog.autoFilter = -1;
    dialog.frame.BeginShow();
    form.customer = "c3";
    dialog.frame.Confirm();
    dialog.autoFilter = -2;
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_EQ(Written(*form.result), "BCustNumber=c3 BDeptNumber= NotShowBalZero=1:Integer");
}

TEST_F(SchemeFrameTest, WithNothingHandedThePanelIsConfirmed) {
    dialog.autoFilter = -2;
    EXPECT_FALSE(dialog.frame.BeginShow());
    EXPECT_THAT(form.events, ElementsAre("whole", "defaults", "closing 0"));
    EXPECT_EQ(Written(*form.result), "BCustNumber=as made BDeptNumber=as made NotShowBalZero=1:Integer");
}

TEST_F(SchemeFrameTest, ADrillDownShowsNoMessageAboutTheStore) {
    test::FailingStore failing;
    Dialog troubled(platform, failing);
    troubled.autoFilter = -2;
    troubled.frame.LoadScheme(Filter());
    EXPECT_FALSE(troubled.frame.BeginShow());
    EXPECT_THAT(platform.screen.boxes, IsEmpty());
}

// The two panels.

TEST_F(SchemeFrameTest, ValuesGoAlongFromPanelToPanel) {
    dialog.frame.BeginShow();
    form.customer = "c1";
    form.department = "d1";
    form.events.clear();
    dialog.frame.SwitchPanel(false);
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

// The pickers.

class ItemForm : public Form {
 public:
    explicit ItemForm(WindowSystem& windows) : Form(windows, "frmFilter10502", {1000, 1000}) {}
    TextBox box{*this, "txtItem(0)", "01", {}};
    Button button{*this, "cmdItem(0)", "", {}};
    DropDown cmbDateType{*this, "cmbDateType", {}};
    DatePicker BEGDate{*this, "BEGDate", test::Day(2020, 5, 5), {}};
    DatePicker ENDDate{*this, "ENDDate", test::Day(2020, 5, 6), {}};
};

class PickItem : public SchemeFrameTest {
 protected:
    void Pick() { dialog.frame.PickItem(items->button, items->box); }
    Ref<ItemForm> items = MakeRef<ItemForm>(platform.screen);
    test::Picker& picker = *platform.picker;
};

TEST_F(PickItem, AsksThePickerOfTheFormsClass) {
    form.itemClass = 14;
    picker.answer = test::Chosen("01.002");
    Pick();
    EXPECT_THAT(form.events, ElementsAre("class of cmdItem(0)"));
    EXPECT_THAT(platform.created, ElementsAre("QOREBCGLView.GLView"));
    ASSERT_EQ(picker.calls.size(), 1u);
    const std::vector<Value>& call = picker.calls[0];
    ASSERT_EQ(call.size(), 4u);
    EXPECT_TRUE(picker.allByReference);
    EXPECT_EQ(call[0], Value(std::int32_t{14}));
    EXPECT_EQ(call[1], Value("01"));
    EXPECT_EQ(call[2], Value(""));
    EXPECT_EQ(Written(*As<Dictionary>(call[3])), "GetDataType=1:Integer Search=01");
    EXPECT_EQ(items->box.text(), "01.002");
}

TEST_F(PickItem, MakesItsComponentOnce) {
    form.itemClass = 1;
    Pick();
    Pick();
    EXPECT_EQ(platform.created.size(), 1u);
    EXPECT_EQ(picker.calls.size(), 2u);
}

TEST_F(PickItem, AnIndexWithoutAClassOpensNothing) {
    Pick();
    EXPECT_THAT(platform.created, IsEmpty());
    EXPECT_THAT(platform.screen.boxes, IsEmpty());
}

TEST_F(PickItem, WithoutAChoiceTheBoxKeepsItsText) {
    form.itemClass = 1;
    for (const Value& answer :
         {Value(), Value::Nothing(), Value(MakeRef<test::Readable>("ReturnObject", Value::Nothing()))}) {
        picker.answer = answer;
        Pick();
        EXPECT_EQ(items->box.text(), "01");
    }
    EXPECT_THAT(platform.screen.boxes, IsEmpty());
}

TEST_F(PickItem, AFailureNamesTheLikelyCause) {
    form.itemClass = 1;
    picker.fails = true;
    Pick();
    ASSERT_EQ(platform.screen.boxes.size(), 1u);
    EXPECT_EQ(platform.screen.boxes[0].text, "基础资料可能没有授权！");
    EXPECT_EQ(platform.screen.boxes[0].title, "信息提示");
    EXPECT_EQ(platform.screen.boxes[0].style, 64);
    EXPECT_EQ(items->box.text(), "01");

    picker.fails = false;
    picker.answer = test::Chosen(std::int32_t{7});
    Pick();
    EXPECT_EQ(items->box.text(), "7");
}

TEST_F(PickItem, AMissingComponentIsTriedAgainTheNextTime) {
    form.itemClass = 1;
    const Ref<test::Picker> kept = std::exchange(platform.picker, {});
    Pick();
    EXPECT_EQ(platform.screen.boxes.size(), 1u);
    platform.picker = kept;
    kept->answer = test::Chosen("01.003");
    Pick();
    EXPECT_EQ(items->box.text(), "01.003");
}

TEST_F(PickItem, TheListOfPeriodsReckonsFromTheClocksDay) {
    items->Load();
    dialog.frame.AttachDateTypes(items->cmbDateType, items->BEGDate, items->ENDDate,
                                 [] { return test::Day(2020, 8, 1); });
    items->cmbDateType.SetListIndex(static_cast<int>(DateType::Today));
    EXPECT_EQ(items->BEGDate.value(), test::Day(2020, 9, 15));
    items->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisPeriod));
    EXPECT_EQ(items->ENDDate.value(), test::Day(2020, 8, 31));
}

}  // namespace
}  // namespace qor
