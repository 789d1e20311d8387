#include "platform/headless.h"

#include <gtest/gtest.h>

#include "support/sample_form.h"

namespace qor {
namespace {

using test::Log;
using test::SampleForm;

TEST(HeadlessWindows, PlayThePersonWhenTheFormHasComeUp) {
    HeadlessWindows windows;
    const Ref<SampleForm> form = MakeRef<SampleForm>(windows);
    windows.user = [&](Form& shown) {
        EXPECT_EQ(&shown, form.get());
        EXPECT_TRUE(shown.IsVisible());
        EXPECT_EQ(shown.focus(), &form->first);
        shown.Hide();
    };
    form->ShowModal();
    EXPECT_EQ(form->TakeTold(), (Log{"load", "before show", "activate", "first got focus"}));
}

TEST(HeadlessWindows, CancelAFormThatNobodyCloses) {
    HeadlessWindows windows;
    const Ref<SampleForm> form = MakeRef<SampleForm>(windows);
    form->ShowModal();
    EXPECT_FALSE(form->IsVisible());
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_EQ(form->TakeTold().back(), "unload");
}

/// A form that does not let itself be cancelled.
class Stubborn final : public Form {
 public:
    explicit Stubborn(WindowSystem& windows) : Form(windows, "frmStubborn", {1, 1}) {}
    void CancelByUser() override {}
};

TEST(HeadlessWindows, UnloadAFormThatDoesNotLetItselfBeCancelled) {
    HeadlessWindows windows;
    const Ref<Stubborn> form = MakeRef<Stubborn>(windows);
    form->ShowModal();
    EXPECT_FALSE(form->IsLoaded());
}

/// A form that ends in its own activation, as the progress window does.
class Fleeting final : public Form {
 public:
    explicit Fleeting(WindowSystem& windows) : Form(windows, "frmFleeting", {1, 1}) {}
    TextBox box{*this, "box", "", {}};

 protected:
    void OnActivate() override { Unload(); }
};

TEST(HeadlessWindows, LeaveAFormAloneThatEndsInItsActivation) {
    HeadlessWindows windows;
    windows.user = [](Form&) { ADD_FAILURE() << "nobody is there to act"; };
    const Ref<Fleeting> form = MakeRef<Fleeting>(windows);
    form->ShowModal();
    EXPECT_FALSE(form->IsVisible());
    EXPECT_EQ(form->focus(), nullptr);
}

TEST(HeadlessWindows, KeepTheFormAliveWhileItRuns) {
    HeadlessWindows windows;
    Ref<SampleForm> form = MakeRef<SampleForm>(windows);
    SampleForm& shown = *form;
    windows.user = [&](Form&) { form = nullptr; };
    shown.ShowModal();
    EXPECT_FALSE(form);
}

TEST(HeadlessWindows, AnswerMessageBoxesWithOkAndRememberThem) {
    HeadlessWindows windows;
    EXPECT_EQ(windows.MessageBox("text", "信息提示", kInformationIcon), 1);
    ASSERT_EQ(windows.boxes.size(), 1U);
    EXPECT_EQ(windows.boxes[0].text, "text");
    EXPECT_EQ(windows.boxes[0].title, "信息提示");
    EXPECT_EQ(windows.boxes[0].style, 64);
}

TEST(HeadlessWindows, CountThePumps) {
    HeadlessWindows windows;
    windows.Pump();
    windows.Pump();
    EXPECT_EQ(windows.pumps, 2);
}

}  // namespace
}  // namespace qor
