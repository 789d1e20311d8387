#include "windows/class_factory.h"

#include "windows/com_object.h"

namespace qor::windows {

namespace {

class ClassFactory final : public ComObject<IClassFactory> {
 public:
    explicit ClassFactory(std::function<Ref<Object>()> make) : make_(std::move(make)) {}

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
            const Ref<Object> made = make_();
            return Outward(made.get())->QueryInterface(id, object);
        });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? ServerLife::Hold() : ServerLife::Drop();
        return S_OK;
    }

 private:
    std::function<Ref<Object>()> make_;
};

}  // namespace

HRESULT AnswerFactory(std::function<Ref<Object>()> make, REFIID interfaceId, void** factory) {
    if (!factory) return E_POINTER;
    *factory = nullptr;
    return AtBorder(nullptr, [&] {
        ComPtr<IClassFactory> made;
        made.Attach(new ClassFactory(std::move(make)));
        return made->QueryInterface(interfaceId, factory);
    });
}

}  // namespace qor::windows
