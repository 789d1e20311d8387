#include "windows/dispatch_object.h"

#include <algorithm>
#include <array>
#include <memory_resource>
#include <vector>

#include "windows/enumerator.h"
#include "windows/event_source.h"
#include "windows/name_index.h"
#include "windows/outward_objects.h"
#include "windows/type_library.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

namespace {

InvokeKind KindOf(WORD flags, const DISPPARAMS& parameters) {
    constexpr WORD kEither = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    if ((flags & kEither) == kEither) {
        // A host that leaves it open; the new value is the first in automation's order.
        const bool isObject = parameters.cArgs > 0 && FromVariant(parameters.rgvarg[0]).IsObject();
        return isObject ? InvokeKind::PutRef : InvokeKind::Put;
    }
    if (flags & DISPATCH_PROPERTYPUTREF) return InvokeKind::PutRef;
    if (flags & DISPATCH_PROPERTYPUT) return InvokeKind::Put;
    return flags & DISPATCH_METHOD ? InvokeKind::Method : InvokeKind::Get;
}

/// Also where a host's routine hands on an optional argument that it was not given itself.
bool IsMissing(const VARIANT& variant) {
    if (variant.vt == (VT_BYREF | VT_VARIANT)) return IsMissing(*variant.pvarVal);
    return variant.vt == VT_ERROR && variant.scode == DISP_E_PARAMNOTFOUND;
}

/// The arguments of one call, in the order of the parameters, with room for what comes back by reference.
class IncomingArguments {
 public:
    explicit IncomingArguments(const DISPPARAMS& parameters) : parameters_(parameters) {
        const UINT count = parameters.cArgs;
        arguments_.reserve(count);
        if (std::any_of(parameters.rgvarg, parameters.rgvarg + count, &IsByRef)) values_.reserve(count);
        for (UINT i = 0; i < count; ++i) {
            const VARIANT& variant = VariantOf(i);
            if (IsMissing(variant)) {
                arguments_.push_back(Argument::Missing());
            } else if (IsByRef(variant)) {
                const Value value = FromVariant(variant);
                Passed& passed = values_.emplace_back(Passed{i, value, value});
                arguments_.push_back(Argument::ByRef(passed.now));
            } else {
                arguments_.emplace_back(FromVariant(variant));
            }
        }
    }

    Arguments arguments() { return arguments_; }

    HRESULT HandBack() const {
        for (const Passed& passed : values_) {
            if (passed.now == passed.before) continue;
            const HRESULT result = PutThroughReference(VariantOf(passed.argument), passed.now);
            if (FAILED(result)) return result;
        }
        return S_OK;
    }

 private:
    /// The caller's variable behind an argument.
    struct Passed {
        UINT argument;
        Value now, before;
    };

    static bool IsByRef(const VARIANT& variant) { return (variant.vt & VT_BYREF) != 0; }
    const VARIANT& VariantOf(UINT argument) const {
        return parameters_.rgvarg[parameters_.cArgs - 1 - argument];
    }

    const DISPPARAMS& parameters_;
    // The few arguments of most calls need no allocation.
    std::array<std::byte, 512> room_;
    std::pmr::monotonic_buffer_resource memory_{room_.data(), room_.size()};
    std::pmr::vector<Passed> values_{&memory_};
    std::pmr::vector<Argument> arguments_{&memory_};
};

// Over the border 0 is the default member; others are the row of the member table and 1.
DISPID ToDispid(Object& object, MemberId member) {
    return member == object.DefaultMember() ? DISPID_VALUE : member + 1;
}

MemberId FromDispid(Object& object, DISPID id) {
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

HRESULT DispatchObject::QueryInterface(REFIID id, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch || (class_ && id == ToGuid(class_->InterfaceId()))) {
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

MemberId DispatchObject::FindMember(const wchar_t* name) {
    if (!names_) names_ = NameIndex::Of(*object_);
    return names_ ? names_->Find(name) : object_->FindMember(Narrow(name));
}

HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !names[0] || !ids || count == 0) return E_INVALIDARG;
    if (IsElsewhere()) return RPC_E_WRONG_THREAD;
    return AtBorder(nullptr, [&]() -> HRESULT {
        const MemberId member = FindMember(names[0]);
        ids[0] = member == kNoMember ? DISPID_UNKNOWN : ToDispid(*object_, member);
        for (UINT i = 1; i < count; ++i) {
            ids[i] = DISPID_UNKNOWN;  // arguments are taken by their place, not by name
        }
        return member == kNoMember || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    });
}

HRESULT DispatchObject::Invoke(DISPID member, REFIID id, LCID, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* info, UINT* wrongArgument) {
    if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_INVALIDARG;
    if (wrongArgument) *wrongArgument = 0;
    if (IsElsewhere()) return RPC_E_WRONG_THREAD;
    const ComPtr<IDispatch> kept(this);  // the last reference may go inside the call
    return AtBorder(info, [&] { return InvokeMember(member, flags, *parameters, result); });
}

HRESULT DispatchObject::InvokeMember(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result) {
    if (member == DISPID_NEWENUM) return NewEnum(result);
    const bool isPut = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    if (parameters.cNamedArgs > (isPut ? 1u : 0u)) return DISP_E_NONAMEDARGS;

    const MemberId id = FromDispid(*object_, member);
    if (id == kNoMember) return DISP_E_MEMBERNOTFOUND;
    IncomingArguments incoming(parameters);
    Value answer = object_->Invoke(id, KindOf(flags, parameters), incoming.arguments());
    if (const HRESULT handed = incoming.HandBack(); FAILED(handed)) return handed;
    if (result) *result = ToVariant(answer).Detach();
    return S_OK;
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

HRESULT DispatchObject::InterfaceSupportsErrorInfo(REFIID id) { return id == IID_IDispatch ? S_OK : S_FALSE; }

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
