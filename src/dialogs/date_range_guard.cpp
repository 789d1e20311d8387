#include "dialogs/date_range_guard.h"

#include "platform/conversions.h"
#include "report/identifier_table.h"

namespace qor {

namespace {

constexpr Date kSystemMinDate{36526};  // 2000-01-01

}  // namespace

void ClsDtpickerRange::Detach() {
    if (dtpBegin) dtpBegin->RemoveFocusListener(*this);
    if (dtpEnd && dtpEnd != dtpBegin) dtpEnd->RemoveFocusListener(*this);
    dtpBegin = dtpEnd = nullptr;
    lastPicker_ = nullptr;
}

void ClsDtpickerRange::attach(DatePicker& begin, DatePicker& end, std::string_view RptID,
                              bool checkSystemMinDate) {
    Detach();
    dtpBegin = &begin;
    dtpEnd = &end;
    dtpBegin->AddFocusListener(*this);
    if (dtpEnd != dtpBegin) dtpEnd->AddFocusListener(*this);
    accountStartFlag_ = UsesAccountStartDate(RptID);
    bCheckSysMinDate = checkSystemMinDate;
    accountStartDate_ = ReadAccountStartDate();
    ComputeMinDate();
    attached_ = true;
    DTPickerValidateAfterLostFocus(false);
}

Date ClsDtpickerRange::ReadAccountStartDate() {
    Date date = kSystemMinDate;
    IgnoringErrors([&] {
        std::string start = FormatIsoDate(kSystemMinDate);
        std::string end;
        IgnoringErrors([&] { process_.systemProfile.GetStartPeriodDates(start, end); });
        date = ToDate(FormatIsoDate(ToDate(start)));
    });
    return date;
}

void ClsDtpickerRange::ComputeMinDate() {
    minDate_ = dtpBegin->minDate();
    boundName_ = "控件最小时间";
    if (accountStartFlag_ == 1) {
        minDate_ = accountStartDate_;
        boundName_ = "账套启用日期";
    } else if (bCheckSysMinDate) {
        minDate_ = kSystemMinDate;
        boundName_ = "系统最小时间";
    }
}

bool ClsDtpickerRange::DTPickerValidateAfterLostFocus(bool showMessage) {
    bool valid = true;
    IgnoringErrors([&] { valid = !attached_ || !dtpBegin || !dtpEnd || !CorrectRange(showMessage); });
    return valid;
}

/// Answers whether something had to be corrected. A step that fails is skipped.
bool ClsDtpickerRange::CorrectRange(bool showMessage) {
    const std::string begin = "起始日期", end = "截至日期";
    const Date B = dtpBegin->value(), E = dtpEnd->value();
    const auto assign = [](DatePicker& picker, Date date) { IgnoringErrors([&] { picker.SetValue(date); }); };

    if (B < minDate_ && E < minDate_) {
        const std::string named =
            B == E ? "[" + end + "]不能小于" : "[" + begin + "]和[" + end + "]都不能小于";
        ShowRangeMessage(named + boundName_ + "。", showMessage);
        assign(*dtpEnd, minDate_);
        assign(*dtpBegin, minDate_);
    } else if (B < minDate_) {
        ShowRangeMessage("[" + begin + "]不能小于" + boundName_ + "。", showMessage);
        assign(*dtpBegin, minDate_);
    } else if (E < B) {
        ShowRangeMessage("[" + begin + "]不能大于[" + end + "]。", showMessage);
        assign(*dtpEnd, B);
    } else {
        return false;
    }
    RefocusLastPicker();
    return true;
}

std::int32_t ClsDtpickerRange::ShowRangeMessage(std::string_view text, bool showMessage) {
    return showMessage ? process_.platform.windows().MessageBox(text, "", kInformationIcon) : -1;
}

void ClsDtpickerRange::RefocusLastPicker() {
    if (lastPicker_) {
        IgnoringErrors([this] { lastPicker_->SetFocus(); });
    }
}

void ClsDtpickerRange::Validating(Control& control) { lastPicker_ = &control; }

void ClsDtpickerRange::FocusLost(Control&) { DTPickerValidateAfterLostFocus(true); }

void ClsDtpickerRange::ControlGone(Control& control) {
    if (&control == dtpBegin || &control == dtpEnd) Detach();
}

void AttachDateRange(Process& process, DatePicker& begin, DatePicker& end, std::string_view RptID) {
    if (!process.dateRangeGuard) process.dateRangeGuard = std::make_unique<ClsDtpickerRange>(process);
    static_cast<ClsDtpickerRange&>(*process.dateRangeGuard).attach(begin, end, RptID, false);
}

}  // namespace qor
