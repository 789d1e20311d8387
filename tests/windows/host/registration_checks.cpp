// Where registration writes. Keys of this process's own stand for the machine's and the user's, so that
// nothing else sees it.
#include <sddl.h>

#include "tests/windows/host/host_checks.h"
#include "windows/class_registration.h"

namespace qor::host {

namespace {

using windows::PublicClass;
using windows::PublicClasses;

constexpr wchar_t kReadOnly[] = L"D:P(A;;KR;;;WD)";
constexpr wchar_t kClosed[] = L"D:P";  // under wine, what may be read may be deleted
constexpr wchar_t kWritable[] = L"D:P(A;;KA;;;WD)";

void SetRights(HKEY key, const wchar_t* rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &descriptor, nullptr);
    RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor);
    LocalFree(descriptor);
}

class Key {
 public:
    Key(HKEY root, const std::wstring& path) {
        RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { RegCloseKey(key_); }

    HKEY get() const { return key_; }
    bool IsEmpty() const {
        DWORD keys = 1;
        RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, nullptr, nullptr, nullptr,
                         nullptr, nullptr);
        return keys == 0;
    }

 private:
    HKEY key_ = nullptr;
};

/// A registry of this process's own in place of the machine's and the user's.
class OwnRegistry {
 public:
    OwnRegistry() {
        RegOverridePredefKey(HKEY_CLASSES_ROOT, classes.get());
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine.get());
        RegOverridePredefKey(HKEY_CURRENT_USER, user.get());
    }
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;
    ~OwnRegistry() {
        for (const HKEY key : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_CLASSES_ROOT}) {
            RegOverridePredefKey(key, nullptr);
        }
        RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\QORHostChecks");
    }

    const Key machine{HKEY_CURRENT_USER, L"Software\\QORHostChecks\\Machine"};
    const Key user{HKEY_CURRENT_USER, L"Software\\QORHostChecks\\User"};
    const Key classes{HKEY_CURRENT_USER, L"Software\\QORHostChecks\\Classes"};
};

bool IsKnown(HKEY root, const PublicClass& known) {
    return windows::HasClassesKey(root, windows::Wide(known.ProgId()) + L"\\CLSID") &&
           windows::HasClassesKey(root,
                                  L"CLSID\\" + windows::BracedId(known.ClassId()) + L"\\InprocServer32");
}

HRESULT CallComponent(const char* function) {
    const HMODULE component = LoadLibraryW(L"QORArApRpt.dll");
    Expect(component, "the component is not there");
    return reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(component, function)))();
}

void RegistersForAllUsers() {
    const OwnRegistry registry;
    Expect(CallComponent("DllRegisterServer") == S_OK, "it does not register");
    for (const PublicClass& known : PublicClasses()) {
        Expect(IsKnown(registry.machine.get(), known), known.name + " is not registered");
    }
    Expect(registry.user.IsEmpty(), "something is registered for the user");
    Expect(CallComponent("DllUnregisterServer") == S_OK, "it does not unregister");
    for (const PublicClass& known : PublicClasses()) {
        Expect(!IsKnown(registry.machine.get(), known), known.name + " is still registered");
    }
}

void RegistersForTheUserWhereTheMachineIsDenied() {
    const OwnRegistry registry;
    // The refusal comes when two classes have been written.
    const PublicClass& first = PublicClasses()[0];
    const PublicClass& denied = PublicClasses()[2];
    const Key closed(registry.machine.get(), L"Software\\Classes\\" + windows::Wide(denied.ProgId()));
    SetRights(closed.get(), kReadOnly);

    Expect(CallComponent("DllRegisterServer") == S_OK, "it does not register");
    for (const PublicClass& known : PublicClasses()) {
        Expect(IsKnown(registry.user.get(), known), known.name + " is not registered for the user");
    }
    Expect(!IsKnown(registry.machine.get(), first), "a half of the machine's registration is left");

    Expect(CallComponent("DllUnregisterServer") == S_OK, "it does not unregister");
    for (const PublicClass& known : PublicClasses()) {
        Expect(!IsKnown(registry.user.get(), known), known.name + " is still registered for the user");
    }
    SetRights(closed.get(), kWritable);
}

void TakingBackTellsThatItWasDenied() {
    const OwnRegistry registry;
    Expect(CallComponent("DllRegisterServer") == S_OK, "it does not register");
    const PublicClass& denied = PublicClasses()[2];
    const Key closed(registry.machine.get(),
                     L"Software\\Classes\\CLSID\\" + windows::BracedId(denied.ClassId()));
    SetRights(closed.get(), kClosed);
    Expect(CallComponent("DllUnregisterServer") == E_ACCESSDENIED, "a denial is passed over");
    SetRights(closed.get(), kWritable);
    Expect(IsKnown(registry.machine.get(), denied), "what was denied is gone");
    Expect(CallComponent("DllUnregisterServer") == S_OK, "it does not unregister");
}

constexpr HostCheck kChecks[] = {
    {"RegistersForAllUsers", RegistersForAllUsers},
    {"RegistersForTheUserWhereTheMachineIsDenied", RegistersForTheUserWhereTheMachineIsDenied},
    {"TakingBackTellsThatItWasDenied", TakingBackTellsThatItWasDenied},
};

}  // namespace

std::span<const HostCheck> RegistrationChecks() { return kChecks; }

}  // namespace qor::host
