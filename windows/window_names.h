// The names of forms and controls on their windows, by which programs that test a user interface find them: a
// window property that holds an atom.
#pragma once

#include <windows.h>

#include <string_view>

#include "windows/handles.h"

namespace qor::windows {

inline constexpr wchar_t kNameProperty[] = L"QORName";

inline void NameWindow(HWND window, std::string_view name) {
    const ATOM atom = GlobalAddAtomW(Wide(name).c_str());
    SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
}

/// Before a window that was named goes.
inline void UnnameWindow(HWND window) {
    GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(RemovePropW(window, kNameProperty))));
}

/// "" for a window without a name.
inline std::string NameOfWindow(HWND window) {
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(GetPropW(window, kNameProperty)));
    wchar_t name[256];
    const UINT length = atom ? GlobalGetAtomNameW(atom, name, 256) : 0;
    return Narrow({name, length});
}

/// A search for the visible top-level window of this process that bears a name.
struct NamedWindowSearch {
    std::string_view name;
    HWND found = nullptr;

    static BOOL CALLBACK Look(HWND window, LPARAM search) {
        auto& self = *reinterpret_cast<NamedWindowSearch*>(search);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        const bool fits =
            process == GetCurrentProcessId() && IsWindowVisible(window) && NameOfWindow(window) == self.name;
        if (fits) self.found = window;
        return !fits;
    }
};

/// That window, whatever its thread; null for none.
inline HWND FindShownWindow(std::string_view name) {
    NamedWindowSearch search{name};
    EnumWindows(&NamedWindowSearch::Look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace qor::windows
