// ClsDtpickerRange: watches one pair of date pickers. Whenever one of them loses the focus it makes the
// pair valid again, says why, and sends the focus back to the picker that was left.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls.h"
#include "process/process.h"

namespace qor {

class ClsDtpickerRange final : public Resident, private FocusListener {
 public:
    explicit ClsDtpickerRange(Process& process) : process_(process) {}
    ~ClsDtpickerRange() override { Detach(); }

    /// Leaves the old pickers, takes these (one picker may stand for both), and makes their dates valid in
    /// silence. The pickers are borrowed until the next attach or their end.
    void attach(DatePicker& begin, DatePicker& end, std::string_view RptID, bool checkSystemMinDate);
    /// Answers whether the pair was valid; corrects it where it was not.
    bool DTPickerValidateAfterLostFocus(bool showMessage);

 private:
    void Validating(Control& control) override;
    void FocusLost(Control& control) override;
    void ControlGone(Control& control) override;

    Date ReadAccountStartDate();
    void ComputeMinDate();
    bool CorrectRange(bool showMessage);
    std::int32_t ShowRangeMessage(std::string_view text, bool showMessage);
    void RefocusLastPicker();
    void Detach();

    Process& process_;
    DatePicker* dtpBegin = nullptr;
    DatePicker* dtpEnd = nullptr;
    std::int32_t accountStartFlag_ = 0;
    Date accountStartDate_;
    Date minDate_;
    std::string boundName_;
    bool bCheckSysMinDate = false;
    bool attached_ = false;
    Control* lastPicker_ = nullptr;
};

/// Attaches the one date-range guard of the process, made at the first call.
void AttachDateRange(Process& process, DatePicker& begin, DatePicker& end, std::string_view RptID);

}  // namespace qor
