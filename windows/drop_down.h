// What the drop-downs of a form and of its frame's bar share: their places and how their entries are drawn.
#pragma once

#include <windows.h>

#include <cstddef>

namespace qor::windows {

class DialogMetrics;

inline constexpr DWORD kDropDownStyle =
    CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP;

/// Places a drop-down: closed it fills `place`, open it shows its entries below.
void PlaceDropDown(HWND list, const RECT& place, std::size_t entries, const DialogMetrics& metrics);

/// Draws an entry as its owner is asked to: its text stands in the middle of its height, which the system's
/// own drawing leaves at the top on a monitor of high resolution.
void DrawEntry(const DRAWITEMSTRUCT& entry, const DialogMetrics& metrics);

}  // namespace qor::windows
