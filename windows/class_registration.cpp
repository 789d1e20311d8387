#include "windows/class_registration.h"

#include "windows/handles.h"
#include "windows/module.h"

namespace qor::windows {

namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";

std::wstring ClassKey(const RegisteredClass& registered) { return L"CLSID\\" + BracedId(registered.id); }

LSTATUS WriteText(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    return RegSetKeyValueW(root, (kClasses + key).c_str(), name, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

/// The component of the other width has class keys of its own, but the names are the same ones.
bool OtherWidthHas(HKEY root, const std::wstring& classKey) {
    constexpr REGSAM kOther = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, (kClasses + classKey).c_str(), 0, KEY_READ | kOther, &opened) != ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

}  // namespace

std::wstring BracedId(const ComponentId& id) { return L"{" + Wide(IdText(id)) + L"}"; }

LSTATUS WriteClass(HKEY root, const RegisteredClass& registered) {
    const std::wstring classKey = ClassKey(registered), progId = Wide(registered.name);
    struct Entry {
        std::wstring key;
        const wchar_t* name;
        std::wstring text;
        bool wanted = true;
    };
    const Entry entries[] = {
        {progId, nullptr, progId},
        {progId + L"\\CLSID", nullptr, BracedId(registered.id)},
        {classKey, nullptr, progId},
        {classKey + L"\\InprocServer32", nullptr, ModulePath()},
        {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {classKey + L"\\ProgID", nullptr, progId},
        {classKey + L"\\Programmable", nullptr, L""},
        {classKey + L"\\TypeLib", nullptr, BracedId(kLibraryId), registered.described},
        {classKey + L"\\Version", nullptr, L"1.0", registered.described},
    };
    for (const Entry& entry : entries) {
        if (!entry.wanted) continue;
        const LSTATUS status = WriteText(root, entry.key, entry.name, entry.text);
        if (status != ERROR_SUCCESS) return status;
    }
    return ERROR_SUCCESS;
}

LSTATUS RemoveClassesKey(HKEY root, const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
    return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

LSTATUS RemoveClass(HKEY root, const RegisteredClass& registered) {
    const LSTATUS id = RemoveClassesKey(root, ClassKey(registered));
    if (id != ERROR_SUCCESS || OtherWidthHas(root, ClassKey(registered))) return id;
    return RemoveClassesKey(root, Wide(registered.name));
}

bool HasClassesKey(HKEY root, const std::wstring& key) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExW(root, (kClasses + key).c_str(), 0, KEY_READ, &opened);
    if (status == ERROR_SUCCESS) RegCloseKey(opened);
    return status == ERROR_SUCCESS || status == ERROR_ACCESS_DENIED;
}

}  // namespace qor::windows
