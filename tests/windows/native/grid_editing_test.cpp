// What a person does in a grid beyond typing a cell and leaving it.
#include <gtest/gtest.h>

#include "support/scheme_user.h"
#include "windows/native/screen.h"

namespace qor::windows {
namespace {

using test::Person;
using test::SchemeUser;

constexpr WPARAM kControlA = 1, kControlC = 3, kControlV = 22, kControlX = 24, kControlBackspace = 127;

/// The grid of the age groups, and a person who is in it.
class GridUser {
 public:
    explicit GridUser(Person& person, int row = 2)
        : grid(test::ControlOf<Grid>(person.form(), "grid")),
          window(Screen(person.form()).WindowOf("grid")),
          person_(person) {
        EXPECT_TRUE(person.Row("grid", row));
    }

    void Character(WPARAM character) const {
        SendMessageW(GetFocus(), WM_CHAR, character, 1);
        NativePlay::Settle();
    }
    void Key(std::int32_t keyCode) const { person_.Key("grid", keyCode); }
    bool IsEditing() const { return GetFocus() != window; }
    std::string Typed() const { return Narrow(windows::TextOf(GetFocus())); }
    std::string Days(std::int32_t row) const { return grid.GetText(2, row); }

    Grid& grid;
    HWND window;

 private:
    Person& person_;
};

void InTheGrid(const std::function<void(Person&, GridUser&)>& play) {
    SchemeUser user("Rpt10530");
    user.Show([&](Person& person) {
        GridUser hand(person);
        play(person, hand);
    });
}

TEST(GridEditing, AWordOfAnInputMethodArrivesWhole) {
    InTheGrid([](Person&, GridUser& hand) {
        // All of its characters are sent to the window in which it began.
        SendMessageW(hand.window, WM_CHAR, L'四', 1);
        SendMessageW(hand.window, WM_CHAR, L'十', 1);
        SendMessageW(hand.window, WM_CHAR, L'五', 1);
        EXPECT_EQ(hand.Typed(), "四十五");
        hand.Key(VK_ESCAPE);
        EXPECT_EQ(hand.Days(2), "60");
    });
}

TEST(GridEditing, ACellIsCopiedAndPastedOverAnother) {
    InTheGrid([](Person&, GridUser& hand) {
        hand.Character(kControlC);
        EXPECT_FALSE(hand.IsEditing());
        hand.Key(VK_DOWN);
        hand.Key(VK_DOWN);
        hand.Key(VK_UP);
        hand.Key(VK_F2);
        hand.Character(L'7');
        hand.Character(L'5');
        hand.Character(kControlA);
        SendMessageW(GetFocus(), WM_COPY, 0, 0);
        hand.Key(VK_ESCAPE);
        EXPECT_EQ(hand.Days(3), "90");
        hand.Character(kControlV);
        EXPECT_FALSE(hand.IsEditing());
        EXPECT_EQ(hand.Days(3), "75");
        EXPECT_EQ(hand.grid.GetText(1, 4), "76天以上") << "a pasted limit counts as a typed one";
    });
}

TEST(GridEditing, ALockedCellIsCopiedButTakesNothing) {
    InTheGrid([](Person&, GridUser& hand) {
        hand.Key(VK_LEFT);
        hand.Character(kControlC);
        hand.Character(kControlV);
        hand.Character(kControlX);
        hand.Character(VK_BACK);
        hand.Character(L'7');
        EXPECT_FALSE(hand.IsEditing());
        EXPECT_EQ(hand.grid.GetText(1, 2), "31至60天");
        hand.Key(VK_RIGHT);
        hand.Character(VK_BACK);
        SendMessageW(GetFocus(), WM_PASTE, 0, 0);
        EXPECT_EQ(hand.Typed(), "31至60天");
        hand.Key(VK_ESCAPE);
    });
}

TEST(GridEditing, BackspaceBeginsAnEmptyCellAndWithControlTypesNothing) {
    InTheGrid([](Person&, GridUser& hand) {
        hand.Character(kControlBackspace);
        EXPECT_FALSE(hand.IsEditing());
        hand.Character(VK_BACK);
        ASSERT_TRUE(hand.IsEditing());
        EXPECT_EQ(hand.Typed(), "");
        hand.Character(kControlBackspace);
        EXPECT_EQ(hand.Typed(), "");
        hand.Key(VK_ESCAPE);
        EXPECT_EQ(hand.Days(2), "60");
    });
}

TEST(GridEditing, UpAndDownLeaveTheCellThatIsTyped) {
    InTheGrid([](Person&, GridUser& hand) {
        hand.Character(L'4');
        hand.Character(L'5');
        hand.Key(VK_DOWN);
        EXPECT_FALSE(hand.IsEditing());
        EXPECT_EQ(hand.grid.ActiveRow(), 3);
        EXPECT_EQ(hand.grid.GetText(1, 2), "31至45天");
        hand.Key(VK_F2);
        hand.Key(VK_UP);
        EXPECT_FALSE(hand.IsEditing());
        EXPECT_EQ(hand.grid.ActiveRow(), 2);
    });
}

TEST(GridEditing, ACellWaitsWhileAnotherProgramHasTheKeyboard) {
    SchemeUser user("Rpt10530");
    user.Show([&](Person& person) {
        GridUser hand(person);
        auto& boxes = user.host.platform.windows().boxes;
        boxes.clear();
        hand.Character(L'x');
        const HWND editor = GetFocus();
        SetFocus(nullptr);
        NativePlay::Settle();
        EXPECT_TRUE(boxes.empty()) << "the person is not asked about a cell that he has not left";
        SendMessageW(GetParent(hand.window), WM_ACTIVATE, WA_ACTIVE, 0);
        NativePlay::Settle();
        EXPECT_EQ(GetFocus(), editor);
        SetFocus(nullptr);
        person.Focus("txtItem(0)");
        EXPECT_EQ(boxes.size(), 1u) << "a press on another control leaves it";
    });
}

TEST(GridEditing, ADoubleClickBelowTheRowsOpensNoCell) {
    InTheGrid([](Person&, GridUser& hand) {
        RECT area{};
        GetClientRect(hand.window, &area);
        SendMessageW(hand.window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(area.right - 5, area.bottom - 2));
        EXPECT_FALSE(hand.IsEditing());
        SendMessageW(hand.window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(area.right - 5, 5));
        EXPECT_TRUE(hand.IsEditing());
        EXPECT_EQ(hand.Typed(), "30");
        hand.Key(VK_ESCAPE);
    });
}

TEST(GridEditing, TheBoxOfACellGoesWithItsRow) {
    InTheGrid([](Person& person, GridUser& hand) {
        for (int rows = 0; rows < 20; ++rows) {
            person.Click("cmdAddRow");
        }
        person.Row("grid", 2);
        hand.Key(VK_F2);
        const HWND editor = GetFocus();
        RECT before{}, after{};
        GetWindowRect(editor, &before);
        SendMessageW(hand.window, WM_VSCROLL, SB_LINEDOWN, 0);
        GetWindowRect(editor, &after);
        EXPECT_LT(after.top, before.top);
        SendMessageW(hand.window, WM_VSCROLL, SB_TOP, 0);
        GetWindowRect(editor, &after);
        EXPECT_EQ(after.top, before.top);
        hand.Key(VK_ESCAPE);
    });
}

TEST(GridEditing, AWheelTurnsByPartsOfARow) {
    InTheGrid([](Person& person, GridUser& hand) {
        for (int rows = 0; rows < 20; ++rows) {
            person.Click("cmdAddRow");
        }
        const auto top = [&] { return GetScrollPos(hand.window, SB_VERT); };
        const auto turn = [&](int delta) {
            SendMessageW(hand.window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
        };
        EXPECT_EQ(top(), 1);
        for (int part = 0; part < 4; ++part) {
            turn(-WHEEL_DELTA / 4);
        }
        const int turned = top();
        EXPECT_GT(turned, 1);
        turn(WHEEL_DELTA);
        EXPECT_EQ(top(), 1);
        turn(-WHEEL_DELTA);
        EXPECT_EQ(top(), turned) << "four quarters are a whole";
    });
}

}  // namespace
}  // namespace qor::windows
