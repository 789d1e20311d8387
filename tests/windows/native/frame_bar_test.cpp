#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/frame_owner.h"
#include "support/scheme_user.h"
#include "windows/native/screen.h"

namespace qor::windows {
namespace {

using test::Person;
using test::SchemeUser;
using testing::ElementsAre;

TEST(FrameBar, SavesUnderTheNameThatTheUserTypes) {
    SchemeUser user("Rpt10503");
    user.Show([&](Person& person) {
        person.Text("txtItem(0)", "01");
        Screen screen(person.form());
        // The question comes up in the middle of the press.
        screen.InNextForm(user.host, [](Person& asked) {
            EXPECT_EQ(asked.form().ClassName(), "frmSchemeName");
            asked.Type("txtName", "本月");
            asked.Key("txtName", VK_RETURN);
        });
        screen.Press("另存(&A)");
        EXPECT_THAT(person.schemeFrame().SchemeNames(), ElementsAre("本月"));
        EXPECT_EQ(screen.TextOf("QORRptFilter"), "本月");
    });
    EXPECT_TRUE(user.host.schemes.Find(10503, "本月").has_value());
}

TEST(FrameBar, ThePersonIsStillAtTheButtonBehindItsQuestion) {
    SchemeUser user("Rpt10522");
    user.host.schemes.Save(10522, "甲", {});
    user.Show([&](Person& person) {
        Screen screen(person.form());
        screen.InNextForm(user.host, [](Person& asked) { asked.Key("txtName", VK_ESCAPE); });
        screen.Press("另存(&A)");
        EXPECT_EQ(screen.Focused(), "另存(&A)");
        screen.Press("删除(&D)");
        EXPECT_EQ(screen.Focused(), "QORRptFilter1") << "there is nothing left to delete";
    });
}

bool LooksLikeDefault(Person& person, std::string_view button) {
    return SendMessageW(Screen(person.form()).WindowOf(button), WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON;
}

TEST(FrameBar, ItsQuestionShowsWhichButtonTheEnterKeyPresses) {
    SchemeUser user("Rpt10522");
    user.Show([&](Person& person) {
        Screen screen(person.form());
        bool asked = false;
        screen.InNextForm(user.host, [&](Person& question) {
            asked = true;
            EXPECT_TRUE(LooksLikeDefault(question, "cmdOK"));
            EXPECT_FALSE(LooksLikeDefault(question, "cmdCancel"));
            question.Focus("cmdCancel");
            EXPECT_FALSE(LooksLikeDefault(question, "cmdOK"));
            EXPECT_TRUE(LooksLikeDefault(question, "cmdCancel"));
            question.Focus("txtName");
            EXPECT_TRUE(LooksLikeDefault(question, "cmdOK"));
            EXPECT_FALSE(LooksLikeDefault(question, "cmdCancel"));
        });
        screen.Press("另存(&A)");
        EXPECT_TRUE(asked);
    });
}

TEST(FrameBar, LoadsTheSchemeThatIsPicked) {
    SchemeUser user("Rpt10503");
    user.host.schemes.Save(10503, "甲", {{"BCustNumber", "01"}});
    user.host.schemes.Save(10503, "乙", {{"BCustNumber", "02"}});
    user.Show([](Person& person) {
        EXPECT_EQ(person.Reads("txtItem(0)"), "02");
        Screen screen(person.form());
        screen.PickEntry("QORRptFilter", 0);
        EXPECT_EQ(person.Reads("txtItem(0)"), "01");
        EXPECT_EQ(screen.TextOf("txtItem(0)"), "01");
    });
}

TEST(FrameBar, DeletesAfterAsking) {
    SchemeUser user("Rpt10522");
    user.host.schemes.Save(10522, "甲", {});
    user.Show([](Person& person) { Screen(person.form()).Press("删除(&D)"); });
    EXPECT_THAT(user.host.schemes.Names(10522), testing::IsEmpty());
    ASSERT_EQ(user.host.platform.windows().boxes.size(), 1u);
    EXPECT_EQ(user.host.platform.windows().boxes[0].text, "要删除过滤方案“甲”吗？");
}

TEST(FrameBar, ItsButtonsConfirmAndSwitchThePanel) {
    SchemeUser user("Rpt10503");
    user.Show([](Person& person) {
        Screen screen(person.form());
        const int whole = screen.ClientSize().cy;
        screen.Press("常用条件(&H)");
        EXPECT_FALSE(person.Sees("PictureWhole"));
        EXPECT_LT(screen.ClientSize().cy, whole);
        person.Text("txtItem(6)", "03");
        screen.Press("全部条件(&H)");
        EXPECT_EQ(screen.TextOf("txtItem(0)"), "03");
        screen.Press("确定(&O)");
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_EQ(user.FilterValue("BCustNumber"), Value("03"));
}

TEST(FrameBar, TheTabKeyGoesThroughTheBarThePanelAndTheButtons) {
    SchemeUser user("Rpt10501");
    user.Show([](Person& person) {
        Screen screen(person.form());
        std::vector<std::string> stops;
        for (int i = 0; i < 7; ++i) {
            stops.push_back(screen.Focused());
            screen.Tab();
        }
        EXPECT_THAT(stops, ElementsAre("QORRptFilter", "保存(&S)", "另存(&A)", "默认(&R)", "DtpBDate",
                                       "DtpEDate", "txtItem(0)"));
        person.Focus("cmbCheckState");
        stops.clear();
        for (int i = 0; i < 4; ++i) {
            screen.Tab();
            stops.push_back(screen.Focused());
        }
        EXPECT_THAT(stops, ElementsAre("常用条件(&H)", "确定(&O)", "取消(&E)", "QORRptFilter"));
    });
}

}  // namespace
}  // namespace qor::windows
