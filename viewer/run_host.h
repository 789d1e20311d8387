// RunHost: a host that runs one report on an account set: it fills the dialog as a user would, reads the
// report back, and opens a row's detail.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "embedded/middle_tier.h"
#include "frames/scheme_store.h"
#include "platform/headless.h"
#include "platform/platform.h"
#include "process/process.h"

namespace qor::viewer {

/// One --set: a filter key and the value that its control is to take.
using FilterValue = std::pair<std::string, std::string>;

struct RunRequest {
    std::int32_t number = 0;
    std::vector<FilterValue> values;
    std::optional<std::string> scheme;  // a saved scheme to begin with
    std::optional<std::int32_t> appType;
    std::optional<std::int32_t> drillRow;  // show the detail report of this row, counted from 0, instead
};

/// What keeps a run from being shown: one line for the user, and the exit status.
class RunFailure : public std::runtime_error {
 public:
    RunFailure(int status, const std::string& message) : std::runtime_error(message), status_(status) {}
    int status() const { return status_; }

 private:
    int status_;
};

inline constexpr int kRunFailed = 1, kWrongRequest = 2;

/// The surroundings of a run: the embedded middle tier, the user's saved schemes, no screen.
class RunHost final : public Platform {
 public:
    /// Borrows all three. Message boxes go to `messages`.
    RunHost(MiddleTier& middleTier, SchemeStore& schemes, std::ostream& messages);

    /// The finished report, or the detail report of the row that was asked for. Throws RunFailure.
    Ref<Object> Run(const RunRequest& request);

    Ref<Object> CreateComponent(std::string_view name) override;
    WindowSystem& windows() override { return windows_; }
    Date Now() override;
    std::int32_t ProcessNumber() override;
    Ref<Object> ProcessBag() override { return bag_; }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost& form) override;
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost& form) override;

 private:
    /// Message boxes as lines, each remembered: a box after OK tells that the dialog refused.
    class Windows final : public HeadlessWindows {
     public:
        explicit Windows(std::ostream& messages) : messages_(messages) {}
        std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) override;

     private:
        std::ostream& messages_;
    };

    void FillDialog(Form& form, const RunRequest& request);
    void CheckOutcome(Object& report, std::string_view step) const;

    MiddleTier& middleTier_;
    SchemeStore& schemes_;
    Windows windows_;
    Ref<Dictionary> bag_;
    Process process_{*this};
    std::optional<RunFailure> refused_;  // what went wrong inside the dialog
};

}  // namespace qor::viewer
