// The stage as a component: the object that scripts create, the server components of the conversation, and
// the foundation library's dictionary and list.
#include "library.h"
#include "tests/windows/stage/stage.h"
#include "windows/class_factory.h"
#include "windows/class_registration.h"
#include "windows/com_object.h"

namespace qor::stage {

namespace {

using windows::ComponentId;
using windows::RegisteredClass;

constexpr std::string_view kServerComponents[] = {
    "QORMArApRpt.Data",
    "QORMArApRpt.Data10525",
    "QORMArApRpt.Data10526",
    "QORMArApRpt.Data10530",
    "QOREBCGLView.GLData",
    "QOREBCGLView.GLView",
    "QOREBSBase.SystemProfile",
    "QOREBSBase.SecurityInfo",
    "QORMAppConnection.AppConnection",
    "QORMtsCacheService.CacheFacade",
    "QORPropsMgr.ShareProps",
    "QORFrmRes.FrmResLoader",
    "QOREBCBASE.UserProfile",
    "ZEP_APFC.FrameData",
    "QORGLNameListLib2.GLNameList",
};
constexpr std::string_view kFoundation[] = {"QRB.Dictionary", "QRB.Vector"};
constexpr std::string_view kStageName = "QORTest.Stage";

constexpr ComponentId IdOf(std::uint32_t number) {
    return {0x7a3b0000 + number, 0x1c44, 0x4f0e, {0x9b, 0x25, 0x61, 0x0d, 0xa8, 0x3e, 0x57, 0x12}};
}

Ref<Object> Make(std::string_view name) {
    if (name == kStageName) return MakeRef<Stage>();
    if (name == kFoundation[0] || name == kFoundation[1]) {
        Stage::Current().FoundationUsed();
        return name == kFoundation[0] ? Ref<Object>(MakeRef<OrderedDictionary>())
                                      : Ref<Object>(MakeRef<ArrayVector>());
    }
    Ref<Object> made = Stage::Current().CreateComponent(name);
    if (!made) Raise(Automation::CannotCreate);
    return made;
}

/// Every class by its number: the stage, the server's, the foundation's.
std::vector<RegisteredClass> Classes(bool server, bool foundation) {
    std::vector<RegisteredClass> classes;
    std::uint32_t number = 1;
    if (server) classes.push_back({std::string(kStageName), IdOf(number)});
    for (const std::string_view name : kServerComponents) {
        ++number;
        if (server) classes.push_back({std::string(name), IdOf(number)});
    }
    for (const std::string_view name : kFoundation) {
        ++number;
        if (foundation) classes.push_back({std::string(name), IdOf(number)});
    }
    return classes;
}

HRESULT ForEach(const std::vector<RegisteredClass>& classes,
                LSTATUS (*step)(HKEY root, const RegisteredClass& registered)) {
    for (const RegisteredClass& registered : classes) {
        if (step(HKEY_LOCAL_MACHINE, registered) != ERROR_SUCCESS) return E_FAIL;
    }
    return S_OK;
}

}  // namespace

}  // namespace qor::stage

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, LPVOID* factory) {
    using namespace qor;
    return windows::AtBorder(nullptr, [&]() -> HRESULT {
        for (const windows::RegisteredClass& known : stage::Classes(true, true)) {
            if (windows::ToGuid(known.id) != classId) continue;
            return windows::AnswerFactory([name = known.name] { return stage::Make(name); }, interfaceId,
                                          factory);
        }
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

STDAPI DllCanUnloadNow() { return qor::windows::ServerLife::IsHeld() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
    return qor::stage::ForEach(qor::stage::Classes(true, false), qor::windows::WriteClass);
}

STDAPI DllUnregisterServer() {
    return qor::stage::ForEach(qor::stage::Classes(true, true), qor::windows::RemoveClass);
}

/// The foundation library comes and goes apart from the server.
STDAPI DllInstall(BOOL install, PCWSTR) {
    return qor::stage::ForEach(qor::stage::Classes(false, true),
                               install ? qor::windows::WriteClass : qor::windows::RemoveClass);
}
