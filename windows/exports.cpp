// The exported functions of an in-process component, and the module's entry.
#include <wctype.h>

#include "library.h"
#include "windows/class_factory.h"
#include "windows/com_object.h"
#include "windows/component_process.h"
#include "windows/registration.h"
#include "windows/type_library.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID ending) {
    if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(module);
    if (reason == DLL_PROCESS_DETACH) qor::windows::AbandonComponentProcess();
    if (reason == DLL_PROCESS_DETACH && ending) qor::windows::AbandonTypeLibrary();
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, LPVOID* factory) {
    using namespace qor;
    if (!factory) return E_POINTER;
    *factory = nullptr;
    return windows::AtBorder(nullptr, [&]() -> HRESULT {
        for (const windows::PublicClass& known : windows::PublicClasses()) {
            if (windows::ToGuid(known.ClassId()) != classId) continue;
            return windows::AnswerFactory(
                [&known] { return CreateReportClass(windows::ComponentProcess(), known.ProgId()); },
                interfaceId, factory);
        }
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

STDAPI DllCanUnloadNow() {
    if (qor::windows::ServerLife::IsHeld()) return S_FALSE;
    return qor::windows::AtBorder(nullptr, [] {
        qor::windows::ReleaseTypeLibrary();
        const bool released = qor::windows::ReleaseComponentProcess();
        // A server that goes may have had a host make objects again.
        return released && !qor::windows::ServerLife::IsHeld() ? S_OK : S_FALSE;
    });
}

STDAPI DllRegisterServer() {
    return qor::windows::AtBorder(nullptr, [] { return qor::windows::RegisterComponent(); });
}

STDAPI DllUnregisterServer() {
    return qor::windows::AtBorder(nullptr, [] { return qor::windows::UnregisterComponent(); });
}

/// regsvr32 /n /i:user registers for the user alone; without /n it calls DllRegisterServer first.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
    return qor::windows::AtBorder(nullptr, [&]() -> HRESULT {
        if (!install) return qor::windows::UnregisterComponent();
        const bool forUser = commandLine && _wcsicmp(commandLine, L"user") == 0;
        return forUser ? qor::windows::RegisterComponentForUser() : qor::windows::RegisterComponent();
    });
}
