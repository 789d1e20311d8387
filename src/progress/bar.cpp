#include "progress/bar.h"

#include <algorithm>

#include "progress/member_adapters.h"

namespace qor {

namespace {

using progress::NumberCall, progress::PlainCall, progress::TextCall;

constexpr Member kMembers[] = {
    PlainCall<Bar, &Bar::HideProgBar>("HideProgBar"),
    NumberCall<Bar, &Bar::SetBarMaxValue>("SetBarMaxValue"),
    NumberCall<Bar, &Bar::SetBarMinValue>("SetBarMinValue"),
    NumberCall<Bar, &Bar::SetBarValue>("SetBarValue"),
    PlainCall<Bar, &Bar::SetBarValueWithMax>("SetBarValueWithMax"),
    TextCall<Bar, &Bar::SetMsg>("SetMsg"),
    PlainCall<Bar, &Bar::Show>("Show"),
    PlainCall<Bar, &Bar::ShowProgBar>("ShowProgBar"),
    PlainCall<Bar, &Bar::Unload>("Unload"),
};

}  // namespace

Bar::~Bar() { ReleasePass(); }

std::span<const Member> Bar::Members() const { return kMembers; }

clsPass& Bar::Pass() const {
    if (!m_clsPass) Raise(Automation::ObjectNotSet);
    return *m_clsPass;
}

void Bar::ReleasePass() {
    if (m_clsPass) m_clsPass->Disconnect(activation_);
    m_clsPass = {};
}

void Bar::HideProgBar() { Pass().HideProgBar(); }

void Bar::SetBarMaxValue(std::int32_t value) { Pass().SetBarMaxValue(value); }

void Bar::SetBarMinValue(std::int32_t value) { Pass().SetBarMinValue(value); }

void Bar::SetBarValue(std::int32_t value) { Pass().SetBarValue(value); }

void Bar::SetBarValueWithMax() { Pass().SetBarValueWithMax(); }

void Bar::SetMsg(std::string_view text) { Pass().SetMsg(text); }

void Bar::ShowProgBar() { Pass().ShowProgBar(); }

void Bar::Show() {
    ReleasePass();
    m_clsPass = MakeRef<clsPass>();
    m_clsPass->Connect(activation_);
    window_ = MakeRef<frmProgBar>(process_);
    window_->SetPass(m_clsPass);
    const Ref<frmProgBar> shown = window_;
    shown->ShowModal();
}

void Bar::Unload() {
    Pass().Unload();
    window_ = {};
    ReleasePass();
    process_.platform.windows().Pump();
}

void Bar::RaiseActive() {
    for (BarEvents* sink : std::vector(sinks_)) {
        if (std::ranges::find(sinks_, sink) != sinks_.end()) sink->Active();
    }
}

}  // namespace qor
