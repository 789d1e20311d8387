// What a person has typed but not left yet: it counts when the dialog is confirmed from the keyboard, and
// goes with a dialog that is closed.
#include <gtest/gtest.h>

#include "support/scheme_user.h"
#include "windows/native/screen.h"

namespace qor::windows {
namespace {

using test::Person;
using test::SchemeUser;

/// Types the first digit of a picker's month, which it takes over only when it is left.
void BeginMonth(Person& person, const char* picker, const char* digit) {
    person.Date(picker, "2020-09-15");
    person.Focus(picker);
    person.Key(picker, VK_RIGHT);
    person.Key(picker, VK_RIGHT);
    person.Type(picker, digit);
}

TEST(Typing, AMonthThatIsLeftByTheTabKeyCounts) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        BeginMonth(person, "DtpBDate", "5");
        Screen screen(person.form());
        screen.Tab();
        EXPECT_EQ(person.Reads("DtpBDate"), "2020-05-15");
        EXPECT_EQ(person.FocusedControl(), "DtpEDate");
        EXPECT_EQ(screen.Focused(), "DtpEDate");
    });
}

TEST(Typing, AMonthThatIsLeftByTheEnterKeyCounts) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        BeginMonth(person, "DtpBDate", "5");
        person.Key("DtpBDate", VK_RETURN);
        EXPECT_EQ(person.Reads("DtpBDate"), "2020-05-15");
        EXPECT_EQ(person.FocusedControl(), "DtpEDate");
    });
}

TEST(Typing, AMonthCountsWhereAMnemonicConfirms) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        person.Date("DtpEDate", "2020-09-20");
        BeginMonth(person, "DtpBDate", "5");
        Screen(person.form()).Mnemonic(L'o');
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_EQ(user.FilterValue("DtpBDate"), Value("2020-05-15"));
}

TEST(Typing, AMonthCountsWhereTheFramesMnemonicConfirms) {
    SchemeUser user("Rpt10502");
    user.Show([](Person& person) {
        BeginMonth(person, "DtpBDate", "5");
        Screen(person.form()).Mnemonic(L'o');
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2020-05-15")));
}

/// Opens the cell of a row's limit and types into it.
void BeginCell(Person& person, const char* text) {
    person.Row("grid", 2);
    person.Key("grid", VK_F2);
    const HWND editor = GetFocus();
    EXPECT_NE(editor, Screen(person.form()).WindowOf("grid"));
    SetWindowTextW(editor, Wide(text).c_str());
}

TEST(Typing, ACellCountsWhereAMnemonicConfirms) {
    SchemeUser user("Rpt10530");
    user.Show([](Person& person) {
        BeginCell(person, "45");
        Screen(person.form()).Mnemonic(L'o');
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_EQ(user.FilterValue("grid"),
              Value("1至30天,30,0|31至45天,45,31|46至90天,90,46|91天以上,......,91"));
}

TEST(Typing, AWrongCellKeepsAMnemonicFromConfirming) {
    SchemeUser user("Rpt10530");
    user.Show([&](Person& person) {
        user.host.platform.windows().boxes.clear();
        BeginCell(person, "abc");
        Screen(person.form()).Mnemonic(L'e');
        EXPECT_EQ(user.host.platform.windows().boxes.size(), 1u);
    });
}

TEST(Typing, ACellGoesWithADialogThatIsClosed) {
    SchemeUser user("Rpt10530");
    user.Show([&](Person& person) {
        user.host.platform.windows().boxes.clear();
        BeginCell(person, "abc");
        SendMessageW(Screen(person.form()).window(), WM_CLOSE, 0, 0);
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_TRUE(user.host.platform.windows().boxes.empty()) << "a closed dialog speaks of its cell";
    EXPECT_EQ(user.ResultValue("OK"), Value(false));
}

TEST(Typing, TextGoesWithADialogThatIsClosed) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        person.Type("txtItem(0)", "01");
        SendMessageW(Screen(person.form()).window(), WM_CLOSE, 0, 0);
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_EQ(user.ResultValue("OK"), Value(false));
}

}  // namespace
}  // namespace qor::windows
