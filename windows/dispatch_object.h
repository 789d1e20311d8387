// DispatchObject: one of the library's objects, as hosts see it: late bound through its member table, with
// `For Each` over lists, error information, and the events of the progress objects as connection points.
#pragma once

#include <olectl.h>

#include <memory>

#include "windows/bridge.h"

namespace qor::windows {

class EventSource;

/// Asked of a dispatch object, answers only by one of ours.
inline constexpr GUID kOwnObject{
    0x8f5a2c71, 0x3d0e, 0x4b66, {0x9a, 0x41, 0x6e, 0x0d, 0x52, 0x77, 0x1c, 0x3b}};

class DispatchObject final : public IDispatch, public ISupportErrorInfo, public IConnectionPointContainer {
 public:
    explicit DispatchObject(Object& object);
    ~DispatchObject();

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* info, UINT* wrongArgument) override;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    Object& object() const { return *object_; }

 private:
    HRESULT InvokeMember(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result);
    HRESULT NewEnum(VARIANT* result);

    Ref<Object> object_;
    std::unique_ptr<EventSource> events_;  // only for objects that raise any
    volatile LONG references_ = 1;
};

/// Member ids over the border: 0 is the default member, others are the row of the member table and 1.
DISPID ToDispid(Object& object, MemberId member);
MemberId FromDispid(Object& object, DISPID id);

}  // namespace qor::windows
