#include "windows/registration.h"

#include <algorithm>
#include <string>

#include "windows/class_registration.h"
#include "windows/handles.h"
#include "windows/module.h"
#include "windows/type_library.h"

namespace qor::windows {

namespace {

constexpr WORD kMajor = 1, kMinor = 0;
constexpr bool kIs64Bit = sizeof(void*) == 8;

RegisteredClass Registered(const PublicClass& publicClass) {
    return {publicClass.ProgId(), publicClass.ClassId(), true};
}

/// The per-user forms are missing in some import libraries and in old systems.
template <class Function>
Function TypeLibraryFunction(const char* name) {
    const HMODULE automation = GetModuleHandleW(L"oleaut32.dll");
    return automation ? reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(automation, name)))
                      : nullptr;
}

HRESULT RegisterTypes(HKEY root) {
    const ComPtr<ITypeLib> library = EmbeddedTypeLibrary();
    if (!library) return TYPE_E_CANTLOADLIBRARY;
    std::wstring path = ModulePath();
    if (root == HKEY_LOCAL_MACHINE) return RegisterTypeLib(library.Get(), path.data(), nullptr);
    using RegisterForUser = HRESULT(WINAPI*)(ITypeLib*, OLECHAR*, OLECHAR*);
    const auto registerForUser = TypeLibraryFunction<RegisterForUser>("RegisterTypeLibForUser");
    return registerForUser ? registerForUser(library.Get(), path.data(), nullptr) : S_OK;
}

HRESULT RegisterIn(HKEY root) {
    for (const PublicClass& publicClass : PublicClasses()) {
        const LSTATUS status = WriteClass(root, Registered(publicClass));
        if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
    }
    return RegisterTypes(root);
}

void UnregisterTypes(HKEY root) {
    const GUID id = ToGuid(kLibraryId);
    constexpr SYSKIND kWidth = kIs64Bit ? SYS_WIN64 : SYS_WIN32;
    if (root == HKEY_LOCAL_MACHINE) {
        UnRegisterTypeLib(id, kMajor, kMinor, LOCALE_NEUTRAL, kWidth);
    } else {
        using UnregisterForUser = HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND);
        if (const auto unregister = TypeLibraryFunction<UnregisterForUser>("UnRegisterTypeLibForUser"))
            unregister(id, kMajor, kMinor, LOCALE_NEUTRAL, kWidth);
    }
    // The description of the other width's component may stand beside ours, below the same key.
    const std::wstring key = L"TypeLib\\" + BracedId(kLibraryId);
    if (!HasClassesKey(root, key + (kIs64Bit ? L"\\1.0\\0\\win32" : L"\\1.0\\0\\win64"))) {
        RemoveClassesKey(root, key);
    }
}

HRESULT UnregisterFrom(HKEY root) {
    UnregisterTypes(root);
    LSTATUS worst = ERROR_SUCCESS;
    for (const PublicClass& publicClass : PublicClasses()) {
        const LSTATUS status = RemoveClass(root, Registered(publicClass));
        if (status != ERROR_SUCCESS) worst = status;
        RemoveClassesKey(root, L"Interface\\" + BracedId(publicClass.InterfaceId()));
    }
    RemoveClassesKey(root, L"Interface\\" + BracedId(kBarEventsId));
    RemoveClassesKey(root, L"Interface\\" + BracedId(kPassEventsId));
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(worst));
}

bool StandsIn(HKEY root) {
    return std::ranges::any_of(PublicClasses(), [root](const PublicClass& known) {
        return HasClassesKey(root, L"CLSID\\" + BracedId(known.ClassId()));
    });
}

bool IsDenied(HRESULT result) { return result == E_ACCESSDENIED || result == TYPE_E_REGISTRYACCESS; }

}  // namespace

HRESULT RegisterComponent() {
    const HRESULT machineWide = RegisterIn(HKEY_LOCAL_MACHINE);
    if (!IsDenied(machineWide)) return machineWide;
    UnregisterFrom(HKEY_LOCAL_MACHINE);  // what the refusal may have left half done
    return RegisterIn(HKEY_CURRENT_USER);
}

HRESULT RegisterComponentForUser() { return RegisterIn(HKEY_CURRENT_USER); }

HRESULT UnregisterComponent() {
    const HRESULT user = UnregisterFrom(HKEY_CURRENT_USER);
    const HRESULT machineWide = UnregisterFrom(HKEY_LOCAL_MACHINE);
    // Where the machine's registration is denied and nothing stands in it, the user's was all there was.
    return IsDenied(machineWide) && !StandsIn(HKEY_LOCAL_MACHINE) ? user : machineWide;
}

}  // namespace qor::windows
