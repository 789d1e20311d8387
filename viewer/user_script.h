// UserScript: what the user does during one step in the dialogs that open, as the file lists it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/window_system.h"
#include "viewer/file_check.h"
#include "viewer/transcript.h"

namespace qor::viewer {

/// What an action works on.
struct Scene {
    Form& form;
    WindowSystem& windows;
    Transcript& transcript;
    const ObjectNames& names;
    const Place& place;  // the action's, for what only the open dialog can show to be wrong

    /// A dialog that an earlier action has closed can still be told, but no longer be reached.
    bool IsOpen() const { return form.IsVisible(); }
};

/// Performs a checked action. Answers false where it was lost. Raises a Mistake where the dialog has no such
/// control, or one of another kind.
using ActionRun = bool (*)(Scene& scene, const Json& action);

std::span<const Kind<ActionRun>> ActionKinds();

/// The text under a key of a checked action.
inline const std::string& TextAt(const Json& action, std::string_view key) {
    return action.find(key)->get_ref<const std::string&>();
}

class UserScript {
 public:
    UserScript(Transcript& transcript, const ObjectNames& names) : transcript_(transcript), names_(names) {}

    /// The entries of a step, already checked; null for a step without any. Borrows them.
    void Begin(const Json* entries, std::size_t step);
    /// Plays the first entry left for this form. Answers false where there is none.
    bool Play(Form& form, WindowSystem& windows);
    /// Records the entries whose dialog did not open.
    void End();

 private:
    void Perform(Scene& scene, const Json& action);

    Transcript& transcript_;
    const ObjectNames& names_;
    const Json* entries_ = nullptr;
    std::size_t step_ = 0;
    std::vector<bool> used_;
};

namespace shape {
void UserEntries(FileCheck&, const Json&, const Place&);
}

}  // namespace qor::viewer
