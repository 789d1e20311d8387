#include "windows/foreign_object.h"

#include <array>
#include <memory_resource>
#include <span>
#include <vector>

#include "windows/outward_objects.h"

namespace qor::windows {

namespace {

/// A by-reference argument: a VARIANT of our own that the callee may replace.
struct Passed {
    Variant own;
    VARIANT reference{};
};

WORD FlagsOf(InvokeKind kind) {
    switch (kind) {
        case InvokeKind::Method:
            return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
        case InvokeKind::Get:
            return DISPATCH_PROPERTYGET | DISPATCH_METHOD;
        case InvokeKind::Put:
            return DISPATCH_PROPERTYPUT;
        case InvokeKind::PutRef:
            return DISPATCH_PROPERTYPUTREF;
    }
    return 0;
}

bool IsUnknownWay(HRESULT result) { return result == DISP_E_MEMBERNOTFOUND || result == E_NOTIMPL; }

/// Lets references to VARIANTs be ones to the VARIANTs' content: classes whose parameters have types take no
/// others. One that holds nothing yet stays what it is. Answers whether any has changed.
bool ReferToContents(std::span<VARIANT> arguments) {
    bool changed = false;
    for (VARIANT& argument : arguments) {
        if (argument.vt != (VT_BYREF | VT_VARIANT)) continue;
        VARIANT& content = *argument.pvarVal;
        if (content.vt == VT_EMPTY || content.vt == VT_NULL) continue;
        argument.vt = static_cast<VARTYPE>(VT_BYREF | content.vt);
        argument.byref = &content.byref;
        changed = true;
    }
    return changed;
}

}  // namespace

bool IsGone(HRESULT result) {
    constexpr int kFirstRpcError = 1700, kLastRpcError = 1939;
    if (SUCCEEDED(result)) return false;
    if (result == CO_E_OBJNOTCONNECTED || HRESULT_FACILITY(result) == FACILITY_RPC) return true;
    return HRESULT_FACILITY(result) == FACILITY_WIN32 && HRESULT_CODE(result) >= kFirstRpcError &&
           HRESULT_CODE(result) <= kLastRpcError;
}

ForeignObject::ForeignObject(IDispatch* dispatch, IUnknown* identity)
    : dispatch_(dispatch), identity_(identity) {
    dispatch_->QueryInterface(IID_PPV_ARGS(&dispatchEx_));
    RememberForeign(identity_, *this);
}

ForeignObject::~ForeignObject() {
    if (identity_) ForgetForeign(identity_);
    if (borrowed_) dispatch_.Detach();
}

Ref<Object> ForeignObject::Borrowed(IDispatch* dispatch) {
    return Ref<Object>(new ForeignObject(dispatch, Borrowing::Borrows));
}

MemberId ForeignObject::FindMember(std::string_view name) {
    // A script's object may have members of its own beside its class's.
    if (!members_) members_ = dispatchEx_ ? std::make_shared<MemberIds>() : MemberIds::Of(*dispatch_.Get());
    if (const auto known = members_->Find(name)) return *known;
    DISPID id = DISPID_UNKNOWN;
    const Bstr wide(name);
    HRESULT result = E_NOTIMPL;
    if (dispatchEx_) result = dispatchEx_->GetDispID(wide.get(), fdexNameCaseInsensitive, &id);
    if (FAILED(result)) {
        LPOLESTR text = wide.get();
        result = dispatch_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
    }
    if (IsGone(result)) {
        EXCEPINFO info{};
        RaiseFromCom(result, info);
    }
    if (FAILED(result)) return kNoMember;  // not kept: a script's object may get the member yet
    members_->Keep(name, id);
    return id;
}

HRESULT ForeignObject::InvokeAs(MemberId member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                                EXCEPINFO& info) {
    if (dispatchEx_) {
        const HRESULT answer =
            dispatchEx_->InvokeEx(member, LOCALE_USER_DEFAULT, flags, &parameters, result, &info, nullptr);
        if (answer != E_NOTIMPL) return answer;
    }
    UINT wrongArgument = 0;
    return dispatch_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &info,
                             &wrongArgument);
}

Value ForeignObject::Invoke(MemberId member, InvokeKind kind, Arguments arguments) {
    const bool isPut = kind == InvokeKind::Put || kind == InvokeKind::PutRef;
    std::array<std::byte, 512> room;  // the few arguments of most calls need no allocation
    std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
    std::pmr::vector<Passed> passed(&memory);
    passed.reserve(arguments.size());
    std::pmr::vector<VARIANT> reversed(arguments.size(), &memory);  // automation passes arguments last first
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        Argument& argument = arguments[i];
        Passed& slot = passed.emplace_back(Passed{argument.IsMissing() ? Variant() : ToVariant(*argument)});
        VARIANT& out = reversed[arguments.size() - 1 - i];
        if (argument.IsMissing()) {
            out.vt = VT_ERROR;
            out.scode = DISP_E_PARAMNOTFOUND;
        } else if (argument.IsByRef()) {
            out.vt = VT_BYREF | VT_VARIANT;
            out.pvarVal = slot.own.get();
        } else {
            out = *slot.own;
        }
    }

    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), isPut ? &putName : nullptr, static_cast<UINT>(reversed.size()),
                          isPut ? 1u : 0u};
    Variant result;
    EXCEPINFO info{};
    HRESULT answer = InvokeAs(member, FlagsOf(kind), parameters, isPut ? nullptr : result.get(), info);
    if (isPut && IsUnknownWay(answer)) {
        const InvokeKind other = kind == InvokeKind::Put ? InvokeKind::PutRef : InvokeKind::Put;
        answer = InvokeAs(member, FlagsOf(other), parameters, nullptr, info);
    }
    if (answer == DISP_E_TYPEMISMATCH && ReferToContents(reversed)) {
        answer = InvokeAs(member, FlagsOf(kind), parameters, isPut ? nullptr : result.get(), info);
    }
    if (FAILED(answer)) RaiseFromCom(answer, info);

    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i].IsByRef()) *arguments[i] = FromVariant(*passed[i].own);
    }
    return FromVariant(*result);
}

}  // namespace qor::windows
