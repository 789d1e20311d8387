// The frame control of the scheme dialogs, ZEP_GRFC.ReportFilter: it owns the dialog's buttons, its saved
// schemes and the item pickers, and asks its form to move values between the panels and a scheme. A scheme
// is one dictionary. What stands here is all that a form relies on.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "platform/dictionary.h"

namespace qor {

/// What the frame raises into its form.
class SchemeFrameHost {
 public:
    virtual void OnSchemeDefaults() = 0;
    virtual void OnSchemeClosing(std::int16_t& cancel) = 0;  // cancel 0: the user confirmed
    virtual void OnSchemeToPanel(Dictionary& scheme) = 0;
    virtual void OnPanelToScheme(Dictionary& scheme) = 0;
    virtual void OnSchemeToCommon(Dictionary& scheme) = 0;
    virtual void OnCommonToScheme(Dictionary& scheme) = 0;
    virtual void OnItemClassOf(Control& control, std::int32_t& itemClass) = 0;

    // What the frame does to the form itself.
    virtual void ShowPanel(bool whole) = 0;  // brings up the whole panel, or the short one
    virtual void CloseDialog() = 0;          // ends the form's modal show

 protected:
    ~SchemeFrameHost() = default;
};

class SchemeFrame {
 public:
    virtual ~SchemeFrame() = default;

    virtual void SetFrameRptID(std::int32_t rptID) = 0;
    /// A link to the form's member, read whenever the frame needs it: -1 shows the dialog, -2 confirms at
    /// once.
    virtual void LinkFrameAutoFilter(const std::int32_t& autoFilter) = 0;
    /// The scheme to begin with, instead of the last saved one.
    virtual void LoadScheme(Ref<Dictionary> scheme) = 0;
    /// The scheme that the user confirmed: a new dictionary at every confirmation.
    virtual Ref<Dictionary> CurrentScheme() = 0;

    /// Fills the common panel's list of periods, selects its first entry, the free choice, and keeps list and
    /// pickers in step: a period picked sets both dates, a date set otherwise is the free choice again.
    /// `periodStart` answers the first day of the current accounting period; asked only where it is needed.
    virtual void AttachDateTypes(DropDown& types, DatePicker& begin, DatePicker& end,
                                 std::function<Date()> periodStart) = 0;

    /// Before each show of the form, after its load: brings up the first scheme once in the form's life.
    /// Answers false where the linked value confirmed the dialog without showing it.
    virtual bool BeginShow() = 0;

    // What the user does to the frame. A failing one of the saved schemes raises an Error for the user.
    virtual void Confirm() = 0;
    virtual void Cancel() = 0;
    virtual void ShowDefaults() = 0;
    virtual void SwitchPanel(bool whole) = 0;
    virtual bool ShowsWholePanel() const = 0;
    virtual void SaveScheme(std::string_view name) = 0;
    virtual void LoadSavedScheme(std::string_view name) = 0;
    virtual void DeleteScheme(std::string_view name) = 0;
    virtual std::vector<std::string> SchemeNames() const = 0;
    virtual std::string CurrentSchemeName() const = 0;  // "" for the defaults or a handed scheme
    /// The user pressed the picker button of `box`: asks the form for the class, opens the picker, and puts
    /// the number chosen into the box.
    virtual void PickItem(Control& button, TextBox& box) = 0;

    // For programs that fill a dialog by its keys.
    /// What is on the screen, whichever panel is up, in a new dictionary.
    virtual Ref<Dictionary> SchemeOnScreen() = 0;
    /// Fills the dialog from a scheme of the caller's own.
    virtual void ShowScheme(Dictionary& scheme) = 0;
};

}  // namespace qor
