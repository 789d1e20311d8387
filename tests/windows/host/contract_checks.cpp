// What automation promises of enumerators, connection points, class objects and error information, whoever
// asks: kept on the failing paths too.
#include <ocidl.h>
#include <olectl.h>

#include <array>

#include "platform/dictionary.h"
#include "platform/vector.h"
#include "tests/support/raises.h"
#include "tests/windows/host/bare_dispatch.h"
#include "tests/windows/host/host_checks.h"
#include "windows/types/class_ids.h"

namespace qor::host {

namespace {

using test::RaisedBy;
using windows::ComPtr;
using windows::Outward;
using windows::ToGuid;
using windows::Variant;

ComPtr<IEnumVARIANT> EnumeratorOf(Object& list) {
    DISPPARAMS none{};
    Variant answer;
    ComPtr<IEnumVARIANT> enumerator;
    Expect(Outward(&list)->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                                  answer.get(), nullptr, nullptr) == S_OK &&
               (*answer).vt == VT_UNKNOWN &&
               SUCCEEDED((*answer).punkVal->QueryInterface(IID_PPV_ARGS(&enumerator))),
           "no enumerator");
    return enumerator;
}

/// The items that are fetched next: their number, or -1 where the enumerator says another one than it gives.
template <std::size_t wanted>
int Fetched(const ComPtr<IEnumVARIANT>& enumerator) {
    std::array<VARIANT, wanted + 1> room{};
    ULONG fetched = 77;
    const HRESULT result = enumerator->Next(wanted, room.data(), &fetched);
    int given = 0;
    for (VARIANT& item : room) {
        if (item.vt == VT_DISPATCH) ++given;
        VariantClear(&item);
    }
    const bool isRight = static_cast<int>(fetched) == given && result == (fetched == wanted ? S_OK : S_FALSE);
    return isRight ? given : -1;
}

void EnumeratorsKeepTheirContract() {
    const Ref<Dictionary> item = MakeRef<OrderedDictionary>();
    const ComPtr<IDispatch> outside = Outward(item.get());
    {
        const Ref<ArrayVector> list = MakeRef<ArrayVector>();
        for (int i = 0; i < 3; ++i) {
            list->Add(item);
        }
        const ComPtr<IEnumVARIANT> items = EnumeratorOf(*list);
        Expect(Fetched<2>(items) == 2, "two of three are not fetched");
        ComPtr<IEnumVARIANT> copy;
        Expect(items->Clone(&copy) == S_OK && Fetched<2>(copy) == 1, "a copy begins elsewhere");
        Expect(Fetched<1>(items) == 1 && Fetched<1>(items) == 0, "a copy moves the first");
        Expect(items->Reset() == S_OK && items->Skip(2) == S_OK && Fetched<2>(items) == 1,
               "others are skipped");
        Expect(items->Reset() == S_OK && items->Skip(4) == S_FALSE && Fetched<1>(items) == 0,
               "more are skipped");
        Expect(items->Reset() == S_OK && Fetched<0>(items) == 0 && Fetched<3>(items) == 3, "none is one");
        items->Reset();
        std::array<VARIANT, 2> room{};
        Expect(items->Next(2, room.data(), nullptr) == S_OK && room[1].vt == VT_DISPATCH,
               "it must be told how many");
        for (VARIANT& fetched : room) {
            VariantClear(&fetched);
        }
        ULONG fetched = 77;
        Expect(items->Next(1, nullptr, &fetched) == E_POINTER && fetched == 0, "it fetches to nowhere");
        Expect(items->Clone(nullptr) == E_POINTER, "it is copied to nowhere");
    }
    Expect(ReferencesOf(outside.Get()) == 1, "an item is still held");
}

ComPtr<IConnectionPoint> PassPoint(IDispatch* pass) {
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    Expect(SUCCEEDED(pass->QueryInterface(IID_PPV_ARGS(&container))), "no connection points");
    Expect(container->FindConnectionPoint(IID_IEnumVARIANT, &point) == CONNECT_E_NOCONNECTION && !point,
           "a point of another interface");
    Expect(container->FindConnectionPoint(ToGuid(windows::kPassEventsId), &point) == S_OK, "no point");
    return point;
}

/// An object that hears nothing.
class Deaf final : public windows::ComObject<IUnknown> {
 public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = id == IID_IUnknown ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
};

void ConnectionPointsKeepTheirContract() {
    const ComPtr<IDispatch> pass = Create("QORArApRpt.clsPass");
    const ULONG before = ReferencesOf(pass.Get());
    ComPtr<IUnknown> deaf;
    deaf.Attach(new Deaf);
    ComPtr<IDispatch> sink;
    sink.Attach(new BareDispatch);
    {
        const ComPtr<IConnectionPoint> point = PassPoint(pass.Get());
        IID id;
        Expect(point->GetConnectionInterface(&id) == S_OK && id == ToGuid(windows::kPassEventsId),
               "other events");
        ComPtr<IConnectionPointContainer> container;
        Expect(point->GetConnectionPointContainer(&container) == S_OK, "no container");
        ComPtr<IUnknown> one, other;
        container->QueryInterface(IID_PPV_ARGS(&one));
        pass->QueryInterface(IID_PPV_ARGS(&other));
        Expect(one.Get() == other.Get(), "another container");
        ComPtr<IEnumConnectionPoints> points;
        IConnectionPoint* found[2]{};
        ULONG fetched = 0;
        Expect(
            container->EnumConnectionPoints(&points) == S_OK && points->Next(2, found, nullptr) == E_POINTER,
            "it need not be told how many");
        Expect(points->Next(2, found, &fetched) == S_FALSE && fetched == 1 && found[0] == point.Get(),
               "another point");
        found[0]->Release();

        DWORD cookie = 77;
        Expect(point->Advise(deaf.Get(), &cookie) == CONNECT_E_CANNOTCONNECT && cookie == 0,
               "who is deaf is advised");
        Expect(
            point->Advise(nullptr, &cookie) == E_POINTER && point->Advise(sink.Get(), nullptr) == E_POINTER,
            "nobody is advised");
        DWORD second = 0;
        Expect(point->Advise(sink.Get(), &cookie) == S_OK && point->Advise(sink.Get(), &second) == S_OK &&
                   cookie != 0 && second != 0 && cookie != second,
               "the sink is refused");
        ComPtr<IEnumConnections> connections;
        CONNECTDATA data{};
        Expect(point->EnumConnections(&connections) == S_OK && connections->Next(1, &data, nullptr) == S_OK &&
                   data.dwCookie == cookie,
               "the sink is not listed");
        data.pUnk->Release();
        Expect(point->Unadvise(cookie) == S_OK && point->Unadvise(cookie) == CONNECT_E_NOCONNECTION &&
                   point->Unadvise(second) == S_OK && point->Unadvise(0) == CONNECT_E_NOCONNECTION,
               "a cookie is good twice");
    }
    Expect(ReferencesOf(sink.Get()) == 1 && ReferencesOf(deaf.Get()) == 1, "a sink is still held");
    Expect(ReferencesOf(pass.Get()) == before, "the object is still held");
}

void ClassObjectsKeepTheirContract() {
    const windows::PublicClass& known = windows::PublicClasses()[0];
    const CLSID id = ToGuid(known.ClassId());
    {
        ComPtr<IClassFactory> factory;
        Expect(SUCCEEDED(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory))),
               "no class object");
        const ComPtr<IDispatch> outer = Create("QORArApRpt.Bar");
        void* made = &made;
        Expect(factory->CreateInstance(outer.Get(), IID_IUnknown, &made) == CLASS_E_NOAGGREGATION && !made,
               "it is made a part of another");
        made = &made;
        Expect(factory->CreateInstance(nullptr, IID_IEnumVARIANT, &made) == E_NOINTERFACE && !made,
               "it is made as what it is not");
        Expect(factory->CreateInstance(nullptr, IID_IUnknown, nullptr) == E_POINTER, "it is made for nobody");
        ComPtr<IUnknown> described;
        Expect(factory->CreateInstance(nullptr, ToGuid(known.InterfaceId()),
                                       reinterpret_cast<void**>(&described)) == S_OK,
               "it is not made as its own interface");
        void* another = &another;
        Expect(FAILED(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IEnumVARIANT, &another)) &&
                   !another,
               "the class object is what it is not");
    }
    Expect(CanUnload(), "the component is still held");
}

void ErrorInformationIsTold() {
    const ComPtr<IDispatch> bar = Create("QORArApRpt.Bar");
    ComPtr<ISupportErrorInfo> support;
    Expect(bar->QueryInterface(IID_PPV_ARGS(&support)) == S_OK, "none");
    const windows::PublicClass& own = windows::PublicClasses().back();
    Expect(own.name == "clsPass" && support->InterfaceSupportsErrorInfo(ToGuid(own.InterfaceId())) == S_FALSE,
           "another class's interface tells errors");
    Expect(support->InterfaceSupportsErrorInfo(
               ToGuid(windows::MakeId(windows::kBarNumber, windows::IdKind::Interface))) == S_OK &&
               support->InterfaceSupportsErrorInfo(IID_IDispatch) == S_OK &&
               support->InterfaceSupportsErrorInfo(IID_IUnknown) == S_FALSE,
           "other interfaces tell errors");
    // A host without room for it finds it with its thread.
    DISPPARAMS none{};
    ComPtr<IErrorInfo> info;
    BSTR description = nullptr;
    Expect(FAILED(bar->Invoke(9, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr)) &&
               GetErrorInfo(0, &info) == S_OK && SUCCEEDED(info->GetDescription(&description)) &&
               SysStringLen(description) > 0,
           "an idle bar is unloaded");
    SysFreeString(description);
}

void LookingAtAnObjectDoesNotRunIt() {
    const ComPtr<IDispatch> bar = Create("QORArApRpt.Bar"), report = Create("QORArApRpt.Rpt10501");
    DISPPARAMS none{};
    for (const DISPID method : {1, 7}) {
        Variant answer;
        Expect(bar->Invoke(method, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, answer.get(), nullptr,
                           nullptr) == DISP_E_MEMBERNOTFOUND,
               "it runs");
    }
    Variant answer;
    Expect(report->Invoke(11, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, answer.get(), nullptr, nullptr) ==
                   S_OK &&
               (*answer).vt == VT_I4,
           "a property is not read");
}

/// A server that fails and does not say with what.
class Speechless final : public BareDispatch {
 public:
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override { return *ids = 1, S_OK; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_EXCEPTION;
    }
};

void AnErrorHasANumber() {
    ComPtr<IDispatch> server;
    server.Attach(new Speechless);
    Expect(RaisedBy([&] { windows::Inward(server.Get())->Call("Work"); }) != test::kNoError,
           "the failure is not heard, or told as none");
}

constexpr HostCheck kChecks[] = {
    {"EnumeratorsKeepTheirContract", EnumeratorsKeepTheirContract},
    {"ConnectionPointsKeepTheirContract", ConnectionPointsKeepTheirContract},
    {"ClassObjectsKeepTheirContract", ClassObjectsKeepTheirContract},
    {"ErrorInformationIsTold", ErrorInformationIsTold},
    {"LookingAtAnObjectDoesNotRunIt", LookingAtAnObjectDoesNotRunIt},
    {"AnErrorHasANumber", AnErrorHasANumber},
};

}  // namespace

std::span<const HostCheck> ContractChecks() { return kChecks; }

}  // namespace qor::host
