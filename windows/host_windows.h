// The host's own windows on a thread, while one of ours is modal over them.
#pragma once

#include <windows.h>

#include <vector>

namespace qor::windows {

/// The top-level windows of a thread that a user could go on with.
std::vector<HWND> UsableWindows(DWORD thread);

/// The window of a thread that a new one is to stand over: its active one, else any that is usable; null for
/// none.
HWND HostWindow(DWORD thread);

/// What a person did to some windows of this thread and is not handled yet comes to nothing. A button of the
/// mouse that one of them holds on to counts as let go: its release may be lost.
void DiscardInput(const std::vector<HWND>& windows);

/// Has what a person does to some windows come to nothing, whoever takes the messages of their thread: a
/// server or the host may do so in the middle of a call. May be made on another thread than theirs.
class InputGuard {
 public:
    InputGuard(DWORD thread, std::vector<HWND> windows);
    InputGuard(const InputGuard&) = delete;
    InputGuard& operator=(const InputGuard&) = delete;
    ~InputGuard();

 private:
    static LRESULT CALLBACK Hook(int code, WPARAM removed, LPARAM message);

    std::vector<HWND> windows_;
    HHOOK hook_;
};

}  // namespace qor::windows
