// ReadyPlatform: surroundings that answer at once, so that what is measured is the library. A person who
// opens no list and clicks OK sits in front of it. Its clock of stages takes the time between the moments
// at which the library reaches outside.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <string_view>

#include "frames/scheme_store.h"
#include "platform/headless.h"
#include "platform/platform.h"
#include "platform/record_set.h"

namespace qor::bench {

/// What a conversation consists of, each stage up to the moment at which the next one begins.
enum class Stage : std::size_t {
    Create,      // the report object, until the host has it
    OpenDialog,  // ShowFilter, until the dialog has its focus
    Confirm,     // OK in the dialog, until ShowFilter returns
    Captions,    // GetReportData: title and condition captions, until the progress window is up
    Activate,    // the window's activation, until the rights check
    Columns,     // the column table
    DataRight,   // the data-right clause, until the data component is created
    Call,        // the message of the window and the call, until the data component is reached
    Close,       // the window closes, until GetReportData returns
    Read,        // the host reads the outcome, the data set, the columns, the captions and the property set
};
inline constexpr std::array<std::string_view, 10> kStageNames{
    "create",  "open dialog", "confirm", "captions", "activate",
    "columns", "data right",  "call",    "close",    "read",
};

class StageClock {
 public:
    void Start() { last_ = Clock::now(); }
    /// The stage ends here.
    void End(Stage stage) {
        const auto now = Clock::now();
        seconds_[static_cast<std::size_t>(stage)] += std::chrono::duration<double>(now - last_).count();
        last_ = now;
    }
    const std::array<double, kStageNames.size()>& seconds() const { return seconds_; }

 private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point last_{};
    std::array<double, kStageNames.size()> seconds_{};
};

class ReadyPlatform final : public Platform, private HeadlessWindows {
 public:
    ReadyPlatform();

    StageClock clock;

    Ref<Object> CreateComponent(std::string_view name) override;
    WindowSystem& windows() override { return *this; }
    Date Now() override { return Date{44089}; }  // 2020-09-15
    std::int32_t ProcessNumber() override { return 4711; }
    Ref<Object> ProcessBag() override { return bag_; }
    Ref<Vector> NewVector() override;
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost& form) override;
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost& form) override;

 private:
    class Component;

    void FormShown(Form& form) override;
    void PlayUser(Form& form) override;
    /// A member of a component is reached.
    Value Answer(std::string_view member);

    Ref<Dictionary> bag_;
    Ref<RecordSet> rows_;
    MemorySchemeStore schemes_;
    int listsSinceCheck_ = 0;  // lists made since the rights check: the column table's, then the clause's
};

}  // namespace qor::bench
