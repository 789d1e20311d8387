// SchemeDialogFrame: the frame of the scheme dialogs over a store of schemes. It knows no key: whatever it
// moves between the whole panel, the short one and a scheme goes through the form's events.
#pragma once

#include "frames/scheme_shelf.h"
#include "platform/platform.h"
#include "platform/scheme_frame.h"

namespace qor {

class SchemeDialogFrame final : public SchemeFrame {
 public:
    /// All three outlive the frame.
    SchemeDialogFrame(Platform& platform, SchemeStore& store, SchemeFrameHost& form)
        : platform_(platform), form_(form), shelf_(platform.windows(), store) {}

    void SetFrameRptID(std::int32_t rptID) override { rptID_ = rptID; }
    void LinkFrameAutoFilter(const std::int32_t& autoFilter) override { autoFilter_ = &autoFilter; }
    void LoadScheme(Ref<Dictionary> scheme) override { handed_ = std::move(scheme); }
    Ref<Dictionary> CurrentScheme() override { return currentScheme_; }
    void AttachDateTypes(DropDown& types, DatePicker& begin, DatePicker& end,
                         std::function<Date()> periodStart) override;

    /// A dialog that is not to be shown is filled with what it was handed and confirmed as a user would: its
    /// filter holds the same keys, in the same order, as after any other confirmation.
    bool BeginShow() override;

    void Confirm() override;
    void Cancel() override;
    /// On the short panel what was typed there is carried over first: the defaults leave codes as they are.
    void ShowDefaults() override;
    void SwitchPanel(bool whole) override;
    bool ShowsWholePanel() const override { return whole_; }
    void SaveScheme(std::string_view name) override;
    void LoadSavedScheme(std::string_view name) override;
    /// Leaves the screen alone. Where it was the current scheme, the next dialog begins with the defaults.
    void DeleteScheme(std::string_view name) override { shelf_.Delete(name); }
    std::vector<std::string> SchemeNames() const override { return shelf_.names(); }
    std::string CurrentSchemeName() const override { return shelf_.current(); }
    void PickItem(Control& button, TextBox& box) override;

    Ref<Dictionary> SchemeOnScreen() override;
    void ShowScheme(Dictionary& scheme) override;

 private:
    void Start();
    void GatherInto(Dictionary& scheme);  // what is on the screen, whichever panel is up
    void CarryToCommon();
    void CarryToWhole();
    void ShowSaved(const SavedScheme& scheme);
    void TellClosing(bool isCancelled);
    void OpenPicker(std::int32_t itemClass, TextBox& box);

    Platform& platform_;
    SchemeFrameHost& form_;
    SchemeShelf shelf_;
    std::int32_t rptID_ = 0;
    const std::int32_t* autoFilter_ = nullptr;
    Ref<Dictionary> handed_;  // what the dialog begins with, where its report handed something over
    Ref<Dictionary> currentScheme_;
    Ref<Object> glView_;  // the picker's component, made at the first pick
    bool started_ = false;
    bool whole_ = true;
};

}  // namespace qor
