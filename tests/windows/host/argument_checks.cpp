// Arguments as hosts pass them: refused ones, named ones, and variables of every type.
#include <array>
#include <climits>

#include "platform/conversions.h"
#include "platform/dictionary.h"
#include "tests/support/raises.h"
#include "tests/windows/host/host_checks.h"

namespace qor::host {

namespace {

using test::RaisedBy;
using windows::ComPtr;
using windows::Outward;
using windows::ToVariant;
using windows::Variant;

constexpr UINT kNone = ~0u;

/// The ids that an object answers for a member and its parameters.
template <std::size_t count>
HRESULT FindIds(IDispatch* object, const std::array<const wchar_t*, count>& names,
                std::array<DISPID, count>& ids) {
    std::array<LPOLESTR, count> asked;
    for (std::size_t i = 0; i < count; ++i) {
        asked[i] = const_cast<LPOLESTR>(names[i]);
    }
    return object->GetIDsOfNames(IID_NULL, asked.data(), count, 0, ids.data());
}

/// What a host learns of one call.
struct Outcome {
    HRESULT result;
    SCODE number;
    UINT wrong;
    bool isTold;  // in words, with a source
};

Outcome CallFor(IDispatch* object, DISPID id, WORD flags, DISPPARAMS parameters) {
    EXCEPINFO info{};
    Outcome outcome{S_OK, 0, kNone, false};
    outcome.result =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, nullptr, &info, &outcome.wrong);
    outcome.number = info.scode;
    outcome.isTold = SysStringLen(info.bstrSource) > 0 && SysStringLen(info.bstrDescription) > 0;
    for (const BSTR text : {info.bstrSource, info.bstrDescription, info.bstrHelpFile}) {
        SysFreeString(text);
    }
    return outcome;
}

struct Refusal {
    const char* progId;
    const wchar_t* member;
    WORD flags;
    std::vector<Value> arguments;
    int number;
    UINT wrong;  // counted from the last
};

void ARefusedArgumentIsToldByItsPlace() {
    const Refusal refusals[] = {
        {"QORArApRpt.Rpt10503", L"GetDetailReport", DISPATCH_METHOD, {"first"}, 13, 0},
        {"QORArApRpt.Rpt10503", L"GetDetailReport", DISPATCH_METHOD, {3e9}, 6, 0},
        {"QORArApRpt.Rpt10503", L"GetDetailReport", DISPATCH_METHOD, {}, 449, kNone},
        {"QORArApRpt.Rpt10503", L"GetDetailReport", DISPATCH_METHOD, {1, 2}, 450, kNone},
        {"QORArApRpt.Rpt10503", L"RptID", DISPATCH_PROPERTYPUT, {"first"}, 13, 0},
        {"QORArApRpt.Rpt10503", L"RptID", DISPATCH_PROPERTYPUT, {Value::Null()}, 94, 0},
        {"QORArApRpt.Rpt10503", L"Filter", DISPATCH_PROPERTYPUTREF, {1}, 13, 0},
        {"QORArApRpt.Rpt10503", L"Property", DISPATCH_PROPERTYGET, {Value::Null()}, 94, 0},
        {"QORArApRpt.Rpt10503", L"Property", DISPATCH_PROPERTYPUT, {Value::Null(), 5}, 94, 1},
        {"QORArApRpt.Bar", L"SetMsg", DISPATCH_METHOD, {"text"}, 91, kNone},
    };
    for (const Refusal& refusal : refusals) {
        const ComPtr<IDispatch> object = Create(refusal.progId);
        std::vector<Variant> owned;
        for (auto value = refusal.arguments.rbegin(); value != refusal.arguments.rend(); ++value) {
            owned.push_back(ToVariant(*value));
        }
        std::vector<VARIANT> passed;
        for (const Variant& variant : owned) {
            passed.push_back(*variant);
        }
        const bool isPut = refusal.flags != DISPATCH_METHOD && refusal.flags != DISPATCH_PROPERTYGET;
        DISPID put = DISPID_PROPERTYPUT;
        const Outcome outcome = CallFor(
            object.Get(), IdOf(object.Get(), refusal.member), refusal.flags,
            {passed.data(), isPut ? &put : nullptr, static_cast<UINT>(passed.size()), isPut ? 1u : 0u});
        const std::string where = windows::Narrow(refusal.member) + " " + std::to_string(refusal.number);
        Expect(outcome.result == DISP_E_EXCEPTION && outcome.isTold, where + " is not told in words");
        Expect(outcome.number == static_cast<SCODE>(0x800A0000u | static_cast<unsigned>(refusal.number)),
               where + " has another number: " + std::to_string(outcome.number & 0xFFFF));
        Expect(outcome.wrong == refusal.wrong,
               where + " is told of argument " + std::to_string(outcome.wrong));
    }
}

void AnArrayIsRefusedByItsPlace() {
    const ComPtr<IDispatch> report = Create("QORArApRpt.Rpt10503");
    std::array<VARIANT, 2> arguments{};
    arguments[1].vt = VT_ARRAY | VT_VARIANT;  // the first, of two
    const Outcome outcome = CallFor(report.Get(), IdOf(report.Get(), L"GetDetailReport"), DISPATCH_METHOD,
                                    {arguments.data(), nullptr, 2, 0});
    Expect(outcome.result == DISP_E_EXCEPTION && outcome.isTold && outcome.wrong == 1, "an array is taken");
}

void WhatNobodyNamedIsNoMember() {
    constexpr WORD kWays[] = {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUTREF};
    const ComPtr<IDispatch> report = Create("QORArApRpt.Rpt10503");
    const DISPID filter = IdOf(report.Get(), L"Filter");
    // The ids behind a property's own are rows of its table and nobody's ids.
    const DISPID ids[] = {DISPID_VALUE, DISPID_UNKNOWN, DISPID_EVALUATE, filter + 1,
                          9999,         LONG_MAX,       LONG_MIN};
    for (const DISPID id : ids) {
        for (const WORD flags : kWays) {
            VARIANT nothing{};
            nothing.vt = VT_DISPATCH;
            const Outcome outcome = CallFor(report.Get(), id, flags, {&nothing, nullptr, 1, 0});
            Expect(outcome.result == DISP_E_MEMBERNOTFOUND && outcome.wrong == kNone,
                   "id " + std::to_string(id) + " is a member");
        }
    }
    const Ref<Object> inside = windows::Inward(report.Get());
    Expect(RaisedBy([&] { inside->Invoke(9998, InvokeKind::Get, {}); }) == Automation::NoSuchMember,
           "the id is a member");
}

void OnlyTheEmptyInterfaceIsAskedFor() {
    const ComPtr<IDispatch> report = Create("QORArApRpt.Rpt10503");
    OLECHAR name[] = L"RptID";
    LPOLESTR names = name;
    DISPID id = 0;
    DISPPARAMS none{};
    Expect(report->GetIDsOfNames(IID_IDispatch, &names, 1, 0, &id) == DISP_E_UNKNOWNINTERFACE,
           "a name is found");
    Expect(report->Invoke(1, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr) ==
               DISP_E_UNKNOWNINTERFACE,
           "a member is called");
}

void ArgumentsCanBeNamed() {
    const Ref<Object> report = CreateObject("QORArApRpt.Rpt10503");
    const ComPtr<IDispatch> property = Outward(&ObjectIn(report->Get("Property")));
    std::array<DISPID, 3> ids{};
    Expect(FindIds<3>(property.Get(), {L"GetValue", L"default", L"KEY"}, ids) == S_OK, "they have no ids");
    Expect(ids[1] == 1 && ids[2] == 0, "other ids than their places");
    const Variant none = ToVariant("none"), missing = ToVariant("missing"), name = ToVariant("Name");
    VARIANT passed[] = {*none, *missing};
    VARIANT result{};
    DISPPARAMS parameters{passed, &ids[1], 2, 2};  // the default first
    Expect(property->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr) ==
               S_OK,
           "named arguments are refused");
    Expect(windows::FromVariant(result) == Value("none"), "they were exchanged");
    VariantClear(&result);
    VARIANT mixed[] = {*none, *name};  // the key at its place, the default by name
    parameters = {mixed, &ids[1], 2, 1};
    Expect(property->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr) ==
                   S_OK &&
               windows::FromVariant(result) == report->Get("Property", "Name"),
           "a named one beside one at its place is refused");
    VariantClear(&result);
    parameters = {mixed, &ids[1], 1, 1};  // the key is left out
    Outcome outcome = CallFor(property.Get(), ids[0], DISPATCH_METHOD, parameters);
    Expect(outcome.number == static_cast<SCODE>(0x800A01C1), "a key is not needed");

    DISPID put[] = {DISPID_PROPERTYPUT, 0};
    const Variant five = ToVariant(5), key = ToVariant("ShowFilter");
    VARIANT named[] = {*five, *key};
    Expect(CallFor(property.Get(), DISPID_VALUE, DISPATCH_PROPERTYPUT, {named, put, 2, 2}).result == S_OK &&
               report->Get("Property", "ShowFilter") == Value(5),
           "a put by a named key does not arrive");
}

void NamesOfNoParameterAreRefused() {
    const ComPtr<IDispatch> report = Create("QORArApRpt.Rpt10503");
    std::array<DISPID, 2> ids{};
    Expect(FindIds<2>(report.Get(), {L"GetDetailReport", L"Rows"}, ids) == DISP_E_UNKNOWNNAME && ids[0] > 0 &&
               ids[1] == DISPID_UNKNOWN,
           "a parameter is found that is none");
    Expect(FindIds<2>(report.Get(), {L"RptID", L"RptID"}, ids) == DISP_E_UNKNOWNNAME,
           "what is put has a name");
    const DISPID member = IdOf(report.Get(), L"GetDetailReport");
    std::array<VARIANT, 2> arguments{};
    DISPID unknown[] = {1, LONG_MAX, DISPID_UNKNOWN, DISPID_PROPERTYPUT};
    for (DISPID& named : unknown) {
        const Outcome outcome =
            CallFor(report.Get(), member, DISPATCH_METHOD, {arguments.data(), &named, 1, 1});
        Expect(outcome.result == DISP_E_PARAMNOTFOUND && outcome.wrong == 0,
               "a parameter is taken that is none");
    }
    DISPID first = 0;  // the same as the one at its place
    Expect(CallFor(report.Get(), member, DISPATCH_METHOD, {arguments.data(), &first, 2, 1}).result ==
               DISP_E_PARAMNOTFOUND,
           "one parameter is given twice");
}

/// Leaves a value in the variable that it is given.
class Giver final : public TableObject {
 public:
    Value given;

    std::string_view ClassName() const override { return "Giver"; }
    std::span<const Member> Members() const override {
        static constexpr Member kMembers[] = {
            {"Give",
             InvokeKind::Method,
             Bind<Giver, &Giver::Give>,
             ParameterType::Any,
             {{{"Variable", ParameterType::Any, true}}}},
        };
        return kMembers;
    }
    Value Give(Arguments arguments) {
        *arguments[0] = given;
        return {};
    }
};

/// Has a variable of the host's take `given`.
Outcome Give(const Value& given, VARTYPE type, void* variable) {
    const Ref<Giver> giver = MakeRef<Giver>();
    giver->given = given;
    const ComPtr<IDispatch> outside = Outward(giver.get());
    VARIANT reference{};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
    reference.byref = variable;
    return CallFor(outside.Get(), 1, DISPATCH_METHOD, {&reference, nullptr, 1, 0});
}

void AVariableOfAnyTypeTakesWhatComesBack() {
    for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8, VT_UI8,
                               VT_R4, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR, VT_BOOL, VT_DATE}) {
        const std::string where = "a variable of type " + std::to_string(type);
        Variant variable;
        VARIANT& storage = *variable.get();
        storage.vt = type;
        void* const place = type == VT_DECIMAL ? static_cast<void*>(&storage) : &storage.byref;
        const Value given = type == VT_BOOL ? Value(true) : Value(42);
        const Outcome outcome = Give(given, type, place);
        Expect(outcome.result == S_OK, where + " is refused");
        if (type == VT_DECIMAL) Expect(storage.vt == 0, "a decimal has a type in it");
        storage.vt = type;
        Expect(ToDouble(windows::FromVariant(storage)) == ToDouble(given), where + " holds another value");
    }
    std::int32_t number = 7;
    const Outcome outcome = Give("text", VT_I4, &number);
    Expect(outcome.number == static_cast<SCODE>(0x800A000D) && outcome.isTold && outcome.wrong == 0 &&
               number == 7,
           "a text becomes a number");
}

void AVariableReleasesWhatItHeld() {
    const Ref<Dictionary> before = MakeRef<OrderedDictionary>(), after = MakeRef<OrderedDictionary>();
    const ComPtr<IDispatch> one = Outward(before.get()), other = Outward(after.get());
    for (const VARTYPE type : {VT_DISPATCH, VT_UNKNOWN}) {
        ComPtr<IDispatch> held = one;
        IDispatch* variable = held.Detach();
        Expect(Give(after, type, &variable).result == S_OK && variable == other.Get(),
               "it holds another object");
        Expect(ReferencesOf(one.Get()) == 1 && ReferencesOf(other.Get()) == 2, "an object is counted wrong");
        Expect(Give(5, type, &variable).number == static_cast<SCODE>(0x800A000D) && variable == other.Get(),
               "a number is an object");
        variable->Release();
    }
    // The variable of a routine that was itself given a reference leads to the first one's.
    Variant first = ToVariant(before), second;
    second.get()->vt = VT_BYREF | VT_VARIANT;
    second.get()->pvarVal = first.get();
    Expect(Give(after, VT_VARIANT, second.get()).result == S_OK && (*first).pdispVal == other.Get(),
           "it does not come back to the first");
    Expect(ReferencesOf(one.Get()) == 1 && ReferencesOf(other.Get()) == 2, "an object is counted wrong");
}

void ANullReferenceIsRefused() {
    for (const VARTYPE type : {VT_VARIANT, VT_I4, VT_BSTR}) {
        const Outcome outcome = Give(5, type, nullptr);
        Expect(outcome.number == static_cast<SCODE>(0x800A000D) && outcome.wrong == 0, "it is followed");
    }
}

constexpr HostCheck kChecks[] = {
    {"ARefusedArgumentIsToldByItsPlace", ARefusedArgumentIsToldByItsPlace},
    {"AnArrayIsRefusedByItsPlace", AnArrayIsRefusedByItsPlace},
    {"WhatNobodyNamedIsNoMember", WhatNobodyNamedIsNoMember},
    {"OnlyTheEmptyInterfaceIsAskedFor", OnlyTheEmptyInterfaceIsAskedFor},
    {"ArgumentsCanBeNamed", ArgumentsCanBeNamed},
    {"NamesOfNoParameterAreRefused", NamesOfNoParameterAreRefused},
    {"AVariableOfAnyTypeTakesWhatComesBack", AVariableOfAnyTypeTakesWhatComesBack},
    {"AVariableReleasesWhatItHeld", AVariableReleasesWhatItHeld},
    {"ANullReferenceIsRefused", ANullReferenceIsRefused},
};

}  // namespace

std::span<const HostCheck> ArgumentChecks() { return kChecks; }

}  // namespace qor::host
