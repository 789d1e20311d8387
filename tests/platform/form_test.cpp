#include "platform/form.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/headless.h"
#include "support/raises.h"
#include "support/sample_form.h"

namespace qor {
namespace {

using test::Log;
using test::RaisedBy;
using test::SampleForm;

class FormTest : public testing::Test {
 protected:
    HeadlessWindows windows;
    Ref<SampleForm> form = MakeRef<SampleForm>(windows);
};

TEST_F(FormTest, LoadsBeforeItsFirstShowAndOnlyThen) {
    windows.user = [](Form& shown) { shown.Hide(); };
    form->ShowModal();
    EXPECT_EQ(form->TakeTold(), (Log{"load", "before show", "activate", "first got focus"}));
    EXPECT_TRUE(form->IsLoaded());
    EXPECT_FALSE(form->IsVisible());
    form->ShowModal();
    EXPECT_EQ(form->TakeTold(), (Log{"before show", "activate"}));
}

TEST_F(FormTest, IsNotSeenWhereItIsEndedBeforeItsShow) {
    form->shows = false;
    windows.user = [](Form&) { ADD_FAILURE() << "came up"; };
    form->ShowModal();
    EXPECT_EQ(form->TakeTold(), (Log{"load", "before show"}));
}

TEST_F(FormTest, IsShownOnceAtATime) {
    int shows = 0;
    windows.user = [&](Form& shown) {
        ++shows;
        EXPECT_EQ(RaisedBy([&] { shown.ShowModal(); }), Automation::AlreadyShown);
        EXPECT_TRUE(shown.IsVisible());
        shown.Hide();
    };
    form->ShowModal();
    form->ShowModal();
    EXPECT_EQ(shows, 2);
}

TEST_F(FormTest, UnloadsOnceAndLoadsAgain) {
    form->Load();
    form->Unload();
    form->Unload();
    EXPECT_EQ(form->TakeTold(), (Log{"load", "unload"}));
    form->Load();
    EXPECT_EQ(form->TakeTold(), (Log{"load"}));
}

TEST_F(FormTest, FindsItsControlsByName) {
    EXPECT_EQ(form->Find("second"), &form->second);
    EXPECT_EQ(form->Find("Second"), nullptr);
}

TEST_F(FormTest, ForgetsControlsThatGo) {
    auto box = std::make_unique<TextBox>(*form, "late", "", Bounds{});
    form->Load();
    form->MoveFocus(*box);
    EXPECT_EQ(form->focus(), box.get());
    box.reset();
    EXPECT_EQ(form->focus(), nullptr);
    EXPECT_EQ(form->Find("late"), nullptr);
}

TEST_F(FormTest, MovesTheFocusInOrder) {
    form->MoveFocus(form->first);
    form->TakeTold();
    EXPECT_TRUE(form->MoveFocus(form->second));
    EXPECT_EQ(form->TakeTold(), (Log{"first validates", "first lost focus", "second got focus"}));
    EXPECT_TRUE(form->MoveFocus(form->second));
    EXPECT_EQ(form->TakeTold(), Log{});
}

/// Hears of a control's focus, and may send it back.
struct Listener final : FocusListener {
    explicit Listener(SampleForm& owner) : form(owner) {}
    void Validating(Control& control) override { form.Tell("hears " + control.name() + " validates"); }
    void FocusLost(Control& control) override {
        form.Tell("hears " + control.name() + " lost focus");
        if (sendsBack) control.SetFocus();
    }
    void ControlGone(Control& control) override { form.Tell("hears " + control.name() + " gone"); }
    SampleForm& form;
    bool sendsBack = false;
};

TEST_F(FormTest, TellsListenersBehindTheControlsOwnHandlers) {
    Listener listener(*form);
    form->first.AddFocusListener(listener);
    form->MoveFocus(form->first);
    form->TakeTold();
    form->MoveFocus(form->second);
    EXPECT_EQ(form->TakeTold(), (Log{"first validates", "hears first validates", "first lost focus",
                                     "hears first lost focus", "second got focus"}));
    form->first.RemoveFocusListener(listener);
    form->MoveFocus(form->first);
    form->MoveFocus(form->second);
    for (const std::string& told : form->TakeTold()) {
        EXPECT_FALSE(told.starts_with("hears")) << told;
    }
}

TEST_F(FormTest, TellsListenersOfAControlThatGoes) {
    Listener listener(*form);
    auto box = std::make_unique<TextBox>(*form, "late", "", Bounds{});
    box->AddFocusListener(listener);
    box.reset();
    EXPECT_EQ(form->TakeTold(), (Log{"hears late gone"}));
}

TEST_F(FormTest, LetsALostFocusSendTheFocusElsewhere) {
    Listener listener(*form);
    listener.sendsBack = true;
    form->first.AddFocusListener(listener);
    form->MoveFocus(form->first);
    form->TakeTold();
    EXPECT_FALSE(form->MoveFocus(form->second));
    EXPECT_EQ(form->focus(), &form->first);
    EXPECT_EQ(form->TakeTold(), (Log{"first validates", "hears first validates", "first lost focus",
                                     "hears first lost focus", "first got focus"}));
    listener.sendsBack = false;
    EXPECT_TRUE(form->MoveFocus(form->second));
    form->first.RemoveFocusListener(listener);
}

TEST_F(FormTest, HasNoFocusWhereTheControlVanishesOnTheWay) {
    form->MoveFocus(form->first);
    form->first.onLostFocus = [this] { form->second.SetVisible(false); };
    EXPECT_FALSE(form->MoveFocus(form->second));
    EXPECT_EQ(form->focus(), nullptr);
}

TEST_F(FormTest, MovesTheFocusAgainAfterAHandlerHasFailed) {
    form->MoveFocus(form->first);
    form->first.onLostFocus = [] { Raise(Automation::Overflow); };
    EXPECT_EQ(RaisedBy([&] { form->MoveFocus(form->second); }), Automation::Overflow);
    EXPECT_EQ(form->focus(), &form->first);
    form->first.onLostFocus = nullptr;
    EXPECT_TRUE(form->MoveFocus(form->second));
}

TEST_F(FormTest, GoesByTabThroughTheControlsThatCanHaveTheFocus) {
    const auto walk = [this](bool backwards) {
        Log names;
        for (int i = 0; i < 9; ++i) {
            form->MoveFocusByTab(backwards);
            names.push_back(form->focus() ? form->focus()->name() : "none");
        }
        return names;
    };
    form->check.SetEnabled(false);
    EXPECT_EQ(walk(false),
              (Log{"first", "second", "yes", "no", "outside", "list", "date", "button", "first"}));
    EXPECT_EQ(walk(true),
              (Log{"button", "date", "list", "outside", "no", "yes", "second", "first", "button"}));
}

TEST_F(FormTest, TabComesToAControlBehindAnotherOneWhereTheFormSaysSo) {
    const std::vector<Control*> made = form->controls();
    form->TabBehind(form->second, form->check);
    EXPECT_EQ(form->controls(), made) << "only the Tab key goes another way";
    form->MoveFocus(form->first);
    Log names;
    for (int i = 0; i < 3; ++i) {
        form->MoveFocusByTab();
        names.push_back(form->focus()->name());
    }
    EXPECT_EQ(names, (Log{"check", "second", "yes"}));
}

TEST_F(FormTest, StaysWithoutFocusWhereNothingCanHaveIt) {
    for (Control* control : form->controls()) {
        control->SetEnabled(false);
    }
    form->MoveFocusByTab();
    EXPECT_EQ(form->focus(), nullptr);
}

class FormKeys : public FormTest {
 protected:
    FormKeys() {
        form->Load();
        form->MoveFocus(form->first);
        form->first.onKeyDown = [this](std::int32_t& code) {
            form->Tell("box key down " + std::to_string(code));
        };
        form->first.onKeyPress = [this](std::int32_t& code) {
            form->Tell("box key press " + std::to_string(code));
        };
        form->TakeTold();
    }
};

TEST_F(FormKeys, GoToTheFormAndThenToTheFocusedControl) {
    form->Key(65, "a");
    EXPECT_EQ(form->TakeTold(),
              (Log{"form key down 65", "box key down 65", "form key press 97", "box key press 97"}));
    EXPECT_EQ(form->first.text(), "a");
}

TEST_F(FormKeys, HandOverCharactersOfEveryLength) {
    for (const char* character : {"é", "来", "𠀀"}) {
        form->Key(0, character);
    }
    EXPECT_EQ(form->first.text(), "é来𠀀");
    EXPECT_EQ(form->TakeTold().back(), "box key press 131072");
}

TEST_F(FormKeys, AreSwallowedWhereAHandlerMakesThemZero) {
    form->swallowKey = 65;
    form->Key(65, "a");
    EXPECT_EQ(form->TakeTold(), (Log{"form key down 65", "form key press 97", "box key press 97"}));
    form->swallowChar = 98;
    form->Key(66, "b");
    EXPECT_EQ(form->TakeTold(), (Log{"form key down 66", "box key down 66", "form key press 98"}));
    form->first.onKeyPress = [](std::int32_t& code) { code = 0; };
    form->Key(67, "c");
    EXPECT_EQ(form->first.text(), "a");
}

TEST_F(FormKeys, EditTheText) {
    for (const char* character : {"a", "b", "c"}) {
        form->Key(0, character);
    }
    form->Key(8, "\b");
    EXPECT_EQ(form->first.text(), "ab");
    form->first.Select(0, 0);
    form->Key(46, "");
    EXPECT_EQ(form->first.text(), "b");
    form->Key(0, ".");
    form->Key(13, "\r");
    EXPECT_EQ(form->first.text(), ".b");
}

TEST_F(FormKeys, MoveTheFocusOrCancel) {
    form->Key(9, "");
    EXPECT_EQ(form->focus(), &form->second);
    form->Key(27, "");
    EXPECT_FALSE(form->IsLoaded());
}

TEST_F(FormKeys, MayHaveATabFollow) {
    form->first.onKeyDown = [this](std::int32_t& code) {
        if (code == 13) form->SendTab();
    };
    form->Key(13, "\r");
    EXPECT_EQ(form->focus(), &form->second);
    form->Key(13, "\r");
    EXPECT_EQ(form->focus(), &form->second);
}

}  // namespace
}  // namespace qor
