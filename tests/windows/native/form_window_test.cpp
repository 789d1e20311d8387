#include "windows/form_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/scheme_user.h"
#include "windows/native/screen.h"

namespace qor::windows {
namespace {

using test::Person;
using test::SchemeUser;

TEST(FormWindow, StandsOverTheHostsWindowAndKeepsItFromBeingUsed) {
    const HWND host = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                      nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(host);
    SchemeUser user("Rpt10522");
    user.Show([&](Person& person) {
        const Screen screen(person.form());
        EXPECT_EQ(GetWindow(screen.window(), GW_OWNER), host);
        EXPECT_FALSE(IsWindowEnabled(host));
    });
    EXPECT_TRUE(IsWindowEnabled(host));
    DestroyWindow(host);
}

TEST(FormWindow, GoesWithTheHostsWindowAsIfItWereCancelled) {
    for (const char* report : {"Rpt10522", "Rpt10503", "Rpt10530"}) {
        const HWND host = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                          nullptr, nullptr, nullptr, nullptr);
        SetActiveWindow(host);
        SchemeUser user(report);
        user.Show([&](Person& person) {
            const HWND window = Screen(person.form()).window();
            DestroyWindow(host);
            EXPECT_FALSE(IsWindow(window));
            EXPECT_FALSE(person.form().IsVisible());
        });
        EXPECT_EQ(user.ResultValue("OK"), Value(false));
        user.Show([](Person& person) { EXPECT_TRUE(IsWindowVisible(Screen(person.form()).window())); });
    }
}

TEST(FormWindow, StaysOnItsMonitorWhenItGrows) {
    SchemeUser user("Rpt10503");
    user.Show([](Person& person) {
        Screen screen(person.form());
        screen.Press("常用条件(&H)");
        RECT work{}, small{}, grown{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        GetWindowRect(screen.window(), &small);
        const int top = static_cast<int>(work.bottom - (small.bottom - small.top));
        SetWindowPos(screen.window(), nullptr, 10, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        screen.Press("全部条件(&H)");
        GetWindowRect(screen.window(), &grown);
        EXPECT_EQ(grown.bottom, work.bottom);
        EXPECT_LT(grown.top, top);
        EXPECT_EQ(grown.left, 10);
    });
}

TEST(FormWindow, TheCloseBoxCancels) {
    for (const char* report : {"Rpt10522", "Rpt10503"}) {
        SchemeUser user(report);
        user.Show([](Person& person) {
            const Screen screen(person.form());
            SendMessageW(screen.window(), WM_SYSCOMMAND, SC_CLOSE, 0);
            NativePlay::Settle();
            EXPECT_FALSE(person.form().IsVisible());
        });
        EXPECT_EQ(user.ResultValue("OK"), Value(false));
    }
}

TEST(FormWindow, AMnemonicPressesItsButton) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        Screen(person.form()).Mnemonic(L'o');
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_EQ(user.ResultValue("OK"), Value(true));
}

TEST(FormWindow, AnOpenListTakesTheEscapeKey) {
    SchemeUser user("Rpt10522");
    user.Show([](Person& person) {
        person.Focus("cmbCheckState");
        const HWND list = Screen(person.form()).WindowOf("cmbCheckState");
        SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
        person.Key("cmbCheckState", VK_ESCAPE);
        EXPECT_TRUE(person.form().IsVisible());
        EXPECT_FALSE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
        person.Key("cmbCheckState", VK_ESCAPE);
        EXPECT_FALSE(person.form().IsVisible());
    });
}

TEST(FormWindow, ShowsWhatCodeChangesAndWhatIsHidden) {
    SchemeUser user("Rpt10503");
    user.Show([](Person& person) {
        Screen screen(person.form());
        EXPECT_FALSE(IsWindowVisible(screen.WindowOf("cboTotal")));
        person.Check("chkMultiLevel", 1);
        EXPECT_TRUE(IsWindowVisible(screen.WindowOf("cboTotal")));
        EXPECT_EQ(screen.TextOf("cboTotal"), "客户") << "the code behind the blanks is not shown";
        person.Check("chkIncludeWT", 1);
        EXPECT_FALSE(IsWindowEnabled(screen.WindowOf("cmbCheckState")));
        EXPECT_EQ(screen.TextOf("cmbCheckState"), "全部");
    });
}

}  // namespace
}  // namespace qor::windows
