#include "platform/user.h"

#include <gtest/gtest.h>

#include "platform/headless.h"
#include "support/sample_form.h"

namespace qor {
namespace {

using test::Log;
using test::SampleForm;

/// Plays a person in a form that has come up; the form is hidden afterwards.
class UserTest : public testing::Test {
 protected:
    void Play(const std::function<void(User&)>& act) {
        windows.user = [&](Form& shown) {
            form->TakeTold();
            User user(shown);
            act(user);
            shown.Hide();
        };
        form->ShowModal();
    }

    HeadlessWindows windows;
    Ref<SampleForm> form = MakeRef<SampleForm>(windows);
};

TEST_F(UserTest, MovesTheFocusBeforeActing) {
    form->list.AddItem("a");
    form->list.onClick = [this] { form->Tell("list clicked"); };
    Play([&](User& user) {
        EXPECT_TRUE(user.Select(form->list, 0));
        EXPECT_EQ(form->TakeTold(),
                  (Log{"first validates", "first lost focus", "list got focus", "list clicked"}));
        EXPECT_EQ(form->focus(), &form->list);
    });
}

TEST_F(UserTest, ActsOnEveryKindOfControl) {
    form->list.AddItem("a");
    form->list.AddItem("b");
    form->spin.SetRange(1, 5);
    int clicks = 0;
    form->button.onClick = [&] { ++clicks; };
    Play([&](User& user) {
        EXPECT_TRUE(user.Text(form->first, "010"));
        EXPECT_TRUE(user.Check(form->check, 1));
        EXPECT_TRUE(user.Option(form->no));
        EXPECT_TRUE(user.Select(form->list, 1));
        EXPECT_TRUE(user.Date(form->date, Date{44000}));
        EXPECT_TRUE(user.Spin(form->spin, 3));
        EXPECT_EQ(form->focus(), &form->spin);
        EXPECT_TRUE(user.Click(form->button));
    });
    EXPECT_EQ(form->first.text(), "010");
    EXPECT_TRUE(form->check.IsChecked());
    EXPECT_TRUE(form->no.value());
    EXPECT_EQ(form->list.text(), "b");
    EXPECT_EQ(form->date.value(), Date{44000});
    EXPECT_EQ(form->spin.value(), 3);
    EXPECT_EQ(clicks, 1);
}

TEST_F(UserTest, LosesActionsOnHiddenOrDisabledControls) {
    form->list.AddItem("a");
    form->Load();
    for (Control* control : form->controls()) {
        if (control == &form->second) continue;
        control->SetEnabled(control->name().size() % 2 == 0);
        control->SetVisible(control->name().size() % 2 != 0);
    }
    Play([&](User& user) {
        EXPECT_FALSE(user.Focus(form->first));
        EXPECT_FALSE(user.Text(form->first, "x"));
        EXPECT_FALSE(user.Type(form->first, "x"));
        EXPECT_FALSE(user.Key(form->first, 118));
        EXPECT_FALSE(user.Check(form->check, 1));
        EXPECT_FALSE(user.Option(form->no));
        EXPECT_FALSE(user.Select(form->list, 0));
        EXPECT_FALSE(user.Date(form->date, Date{1}));
        EXPECT_FALSE(user.Spin(form->spin, 1));
        EXPECT_FALSE(user.Click(form->button));
        EXPECT_EQ(form->TakeTold(), Log{});
    });
    EXPECT_EQ(form->first.text(), "");
    EXPECT_FALSE(form->check.IsChecked());
    EXPECT_EQ(form->list.listIndex(), -1);
}

TEST_F(UserTest, LosesAnActionWhereTheFocusIsTakenBack) {
    int corrections = 1;
    form->first.onLostFocus = [&] {
        if (corrections-- > 0) form->first.SetFocus();
    };
    Play([&](User& user) {
        EXPECT_FALSE(user.Text(form->second, "x"));
        EXPECT_EQ(form->focus(), &form->first);
        EXPECT_EQ(form->second.text(), "");
        EXPECT_TRUE(user.Text(form->second, "x"));
        EXPECT_EQ(form->second.text(), "x");
    });
}

TEST_F(UserTest, TypesKeyByKey) {
    const struct {
        const char* character;
        std::int32_t keyCode;
        std::int32_t code;
    } rows[] = {
        {"a", 65, 97},  {"Z", 90, 90},  {"7", 55, 55},    {" ", 32, 32},  {"-", 189, 45},
        {"_", 189, 95}, {".", 190, 46}, {",", 188, 44},   {"'", 222, 39}, {"\"", 222, 34},
        {"\b", 8, 8},   {"\n", 13, 13}, {"来", 0, 26469}, {"*", 0, 42},
    };
    Play([&](User& user) {
        for (const auto& row : rows) {
            EXPECT_TRUE(user.Type(form->first, row.character));
            EXPECT_EQ(form->TakeTold(), (Log{"form key down " + std::to_string(row.keyCode),
                                             "form key press " + std::to_string(row.code)}))
                << row.character;
        }
        user.Type(form->second, "往来ab");
        EXPECT_EQ(form->second.text(), "往来ab");
    });
}

TEST_F(UserTest, TypesOverTheSelection) {
    Play([&](User& user) {
        user.Text(form->first, "0100");
        form->first.Select(0, 4);
        user.Type(form->first, "29");
        EXPECT_EQ(form->first.text(), "29");
    });
}

TEST_F(UserTest, TypesOnWhereAKeyMovesTheFocus) {
    Play([&](User& user) { user.Type(form->first, "a\tb"); });
    EXPECT_EQ(form->first.text(), "a");
    EXPECT_EQ(form->second.text(), "b");
}

TEST_F(UserTest, StopsTypingWhereTheFormCloses) {
    form->first.onKeyPress = [this](std::int32_t& code) {
        if (code == 'b') form->Hide();
    };
    Play([&](User& user) { user.Type(form->first, "abc"); });
    EXPECT_EQ(form->first.text(), "ab");
}

TEST_F(UserTest, PressesAKeyWithTheCharacterThatItTypes) {
    Play([&](User& user) {
        for (const std::int32_t key : {65, 55, 32, 188, 189, 190, 222, 118}) {
            EXPECT_TRUE(user.Key(form->first, key));
        }
        EXPECT_EQ(form->first.text(), "a7 ,-.'");
        EXPECT_TRUE(user.Key(form->first, 8));
        EXPECT_EQ(form->first.text(), "a7 ,-.");
        EXPECT_EQ(form->TakeTold().front(), "form key down 65");
    });
}

}  // namespace
}  // namespace qor
