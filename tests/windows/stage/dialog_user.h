// DialogUser: the user of a conversation at the component's native windows. It works from timer messages on
// the thread that the dialogs are on, finds controls by the names of their windows, and does to a window what
// the system does when a person uses it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "viewer/json.h"
#include "viewer/transcript.h"

namespace qor::stage {

class DialogUser {
 public:
    explicit DialogUser(viewer::Transcript& transcript) : transcript_(transcript) {}
    ~DialogUser() { End(); }

    /// From here on the dialogs that open are used as `entries` say, null for no entry; all others are
    /// cancelled.
    void Begin(const viewer::Json* entries, int step);
    /// Tells the entries whose dialogs did not open.
    void End();

 private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
    void Look();
    void Use(HWND form);
    void AnswerMessageBox(HWND box);
    const viewer::Json* TakeEntry(const std::string& dialog);

    viewer::Transcript& transcript_;
    std::vector<const viewer::Json*> entries_;
    std::vector<HWND> inUse_;
    std::vector<HWND> used_;  // whose entries have been played
    UINT_PTR timer_ = 0;
};

}  // namespace qor::stage
