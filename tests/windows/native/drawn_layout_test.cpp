#include <gtest/gtest.h>

#include "library.h"
#include "platform/frame_owner.h"
#include "support/scheme_user.h"
#include "windows/native/screen.h"

namespace qor::windows {
namespace {

constexpr int kScales[] = {96, 144, 192};  // dots per inch: 100, 150 and 200 percent

bool IsOfClass(HWND window, std::wstring_view name) {
    wchar_t own[32] = {};
    GetClassNameW(window, own, 32);
    return name == own;
}

/// The width that a window's text takes, with the tick or the border that belong to it.
int NeededWidth(HWND window) {
    const std::wstring text = TextOf(window);
    const HDC context = GetDC(window);
    const HGDIOBJ before =
        SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)));
    RECT area{};
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &area, DT_CALCRECT | DT_SINGLELINE);
    const int dots = GetDeviceCaps(context, LOGPIXELSX);
    SelectObject(context, before);
    ReleaseDC(window, context);
    if (!IsOfClass(window, L"Button")) return area.right;
    const LONG kind = GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK;
    const bool ticked = kind == BS_3STATE || kind == BS_RADIOBUTTON;
    return area.right + (ticked ? MulDiv(16, dots, 96) : 4);
}

/// Has the system tell the form that it stands on a monitor of that resolution.
void MoveToScale(const Screen& screen, int dotsPerInch) {
    constexpr UINT kDotsChanged = 0x02E0;
    RECT place{};
    GetWindowRect(screen.window(), &place);
    SendMessageW(screen.window(), kDotsChanged,
                 MAKEWPARAM(static_cast<WORD>(dotsPerInch), static_cast<WORD>(dotsPerInch)),
                 reinterpret_cast<LPARAM>(&place));
    NativePlay::Settle();
}

void CheckTexts(const Screen& screen, const std::string& where) {
    for (HWND window : screen.Shown()) {
        if (!IsOfClass(window, L"Static") && !IsOfClass(window, L"Button")) continue;
        RECT client{};
        GetClientRect(window, &client);
        EXPECT_LE(NeededWidth(window), client.right) << where << ": " << Narrow(TextOf(window));
    }
}

void CheckPlaces(const Screen& screen, const std::string& where) {
    const std::vector<HWND> shown = screen.Shown();
    RECT form{};
    GetClientRect(screen.window(), &form);
    MapWindowPoints(screen.window(), nullptr, reinterpret_cast<POINT*>(&form), 2);
    const auto isGroup = [](HWND window) {
        return IsOfClass(window, L"Button") &&
               (GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
    };
    for (HWND a : shown) {
        if (GetParent(a) != screen.window()) continue;
        RECT place{}, common{};
        GetWindowRect(a, &place);
        IntersectRect(&common, &place, &form);
        EXPECT_TRUE(EqualRect(&common, &place)) << where << ": " << Narrow(TextOf(a));
        for (HWND b : shown) {
            if (a >= b || GetParent(b) != screen.window() || isGroup(a) || isGroup(b)) continue;
            RECT other{};
            GetWindowRect(b, &other);
            EXPECT_FALSE(IntersectRect(&common, &place, &other))
                << where << ": " << Narrow(TextOf(a)) << " and " << Narrow(TextOf(b));
        }
    }
}

/// Tab goes down row by row, and in a row from left to right.
void CheckTabOrder(Screen& screen, const std::string& where) {
    constexpr LONG kSameRow = 6;  // pixels; a check box stands a little lower than a text box beside it
    const HWND first = GetFocus();
    for (int stops = 0; stops < 100; ++stops) {
        RECT from{}, to{};
        GetWindowRect(GetFocus(), &from);
        const std::string name = screen.Focused();
        screen.Tab();
        if (GetFocus() == first) return;
        GetWindowRect(GetFocus(), &to);
        EXPECT_TRUE(to.top > from.top + kSameRow || (to.top > from.top - kSameRow && to.left > from.left))
            << where << ": " << screen.Focused() << " behind " << name;
    }
    ADD_FAILURE() << where << ": the Tab key never comes round";
}

TEST(DrawnLayout, TheTabKeyGoesAsAPersonReads) {
    for (const ReportEntry& entry : Reports()) {
        test::ReportHost host;
        host.platform.Bag().Put("AppType", 4);
        host.InDialog([&](Form& form) {
            if (auto* levels = dynamic_cast<CheckBox*>(form.Find("chkMultiLevel"))) levels->SetValue(1);
            Screen screen(form);
            CheckTabOrder(screen, std::string(form.ClassName()));
            SchemeFrame* frame = dynamic_cast<FrameOwner&>(form).schemeFrame();
            if (!frame) return;
            frame->SwitchPanel(false);
            CheckTabOrder(screen, std::string(form.ClassName()) + " with the common panel");
        });
        host.Create("Rpt" + std::to_string(entry.description.number))->Call("ShowFilter");
    }
}

TEST(DrawnLayout, NothingIsCutOffAndNothingOverlapsAtAnyScale) {
    int dialogs = 0;
    for (const ReportEntry& entry : Reports()) {
        test::ReportHost host;
        host.platform.Bag().Put("AppType", 4);
        host.InDialog([&](Form& form) {
            ++dialogs;
            if (auto* levels = dynamic_cast<CheckBox*>(form.Find("chkMultiLevel"))) levels->SetValue(1);
            const Screen screen(form);
            for (const int dots : kScales) {
                MoveToScale(screen, dots);
                const std::string where = std::string(form.ClassName()) + " at " + std::to_string(dots);
                CheckTexts(screen, where);
                CheckPlaces(screen, where);
            }
        });
        host.Create("Rpt" + std::to_string(entry.description.number))->Call("ShowFilter");
    }
    EXPECT_EQ(dialogs, 17) << "the matching balance opens only where parties are matched";
}

TEST(DrawnLayout, AFormGrowsWithTheResolutionOfItsMonitor) {
    test::SchemeUser user("Rpt10522");
    user.Show([](test::Person& person) {
        const Screen screen(person.form());
        const Form::Size size = person.form().size();
        for (const int dots : kScales) {
            MoveToScale(screen, dots);
            EXPECT_EQ(screen.ClientSize().cx, MulDiv(size.width, dots, 1440));
            EXPECT_EQ(screen.ClientSize().cy, MulDiv(size.height, dots, 1440));
        }
    });
}

}  // namespace
}  // namespace qor::windows
