// A whole run of a report: filter put, fetch, outcome read; through the component and in the portable
// library.
#include <ocidl.h>

#include <cstdio>

#include "bench/windows/component_tables.h"
#include "bench/windows/host_call.h"
#include "bench/windows/quick_server.h"
#include "library.h"
#include "platform/headless.h"
#include "tests/windows/host/bare_dispatch.h"
#include "windows/bridge.h"
#include "windows/windows_platform.h"

namespace qor::bench {

namespace {

constexpr int kRuns = 5;
constexpr int kShownRuns = 1;
constexpr const char* kReport = "QORArApRpt.Rpt10522";

/// The component's surroundings with no window drawn.
class Unseen final : public windows::WindowsPlatform {
 public:
    WindowSystem& windows() override { return unseen_; }

 private:
    HeadlessWindows unseen_;
};

/// The portable library's: the component's own without a border to the host; where `direct`, the servers
/// stand in the library too, and no bag of the shell is looked for.
class Portable final : public Platform {
 public:
    explicit Portable(bool direct) : direct_(direct) {}

    Ref<Object> CreateComponent(std::string_view name) override {
        return direct_ ? MakeQuickServer() : servers_.CreateComponent(name);
    }
    WindowSystem& windows() override { return windows_; }
    Date Now() override { return servers_.Now(); }
    std::int32_t ProcessNumber() override { return servers_.ProcessNumber(); }
    Ref<Object> ProcessBag() override { return direct_ ? Ref<Object>() : servers_.ProcessBag(); }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost&) override { return nullptr; }
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost&) override { return nullptr; }

 private:
    bool direct_;
    windows::WindowsPlatform servers_;
    HeadlessWindows windows_;
};

/// Ends the program where a run does not succeed: its time would say nothing.
void Check(bool succeeded) {
    if (succeeded) return;
    std::printf("a run failed\n");
    std::fflush(stdout);
    ExitProcess(1);
}

double PortableRun(Platform& platform) {
    Process process(platform);
    const Ref<Object> report = CreateReportClass(process, kReport);
    const Ref<Dictionary> filter = QuickFilter();
    return Nanoseconds(kRuns, [&] {
        report->Put("Filter", filter);
        report->Call("GetReportData");
        Check(report->Get("Result", "OK") == Value(true));
    });
}

/// The same, as a host does it late bound.
double HostRun(IDispatch* report, int times) {
    const Variant filter = windows::ToVariant(QuickFilter()), ok = windows::ToVariant("OK");
    Call put{report, L"Filter", DISPATCH_PROPERTYPUT, {*filter}};
    Call fetch{report, L"GetReportData", DISPATCH_METHOD};
    Call outcome{report, L"Result", kRead, {*ok}};
    put.Find(), fetch.Find(), outcome.Find();
    return Nanoseconds(times, [&] {
        put();
        fetch();
        Check((*outcome()).boolVal != VARIANT_FALSE);
    });
}

double UnseenRun() {
    Unseen platform;
    Process process(platform);
    const Ref<Object> made = CreateReportClass(process, kReport);
    return HostRun(windows::Outward(made.get()).Get(), kRuns);
}

/// Hears a bar's activation and closes its window.
class Closer final : public host::BareDispatch {
 public:
    explicit Closer(IDispatch* bar) : unload_{bar, L"Unload", DISPATCH_METHOD} { unload_.Find(); }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return unload_(), S_OK;
    }

 private:
    Call unload_;
};

/// The progress window alone, made and closed, as each run makes one.
double ProgressWindow() {
    const ComPtr<IDispatch> bar = CreateClass(L"QORArApRpt.Bar");
    ComPtr<IDispatch> closer;
    closer.Attach(new Closer(bar.Get()));
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    bar->QueryInterface(IID_PPV_ARGS(&container));
    container->FindConnectionPoint(windows::ToGuid(windows::kBarEventsId), &point);
    point->Advise(closer.Get(), &cookie);
    const double took = Nanoseconds(kShownRuns, Call{bar.Get(), L"Show", DISPATCH_METHOD}.Find());
    point->Unadvise(cookie);
    return took;
}

void PrintRow(const char* what, double nanoseconds, double beside) {
    std::printf("| %s | %.1f us | %.2f |\n", what, nanoseconds / 1000, nanoseconds / beside);
}

}  // namespace

void PrintRuns() {
    Portable direct(true), served(false);
    const double plain = PortableRun(direct);
    const double portable = PortableRun(served);
    const double unseen = UnseenRun();
    const double whole = HostRun(CreateClass(L"QORArApRpt.Rpt10522").Get(), kShownRuns);
    std::printf("| Run | Time | Ratio |\n|---|---|---|\n");
    PrintRow("portable library, in the component's surroundings", portable, portable);
    PrintRow("component, its progress window not drawn", unseen, portable);
    PrintRow("component", whole, portable);
    PrintRow("the progress window alone", ProgressWindow(), portable);
    PrintRow("portable library, in surroundings of its own", plain, portable);
}

}  // namespace qor::bench
