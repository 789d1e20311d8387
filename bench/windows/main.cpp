// qor_component_bench: what late-bound calls through the registered component cost, beside the bare call of
// an empty object, and a whole report run through it beside the same run in the portable library. The server
// answers at once in both.
#include <ocidl.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "library.h"
#include "platform/headless.h"
#include "windows/bridge.h"
#include "windows/class_factory.h"
#include "windows/com_object.h"

namespace qor::bench {

namespace {

using windows::ComPtr;
using windows::Variant;

/// Answers every call with nothing.
class EmptyObject final : public windows::ComObject<IDispatch> {
 public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override { return *ids = 1, S_OK; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return S_OK;
    }
};

/// A server component that takes every call and answers what lets a run succeed.
class QuickServer final : public Object {
 public:
    explicit QuickServer(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
    std::string_view ClassName() const override { return "Server"; }
    MemberId FindMember(std::string_view name) override {
        return name.starts_with("GetRpt") ? 1 : name == "AccessCheck" ? 2 : name == "SystemProfile" ? 3 : 0;
    }
    Value Invoke(MemberId member, InvokeKind, Arguments) override {
        switch (member) {
            case 1:
                return rows_;
            case 2:
                return true;
            case 3:
                return Value(Ref<Object>(this));
            default:
                return {};
        }
    }

 private:
    Ref<RecordSet> rows_;
};

Ref<RecordSet> OneRow() {
    auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FName", "FAmount"});
    rows->AddRow({"A", 128.5});
    return rows;
}

constexpr const char* kServers[] = {"QORMArApRpt.Data",
                                    "QOREBCGLView.GLData",
                                    "QOREBSBase.SystemProfile",
                                    "QOREBSBase.SecurityInfo",
                                    "QORMAppConnection.AppConnection",
                                    "QORMtsCacheService.CacheFacade",
                                    "QORPropsMgr.ShareProps"};

/// The server for the component: this process's own classes go before registered ones.
void ServeQuickly(const Ref<RecordSet>& rows) {
    for (const char* name : kServers) {
        CLSID id;
        ComPtr<IClassFactory> factory;
        DWORD cookie = 0;
        CLSIDFromProgID(windows::Wide(name).c_str(), &id);
        windows::AnswerFactory([rows]() -> Ref<Object> { return MakeRef<QuickServer>(rows); },
                               IID_IClassFactory, reinterpret_cast<void**>(&factory));
        CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    }
}

class PortablePlatform final : public Platform {
 public:
    explicit PortablePlatform(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
    Ref<Object> CreateComponent(std::string_view) override { return MakeRef<QuickServer>(rows_); }
    WindowSystem& windows() override { return windows_; }
    Date Now() override { return {45000}; }
    std::int32_t ProcessNumber() override { return 1; }
    Ref<Object> ProcessBag() override { return {}; }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost&) override { return nullptr; }
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost&) override { return nullptr; }

 private:
    Ref<RecordSet> rows_;
    HeadlessWindows windows_;
};

/// Nanoseconds of one `step`: the best of several rounds.
template <class Step>
double Nanoseconds(int times, Step&& step) {
    LARGE_INTEGER frequency, begin, end;
    QueryPerformanceFrequency(&frequency);
    double best = 1e18;
    for (int round = 0; round < 7; ++round) {
        QueryPerformanceCounter(&begin);
        for (int i = 0; i < times; ++i) {
            step();
        }
        QueryPerformanceCounter(&end);
        const double took = static_cast<double>(end.QuadPart - begin.QuadPart) * 1e9 /
                            static_cast<double>(frequency.QuadPart) / times;
        best = std::min(best, took);
    }
    return best;
}

DISPID IdOf(IDispatch& object, const wchar_t* name) {
    LPOLESTR asked = const_cast<LPOLESTR>(name);
    DISPID id = DISPID_UNKNOWN;
    object.GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

struct Call {
    IDispatch* object;
    DISPID id;
    WORD way;
    std::vector<VARIANT> arguments{};

    Variant operator()() {
        DISPID put = DISPID_PROPERTYPUT;
        const bool isPut = way == DISPATCH_PROPERTYPUT;
        DISPPARAMS parameters{arguments.data(), isPut ? &put : nullptr, static_cast<UINT>(arguments.size()),
                              isPut ? 1u : 0u};
        Variant result;
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, way, &parameters, isPut ? nullptr : result.get(),
                       nullptr, nullptr);
        return result;
    }
};

Call CallOf(IDispatch* object, const wchar_t* name, WORD way, std::vector<VARIANT> arguments = {}) {
    return {object, IdOf(*object, name), way, std::move(arguments)};
}

Variant Read(IDispatch* object, const wchar_t* name) {
    return CallOf(object, name, DISPATCH_METHOD | DISPATCH_PROPERTYGET)();
}

void Print(const char* what, double nanoseconds) { std::printf("%-44s %10.0f ns\n", what, nanoseconds); }

void RunOnce(Object& report, const Ref<Dictionary>& filter) {
    report.Put("Filter", Value(filter));
    report.Call("GetReportData");
}

Ref<Dictionary> Filter() {
    auto filter = MakeRef<OrderedDictionary>();
    filter->Put("DtpBDate", "2026-01-01");
    filter->Put("DtpEDate", "2026-12-31");
    return filter;
}

ComPtr<IDispatch> CreateClass(const wchar_t* name) {
    CLSID id;
    ComPtr<IDispatch> report;
    if (FAILED(CLSIDFromProgID(name, &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&report)))) {
        std::printf("the component is not registered\n");
        std::exit(1);
    }
    return report;
}

void Calls(IDispatch* report) {
    constexpr int kTimes = 100'000;
    constexpr WORD kGet = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    ComPtr<IDispatch> empty;
    empty.Attach(new EmptyObject);
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = 7;
    const windows::Bstr keyText("OK"), fieldText("FAmount");
    VARIANT key{}, field{};
    key.vt = field.vt = VT_BSTR;
    key.bstrVal = keyText.get();
    field.bstrVal = fieldText.get();

    const Variant result = Read(report, L"Result"), rows = Read(report, L"Rs");
    const Variant fields = Read((*rows).pdispVal, L"Fields");
    Print("bare call", Nanoseconds(kTimes, CallOf(empty.Get(), L"Any", kGet)));
    Print("bare call with an argument", Nanoseconds(kTimes, CallOf(empty.Get(), L"Any", kGet, {key})));
    Print("member id by name, bare", Nanoseconds(kTimes, [&] { IdOf(*empty.Get(), L"RptID"); }));
    Print("member id by name", Nanoseconds(kTimes, [&] { IdOf(*report, L"RptID"); }));
    Print("property get", Nanoseconds(kTimes, CallOf(report, L"RptID", kGet)));
    Print("property put", Nanoseconds(kTimes, CallOf(report, L"RptID", DISPATCH_PROPERTYPUT, {number})));
    Print("property that is an object", Nanoseconds(kTimes, CallOf(report, L"Result", kGet)));
    Print("dictionary entry", Nanoseconds(kTimes, CallOf((*result).pdispVal, L"Value", kGet, {key})));
    Print("record-set field object", Nanoseconds(kTimes, CallOf((*fields).pdispVal, L"Item", kGet, {field})));
    Call item = CallOf((*fields).pdispVal, L"Item", kGet, {field});
    Print("record-set field with its value", Nanoseconds(kTimes, [&] {
              const Variant found = item();
              CallOf((*found).pdispVal, L"Value", kGet)();
          }));
}

/// Hears a bar's activation and closes its window.
class Closer final : public windows::ComObject<IDispatch> {
 public:
    explicit Closer(IDispatch* bar) : unload_(CallOf(bar, L"Unload", DISPATCH_METHOD)) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return unload_(), S_OK;
    }

 private:
    Call unload_;
};

/// The progress window alone, made and closed, as each run makes one.
double ProgressWindow(int times) {
    const ComPtr<IDispatch> bar = CreateClass(L"QORArApRpt.Bar");
    ComPtr<IDispatch> closer;
    closer.Attach(new Closer(bar.Get()));
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    bar->QueryInterface(IID_PPV_ARGS(&container));
    container->FindConnectionPoint(windows::ToGuid(windows::kBarEventsId), &point);
    point->Advise(closer.Get(), &cookie);
    const double took = Nanoseconds(times, CallOf(bar.Get(), L"Show", DISPATCH_METHOD));
    point->Unadvise(cookie);
    return took;
}

void Runs() {
    constexpr int kTimes = 50;
    const Ref<RecordSet> rows = OneRow();
    const Ref<Dictionary> filter = Filter();
    PortablePlatform platform(rows);
    Process process(platform);
    const Ref<Object> portable = CreateReportClass(process, "QORArApRpt.Rpt10522");
    const double inside = Nanoseconds(kTimes, [&] { RunOnce(*portable, filter); });

    const ComPtr<IDispatch> created = CreateClass(L"QORArApRpt.Rpt10522");
    const Ref<Object> report = windows::Inward(created.Get());
    const double through = Nanoseconds(kTimes, [&] { RunOnce(*report, filter); });
    const bool succeeded = report->Get("Result", "OK") == Value(true);
    Print("whole run, portable library", inside);
    Print("whole run, component", through);
    Print("the progress window of a run, alone", ProgressWindow(kTimes));
    Print(succeeded ? "  (the run succeeded)" : "  (the run FAILED)", 0);
    Calls(created.Get());
}

}  // namespace

}  // namespace qor::bench

int main() {
    CoInitialize(nullptr);
    qor::bench::ServeQuickly(qor::bench::OneRow());
    qor::bench::Runs();
    std::fflush(stdout);
    ExitProcess(0);
}
