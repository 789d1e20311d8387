// What the system's own controls do with the keyboard arrives in the models.
#include <gtest/gtest.h>

#include "support/scheme_user.h"
#include "windows/native/screen.h"

namespace qor::windows {
namespace {

using test::Person;
using test::SchemeUser;

TEST(Keyboard, UpAndDownInABoxPressTheArrowsBesideIt) {
    SchemeUser user("Rpt10521");
    user.host.platform.Component("QORMArApRpt.Data").Answers("GetItemMaxLevel", 4);
    user.Show([](Person& person) {
        const Screen screen(person.form());
        person.Text("txtlevel2", "2");
        person.Key("txtlevel2", VK_UP);
        EXPECT_EQ(person.Reads("txtlevel2"), "3");
        EXPECT_EQ(screen.TextOf("txtlevel2"), "3");
        person.Key("txtlevel2", VK_UP);
        person.Key("txtlevel2", VK_UP);
        EXPECT_EQ(person.Reads("txtlevel2"), "4") << "the deepest level";
        person.Key("txtlevel2", VK_DOWN);
        EXPECT_EQ(person.Reads("txtlevel2"), "3");
        EXPECT_EQ(person.Reads("txtlevel1"), "1");
    });
}

TEST(Keyboard, TheArrowsBesideABoxArePressedWithTheMouse) {
    SchemeUser user("Rpt10521");
    user.host.platform.Component("QORMArApRpt.Data").Answers("GetItemMaxLevel", 4);
    user.Show([](Person& person) {
        person.Text("txtlevel2", "2");
        EXPECT_TRUE(person.Spin("udELevel", 4));
        EXPECT_EQ(Screen(person.form()).TextOf("txtlevel2"), "4");
        EXPECT_EQ(person.FocusedControl(), "udELevel");
    });
}

TEST(Keyboard, ADayIsTypedIntoThePicker) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        Screen screen(person.form());
        person.Date("DtpEDate", "2026-11-30");
        person.Focus("DtpBDate");
        screen.ClickAtLeft("DtpBDate");  // the year
        person.Type("DtpBDate", "2025");
        person.Key("DtpBDate", VK_RIGHT);
        person.Type("DtpBDate", "07");
        person.Key("DtpBDate", VK_RIGHT);
        person.Type("DtpBDate", "19");
        person.Focus("DtpEDate");
        EXPECT_EQ(person.Reads("DtpBDate"), "2025-07-19");
        EXPECT_EQ(screen.TextOf("DtpBDate"), "2025-07-19");
    });
}

TEST(Keyboard, UpAndDownMoveAPartOfTheDay) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        Screen screen(person.form());
        person.Date("DtpEDate", "2026-11-30");
        person.Date("DtpBDate", "2026-07-19");
        screen.ClickAtLeft("DtpBDate");
        person.Key("DtpBDate", VK_DOWN);
        EXPECT_EQ(person.Reads("DtpBDate"), "2025-07-19");
        person.Key("DtpBDate", VK_RIGHT);
        person.Key("DtpBDate", VK_UP);
        EXPECT_EQ(person.Reads("DtpBDate"), "2025-08-19");
    });
}

HWND OpenCalendar(const Screen& screen, std::string_view picker) {
    const HWND window = screen.WindowOf(picker);
    RECT area{};
    GetClientRect(window, &area);
    const LPARAM arrow = MAKELPARAM(area.right - 5, area.bottom / 2);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, arrow);
    SendMessageW(window, WM_LBUTTONUP, 0, arrow);
    return reinterpret_cast<HWND>(SendMessageW(window, DTM_GETMONTHCAL, 0, 0));
}

TEST(Keyboard, ACalendarThatOpensKeepsTheKeyboard) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        person.Focus("txtItem(0)");
        const HWND calendar = OpenCalendar(Screen(person.form()), "DtpBDate");
        SetFocus(calendar);  // as some versions of the system do
        NativePlay::Settle();
        EXPECT_EQ(person.FocusedControl(), "DtpBDate");
        EXPECT_EQ(GetFocus(), calendar);
        EXPECT_TRUE(IsWindowVisible(calendar));
    });
}

TEST(Keyboard, ControlAInABoxSelectsAllAndControlBackspaceTypesNothing) {
    constexpr WPARAM kControlA = 1, kControlBackspace = 127;
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        person.Text("txtItem(0)", "01.02");
        const HWND box = Screen(person.form()).WindowOf("txtItem(0)");
        SendMessageW(box, WM_CHAR, kControlBackspace, 1);
        EXPECT_EQ(person.Reads("txtItem(0)"), "01.02");
        SendMessageW(box, WM_CHAR, kControlA, 1);
        EXPECT_EQ(SendMessageW(box, EM_GETSEL, 0, 0), MAKELRESULT(0, 5));
        person.Type("txtItem(0)", "7");
        EXPECT_EQ(person.Reads("txtItem(0)"), "7");
    });
}

bool IsOpen(const Screen& screen, std::string_view list) {
    return SendMessageW(screen.WindowOf(list), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

TEST(Keyboard, F4OpensAListAndEnterTakesTheEntry) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        const Screen screen(person.form());
        const std::string before = person.Reads("cmbCheckState");
        person.Key("cmbCheckState", VK_F4);
        EXPECT_TRUE(IsOpen(screen, "cmbCheckState"));
        person.Key("cmbCheckState", VK_DOWN);
        person.Key("cmbCheckState", VK_RETURN);
        EXPECT_FALSE(IsOpen(screen, "cmbCheckState"));
        EXPECT_TRUE(person.form().IsVisible()) << "the key was the list's";
        EXPECT_NE(person.Reads("cmbCheckState"), before);
    });
}

TEST(Keyboard, AltAndDownOpensAListAndAltAndUpClosesIt) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        person.Focus("cmbCheckState");
        Screen screen(person.form());
        screen.AltKey(VK_DOWN);
        EXPECT_TRUE(IsOpen(screen, "cmbCheckState"));
        screen.AltKey(VK_UP);
        EXPECT_FALSE(IsOpen(screen, "cmbCheckState"));
    });
}

}  // namespace
}  // namespace qor::windows
