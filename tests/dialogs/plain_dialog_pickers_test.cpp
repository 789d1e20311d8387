#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/plain_dialog_fixture.h"

namespace qor {
namespace {

using test::Person;
using test::PlainDialogTest;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PlainDialogTest, F7F8AndTheButtonAllOpenThePickerOfTheBox) {
    PickerAnswers("02.003");
    Filter([this](Person& user) {
        const auto picks = [&](const std::function<void()>& how) {
            user.Text("txtItem(3)", "02");
            host.platform.log().clear();
            how();
            EXPECT_EQ(user.Reads("txtItem(3)"), "02.003");
            return Lines("ItemLookUp");
        };
        const std::string lookup =
            "call QOREBCGLView.GLView.ItemLookUp(&1, &\"02\", &\"\", "
            "&{GetDataType: int16(1), Search: \"02\"})";
        // Each way works twice in a row: none leaves its key behind.
        for (int turn = 0; turn < 2; ++turn) {
            EXPECT_THAT(picks([&] { user.Key("txtItem(3)", 118); }), ElementsAre(lookup));
            EXPECT_THAT(picks([&] { user.Key("txtItem(3)", 119); }), ElementsAre(lookup));
            EXPECT_THAT(picks([&] { user.Click("cmdItem(3)"); }), ElementsAre(lookup));
        }
    });
}

TEST_F(PlainDialogTest, OtherKeysOpenNoPicker) {
    PickerAnswers("02.003");
    Filter([this](Person& user) {
        for (const std::int32_t code : {112, 117, 120, 65}) {
            user.Key("txtItem(3)", code);
        }
        user.Key("cmbCheckState", 118);
        EXPECT_THAT(Lines("ItemLookUp"), IsEmpty());
    });
}

TEST_F(PlainDialogTest, NothingPickedLeavesTheBox) {
    Filter([this](Person& user) {
        user.Text("txtItem(0)", "01");
        user.Click("cmdItem(0)");
        EXPECT_EQ(user.Reads("txtItem(0)"), "01");
        EXPECT_THAT(Lines("box "), IsEmpty());
    });
}

TEST_F(PlainDialogTest, AFailingPickerIsToldAndLeavesTheBox) {
    host.platform.Component("QOREBCGLView.GLView").Raises("ItemLookUp", Error(-1, "Server", "no right"));
    Filter([this](Person& user) {
        user.Text("txtItem(0)", "01");
        user.Click("cmdItem(0)");
        EXPECT_EQ(user.Reads("txtItem(0)"), "01");
        EXPECT_THAT(Lines("box "), ElementsAre("box \"基础资料可能没有授权！\" \"信息提示\" 64"));
    });
}

// The name list.

constexpr std::string_view kNameList = "QORGLNameListLib2.GLNameList";

TEST_F(PlainDialogTest, TheNameListServesTheFocusedBoxAlone) {
    Filter([this](Person& user) {
        const auto attached = [&](std::string_view box) {
            const std::int32_t handle = host.platform.windows().WindowHandle(user.Any(box));
            return "call QORGLNameListLib2.GLNameList.AttachByHWnd(" + std::to_string(handle) +
                   ", <Frame>, int16(1))";
        };
        host.platform.log().clear();
        user.Focus("txtItem(0)");
        EXPECT_THAT(Lines(kNameList),
                    ElementsAre("create QORGLNameListLib2.GLNameList",
                                "put QORGLNameListLib2.GLNameList.LookUpClassID = 1121",
                                "put QORGLNameListLib2.GLNameList.GetDataType = int16(1)",
                                "put QORGLNameListLib2.GLNameList.NoKeyDownKeyUp = False",
                                "put QORGLNameListLib2.GLNameList.HotTrace = True", attached("txtItem(0)")));
        host.platform.log().clear();
        user.Focus("txtItem(5)");
        EXPECT_THAT(Lines(kNameList),
                    ElementsAre("call QORGLNameListLib2.GLNameList.Detach()",
                                "call QORGLNameListLib2.GLNameList.Detach()",
                                "put QORGLNameListLib2.GLNameList.LookUpClassID = 2",
                                "put QORGLNameListLib2.GLNameList.GetDataType = int16(1)",
                                "put QORGLNameListLib2.GLNameList.NoKeyDownKeyUp = False",
                                "put QORGLNameListLib2.GLNameList.HotTrace = True", attached("txtItem(5)")));
        host.platform.log().clear();
        user.Focus("cmbCheckState");
        EXPECT_THAT(Lines(kNameList), ElementsAre("call QORGLNameListLib2.GLNameList.Detach()"));
        host.platform.log().clear();
        user.Click("cmdCacel");
    });
    EXPECT_THAT(Lines(kNameList), ElementsAre("call QORGLNameListLib2.GLNameList.Detach()",
                                              "release QORGLNameListLib2.GLNameList"));
}

TEST_F(PlainDialogTest, ADialogWithoutAFocusedBoxMakesNoNameList) {
    Filter([](Person& user) { user.Click("cmdOK"); });
    EXPECT_THAT(Lines(kNameList), IsEmpty());
}

TEST_F(PlainDialogTest, ADialogWorksWithoutTheNameList) {
    host.platform.Remove(kNameList);
    Filter([](Person& user) {
        EXPECT_TRUE(user.Text("txtItem(0)", "01"));
        user.Click("cmdOK");
    });
    EXPECT_EQ(test::Entry(*report, "Filter", "BTypeIn"), Value("01"));
}

}  // namespace
}  // namespace qor
