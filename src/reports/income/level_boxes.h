// LevelBoxes: the pair of boxes with spin controls in which the user picks the class levels that a summary
// shows. The boxes correct themselves and each other as the user types.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/controls.h"

namespace qor {

/// What gives way where the end level is set below the begin level.
enum class LowEndLevel : std::uint8_t { BeginLevelFollows, EndLevelIsHeld };

class LevelBoxes {
 public:
    /// `top` is that of the row in its container. The begin level is not for typing at first.
    LevelBoxes(Form& form, Control& container, std::int32_t top, LowEndLevel lowEnd);

    /// The deepest level that both boxes and both spin controls accept; 0 counts as 1.
    void SetMaximum(std::int32_t deepest);
    /// Begins with the levels 1 and 2 and gives both boxes to the user.
    void OfferBothLevels();
    /// A level that is no number becomes 1 in the first box and 2 in the second.
    void FillZeroLevels();

    TextBox& beginLevel() { return txtlevel1; }
    TextBox& endLevel() { return txtlevel2; }

 private:
    void Connect(TextBox& level, Spin& spin);
    void Change(TextBox& level);
    void Validate(TextBox& level);
    void Correct(TextBox& level, std::string_view inPlaceOfBlank);
    std::string Maximum() const;

    LowEndLevel lowEnd_;
    Label Label7;
    TextBox txtlevel1;
    Spin udBLevel;
    Label Label6;
    TextBox txtlevel2;
    Spin udELevel;
};

}  // namespace qor
