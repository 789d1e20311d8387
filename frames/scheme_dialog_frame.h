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

    /// A dialog confirmed without being shown takes the handed scheme itself, in a new dictionary: a
    /// drill-down's filter must reach the server key for key, without what the panel would add or turn. The
    /// panel is filled from it all the same, for a later show. Once the user has confirmed, loaded a scheme
    /// or asked for the defaults, the panel is what counts, as it is where nothing was handed.
    bool BeginShow() override;

    void Confirm() override;
    void Cancel() override;
    /// On the short panel what was typed there is carried over first: the defaults leave codes as they are.
    void ShowDefaults() override;
    void SwitchPanel(bool whole) override;
    void SaveScheme(std::string_view name) override;
    void LoadSavedScheme(std::string_view name) override;
    /// Leaves the screen alone. Where it was the current scheme, the next dialog begins with the defaults.
    void DeleteScheme(std::string_view name) override { shelf_.Delete(name); }
    std::vector<std::string> SchemeNames() const override { return shelf_.names(); }
    std::string CurrentSchemeName() const override { return shelf_.current(); }
    void PickItem(Control& button, TextBox& box) override;

 private:
    void Start();
    void GatherInto(Dictionary& scheme);  // what is on the screen, whichever panel is up
    Ref<Dictionary> GatherScheme();
    Ref<Dictionary> CopyOfHanded();  // nothing where there is none
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
    Ref<Dictionary> handed_;  // for as long as it stands for what is on the panel
    Ref<Dictionary> currentScheme_;
    Ref<Object> glView_;  // the picker's component, made at the first pick
    bool started_ = false;
    bool whole_ = true;
};

}  // namespace qor
