#include "windows/windows_platform.h"

#include "frames/plain_scheme_frame.h"
#include "frames/scheme_dialog_frame.h"
#include "library.h"
#include "platform/late_bound.h"
#include "windows/component_process.h"
#include "windows/foreign_object.h"

namespace qor::windows {

namespace {

/// The class object of a component; null where none is registered under the name.
ComPtr<IClassFactory> ClassObjectOf(const wchar_t* name) {
    CLSID id;
    ComPtr<IClassFactory> factory;
    if (FAILED(CLSIDFromProgID(name, &id)) ||
        FAILED(CoGetClassObject(id, CLSCTX_ALL, nullptr, IID_PPV_ARGS(&factory)))) {
        return {};
    }
    return factory;
}

HRESULT CreateBy(IClassFactory& factory, Ref<Object>& made) {
    ComPtr<IDispatch> dispatch;
    const HRESULT result = factory.CreateInstance(nullptr, IID_PPV_ARGS(&dispatch));
    if (SUCCEEDED(result)) made = Inward(dispatch.Get());
    return result;
}

Ref<Object> CreateFoundation(IClassFactory& factory) {
    Ref<Object> made;
    if (FAILED(CreateBy(factory, made))) Raise(Automation::CannotCreate);
    return made;
}

}  // namespace

WindowsPlatform::WindowsPlatform()
    : schemes_(UserSchemeFile()),
      dictionaries_(ClassObjectOf(L"QRB.Dictionary")),
      vectors_(ClassObjectOf(L"QRB.Vector")) {}

Ref<Object> WindowsPlatform::CreateComponent(std::string_view name) {
    if (Ref<Object> own = CreateReportClass(ComponentProcess(), name)) return own;
    return CreateByName(name);
}

Ref<Object> WindowsPlatform::CreateByName(std::string_view name) {
    // Most of a creation is the search for the class.
    ComPtr<IClassFactory>& known = classObjects_[std::string(name)];
    Ref<Object> made;
    HRESULT result = known ? CreateBy(*known.Get(), made) : REGDB_E_CLASSNOTREG;
    if (!known || IsGone(result)) {  // a server that rests has taken its class object with it
        known = ClassObjectOf(Wide(name).c_str());
        result = known ? CreateBy(*known.Get(), made) : REGDB_E_CLASSNOTREG;
    }
    if (FAILED(result)) Raise(Automation::CannotCreate);
    return made;
}

Date WindowsPlatform::Now() {
    SYSTEMTIME time;
    GetLocalTime(&time);
    double serial = 0;
    SystemTimeToVariantTime(&time, &serial);
    return Date{serial};
}

std::int32_t WindowsPlatform::ProcessNumber() { return static_cast<std::int32_t>(GetCurrentProcessId()); }

Ref<Object> WindowsPlatform::ProcessBag() {
    const std::string name = std::to_string(GetCurrentProcessId());
    auto* bag = reinterpret_cast<IDispatch*>(GetPropA(GetDesktopWindow(), name.c_str()));
    return bag ? ForeignObject::Borrowed(bag) : Ref<Object>();
}

Ref<Dictionary> WindowsPlatform::NewDictionary() {
    if (!dictionaries_) return Platform::NewDictionary();
    return MakeRef<LateBoundDictionary>(CreateFoundation(*dictionaries_.Get()));
}

Ref<Vector> WindowsPlatform::NewVector() {
    if (!vectors_) return Platform::NewVector();
    return MakeRef<LateBoundVector>(CreateFoundation(*vectors_.Get()));
}

std::unique_ptr<PlainFrame> WindowsPlatform::NewPlainFrame(PlainFrameHost& form) {
    return std::make_unique<PlainSchemeFrame>(*this, schemes_, form);
}

std::unique_ptr<SchemeFrame> WindowsPlatform::NewSchemeFrame(SchemeFrameHost& form) {
    return std::make_unique<SchemeDialogFrame>(*this, schemes_, form);
}

}  // namespace qor::windows
