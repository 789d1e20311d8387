#include "platform/grid.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/headless.h"
#include "platform/user.h"
#include "support/grid_text.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::ColumnText;
using test::LockText;
using test::RaisedBy;

/// A form with a grid of three columns and a box to go to.
class Sheet final : public Form {
 public:
    explicit Sheet(WindowSystem& windows) : Form(windows, "Sheet", {1000, 1000}) {}
    Grid grid{*this, "grid", 3, 3, {}};
    TextBox box{*this, "box", "", {}};
};

class GridTest : public testing::Test {
 protected:
    void Fill(std::int32_t column, const std::vector<std::string>& texts) {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            grid.SetText(column, static_cast<std::int32_t>(i) + 1, texts[i]);
        }
    }

    HeadlessWindows windows;
    Ref<Sheet> form = MakeRef<Sheet>(windows);
    Grid& grid = form->grid;
    User user{*form};
};

TEST_F(GridTest, StartsEmptyAndUnlockedInItsFirstRow) {
    EXPECT_EQ(grid.MaxCols(), 3);
    EXPECT_EQ(grid.MaxRows(), 3);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_EQ(ColumnText(grid, 2), "||");
    EXPECT_EQ(LockText(grid, 2), "...");
}

TEST_F(GridTest, CellsOutsideTheGridAreEmptyTakeNothingAndAreLocked) {
    struct Outside {
        std::int32_t column, row;
    };
    for (const auto& [column, row] :
         {Outside{0, 1}, Outside{4, 1}, Outside{1, 0}, Outside{1, 4}, Outside{1, -1}, Outside{-1, -1}}) {
        grid.SetText(column, row, "x");
        EXPECT_EQ(grid.GetText(column, row), "") << column << ", " << row;
        EXPECT_TRUE(grid.IsLocked(column, row)) << column << ", " << row;
    }
    for (std::int32_t column = 1; column <= 3; ++column) {
        EXPECT_EQ(ColumnText(grid, column), "||");
    }
}

TEST_F(GridTest, MoreRowsComeEmptyAndFewerCutOff) {
    Fill(1, {"a", "b", "c"});
    grid.SetMaxRows(4);
    EXPECT_EQ(ColumnText(grid, 1), "a|b|c|");
    grid.SetActiveRow(4);
    grid.SetMaxRows(2);
    EXPECT_EQ(ColumnText(grid, 1), "a|b");
    EXPECT_EQ(grid.ActiveRow(), 2);
    grid.SetMaxRows(3);
    EXPECT_EQ(ColumnText(grid, 1), "a|b|");
    EXPECT_EQ(RaisedBy([&] { grid.SetMaxRows(-1); }), Automation::InvalidCall);
}

TEST_F(GridTest, AGridWithoutRowsHasNoActiveRow) {
    grid.SetMaxRows(0);
    EXPECT_EQ(grid.ActiveRow(), 0);
    grid.SetMaxRows(1);
    EXPECT_EQ(grid.ActiveRow(), 1);
}

TEST_F(GridTest, DeletedRowsLetTheRowsBelowMoveUpWithTheirLocks) {
    struct Case {
        std::int32_t row, count;
        const char* texts;
        const char* locks;
        std::int32_t active;
    };
    for (const Case& c : {Case{1, 1, "b|c", ".L", 2}, Case{2, 1, "a|c", ".L", 2}, Case{3, 1, "a|b", "..", 2},
                          Case{2, 9, "a", ".", 1}, Case{1, 3, "", "", 0}, Case{0, 1, "a|b|c", "..L", 3},
                          Case{4, 1, "a|b|c", "..L", 3}, Case{2, 0, "a|b|c", "..L", 3}}) {
        grid.SetMaxRows(0);
        grid.SetMaxRows(3);
        Fill(1, {"a", "b", "c"});
        grid.SetLock({1, 3, 1, 3}, true);
        grid.SetActiveRow(3);
        grid.DeleteRows(c.row, c.count);
        EXPECT_EQ(ColumnText(grid, 1), c.texts) << c.row << " " << c.count;
        EXPECT_EQ(LockText(grid, 1), c.locks) << c.row << " " << c.count;
        EXPECT_EQ(grid.ActiveRow(), c.active) << c.row << " " << c.count;
    }
}

TEST_F(GridTest, ABlockIsClearedWithItsLocksLeftAlone) {
    Fill(1, {"a", "b", "c"});
    Fill(2, {"d", "e", "f"});
    grid.SetLock({1, 1, 1, 3}, true);
    grid.ClearRange({1, 2, 3, 9});
    EXPECT_EQ(ColumnText(grid, 1), "a||");
    EXPECT_EQ(ColumnText(grid, 2), "d||");
    EXPECT_EQ(LockText(grid, 1), "LLL");
}

TEST_F(GridTest, ALockToTheLastRowHoldsForRowsToCome) {
    grid.SetLock({1, 1, 1, -1}, true);
    grid.SetLock({2, 2, 2, grid.MaxRows()}, true);
    grid.SetMaxRows(4);
    EXPECT_EQ(LockText(grid, 1), "LLLL");
    EXPECT_EQ(LockText(grid, 2), ".LL.");
    grid.SetLock({1, 1, 1, -1}, false);
    grid.SetMaxRows(5);
    EXPECT_EQ(LockText(grid, 1), ".....");
}

TEST_F(GridTest, ALockOfRowsBeyondTheEndLocksNothing) {
    grid.SetLock({2, 4, 2, grid.MaxRows()}, true);
    grid.SetMaxRows(4);
    EXPECT_EQ(LockText(grid, 2), "....");
}

TEST_F(GridTest, TheUserCannotEditWhatIsLockedHiddenOrOutside) {
    grid.SetLock({1, 1, 1, -1}, true);
    grid.SetColumnHidden(3, true);
    EXPECT_FALSE(user.Cell(grid, 1, 1, "x"));
    EXPECT_FALSE(user.Cell(grid, 1, 3, "x"));
    EXPECT_FALSE(user.Cell(grid, 4, 2, "x"));
    EXPECT_TRUE(user.Cell(grid, 2, 2, "x"));
    EXPECT_EQ(ColumnText(grid, 1) + ColumnText(grid, 2) + ColumnText(grid, 3), "|||x|||");
    EXPECT_EQ(grid.ActiveRow(), 2);
}

TEST_F(GridTest, AnEditTellsOfEnteringAndOfLeavingWithTheNewTextInTheCell) {
    std::vector<std::string> heard;
    grid.onEditMode = [&](std::int32_t column, std::int32_t row, std::int16_t mode, bool changed) {
        heard.push_back(std::to_string(column) + "," + std::to_string(row) + "," + std::to_string(mode) +
                        (changed ? " changed to " : " was ") + grid.GetText(column, row));
    };
    grid.SetText(2, 3, "old");
    EXPECT_TRUE(user.Cell(grid, 3, 2, "new"));
    EXPECT_EQ(heard, (std::vector<std::string>{"2,3,1 was old", "2,3,0 changed to new"}));
}

TEST_F(GridTest, ComingToTheGridIsToldOnceAndBeforeTheEdit) {
    std::vector<std::string> heard;
    grid.onGotFocus = [&] {
        heard.emplace_back("came");
        grid.SetLock({2, 1, 2, 1}, true);
    };
    EXPECT_FALSE(user.Cell(grid, 1, 2, "x"));
    EXPECT_TRUE(user.Cell(grid, 2, 2, "y"));
    EXPECT_EQ(heard.size(), 1u);
    EXPECT_TRUE(user.Focus(form->box));
    EXPECT_TRUE(user.Row(grid, 1));
    EXPECT_EQ(heard.size(), 2u);
}

TEST_F(GridTest, TheUserMovesBetweenTheRowsThatAreThere) {
    EXPECT_TRUE(user.Row(grid, 3));
    EXPECT_EQ(grid.ActiveRow(), 3);
    EXPECT_FALSE(user.Row(grid, 4));
    EXPECT_FALSE(user.Row(grid, 0));
    EXPECT_EQ(grid.ActiveRow(), 3);
}

TEST_F(GridTest, AColumnKeepsTheWidthThatItIsGiven) {
    EXPECT_EQ(grid.ColumnWidth(1), 0) << "nobody has said";
    grid.SetColumnWidth(1, 2400);
    grid.SetColumnWidth(99, 100);
    EXPECT_EQ(grid.ColumnWidth(1), 2400);
    EXPECT_EQ(grid.ColumnWidth(2), 0);
    EXPECT_EQ(grid.ColumnWidth(99), 0);
}

TEST_F(GridTest, AHiddenOrDisabledGridLosesTheAction) {
    grid.SetEnabled(false);
    EXPECT_FALSE(user.Cell(grid, 1, 2, "x"));
    grid.SetEnabled(true);
    grid.SetVisible(false);
    EXPECT_FALSE(user.Row(grid, 2));
    EXPECT_EQ(ColumnText(grid, 2), "||");
    EXPECT_EQ(grid.ActiveRow(), 1);
}

}  // namespace
}  // namespace qor
