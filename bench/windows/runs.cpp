// A whole run of a report: filter put, fetch, outcome read; through the component and in the portable
// library.
#include <cstdio>
#include <functional>
#include <span>

#include "bench/windows/component_tables.h"
#include "bench/windows/host_call.h"
#include "bench/windows/quick_server.h"
#include "library.h"
#include "platform/headless.h"
#include "windows/bridge.h"
#include "windows/windows_platform.h"

namespace qor::bench {

namespace {

constexpr int kRounds = 500, kLongRounds = 10;
constexpr unsigned kLongCall = 100;  // milliseconds
constexpr const char* kReport = "QORArApRpt.Rpt10522";

/// No window, but the system's messages are handled when the library asks for it.
class PumpedWindows final : public HeadlessWindows {
 public:
    void Pump() override { system_.Pump(); }

 private:
    windows::NativeWindows system_;
};

/// The component's surroundings with no window drawn.
class Unseen final : public windows::WindowsPlatform {
 public:
    WindowSystem& windows() override { return unseen_; }

 private:
    PumpedWindows unseen_;
};

/// The portable library's: the component's own without windows and without a border to the host; where
/// `direct`, the servers stand in the library too, and nothing is asked of the system.
class Portable final : public Platform {
 public:
    explicit Portable(bool direct) : direct_(direct) {}

    Ref<Object> CreateComponent(std::string_view name) override {
        return direct_ ? MakeQuickServer() : servers_.CreateComponent(name);
    }
    WindowSystem& windows() override { return direct_ ? windows_ : pumped_; }
    Date Now() override { return servers_.Now(); }
    std::int32_t ProcessNumber() override { return servers_.ProcessNumber(); }
    Ref<Object> ProcessBag() override { return direct_ ? Ref<Object>() : servers_.ProcessBag(); }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost&) override { return nullptr; }
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost&) override { return nullptr; }

 private:
    bool direct_;
    windows::WindowsPlatform servers_;
    HeadlessWindows windows_;
    PumpedWindows pumped_;
};

/// Ends the program where a run does not succeed: its time would say nothing.
void Check(bool succeeded) {
    if (succeeded) return;
    std::printf("a run failed\n");
    std::fflush(stdout);
    ExitProcess(1);
}

/// A run in the portable library.
class PortableRun {
 public:
    explicit PortableRun(bool direct) : platform_(direct) {}
    void operator()() {
        report_->Put("Filter", filter_);
        report_->Call("GetReportData");
        Check(report_->Get("Result", "OK") == Value(true));
    }

 private:
    Portable platform_;
    Process process_{platform_};
    const Ref<Object> report_ = CreateReportClass(process_, kReport);
    const Ref<Dictionary> filter_ = QuickFilter();
};

/// The same, as a host does it late bound.
class HostRun {
 public:
    explicit HostRun(ComPtr<IDispatch> report) : report_(std::move(report)) {
        put_.Find(), fetch_.Find(), outcome_.Find();
    }
    void operator()() {
        put_();
        fetch_();
        Check((*outcome_()).boolVal != VARIANT_FALSE);
    }

 private:
    const ComPtr<IDispatch> report_;
    const Variant filter_ = windows::ToVariant(QuickFilter()), ok_ = windows::ToVariant("OK");
    Call put_{report_.Get(), L"Filter", DISPATCH_PROPERTYPUT, {*filter_}};
    Call fetch_{report_.Get(), L"GetReportData", DISPATCH_METHOD};
    Call outcome_{report_.Get(), L"Result", kRead, {*ok_}};
};

/// A viewer has a window, with the keyboard in its rows; it may not be used while a report fetches.
void OpenViewer() {
    const HWND viewer = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                        nullptr, nullptr, nullptr, nullptr);
    SetFocus(CreateWindowExW(0, L"LISTBOX", L"", WS_CHILD | WS_VISIBLE, 0, 0, 400, 300, viewer, nullptr,
                             nullptr, nullptr));
}

struct Row {
    const char* what;
    std::function<void()> run;
    double best = 0;  // nanoseconds
};

/// The rows take turns, so that other work on the machine meets all of them.
void Measure(std::span<Row> rows, int rounds) {
    for (int round = 0; round < rounds; ++round) {
        for (Row& row : rows) {
            const double took = Nanoseconds(row.run);
            row.best = round == 0 ? took : std::min(row.best, took);
        }
    }
}

/// Times beside the first row's.
void Print(std::span<const Row> rows) {
    for (const Row& row : rows) {
        std::printf("| %s | %.1f us | %.2f |\n", row.what, row.best / 1000, row.best / rows[0].best);
    }
}

}  // namespace

void PrintRuns() {
    OpenViewer();
    PortableRun portable(false), direct(true);
    Unseen platform;
    Process process(platform);
    HostRun unseen(windows::Outward(CreateReportClass(process, kReport).get()));
    HostRun component(CreateClass(L"QORArApRpt.Rpt10522"));

    Row quick[] = {{"portable library, in the component's surroundings", std::ref(portable)},
                   {"component", std::ref(component)},
                   {"component, without windows", std::ref(unseen)},
                   {"portable library, in surroundings of its own", std::ref(direct)}};
    Measure(quick, kRounds);
    SetServerDelay(kLongCall);
    Row lasting[] = {{"portable library, the data call lasting 100 ms", std::ref(portable)},
                     {"component, the same", std::ref(component)}};
    Measure(lasting, kLongRounds);
    SetServerDelay(0);

    std::printf("| Run | Time | Ratio |\n|---|---|---|\n");
    Print(quick);
    Print(lasting);
}

}  // namespace qor::bench
