#include "windows/class_factory.h"

#include "library.h"
#include "windows/com_object.h"
#include "windows/module.h"

namespace qor::windows {

namespace {

class ClassFactory final : public ComObject<IClassFactory> {
 public:
    explicit ClassFactory(const PublicClass& made) : made_(made) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return AtBorder(nullptr, [&] {
            const Ref<Object> made = CreateReportClass(ComponentProcess(), made_.ProgId());
            return Outward(made.get())->QueryInterface(id, object);
        });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? ServerLife::Hold() : ServerLife::Drop();
        return S_OK;
    }

 private:
    const PublicClass& made_;
};

}  // namespace

HRESULT GetFactory(REFCLSID classId, REFIID interfaceId, void** factory) {
    if (!factory) return E_POINTER;
    *factory = nullptr;
    for (const PublicClass& publicClass : PublicClasses()) {
        if (ToGuid(publicClass.ClassId()) != classId) continue;
        ComPtr<IClassFactory> made;
        made.Attach(new ClassFactory(publicClass));
        return made->QueryInterface(interfaceId, factory);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace qor::windows
