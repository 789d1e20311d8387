// A picture of what stands on the screen.
#pragma once

#include <filesystem>

#include "windows/handles.h"

namespace qor::windows {

/// The window with its frame, as a PNG file. Raises std::runtime_error where it cannot be taken.
void TakePicture(HWND window, const std::filesystem::path& file);

}  // namespace qor::windows
