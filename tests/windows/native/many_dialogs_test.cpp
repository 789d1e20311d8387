// A host lives for a working day: what a dialog took from the system it gives back.
#include <gtest/gtest.h>

#include <string>

#include "support/scheme_user.h"
#include "windows/instance.h"
#include "windows/native/screen.h"

namespace qor::windows {
namespace {

using test::Person;
using test::SchemeUser;

constexpr int kDialogs = 300;
constexpr DWORD kSlack = kDialogs / 10;  // what the system itself keeps at times

// Where the system does not count (as wine does not), the counts are 0 and the places tell.
/// The place that the system's table has for the next object: it takes the places that have become free.
DWORD NextPlace(const void* object) { return LOWORD(reinterpret_cast<ULONG_PTR>(object)); }

struct Holdings {
    DWORD windows, drawing, kernel, windowPlace, drawingPlace;

    static Holdings Now() {
        Holdings now{};
        now.windows = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
        now.drawing = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
        GetProcessHandleCount(GetCurrentProcess(), &now.kernel);
        const HWND window =
            CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, nullptr, nullptr, ThisInstance(), nullptr);
        now.windowPlace = NextPlace(window);
        DestroyWindow(window);
        const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
        now.drawingPlace = NextPlace(brush);
        DeleteObject(brush);
        return now;
    }
};

void ShowAndCancel(SchemeUser& user) {
    user.Show([](Person&) {});
}

TEST(ManyDialogs, GiveBackWhatTheyTook) {
    SchemeUser user("Rpt10503");
    for (int i = 0; i < 10; ++i) {
        ShowAndCancel(user);
    }
    const Holdings before = Holdings::Now();
    for (int i = 0; i < kDialogs; ++i) {
        ShowAndCancel(user);
    }
    const Holdings after = Holdings::Now();
    EXPECT_LE(after.windows, before.windows + kSlack);
    EXPECT_LE(after.drawing, before.drawing + kSlack);
    EXPECT_LE(after.kernel, before.kernel + kSlack);
    EXPECT_LE(after.windowPlace, before.windowPlace + kSlack);
    EXPECT_LE(after.drawingPlace, before.drawingPlace + kSlack);

    user.Show([](Person& person) {
        Screen screen(person.form());
        person.Text("txtItem(0)", "01");
        EXPECT_EQ(screen.TextOf("txtItem(0)"), "01");
        screen.Press("确定(&O)");
        EXPECT_FALSE(person.form().IsVisible());
    });
    EXPECT_EQ(user.FilterValue("BCustNumber"), Value("01"));
}

}  // namespace
}  // namespace qor::windows
