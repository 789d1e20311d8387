// The module that this code stands in, whether that is the component or a program, and its window classes.
#pragma once

#include <windows.h>

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace qor::windows {

inline HINSTANCE ThisInstance() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

/// A window class for as long as the module is loaded. The system would keep it beyond that, with a procedure
/// that is no longer there.
class WindowClass {
 public:
    WindowClass(const wchar_t* name, WNDPROC procedure, UINT style, HBRUSH background) : name_(name) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = style;
        description.lpfnWndProc = procedure;
        description.hInstance = ThisInstance();
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.hbrBackground = background;
        description.lpszClassName = name;
        RegisterClassExW(&description);
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassW(name_, ThisInstance()); }

 private:
    const wchar_t* name_;
};

}  // namespace qor::windows
