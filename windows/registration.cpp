#include "windows/registration.h"

#include <string>

#include "windows/handles.h"
#include "windows/module.h"
#include "windows/type_library.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";
constexpr WORD kMajor = 1, kMinor = 0;

std::wstring BracedId(const ComponentId& id) { return L"{" + Wide(IdText(id)) + L"}"; }

LSTATUS WriteKey(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    return RegSetKeyValueW(root, (kClasses + key).c_str(), name, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LSTATUS RegisterClass(HKEY root, const PublicClass& publicClass) {
    const std::wstring classId = BracedId(publicClass.ClassId()), progId = Wide(publicClass.ProgId());
    const std::wstring classKey = L"CLSID\\" + classId;
    struct Entry {
        std::wstring key;
        const wchar_t* name;
        std::wstring text;
    };
    const Entry entries[] = {
        {progId, nullptr, progId},
        {progId + L"\\CLSID", nullptr, classId},
        {classKey, nullptr, progId},
        {classKey + L"\\InprocServer32", nullptr, ModulePath()},
        {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {classKey + L"\\ProgID", nullptr, progId},
        {classKey + L"\\Programmable", nullptr, L""},
        {classKey + L"\\TypeLib", nullptr, BracedId(kLibraryId)},
        {classKey + L"\\Version", nullptr, L"1.0"},
    };
    for (const Entry& entry : entries) {
        if (const LSTATUS status = WriteKey(root, entry.key, entry.name, entry.text);
            status != ERROR_SUCCESS) {
            return status;
        }
    }
    return ERROR_SUCCESS;
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
        if (const LSTATUS status = RegisterClass(root, publicClass); status != ERROR_SUCCESS) {
            return HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
        }
    }
    return RegisterTypes(root);
}

LSTATUS RemoveKey(HKEY root, const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
    return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

/// The description of the other width's component may stand beside ours, in the same key.
constexpr SYSKIND kOwnWidth = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr const wchar_t* kOtherWidth = sizeof(void*) == 8 ? L"\\1.0\\0\\win32" : L"\\1.0\\0\\win64";

void UnregisterTypes(HKEY root) {
    const GUID id = ToGuid(kLibraryId);
    if (root == HKEY_LOCAL_MACHINE) {
        UnRegisterTypeLib(id, kMajor, kMinor, LOCALE_NEUTRAL, kOwnWidth);
    } else {
        using UnregisterForUser = HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND);
        if (const auto unregister = TypeLibraryFunction<UnregisterForUser>("UnRegisterTypeLibForUser"))
            unregister(id, kMajor, kMinor, LOCALE_NEUTRAL, kOwnWidth);
    }
    const std::wstring key = L"TypeLib\\" + BracedId(kLibraryId);
    HKEY other = nullptr;
    if (RegOpenKeyExW(root, (kClasses + key + kOtherWidth).c_str(), 0, KEY_READ, &other) == ERROR_SUCCESS) {
        RegCloseKey(other);
    } else {
        RemoveKey(root, key);
    }
}

HRESULT UnregisterFrom(HKEY root) {
    UnregisterTypes(root);
    LSTATUS worst = ERROR_SUCCESS;
    for (const PublicClass& publicClass : PublicClasses()) {
        for (const std::wstring& key :
             {Wide(publicClass.ProgId()), L"CLSID\\" + BracedId(publicClass.ClassId())}) {
            if (const LSTATUS status = RemoveKey(root, key); status != ERROR_SUCCESS) worst = status;
        }
        RemoveKey(root, L"Interface\\" + BracedId(publicClass.InterfaceId()));
    }
    RemoveKey(root, L"Interface\\" + BracedId(kBarEventsId));
    RemoveKey(root, L"Interface\\" + BracedId(kPassEventsId));
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(worst));
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
    return IsDenied(machineWide) ? user : machineWide;
}

}  // namespace qor::windows
