#include "progress/cls_pass.h"

#include <algorithm>

#include "progress/member_adapters.h"

namespace qor {

namespace {

using progress::NumberCall, progress::PlainCall, progress::TextCall;

constexpr Member kMembers[] = {
    PlainCall<clsPass, &clsPass::HideProgBar>("HideProgBar"),
    PlainCall<clsPass, &clsPass::SetActive>("SetActive"),
    NumberCall<clsPass, &clsPass::SetBarMaxValue>("SetBarMaxValue"),
    NumberCall<clsPass, &clsPass::SetBarMinValue>("SetBarMinValue"),
    NumberCall<clsPass, &clsPass::SetBarValue>("SetBarValue"),
    PlainCall<clsPass, &clsPass::SetBarValueWithMax>("SetBarValueWithMax"),
    TextCall<clsPass, &clsPass::SetMsg>("SetMsg"),
    PlainCall<clsPass, &clsPass::ShowProgBar>("ShowProgBar"),
    PlainCall<clsPass, &clsPass::Unload>("Unload"),
};

}  // namespace

std::span<const Member> clsPass::Members() const { return kMembers; }

/// A sink may disconnect itself or another one, or let go of this object, while an event is raised.
template <class Event>
void clsPass::Raise(Event&& event) {
    const Ref<clsPass> kept(this);
    for (ClsPassEvents* sink : std::vector(sinks_)) {
        if (std::ranges::find(sinks_, sink) != sinks_.end()) event(*sink);
    }
}

void clsPass::HideProgBar() {
    Raise([](ClsPassEvents& sink) { sink.HideProgBar(); });
}

void clsPass::SetActive() {
    Raise([](ClsPassEvents& sink) { sink.Active(); });
}

void clsPass::SetBarMaxValue(std::int32_t value) {
    Raise([value](ClsPassEvents& sink) { sink.SetBarMaxValue(value); });
}

void clsPass::SetBarMinValue(std::int32_t value) {
    Raise([value](ClsPassEvents& sink) { sink.SetBarMinValue(value); });
}

void clsPass::SetBarValue(std::int32_t value) {
    Raise([value](ClsPassEvents& sink) { sink.SetBarValue(value); });
}

void clsPass::SetBarValueWithMax() {
    Raise([](ClsPassEvents& sink) { sink.SetBarValueWithMax(); });
}

void clsPass::SetMsg(std::string_view text) {
    Raise([text](ClsPassEvents& sink) { sink.SetMsg(text); });
}

void clsPass::ShowProgBar() {
    Raise([](ClsPassEvents& sink) { sink.ShowProgBar(); });
}

void clsPass::Unload() {
    Raise([](ClsPassEvents& sink) { sink.Unload(); });
}

}  // namespace qor
