// Late-bound calls as hosts make them: by name, by reference, failing in the middle, and heard as events.
#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <functional>

#include "platform/dictionary.h"
#include "tests/support/raises.h"
#include "tests/windows/host/bare_dispatch.h"
#include "tests/windows/host/host_checks.h"
#include "windows/types/class_ids.h"

namespace qor::host {

namespace {

using test::ErrorOf;
using test::RaisedBy;
using windows::ComPtr;
using windows::Outward;
using windows::ToGuid;
using windows::Variant;

void NamesAreFoundWithoutRegardToCase() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10501");
    report->Put("rptid", 77);
    Expect(report->Get("RPTID") == Value(77), "the property is another");
    Expect(RaisedBy([&] { report->Get("RptIDs"); }) == Automation::NoSuchMember, "an unknown name is found");
    Expect(RaisedBy([&] { report->Get("Rpt"); }) == Automation::NoSuchMember,
           "the beginning of a name is found");
}

void SurplusIndicesGoOnToTheAnswer() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10501");
    Expect(report->Get("Property", "Name") == Value("收支明细表"), "the index does not reach the dictionary");
    report->Put("Property", "ShowFilter", -2);
    Expect(report->Get("Property", "ShowFilter") == Value(-2), "the put does not reach the dictionary");
    Expect(RaisedBy([&] { report->Call("Refresh", 1); }) != test::kNoError,
           "a method takes too many arguments");
}

void ErrorsCarryNumberSourceAndDescription() {
    const Ref<Object> bar = CreateObject("QORArApRpt.Bar");
    const auto error = ErrorOf([&] { bar->Call("SetMsg", "text"); });
    Expect(error && error->number() == 91 && error->source() == "QORArApRpt" && !error->description().empty(),
           error ? "the error is another: " + std::to_string(error->number()) + " " + error->source()
                 : "an idle bar takes a text");
}

void AVariableByValueStaysAsItWas() {
    const ComPtr<IDispatch> report = Create("QORArApRpt.Rpt10501");
    const DISPID id = IdOf(report.Get(), L"RptID");
    Variant variable = windows::ToVariant("10522");
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = variable.get();
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&reference, &put, 1, 1};
    Expect(
        report->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr) == S_OK,
        "a text that is a number is refused");
    Expect((*variable).vt == VT_BSTR, "the host's variable was converted");
    Expect(windows::Inward(report.Get())->Get("RptID") == Value(10522), "the number did not arrive");
}

void ListsCanBeWalked() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10501");
    const ComPtr<IDispatch> property = Outward(&ObjectIn(report->Get("Property")));
    DISPPARAMS none{};
    Variant answer;
    Expect(SUCCEEDED(property->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, answer.get(),
                                      nullptr, nullptr)),
           "no enumerator");
    ComPtr<IEnumVARIANT> keys;
    Expect(SUCCEEDED((*answer).punkVal->QueryInterface(IID_PPV_ARGS(&keys))), "no enumerator of values");
    Variant first;
    ULONG fetched = 0;
    Expect(keys->Next(1, first.get(), &fetched) == S_OK && fetched == 1, "no first key");
    Expect(windows::FromVariant(*first) == Value("Name"), "another first key");
    Expect(keys->Skip(1000) == S_FALSE, "the keys do not end");
}

/// A host's dictionary that fails at the given use, in the way of hosts.
class FailingDictionary final : public IDispatch {
 public:
    explicit FailingDictionary(int failAt) : failAt_(failAt) {}
    int uses() const { return uses_; }
    LONG references() const { return references_; }

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const std::string name = windows::Narrow(names[0]);
        constexpr std::string_view kNames[] = {"Lookup", "Value", "Count", "Name"};
        const auto found = std::ranges::find(kNames, name);
        *ids = found == std::end(kNames) ? DISPID_UNKNOWN : static_cast<DISPID>(found - kNames + 1);
        return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* info,
                        UINT*) override {
        if (++uses_ >= failAt_) {
            if (failAt_ % 3 == 0) return E_UNEXPECTED;
            if (!info) return DISP_E_EXCEPTION;
            info->scode = static_cast<SCODE>(0x800A03E8);
            info->bstrSource = windows::Bstr("host").Detach();
            if (failAt_ % 3 == 1) info->bstrDescription = windows::Bstr("the host's object is gone").Detach();
            return DISP_E_EXCEPTION;
        }
        if (result) {
            result->vt = VT_BSTR;
            result->bstrVal = windows::Bstr("0").Detach();
        }
        return S_OK;
    }

 private:
    int failAt_;
    int uses_ = 0;
    LONG references_ = 1;
};

void AHostsObjectMayFailAtAnyMoment() {
    for (const windows::PublicClass& known : windows::PublicClasses()) {
        if (!known.name.starts_with("Rpt")) continue;
        for (int failAt = 1; failAt < 12; ++failAt) {
            FailingDictionary filter(failAt);
            {
                const Ref<Object> report = CreateObject(known.ProgId());
                ErrorOf([&] { report->Put("Filter", Value(windows::Inward(&filter))); });
                ErrorOf([&] { report->Call("GetReportData"); });
                const Value ok = report->Get("Result", "OK");
                Expect(ok.type() == Value::Type::Boolean, known.name + " has no outcome");
            }
            Expect(filter.references() == 1, known.name + " holds a host's object that failed");
        }
    }
    Expect(CanUnload(), "the component is still held");
}

void WhatIsNoDictionaryIsRefused() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10522");
    const Ref<Object> bar = CreateObject("QORArApRpt.Bar");
    Expect(RaisedBy([&] { report->Put("Filter", Value(bar)); }) == Automation::TypeMismatch,
           "a bar is taken for a filter");
    Expect(RaisedBy([&] { report->Put("Filter", "text"); }) != test::kNoError,
           "a text is taken for a filter");
}

/// Hears events: the ids and the first argument of each.
class Sink final : public IDispatch {
 public:
    std::string heard;
    std::function<void()> answer;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        heard += std::to_string(id);
        if (parameters->cArgs == 1) {
            const Value value = windows::FromVariant(parameters->rgvarg[0]);
            heard += value.IsText() ? "=" + value.text() : "=" + std::to_string(value.int32());
        }
        heard += ' ';
        if (answer) answer();
        return E_FAIL;  // a sink that fails stops nobody
    }

    ULONG references = 1;
};

ComPtr<IConnectionPoint> PointOf(IDispatch* source, REFIID events) {
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    Expect(SUCCEEDED(source->QueryInterface(IID_PPV_ARGS(&container))), "no connection points");
    Expect(SUCCEEDED(container->FindConnectionPoint(events, &point)), "no such connection point");
    return point;
}

void EventsAreHeard() {
    Sink sink;
    {
        const ComPtr<IDispatch> pass = Create("QORArApRpt.clsPass");
        const ComPtr<IConnectionPoint> point = PointOf(pass.Get(), ToGuid(windows::kPassEventsId));
        DWORD cookie = 0;
        Expect(SUCCEEDED(point->Advise(&sink, &cookie)), "the sink is refused");
        const Ref<Object> object = windows::Inward(pass.Get());
        object->Call("SetBarMaxValue", 5);
        object->Call("SetMsg", "正在");
        object->Call("SetActive");
        object->Call("HideProgBar");
        Expect(sink.heard == "1=5 4=正在 7 8 ", "other events: " + sink.heard);
        point->Unadvise(cookie);
        object->Call("ShowProgBar");
        Expect(sink.heard == "1=5 4=正在 7 8 ", "a sink hears what it no longer should");
        Expect(point->Unadvise(cookie) == CONNECT_E_NOCONNECTION, "a cookie is good twice");
    }
    Expect(sink.references == 1, "the sink is still held");
    Expect(CanUnload(), "the component is still held");
}

void TheBarRaisesActiveInsideItsShow() {
    Sink sink;
    {
        const ComPtr<IDispatch> bar = Create("QORArApRpt.Bar");
        const Ref<Object> object = windows::Inward(bar.Get());
        sink.answer = [&] { object->Call("Unload"); };
        DWORD cookie = 0;
        const ComPtr<IConnectionPoint> point = PointOf(bar.Get(), ToGuid(windows::kBarEventsId));
        Expect(SUCCEEDED(point->Advise(&sink, &cookie)), "the sink is refused");
        object->Call("Show");
        Expect(sink.heard == "1 ", "other events: " + sink.heard);
        point->Unadvise(cookie);
        sink.answer = nullptr;
    }
    Expect(CanUnload(), "the component is still held");
}

/// A sink that unadvises itself as it goes, as hosts' sinks do.
class PartingSink final : public BareDispatch {
 public:
    PartingSink(IConnectionPoint* point, int& parted) : point_(point), parted_(parted) {}
    ~PartingSink() override {
        ++parted_;
        point_->Unadvise(1);
    }

 private:
    IConnectionPoint* point_;
    int& parted_;
};

void ASinkMayUnadviseItselfAsItGoes() {
    int parted = 0;
    const ComPtr<IDispatch> pass = Create("QORArApRpt.clsPass");
    const ComPtr<IConnectionPoint> point = PointOf(pass.Get(), ToGuid(windows::kPassEventsId));
    DWORD cookie = 0;
    {
        ComPtr<IDispatch> sink;
        sink.Attach(new PartingSink(point.Get(), parted));
        Expect(SUCCEEDED(point->Advise(sink.Get(), &cookie)) && cookie == 1, "the sink is refused");
    }
    Expect(point->Unadvise(cookie) == S_OK && parted == 1, "the sink does not go once");
}

/// A server's class whose parameters have types: it takes a reference to nothing but a number.
class TypedServer final : public BareDispatch {
 public:
    TypedServer(HRESULT answer, int* calls) : answer_(answer), calls_(calls) {}
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override { return *ids = 1, S_OK; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*, UINT*) override {
        if (calls_) ++*calls_;
        if (FAILED(answer_)) return answer_;
        if (given->cArgs != 1 || given->rgvarg[0].vt != (VT_BYREF | VT_I4)) return DISP_E_TYPEMISMATCH;
        *given->rgvarg[0].plVal += 1;
        return S_OK;
    }

 private:
    HRESULT answer_;
    int* calls_;
};

Ref<Object> NewTypedServer(HRESULT answer = S_OK, int* calls = nullptr) {
    ComPtr<IDispatch> made;
    made.Attach(new TypedServer(answer, calls));
    return windows::Inward(made.Get());
}

void TypedReferencesReachAServer() {
    const Ref<Object> server = NewTypedServer();
    Value number = 41;
    server->Call("Count", Argument::ByRef(number));
    Expect(number == Value(42), "the number does not come back");
    Value text = "41";
    Expect(RaisedBy([&] { server->Call("Count", Argument::ByRef(text)); }) == Automation::TypeMismatch,
           "a text is taken for a number");
}

void ARefusedCallIsNotMadeAgainWithTheSameArguments() {
    int calls = 0;
    const Ref<Object> server = NewTypedServer(DISP_E_TYPEMISMATCH, &calls);
    Expect(RaisedBy([&] { server->Call("Count", 41); }) == Automation::TypeMismatch && calls == 1,
           "values are offered twice");
    Value nothing;
    Expect(RaisedBy([&] { server->Call("Count", Argument::ByRef(nothing)); }) == Automation::TypeMismatch &&
               calls == 2,
           "a reference to nothing is offered twice");
}

void AServersResultIsToldInTheSystemsWords() {
    const Ref<Object> server = NewTypedServer(E_ACCESSDENIED);
    const auto error = ErrorOf([&] { server->Call("Count"); });
    Expect(error && error->number() == static_cast<std::int32_t>(E_ACCESSDENIED), "another number, or none");
    Expect(error->description() != Describe(Automation::InvalidCall) && !error->description().empty() &&
               error->description().back() != '\n',
           "another text: " + error->description());
}

void APutThatIsLeftOpenGoesByItsValue() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10501");
    const ComPtr<IDispatch> property = Outward(&ObjectIn(report->Get("Property")));
    Variant arguments[] = {windows::ToVariant(-2), windows::ToVariant("ShowFilter")};
    VARIANT borrowed[] = {*arguments[0], *arguments[1]};
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{borrowed, &put, 2, 1};
    Expect(property->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                            &parameters, nullptr, nullptr, nullptr) == S_OK,
           "a number is refused");
    Expect(report->Get("Property", "ShowFilter") == Value(-2), "the number did not arrive");
}

void AMissingArgumentMayBeHandedOn() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10501");
    const ComPtr<IDispatch> dispatch = Outward(report.get());
    const DISPID id = IdOf(dispatch.Get(), L"AddDataRight");
    VARIANT missing{}, reference{};
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &missing;
    DISPPARAMS parameters{&reference, nullptr, 1, 0};
    Expect(dispatch->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr) == S_OK,
           "what was left out is taken for a value");
}

constexpr HostCheck kChecks[] = {
    {"NamesAreFoundWithoutRegardToCase", NamesAreFoundWithoutRegardToCase},
    {"SurplusIndicesGoOnToTheAnswer", SurplusIndicesGoOnToTheAnswer},
    {"ErrorsCarryNumberSourceAndDescription", ErrorsCarryNumberSourceAndDescription},
    {"AVariableByValueStaysAsItWas", AVariableByValueStaysAsItWas},
    {"ListsCanBeWalked", ListsCanBeWalked},
    {"AHostsObjectMayFailAtAnyMoment", AHostsObjectMayFailAtAnyMoment},
    {"WhatIsNoDictionaryIsRefused", WhatIsNoDictionaryIsRefused},
    {"EventsAreHeard", EventsAreHeard},
    {"ASinkMayUnadviseItselfAsItGoes", ASinkMayUnadviseItselfAsItGoes},
    {"TypedReferencesReachAServer", TypedReferencesReachAServer},
    {"ARefusedCallIsNotMadeAgainWithTheSameArguments", ARefusedCallIsNotMadeAgainWithTheSameArguments},
    {"AServersResultIsToldInTheSystemsWords", AServersResultIsToldInTheSystemsWords},
    {"APutThatIsLeftOpenGoesByItsValue", APutThatIsLeftOpenGoesByItsValue},
    {"AMissingArgumentMayBeHandedOn", AMissingArgumentMayBeHandedOn},
    {"TheBarRaisesActiveInsideItsShow", TheBarRaisesActiveInsideItsShow},
};

}  // namespace

std::span<const HostCheck> CallChecks() { return kChecks; }

}  // namespace qor::host
