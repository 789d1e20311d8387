#include "frames/plain_scheme_frame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/failing_store.h"
#include "platform/conversions.h"
#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::ErrorOf;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

/// A dialog with two boxes.
class TwoBoxes final : public PlainFrameHost {
 public:
    PlainFrame* frame = nullptr;
    std::string date = "as made", number = "as made";
    std::vector<std::string> events;

    void OnPlainNotify(const Value& value) override { events.push_back("notify " + value.text()); }
    void OnPlainSave(std::string& scheme) override {
        frame->SetSchemeItem(scheme, "DtpBDate", date);
        frame->SetSchemeItem(scheme, "BNumber", number);
    }
    void OnPlainLoad(const std::string& scheme) override {
        events.emplace_back("load");
        date = frame->GetSchemeItem(scheme, "DtpBDate").text();
        number = frame->GetSchemeItem(scheme, "BNumber").text();
    }
    void OnPlainRefresh() override {
        events.emplace_back("refresh");
        frame->SchemeHost();
        frame->RefreshSchemes();
    }
    void OnPlainDefaults() override {
        events.emplace_back("defaults");
        date = "2020-09-01";
        number = "";
    }
    std::string OnScreen() const { return date + " " + number; }
};

class PlainFrameTest : public testing::Test {
 protected:
    struct Dialog {
        Dialog(Platform& platform, SchemeStore& store) : frame(platform, store, form) { form.frame = &frame; }
        void Init(std::int32_t number = 10522) { frame.InitScheme(number, "收入类别明细表"); }
        TwoBoxes form;
        PlainSchemeFrame frame;
    };

    test::TestPlatform platform;
    MemorySchemeStore store;
    Dialog dialog{platform, store};
};

TEST_F(PlainFrameTest, WithoutASchemeTheDefaultsComeUp) {
    dialog.Init();
    EXPECT_THAT(dialog.form.events, ElementsAre("defaults"));
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "");
    EXPECT_EQ(dialog.frame.title(), "收入类别明细表");
    EXPECT_THAT(platform.windows().boxes, IsEmpty());
}

TEST_F(PlainFrameTest, TheLastUsedSchemeComesUp) {
    store.Save(10522, "甲", {{"DtpBDate", "2020-01-31"}, {"BNumber", "a=1;b"}});
    store.Save(10524, "乙", {{"BNumber", "of another report"}});
    dialog.Init();
    EXPECT_EQ(dialog.form.OnScreen(), "2020-01-31 a=1;b");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "甲");
    EXPECT_THAT(dialog.frame.SchemeNames(), ElementsAre("甲"));
}

TEST_F(PlainFrameTest, AnyValueOfASchemeReachesTheFormAsText) {
    store.Save(10522, "甲",
               {{"DtpBDate", DateFromCalendar(2020, 1, 31).value()}, {"BNumber", std::int16_t{7}}});
    dialog.Init();
    EXPECT_EQ(dialog.form.OnScreen(), "2020-01-31 7");
}

TEST_F(PlainFrameTest, ASecondInitWithTheSameNumberLeavesTheScreenAlone) {
    dialog.Init();
    dialog.form.number = "typed";
    dialog.Init();
    EXPECT_EQ(dialog.form.OnScreen(), "2020-09-01 typed");
    EXPECT_THAT(dialog.form.events, ElementsAre("defaults"));
}

TEST_F(PlainFrameTest, AnotherNumberStartsAnew) {
    store.Save(10524, "乙", {{"DtpBDate", "2020-02-02"}, {"BNumber", "2"}});
    dialog.Init(10522);
    dialog.Init(10524);
    EXPECT_EQ(dialog.form.OnScreen(), "2020-02-02 2");
    dialog.Init(10522);
    EXPECT_EQ(dialog.form.OnScreen(), "2020-09-01 ");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "");
    EXPECT_THAT(dialog.frame.SchemeNames(), IsEmpty());
}

TEST_F(PlainFrameTest, ConditionsAreANewDictionaryOfTextsInTheOrderOfWriting) {
    dialog.Init();
    dialog.form.number = "；\\;=";
    const Ref<Dictionary> first = dialog.frame.CurrentConditions();
    EXPECT_EQ(Shown(first), "{DtpBDate: \"2020-09-01\", BNumber: \"；\\;=\"}");
    dialog.form.number = "7";
    const Ref<Dictionary> second = dialog.frame.CurrentConditions();
    EXPECT_EQ(Shown(second), R"({DtpBDate: "2020-09-01", BNumber: "7"})");
    EXPECT_EQ(Shown(first), "{DtpBDate: \"2020-09-01\", BNumber: \"；\\;=\"}");
}

TEST_F(PlainFrameTest, ASavedSchemeComesUpInTheNextDialog) {
    dialog.Init();
    dialog.form.number = "客户|甲\r\n";
    dialog.frame.SaveScheme("  月末 ");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "月末") << "blanks around a name are not part of it";
    EXPECT_THAT(dialog.frame.SchemeNames(), ElementsAre("月末"));
    EXPECT_THAT(dialog.form.events, ElementsAre("defaults", "refresh"));

    Dialog next(platform, store);
    next.Init();
    EXPECT_EQ(next.form.OnScreen(), "2020-09-01 客户|甲\r\n");
}

TEST_F(PlainFrameTest, ALoadedSchemeIsTheLastUsedOne) {
    dialog.Init();
    dialog.form.number = "1";
    dialog.frame.SaveScheme("甲");
    dialog.form.number = "2";
    dialog.frame.SaveScheme("乙");
    dialog.frame.LoadScheme("甲");
    EXPECT_EQ(dialog.form.number, "1");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "甲");
    EXPECT_EQ(dialog.form.events.back(), "notify 甲");

    Dialog next(platform, store);
    next.Init();
    EXPECT_EQ(next.form.number, "1");
}

TEST_F(PlainFrameTest, DeletingTheCurrentSchemeLeavesTheScreenAndTheNextDialogHasAnother) {
    dialog.Init();
    dialog.frame.SaveScheme("甲");
    dialog.form.number = "2";
    dialog.frame.SaveScheme("乙");
    dialog.frame.DeleteScheme("乙");
    EXPECT_EQ(dialog.form.number, "2");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "");
    EXPECT_THAT(dialog.frame.SchemeNames(), ElementsAre("甲"));
    EXPECT_EQ(dialog.form.events.back(), "refresh");

    Dialog next(platform, store);
    next.Init();
    EXPECT_EQ(next.frame.CurrentSchemeName(), "甲");
    next.frame.DeleteScheme("甲");

    Dialog last(platform, store);
    last.Init();
    EXPECT_THAT(last.form.events, ElementsAre("defaults"));
}

TEST_F(PlainFrameTest, DeletingAnotherSchemeKeepsTheCurrentOne) {
    dialog.Init();
    dialog.frame.SaveScheme("甲");
    dialog.frame.SaveScheme("乙");
    dialog.frame.DeleteScheme("甲");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "乙");
    EXPECT_EQ(store.LastUsed(10522), "乙");
}

TEST_F(PlainFrameTest, DefaultsOnDemandAreNoScheme) {
    dialog.Init();
    dialog.frame.SaveScheme("甲");
    dialog.form.number = "typed";
    dialog.frame.ShowDefaults();
    EXPECT_EQ(dialog.form.OnScreen(), "2020-09-01 ");
    EXPECT_EQ(dialog.frame.CurrentSchemeName(), "");
    EXPECT_EQ(store.LastUsed(10522), "甲") << "the next dialog still begins with the scheme";
}

TEST_F(PlainFrameTest, WrongNamesAreRefusedInTheUsersLanguage) {
    dialog.Init();
    for (const char* blank : {"", " ", "   "}) {
        EXPECT_EQ(ErrorOf([&] { dialog.frame.SaveScheme(blank); })->description(), "请输入过滤方案的名称。");
        EXPECT_EQ(ErrorOf([&] { dialog.frame.LoadScheme(blank); })->description(), "请输入过滤方案的名称。");
        EXPECT_EQ(ErrorOf([&] { dialog.frame.DeleteScheme(blank); })->description(),
                  "请输入过滤方案的名称。");
    }
    EXPECT_EQ(ErrorOf([&] { dialog.frame.LoadScheme("丙"); })->description(), "没有名为“丙”的过滤方案。");
    EXPECT_EQ(ErrorOf([&] { dialog.frame.DeleteScheme("丙"); })->description(), "没有名为“丙”的过滤方案。");
    EXPECT_THAT(dialog.form.events, ElementsAre("defaults")) << "nothing moved";
}

TEST_F(PlainFrameTest, BeforeInitThereAreNoSchemes) {
    EXPECT_EQ(test::RaisedBy([&] { dialog.frame.SaveScheme("甲"); }), Automation::InvalidCall);
    EXPECT_EQ(test::RaisedBy([&] { dialog.frame.LoadScheme("甲"); }), Automation::InvalidCall);
    EXPECT_EQ(test::RaisedBy([&] { dialog.frame.DeleteScheme("甲"); }), Automation::InvalidCall);
    EXPECT_NO_THROW(dialog.frame.RefreshSchemes());
    EXPECT_THAT(dialog.frame.SchemeNames(), IsEmpty());
}

TEST_F(PlainFrameTest, AStoreThatFailsIsToldOnceAndTheDefaultsComeUp) {
    test::FailingStore failing;
    Dialog troubled(platform, failing);
    troubled.Init();
    EXPECT_THAT(troubled.form.events, ElementsAre("defaults"));
    ASSERT_EQ(platform.windows().boxes.size(), 1u);
    EXPECT_EQ(platform.windows().boxes[0].text, "方案文件坏了");
    EXPECT_EQ(platform.windows().boxes[0].title, "信息提示");
    EXPECT_EQ(platform.windows().boxes[0].style, 64);
    EXPECT_EQ(Shown(troubled.frame.CurrentConditions()), R"({DtpBDate: "2020-09-01", BNumber: ""})");
    EXPECT_EQ(ErrorOf([&] { troubled.frame.SaveScheme("甲"); })->description(), "方案文件坏了");
    EXPECT_EQ(troubled.frame.CurrentSchemeName(), "");
}

TEST_F(PlainFrameTest, TwoSchemeOptionsCanBeSet) {
    dialog.frame.SetSchemeOption(1, false);
    EXPECT_FALSE(dialog.frame.SchemeOption(1));
    EXPECT_TRUE(dialog.frame.SchemeOption(2));
    EXPECT_EQ(test::RaisedBy([&] { dialog.frame.SetSchemeOption(0, false); }),
              Automation::SubscriptOutOfRange);
    EXPECT_EQ(test::RaisedBy([&] { dialog.frame.SetSchemeOption(3, false); }),
              Automation::SubscriptOutOfRange);
}

TEST_F(PlainFrameTest, ThereIsNoSchemeHost) { EXPECT_FALSE(dialog.frame.SchemeHost()); }

}  // namespace
}  // namespace qor
