// RecordingWindows: the window system of a conversation. It shows nothing; it has the user's script play in
// each dialog that comes up, and records what a person would see happen.
#pragma once

#include "platform/headless.h"
#include "viewer/user_script.h"

namespace qor::viewer {

class RecordingWindows final : public HeadlessWindows, private FormView {
 public:
    /// Borrows both.
    RecordingWindows(Transcript& transcript, UserScript& script) : transcript_(transcript), script_(script) {}

    std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) override;
    void Pump() override;
    void SetDefaultPointer() override;

    void FormLoading(Form& form) override;
    void FormActivating(Form& form) override;
    void FormHidden(Form& form) override;
    void FormUnloaded(Form& form) override;

 protected:
    void FormShown(Form& form) override;
    void PlayUser(Form& form) override;
    void FormLeftOpen(Form& form) override;
    void FormEnded(Form& form) override;

 private:
    // Of the progress window alone: what it says, and whether its bar is seen.
    void ControlChanged(Control& control, Change what) override;
    void CaptionChanged() override {}
    void FocusMoved() override {}
    void Closed() override {}

    void Record(const Form& form, std::string_view action);

    Transcript& transcript_;
    UserScript& script_;
    bool played_ = false;  // whether the last form that came up had an entry of the script
};

}  // namespace qor::viewer
