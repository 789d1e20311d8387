// DispatchObject: one of the library's objects, as hosts see it: late bound through its member table, with
// `For Each` over lists, error information, its class's description, and the events of the progress objects
// as connection points.
#pragma once

#include <olectl.h>

#include <memory>

#include "windows/bridge.h"
#include "windows/com_object.h"

namespace qor::windows {

class EventSource;
class NameIndex;
struct PublicClass;

class DispatchObject final
    : public ComObject<IDispatch, ISupportErrorInfo, IConnectionPointContainer, IProvideClassInfo2> {
 public:
    explicit DispatchObject(Object& object);

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* info, UINT* wrongArgument) override;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;

    Object& object() const { return *object_; }

 private:
    ~DispatchObject() override;
    HRESULT InvokeMember(DISPID member, WORD flags, const DISPPARAMS& parameters, VARIANT* result,
                         UINT* wrongArgument);
    HRESULT NewEnum(VARIANT* result);
    const NameIndex* Names();

    bool IsOwnInterface(REFIID id) const;
    bool IsElsewhere() const { return GetCurrentThreadId() != thread_; }

    const DWORD thread_ = GetCurrentThreadId();  // the only one that may call the object
    Ref<Object> object_;
    const PublicClass* class_;             // null for objects that hosts do not create
    const NameIndex* names_ = nullptr;     // of the object's class, from the first question on
    std::unique_ptr<EventSource> events_;  // only for objects that raise any
};

}  // namespace qor::windows
