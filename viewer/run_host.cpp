#include "viewer/run_host.h"

#include <unistd.h>

#include <ctime>
#include <ostream>

#include "frames/plain_scheme_frame.h"
#include "frames/scheme_dialog_frame.h"
#include "library.h"
#include "platform/conversions.h"
#include "platform/frame_owner.h"
#include "viewer/dialog_filler.h"

namespace qor::viewer {

std::int32_t RunHost::Windows::MessageBox(std::string_view text, std::string_view title, std::int32_t style) {
    // A title may end in a full-width colon of its own.
    const bool hasColon = title.ends_with("：");
    messages_ << (title.empty() ? "信息提示" : title) << (hasColon ? "" : "：") << text << '\n';
    return HeadlessWindows::MessageBox(text, title, style);
}

RunHost::RunHost(MiddleTier& middleTier, SchemeStore& schemes, std::ostream& messages)
    : middleTier_(middleTier), schemes_(schemes), windows_(messages), bag_(MakeRef<OrderedDictionary>()) {}

Ref<Object> RunHost::CreateComponent(std::string_view name) {
    if (Ref<Object> own = CreateReportClass(process_, name)) return own;
    if (Ref<Object> component = middleTier_.Create(name)) return component;
    Raise(Automation::CannotCreate);
}

Date RunHost::Now() {
    if (const auto day = middleTier_.accountSet().OwnToday()) return Date{static_cast<double>(*day)};
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const Date day = DateFromCalendar(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value_or(Date{});
    return Date{day.serial + (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0};
}

std::int32_t RunHost::ProcessNumber() { return static_cast<std::int32_t>(getpid()); }

std::unique_ptr<PlainFrame> RunHost::NewPlainFrame(PlainFrameHost& form) {
    return std::make_unique<PlainSchemeFrame>(*this, schemes_, form);
}

std::unique_ptr<SchemeFrame> RunHost::NewSchemeFrame(SchemeFrameHost& form) {
    return std::make_unique<SchemeDialogFrame>(*this, schemes_, form);
}

Ref<Object> RunHost::Run(const RunRequest& request) {
    const std::string number = std::to_string(request.number);
    const ReportEntry* entry = FindReport(request.number);
    if (!entry) throw RunFailure(kWrongRequest, "no report " + number + "; `qorview list` names them");
    if (request.drillRow && entry->description.detailRptID == 0) {
        throw RunFailure(kWrongRequest, number + " opens no detail report, so --drill has no meaning here");
    }
    if (request.appType) bag_->Put("AppType", *request.appType);
    const Ref<Object> report = CreateComponent("QORArApRpt.Rpt" + number);

    bool dialogCameUp = false;
    windows_.user = [&](Form& form) {
        dialogCameUp = true;
        try {
            FillDialog(form, request);
        } catch (const RunFailure& failure) {
            refused_ = failure;
        } catch (const Error& error) {
            refused_ = RunFailure(kRunFailed, error.description());
        }
    };
    report->Call("ShowFilter");
    windows_.user = nullptr;
    if (refused_) throw *refused_;
    if (!dialogCameUp && !request.values.empty()) {
        throw RunFailure(kWrongRequest, "this report asks for no filter, so nothing can be set");
    }
    CheckOutcome(*report, "the dialog was not confirmed");
    report->Call("GetReportData");
    CheckOutcome(*report, "the data could not be read");
    if (!request.drillRow) return report;

    const Value detail = report->Call("GetDetailReport", *request.drillRow);
    if (detail.IsNothing()) {
        throw RunFailure(kRunFailed, "row " + std::to_string(*request.drillRow) + " opens no detail report");
    }
    return Ref<Object>(&ObjectIn(detail));
}

void RunHost::FillDialog(Form& form, const RunRequest& request) {
    auto* owner = dynamic_cast<FrameOwner*>(&form);
    if (request.scheme && owner) {
        if (PlainFrame* plain = owner->plainFrame()) plain->LoadScheme(*request.scheme);
        if (SchemeFrame* scheme = owner->schemeFrame()) scheme->LoadSavedScheme(*request.scheme);
    }
    FillByKeys(form, request.values);
    const std::size_t boxesBefore = windows_.boxes.size();
    PressOk(form);
    if (form.IsVisible() || windows_.boxes.size() > boxesBefore) {
        throw RunFailure(kRunFailed, "the dialog does not take these values");
    }
}

void RunHost::CheckOutcome(Object& report, std::string_view step) const {
    const Ref<Dictionary> result = As<Dictionary>(report.Get("Result"));
    if (ToBoolean(result->Get("OK"))) return;
    const std::string message = ToText(result->Get("Error"));
    throw RunFailure(kRunFailed, message.empty() ? std::string(step) : message);
}

}  // namespace qor::viewer
