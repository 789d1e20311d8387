#include "reports/income/level_boxes.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/person.h"

namespace qor {
namespace {

using test::ControlOf;

/// A form with nothing but a pair of level boxes.
class LevelForm final : public Form {
 public:
    LevelForm(WindowSystem& windows, LowEndLevel lowEnd, std::int32_t deepest)
        : Form(windows, "frmLevels", {6540, 900}), levels(*this, frame, 225, lowEnd) {
        levels.SetMaximum(deepest);
    }

    Frame frame{*this, "Frame1", "", {120, 120, 6300, 690}};
    LevelBoxes levels;
};

struct Levels {
    explicit Levels(LowEndLevel lowEnd, std::int32_t deepest = 5)
        : form(MakeRef<LevelForm>(windows, lowEnd, deepest)), user(*form) {
        levels().OfferBothLevels();
    }
    LevelBoxes& levels() { return form->levels; }
    TextBox& begin() { return levels().beginLevel(); }
    TextBox& end() { return levels().endLevel(); }
    void Set(std::string_view beginLevel, std::string_view endLevel) {
        begin().SetText("1");
        end().SetText(endLevel);
        begin().SetText(beginLevel);
    }
    std::string Both() { return begin().text() + "-" + end().text(); }
    /// Plays the person before the form.
    void Show(const std::function<void(test::Person&)>& play) {
        windows.user = [&](Form&) { play(user); };
        form->ShowModal();
    }
    Spin& spin(std::string_view name) { return ControlOf<Spin>(*form, name); }

    test::PlayedWindows windows;
    Ref<LevelForm> form;
    test::Person user;
};

/// A text that Change has not seen, as a form brings it along.
void SetUnseen(TextBox& box, std::string_view text) {
    const auto change = std::exchange(box.onChange, nullptr);
    box.SetText(text);
    box.onChange = change;
}

struct Correction {
    std::string_view box, text, income, expense;  // what both boxes then hold, begin and end
};

// Both boxes begin with 2 and 4, of 5 levels.
constexpr Correction kCorrections[] = {
    {"txtlevel1", "", "1-4", "1-4"},   {"txtlevel1", "  ", "1-4", "1-4"},  {"txtlevel1", "0", "1-4", "1-4"},
    {"txtlevel1", "-3", "1-4", "1-4"}, {"txtlevel1", "x", "1-4", "1-4"},   {"txtlevel1", "3", "3-4", "3-4"},
    {"txtlevel1", "4", "4-4", "4-4"},  {"txtlevel1", "5", "4-4", "4-4"},   {"txtlevel1", "9", "4-4", "4-4"},
    {"txtlevel2", "", "2-5", "2-5"},   {"txtlevel2", "   ", "2-5", "2-5"}, {"txtlevel2", "0", "1-1", "2-2"},
    {"txtlevel2", "-3", "1-1", "2-2"}, {"txtlevel2", "x", "1-1", "2-2"},   {"txtlevel2", "3", "2-3", "2-3"},
    {"txtlevel2", "5", "2-5", "2-5"},  {"txtlevel2", "6", "2-5", "2-5"},   {"txtlevel2", "1", "1-1", "2-2"},
    {"txtlevel2", "99", "2-5", "2-5"},
};

TEST(LevelBoxes, ChangeCorrectsBothBoxesAtOnce) {
    for (const Correction& row : kCorrections) {
        for (const bool income : {true, false}) {
            Levels levels(income ? LowEndLevel::BeginLevelFollows : LowEndLevel::EndLevelIsHeld);
            levels.Set("2", "4");
            ASSERT_EQ(levels.Both(), "2-4");
            ControlOf<TextBox>(*levels.form, row.box).SetText(row.text);
            EXPECT_EQ(levels.Both(), income ? row.income : row.expense)
                << row.box << " := \"" << row.text << "\"";
        }
    }
}

// The box is left with a text that Change has not seen.
constexpr Correction kValidations[] = {
    {"txtlevel1", "", "1-4", "1-4"},  {"txtlevel1", "0", "1-4", "1-4"}, {"txtlevel1", "9", "4-4", "4-4"},
    {"txtlevel2", "", "1-1", "2-2"},  {"txtlevel2", "0", "1-1", "2-2"}, {"txtlevel2", "9", "2-5", "2-5"},
    {"txtlevel2", "1", "1-1", "2-2"},
};

TEST(LevelBoxes, ValidateTakesAnEmptyEndLevelForOne) {
    for (const Correction& row : kValidations) {
        for (const bool income : {true, false}) {
            Levels levels(income ? LowEndLevel::BeginLevelFollows : LowEndLevel::EndLevelIsHeld);
            levels.Set("2", "4");
            auto& box = ControlOf<TextBox>(*levels.form, row.box);
            SetUnseen(box, row.text);
            box.onValidate();
            EXPECT_EQ(levels.Both(), income ? row.income : row.expense)
                << row.box << " left with \"" << row.text << "\"";
        }
    }
}

TEST(LevelBoxes, ValidateRunsWhenTheUserLeavesTheBox) {
    Levels levels(LowEndLevel::BeginLevelFollows, 1);
    EXPECT_EQ(levels.Both(), "1-2") << "the stored end level is no change, so nothing has corrected it";
    levels.Show([](test::Person& user) {
        user.Focus("txtlevel2");
        user.Focus("txtlevel1");
    });
    EXPECT_EQ(levels.Both(), "1-1");
}

TEST(LevelBoxes, OnlyDigitsAndBackspaceReachTheBox) {
    Levels levels(LowEndLevel::BeginLevelFollows, 500);
    levels.Show([](test::Person& user) { user.Type("txtlevel2", "4a-2'.3\b"); });
    EXPECT_EQ(levels.Both(), "1-42");
}

TEST(LevelBoxes, TypingReplacesTheWholeLevel) {
    Levels levels(LowEndLevel::BeginLevelFollows);
    levels.Set("1", "4");
    levels.Show([&](test::Person& user) {
        user.Focus("txtlevel2");
        EXPECT_EQ(levels.end().selStart(), 0);
        EXPECT_EQ(levels.end().selLength(), 1);
        user.Type("txtlevel2", "3");
    });
    EXPECT_EQ(levels.Both(), "1-3");
}

TEST(LevelBoxes, ASpinWritesItsNumberIntoTheBox) {
    Levels levels(LowEndLevel::BeginLevelFollows);
    levels.Set("1", "4");
    levels.Show([&](test::Person& user) {
        EXPECT_TRUE(user.Spin("udBLevel", 3));
        EXPECT_EQ(levels.Both(), "3-4");
        EXPECT_TRUE(user.Spin("udELevel", 2));
        EXPECT_EQ(levels.Both(), "2-2") << "the begin level follows, as when the number is typed";
        EXPECT_TRUE(user.Spin("udELevel", 9));
        EXPECT_EQ(levels.Both(), "2-5");
    });
}

TEST(LevelBoxes, ASpinGoesOnFromWhatItsBoxShows) {
    Levels levels(LowEndLevel::EndLevelIsHeld);
    levels.end().SetText("4");
    EXPECT_EQ(levels.spin("udELevel").value(), 4);
    levels.begin().SetText("9");
    EXPECT_EQ(levels.begin().text(), "4");
    EXPECT_EQ(levels.spin("udBLevel").value(), 4);
}

TEST(LevelBoxes, AMissingMaximumIsOne) {
    for (const std::int32_t deepest : {0, 1}) {
        Levels levels(LowEndLevel::BeginLevelFollows, deepest);
        EXPECT_EQ(levels.spin("udBLevel").max(), 1);
        EXPECT_EQ(levels.spin("udELevel").max(), 1);
        levels.end().SetText("3");
        levels.begin().SetText("2");
        EXPECT_EQ(levels.Both(), "1-1");
    }
}

TEST(LevelBoxes, BothSpinsHaveTheDeepestLevelAsTheirMaximum) {
    Levels levels(LowEndLevel::BeginLevelFollows, 7);
    for (const std::string_view spin : {"udBLevel", "udELevel"}) {
        EXPECT_EQ(levels.spin(spin).min(), 1) << spin;
        EXPECT_EQ(levels.spin(spin).max(), 7) << spin;
    }
}

TEST(LevelBoxes, ZeroLevelsAreFilledWithOneAndTwo) {
    const auto filled = [](std::string_view box, std::string_view begin, std::string_view end) {
        Levels levels(LowEndLevel::BeginLevelFollows);
        levels.Set(begin, end);
        SetUnseen(ControlOf<TextBox>(*levels.form, box), "0");
        levels.levels().FillZeroLevels();
        return levels.Both();
    };
    EXPECT_EQ(filled("txtlevel1", "3", "4"), "1-4");
    EXPECT_EQ(filled("txtlevel2", "1", "4"), "1-2");
}

TEST(LevelBoxes, OtherLevelsStay) {
    Levels levels(LowEndLevel::BeginLevelFollows);
    levels.Set("3", "4");
    levels.levels().FillZeroLevels();
    EXPECT_EQ(levels.Both(), "3-4");
}

TEST(LevelBoxes, TheBeginLevelIsNotForTypingUntilItIsOffered) {
    test::PlayedWindows windows;
    const auto form = MakeRef<LevelForm>(windows, LowEndLevel::BeginLevelFollows, 5);
    TextBox& begin = form->levels.beginLevel();
    EXPECT_EQ(begin.text(), "1");
    EXPECT_EQ(form->levels.endLevel().text(), "2");
    EXPECT_FALSE(begin.enabled());
    EXPECT_TRUE(begin.grayed());
    EXPECT_TRUE(form->levels.endLevel().enabled());
    form->levels.OfferBothLevels();
    EXPECT_TRUE(begin.enabled());
}

}  // namespace
}  // namespace qor
