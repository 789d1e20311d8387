#include "reports/income/level_boxes.h"

#include "dialogs/layout.h"

namespace qor {

namespace {

constexpr std::int32_t kBackspace = 8, kFirstDigit = 48, kLastDigit = 57;

}  // namespace

LevelBoxes::LevelBoxes(Form& form, Control& container, std::int32_t top, LowEndLevel lowEnd)
    : lowEnd_(lowEnd),
      Label7(form, "Label7", "类别级次:", layout::LabelAt(top), &container),
      txtlevel1(form, "txtlevel1", "1", layout::NarrowBox(layout::BoxAt(top)), &container),
      udBLevel(form, "udBLevel", layout::ArrowsOf(layout::BoxAt(top)), &container),
      Label6(form, "Label6", "至: ", layout::HighLabelAt(top), &container),
      txtlevel2(form, "txtlevel2", "2", layout::NarrowBox(layout::HighBoxAt(top)), &container),
      udELevel(form, "udELevel", layout::ArrowsOf(layout::HighBoxAt(top)), &container) {
    txtlevel1.SetEnabled(false);
    txtlevel1.SetGrayed(true);
    Connect(txtlevel1, udBLevel);
    Connect(txtlevel2, udELevel);
}

void LevelBoxes::Connect(TextBox& level, Spin& spin) {
    level.onKeyPress = [](std::int32_t& character) {
        const bool digit = character >= kFirstDigit && character <= kLastDigit;
        if (!digit && character != kBackspace) character = 0;
    };
    level.onGotFocus = [&level] { level.Select(0, level.length()); };
    level.onChange = [this, &level, &spin] {
        IgnoringErrors([&] { Change(level); });
        IgnoringErrors([&] { spin.Follow(ToInt32(Val(level.text()))); });
    };
    level.onValidate = [this, &level] { Validate(level); };
    spin.onChange = [&level, &spin] { level.SetText(ToText(spin.value())); };
}

/// While the user types, an emptied end level is the deepest one.
void LevelBoxes::Change(TextBox& level) { Correct(level, &level == &txtlevel2 ? Maximum() : "1"); }

void LevelBoxes::Validate(TextBox& level) { Correct(level, "1"); }

void LevelBoxes::Correct(TextBox& level, std::string_view inPlaceOfBlank) {
    if (Trimmed(level.text()).empty()) level.SetText(inPlaceOfBlank);
    if (Val(level.text()) <= 0) level.SetText("1");
    if (Val(level.text()) > udELevel.max()) level.SetText(Maximum());
    if (Val(txtlevel2.text()) >= Val(txtlevel1.text())) return;
    if (&level == &txtlevel2 && lowEnd_ == LowEndLevel::EndLevelIsHeld) {
        txtlevel2.SetText(txtlevel1.text());
    } else {
        txtlevel1.SetText(txtlevel2.text());
    }
}

std::string LevelBoxes::Maximum() const { return ToText(udELevel.max()); }

void LevelBoxes::SetMaximum(std::int32_t deepest) {
    const std::int32_t maximum = deepest == 0 ? 1 : deepest;
    udBLevel.SetRange(1, maximum);
    udELevel.SetRange(1, maximum);
    // The arrows go on from what the boxes hold, which they may not have been able to follow so far.
    udBLevel.Follow(ToInt32(Val(txtlevel1.text())));
    udELevel.Follow(ToInt32(Val(txtlevel2.text())));
}

void LevelBoxes::OfferBothLevels() {
    Label7.SetVisible(true);
    txtlevel1.SetText("1");
    txtlevel1.SetEnabled(true);
    udBLevel.SetVisible(true);
    Label6.SetVisible(true);
    txtlevel2.SetText("2");
    txtlevel2.SetEnabled(true);
    udELevel.SetVisible(true);
}

void LevelBoxes::FillZeroLevels() {
    if (Val(txtlevel1.text()) == 0) txtlevel1.SetText("1");
    if (Val(txtlevel2.text()) == 0) txtlevel2.SetText("2");
}

}  // namespace qor
