// What the user does to a dialog's frame: its own buttons, its saved schemes, the switch of its panels.
#pragma once

#include "viewer/user_script.h"

namespace qor::viewer {

namespace shape {
void FrameCommand(FileCheck&, const Json&, const Place&);
void Panel(FileCheck&, const Json&, const Place&);
}  // namespace shape

inline constexpr Key kFrameKeys[] = {
    {"frame", shape::FrameCommand},
    {"name", shape::Text, true},
    {"to", shape::Panel, true},
};

/// Each command takes its own further key and no other.
void CheckFrameKeys(const Json& action, const Place& place);

bool PressFrame(Scene& scene, const Json& action);

}  // namespace qor::viewer
