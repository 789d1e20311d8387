// Identity, reference counts, memory, and the end of the component.
#include <psapi.h>

#include <thread>

#include "platform/dictionary.h"
#include "tests/windows/host/host_checks.h"
#include "windows/class_factory.h"
#include "windows/types/class_ids.h"
#include "windows/window_names.h"

namespace qor::host {

namespace {

using windows::ComPtr;
using windows::Inward;
using windows::Outward;
using windows::PublicClasses;

ComPtr<IDispatch> DispatchIn(const Value& value) { return Outward(&ObjectIn(value)); }

void EveryClassCanBeCreated() {
    for (const windows::PublicClass& known : PublicClasses()) {
        ComPtr<IDispatch> made = Create(known.ProgId());
        IDispatch* last = made.Detach();
        Expect(last->Release() == 0, known.name + " is held by somebody");
    }
    Expect(CanUnload(), "the component is still held");
}

void AnObjectIsTheSameEachTime() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10522");
    const ComPtr<IDispatch> first = DispatchIn(report->Get("Result")),
                            second = DispatchIn(report->Get("Result"));
    Expect(first.Get() == second.Get(), "two readings answer two objects");
    ComPtr<IUnknown> one, other;
    ComPtr<ISupportErrorInfo> information;
    Expect(SUCCEEDED(first->QueryInterface(IID_PPV_ARGS(&information))), "no error information");
    first->QueryInterface(IID_PPV_ARGS(&one));
    information->QueryInterface(IID_PPV_ARGS(&other));
    Expect(one.Get() == other.Get(), "two identities of one object");
}

void WhatComesFromOutsideGoesBackAsItself() {
    const Ref<Dictionary> filter = MakeRef<OrderedDictionary>();
    const ComPtr<IDispatch> sent = Outward(filter.get());
    const ULONG before = ReferencesOf(sent.Get());
    {
        const Ref<Object> report = CreateObject("QORArApRpt.Rpt10522");
        report->Put("Filter", Value(filter));
        Expect(ReferencesOf(sent.Get()) > before, "the report does not keep its filter");
        Expect(DispatchIn(report->Get("Filter")).Get() == sent.Get(), "another filter comes back");
        report->Put("Filter", Value::Nothing());
        Expect(ReferencesOf(sent.Get()) == before, "a filter taken away is still held");
        report->Put("Filter", Value(filter));
    }
    Expect(ReferencesOf(sent.Get()) == before, "a report that went holds its filter");
    Expect(CanUnload(), "the component is still held");
}

void OneOfOursComesHomeAsItself() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10522");
    const Value result = report->Get("Result");
    report->Put("Filter", result);
    Expect(DispatchIn(report->Get("Filter")).Get() == DispatchIn(result).Get(), "it came home as another");
    ObjectIn(report->Get("Filter")).Put("Value", "Mark", "here");
    Expect(report->Get("Result", "Mark") == Value("here"), "it is not the same dictionary");
}

std::size_t PrivateBytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}

void CreateAndUse(int times) {
    for (int i = 0; i < times; ++i) {
        const Ref<Object> report = CreateObject("QORArApRpt.Rpt10522");
        Expect(report->Get("Property", "Name") == Value("收入类别明细表"), "another report");
    }
}

/// A server that answers everything with nothing and remembers nothing.
class SilentServer final : public Object {
 public:
    std::string_view ClassName() const override { return "Server"; }
    MemberId FindMember(std::string_view) override { return 0; }
    Value Invoke(MemberId, InvokeKind, Arguments) override { return {}; }
};

/// From here on this process's creations of a server component get a `Server`.
template <class Server>
void Serve(const wchar_t* name) {
    CLSID id;
    ComPtr<IClassFactory> factory;
    DWORD cookie = 0;
    Expect(SUCCEEDED(CLSIDFromProgID(name, &id)), "a server is not registered");
    windows::AnswerFactory([]() -> Ref<Object> { return MakeRef<Server>(); }, IID_IClassFactory,
                           reinterpret_cast<void**>(&factory));
    CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
}

void ServeSilently() {
    Serve<SilentServer>(L"QOREBSBase.SystemProfile");
    Serve<SilentServer>(L"QORMtsCacheService.CacheFacade");
    Serve<SilentServer>(L"QORPropsMgr.ShareProps");
}

void TenThousandCreationsLeaveMemoryFlat() {
    ServeSilently();
    CreateAndUse(1000);
    const std::size_t before = PrivateBytes();
    CreateAndUse(10000);
    const std::size_t after = PrivateBytes();
    Expect(after < before + 512 * 1024, "memory grew by " + std::to_string(after - before) + " bytes");
    Expect(CanUnload(), "the component is still held");
}

void TheLibraryGoesWhenNobodyUsesIt() {
    { CreateObject("QORArApRpt.Rpt10530")->Call("GetReportData"); }
    Expect(GetModuleHandleW(L"QORArApRpt.dll"), "the component is not loaded");
    Expect(CanUnload(), "the component is still held");
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    Expect(!GetModuleHandleW(L"QORArApRpt.dll"), "the library stays");
    CreateObject("QORArApRpt.Rpt10530")->Call("GetReportData");  // and comes again
}

bool ProgressIsSeen() { return windows::FindShownWindow("frmProgBar"); }

/// A server that answers when the user sees that it is waited for.
class SlowServer final : public Object {
 public:
    static inline bool seen = false;

    std::string_view ClassName() const override { return "Server"; }
    MemberId FindMember(std::string_view) override { return 0; }
    Value Invoke(MemberId, InvokeKind, Arguments) override {
        for (int i = 0; i < 500 && !(seen = ProgressIsSeen()); ++i) {
            Sleep(10);
        }
        return {};
    }
};

void TheLibraryGoesAfterARunThatWasSeen() {
    ServeSilently();
    Serve<SlowServer>(L"QOREBCGLView.GLData");
    {
        const Ref<Object> report = CreateObject("QORArApRpt.Rpt10522");
        report->Put("Filter", Ref<Dictionary>(MakeRef<OrderedDictionary>()));
        report->Call("GetReportData");
    }
    Expect(SlowServer::seen, "the progress window did not come up");
    Expect(!ProgressIsSeen(), "the progress window stays");
    Expect(CanUnload(), "the component is still held");
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    Expect(!GetModuleHandleW(L"QORArApRpt.dll"), "the library stays");
    Sleep(200);  // nothing of it is left that could still run
}

void ALockKeepsTheLibrary() {
    CLSID id;
    CLSIDFromProgID(L"QORArApRpt.Bar", &id);
    ComPtr<IClassFactory> factory;
    Expect(SUCCEEDED(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory))),
           "no class object");
    factory->LockServer(TRUE);
    factory.Reset();
    Expect(!CanUnload(), "a locked component would go");
    ComPtr<IClassFactory> again;
    CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&again));
    again->LockServer(FALSE);
    again.Reset();
    Expect(CanUnload(), "the component is still held");
}

/// What another thread with an apartment of its own gets for creating a report.
HRESULT CreatedOnAnotherThread() {
    HRESULT result = E_FAIL;
    std::thread([&] {
        CoInitialize(nullptr);
        CLSID id;
        CLSIDFromProgID(L"QORArApRpt.Rpt10522", &id);
        {
            ComPtr<IDispatch> made;
            result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made));
        }
        CoUninitialize();
    }).join();
    return result;
}

/// Neither is its object to be called from elsewhere, whoever carried the pointer there.
void AnObjectIsCalledOnItsThreadAlone() {
    const windows::ComPtr<IDispatch> report = Create("QORArApRpt.Rpt10522");
    OLECHAR name[] = L"RptID";
    LPOLESTR names = name;
    DISPID id = 0;
    Expect(report->GetIDsOfNames(IID_NULL, &names, 1, 0, &id) == S_OK, "no RptID");
    HRESULT asked = S_OK, called = S_OK;
    std::thread([&] {
        DISPID other = 0;
        DISPPARAMS none{};
        windows::Variant answer;
        asked = report->GetIDsOfNames(IID_NULL, &names, 1, 0, &other);
        called = report->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, answer.get(), nullptr, nullptr);
    }).join();
    Expect(asked == RPC_E_WRONG_THREAD && called == RPC_E_WRONG_THREAD, "another thread is answered");
}

void ReportsLiveOnOneThread() {
    Expect(SUCCEEDED(CreatedOnAnotherThread()), "a thread of its own gets no report");
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10522");  // the other thread has ended
    Expect(CreatedOnAnotherThread() == RPC_E_WRONG_THREAD, "two threads share the component");
    Expect(report->Get("Property", "Name") == Value("收入类别明细表"), "the first thread's report suffered");
}

constexpr HostCheck kChecks[] = {
    {"EveryClassCanBeCreated", EveryClassCanBeCreated},
    {"AnObjectIsTheSameEachTime", AnObjectIsTheSameEachTime},
    {"WhatComesFromOutsideGoesBackAsItself", WhatComesFromOutsideGoesBackAsItself},
    {"OneOfOursComesHomeAsItself", OneOfOursComesHomeAsItself},
    {"TenThousandCreationsLeaveMemoryFlat", TenThousandCreationsLeaveMemoryFlat},
    {"TheLibraryGoesWhenNobodyUsesIt", TheLibraryGoesWhenNobodyUsesIt},
    {"TheLibraryGoesAfterARunThatWasSeen", TheLibraryGoesAfterARunThatWasSeen},
    {"ALockKeepsTheLibrary", ALockKeepsTheLibrary},
    {"ReportsLiveOnOneThread", ReportsLiveOnOneThread},
    {"AnObjectIsCalledOnItsThreadAlone", AnObjectIsCalledOnItsThreadAlone},
};

}  // namespace

std::span<const HostCheck> LifeChecks() { return kChecks; }

}  // namespace qor::host
