// GridWindow: the native window of a grid. It draws the cells itself; the arrows move the current cell, a
// character, F2 or a double click begins to edit it, Enter and Tab end the edit and go on to the next row, up
// and down go on from there. A cell is copied, cut, pasted and emptied as a whole.
#pragma once

#include "platform/grid.h"
#include "windows/control_window.h"

namespace qor::windows {

std::unique_ptr<ControlWindow> MakeGridWindow(Grid& grid, const FormSurface& surface);

}  // namespace qor::windows
