#include "windows/dispatch_object.h"

#include "windows/enumerator.h"
#include "windows/event_source.h"
#include "windows/incoming_arguments.h"
#include "windows/name_index.h"
#include "windows/outward_objects.h"
#include "windows/type_library.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

namespace {

// Over the border 0 is the default member; others are the row of the member table and 1.
DISPID ToDispid(Object& object, MemberId member) {
    return member == object.DefaultMember() ? DISPID_VALUE : member + 1;
}

MemberId FromDispid(Object& object, DISPID id) {
    if (id < 0) return kNoMember;
    return id == DISPID_VALUE ? object.DefaultMember() : id - 1;
}

HRESULT HandOut(ComPtr<ITypeInfo> description, ITypeInfo** info) {
    *info = description.Detach();
    return *info ? S_OK : TYPE_E_CANTLOADLIBRARY;
}

}  // namespace

DispatchObject::DispatchObject(Object& object)
    : object_(&object),
      class_(PublicClassOf(object)),
      events_(class_ ? EventSource::Of(object, *this) : nullptr) {
    RememberOutward(object, *this);
}

DispatchObject::~DispatchObject() { ForgetOutward(*object_, *this); }

bool DispatchObject::IsOwnInterface(REFIID id) const { return class_ && id == ToGuid(class_->InterfaceId()); }

HRESULT DispatchObject::QueryInterface(REFIID id, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch || IsOwnInterface(id)) {
        *object = static_cast<IDispatch*>(this);
    } else if (id == IID_ISupportErrorInfo) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else if (id == IID_IConnectionPointContainer && events_) {
        *object = static_cast<IConnectionPointContainer*>(this);
    } else if (class_ && (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2)) {
        *object = static_cast<IProvideClassInfo2*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = class_ ? 1 : 0;
    return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0 || !class_) return DISP_E_BADINDEX;
    return AtBorder(nullptr, [&] { return HandOut(DescriptionOf(class_->InterfaceId()), info); });
}

HRESULT DispatchObject::GetClassInfo(ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return AtBorder(nullptr, [&] { return HandOut(DescriptionOf(class_->ClassId()), info); });
}

HRESULT DispatchObject::GetGUID(DWORD kind, GUID* id) {
    if (!id) return E_POINTER;
    *id = GUID{};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID || !events_) return E_INVALIDARG;
    *id = events_->EventsId();
    return S_OK;
}

const NameIndex* DispatchObject::Names() {
    if (!names_) names_ = NameIndex::Of(*object_);
    return names_;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !names[0] || !ids || count == 0) return E_INVALIDARG;
    if (IsElsewhere()) return RPC_E_WRONG_THREAD;
    return AtBorder(nullptr, [&]() -> HRESULT {
        const NameIndex* known = Names();
        const MemberId member = known ? known->Find(names[0]) : object_->FindMember(Narrow(names[0]));
        ids[0] = member == kNoMember ? DISPID_UNKNOWN : ToDispid(*object_, member);
        bool allKnown = member != kNoMember;
        for (UINT i = 1; i < count; ++i) {  // a member's parameters have their places for ids
            ids[i] = known && member != kNoMember ? known->FindParameter(member, names[i]) : DISPID_UNKNOWN;
            if (ids[i] == DISPID_UNKNOWN) allKnown = false;
        }
        return allKnown ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

HRESULT DispatchObject::Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* info, UINT* wrongArgument) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters || (parameters->cArgs > 0 && !parameters->rgvarg)) return E_INVALIDARG;
    if (IsElsewhere()) return RPC_E_WRONG_THREAD;
    const ComPtr<IDispatch> kept(this);  // the last reference may go inside the call
    return AtBorder(info, [&] { return InvokeMember(member, flags, *parameters, result, wrongArgument); });
}

HRESULT DispatchObject::InvokeMember(DISPID member, WORD flags, const DISPPARAMS& parameters, VARIANT* result,
                                     UINT* wrongArgument) {
    if (member == DISPID_NEWENUM) return NewEnum(result);
    const MemberId id = FromDispid(*object_, member);
    const NameIndex* known = Names();
    if (id == kNoMember || (known && !known->Has(id))) return DISP_E_MEMBERNOTFOUND;
    // Whoever only looks at an object's values must not run it.
    const bool isRead = (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == DISPATCH_PROPERTYGET;
    if (isRead && known && known->IsMethod(id)) return DISP_E_MEMBERNOTFOUND;

    IncomingArguments incoming(parameters, flags, known ? known->ParameterCount(id) : 0);
    if (FAILED(incoming.placed())) return incoming.TellWrong(wrongArgument), incoming.placed();
    try {
        incoming.Take();
        const Value answer = object_->Invoke(id, incoming.kind(), incoming.arguments());
        incoming.HandBack();
        if (result) *result = ToVariant(answer).Detach();
        return S_OK;
    } catch (const Error&) {
        incoming.TellWrong(wrongArgument);
        throw;
    }
}

HRESULT DispatchObject::NewEnum(VARIANT* result) {
    ComPtr<IUnknown> enumerator = MakeEnumerator(*object_);
    if (!enumerator) return DISP_E_MEMBERNOTFOUND;
    if (!result) return E_POINTER;
    VariantInit(result);
    result->vt = VT_UNKNOWN;
    result->punkVal = enumerator.Detach();
    return S_OK;
}

HRESULT DispatchObject::InterfaceSupportsErrorInfo(REFIID id) {
    return id == IID_IDispatch || IsOwnInterface(id) ? S_OK : S_FALSE;
}

HRESULT DispatchObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    if (!points) return E_POINTER;
    *points = nullptr;
    return AtBorder(nullptr, [&] { return events_->EnumPoints(points); });
}

HRESULT DispatchObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    return events_->Find(id, point);
}

}  // namespace qor::windows
