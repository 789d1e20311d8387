// Bar: the progress object that a report holds. Show opens the modal window and returns when it is closed;
// the window's activation comes back as the event Active, which carries the whole fetch.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "process/process.h"
#include "progress/progress_form.h"

namespace qor {

class BarEvents {
 public:
    virtual void Active() = 0;

 protected:
    ~BarEvents() = default;
};

class Bar final : public TableObject {
 public:
    explicit Bar(Process& process) : process_(process) {}
    ~Bar() override;

    std::string_view ClassName() const override { return "Bar"; }
    std::span<const Member> Members() const override;

    // While no window is shown, all but Show raise 91.
    void HideProgBar();
    void SetBarMaxValue(std::int32_t value);
    void SetBarMinValue(std::int32_t value);
    void SetBarValue(std::int32_t value);
    void SetBarValueWithMax();
    void SetMsg(std::string_view text);
    void Show();
    void ShowProgBar();
    void Unload();

    bool IsShown() const { return static_cast<bool>(m_clsPass); }

    /// Borrows `sink` until it is disconnected.
    void Connect(BarEvents& sink) { sinks_.push_back(&sink); }
    void Disconnect(BarEvents& sink) { std::erase(sinks_, &sink); }

 private:
    /// Of the events of clsPass, Bar hears Active alone; the window answers the others. Bar is no sink
    /// itself: its own members bear the names of the events that it sends.
    struct Activation final : ClsPassEvents {
        explicit Activation(Bar& owner) : bar(owner) {}
        void Active() override { bar.RaiseActive(); }
        Bar& bar;
    };

    void RaiseActive();

    clsPass& Pass() const;
    void ReleasePass();

    Process& process_;
    Ref<frmProgBar> window_;
    Ref<clsPass> m_clsPass;
    Activation activation_{*this};
    std::vector<BarEvents*> sinks_;
};

}  // namespace qor
