// The grid on which every dialog is laid out, in twips: groups below one another, and in a group rows with a
// low and a high bound side by side. What stands in the same column begins at the same place in all dialogs.
#pragma once

#include <cstdint>

#include "platform/controls.h"

namespace qor::layout {

inline constexpr std::int32_t kFormWidth = 6390;
inline constexpr std::int32_t kMargin = 120;  // between the form's edge and its groups
inline constexpr std::int32_t kGroupWidth = 6150;
inline constexpr std::int32_t kGroupGap = 90;  // between two groups
inline constexpr std::int32_t kBarTop = 120, kBarHeight = 300;
inline constexpr std::int32_t kGroupsTop = 540;  // below the frame's bar
inline constexpr std::int32_t kButtonRow = 600;  // the height that the buttons below the groups take
inline constexpr std::int32_t kButtonWidth = 1260, kButtonHeight = 360;

inline constexpr std::int32_t kFirstRow = 225;  // of a group, whose line runs through half a text's height
inline constexpr std::int32_t kRowHeight = 390, kBoxHeight = 300, kTextHeight = 210, kCheckHeight = 270;

/// The columns of a row, from the left of its group.
inline constexpr std::int32_t kLabel = 120, kBox = 1350, kButton = 3060;
inline constexpr std::int32_t kHighLabel = 3440, kHighBox = 4020, kHighButton = 5730;
inline constexpr std::int32_t kBoxWidth = 1680, kPickerWidth = 300, kSpinWidth = 255;
inline constexpr std::int32_t kLabelWidth = kBox - kLabel - 30, kHighLabelWidth = kHighBox - kHighLabel - 30;
inline constexpr std::int32_t kWideLabel = 3120;  // of a longer label ahead of the high bound
inline constexpr std::int32_t kCheckWidth = 2580;

constexpr std::int32_t GroupHeight(std::int32_t rows) { return 285 + rows * kRowHeight; }
constexpr std::int32_t RowTop(std::int32_t row) { return kFirstRow + row * kRowHeight; }

/// A group of the form, as wide as all of them.
constexpr Bounds GroupAt(std::int32_t top, std::int32_t height) {
    return {kMargin, top, kGroupWidth, height};
}
/// The place below a group.
constexpr std::int32_t Below(const Bounds& group) { return group.top + group.height + kGroupGap; }

// What stands in a row that begins at `top`; texts stand at the height of the text in a box.
constexpr Bounds LabelAt(std::int32_t left, std::int32_t width, std::int32_t top) {
    return {left, top + 60, width, kTextHeight};
}
constexpr Bounds LabelAt(std::int32_t top) { return LabelAt(kLabel, kLabelWidth, top); }
constexpr Bounds HighLabelAt(std::int32_t top) { return LabelAt(kHighLabel, kHighLabelWidth, top); }
constexpr Bounds WideLabelAt(std::int32_t top) {
    return LabelAt(kWideLabel, kHighBox - kWideLabel - 30, top);
}
constexpr Bounds BoxAt(std::int32_t top) { return {kBox, top, kBoxWidth, kBoxHeight}; }
constexpr Bounds HighBoxAt(std::int32_t top) { return {kHighBox, top, kBoxWidth, kBoxHeight}; }
constexpr Bounds CheckAt(std::int32_t top) { return {kLabel, top + 15, kCheckWidth, kCheckHeight}; }
constexpr Bounds HighCheckAt(std::int32_t top) { return {kHighLabel, top + 15, kCheckWidth, kCheckHeight}; }
/// A box that ends where others do, with the arrows that belong to it.
constexpr Bounds NarrowBox(const Bounds& box) {
    return {box.left, box.top, box.width - kSpinWidth, box.height};
}
constexpr Bounds ArrowsOf(const Bounds& box) {
    return {box.left + box.width - kSpinWidth, box.top, kSpinWidth, box.height};
}

/// The buttons that end a dialog, in the row below its groups.
constexpr Bounds ConfirmAt(std::int32_t top) {
    return {kMargin + kGroupWidth - 2 * kButtonWidth - kMargin, top, kButtonWidth, kButtonHeight};
}
constexpr Bounds CancelAt(std::int32_t top) {
    return {kMargin + kGroupWidth - kButtonWidth, top, kButtonWidth, kButtonHeight};
}

}  // namespace qor::layout
