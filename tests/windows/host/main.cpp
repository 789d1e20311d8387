// qor_host_tests NAME: runs one check of the component; without a name it lists them.
#include <cstdio>
#include <stdexcept>
#include <string>

#include "tests/windows/host/host_checks.h"

namespace qor::host {

void Expect(bool holds, std::string_view what, const std::source_location& place) {
    if (!holds) throw std::runtime_error(std::string(what) + ", line " + std::to_string(place.line()));
}

windows::ComPtr<IDispatch> Create(std::string_view progId) {
    CLSID id;
    windows::ComPtr<IDispatch> made;
    Expect(SUCCEEDED(CLSIDFromProgID(windows::Wide(progId).c_str(), &id)), "is not registered");
    Expect(SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made))),
           "cannot be created");
    return made;
}

Ref<Object> CreateObject(std::string_view progId) { return windows::Inward(Create(progId).Get()); }

bool CanUnload() {
    const HMODULE component = GetModuleHandleW(L"QORArApRpt.dll");
    Expect(component, "the component is not loaded");
    using CanUnloadNow = HRESULT(WINAPI*)();
    return reinterpret_cast<CanUnloadNow>(
               reinterpret_cast<void*>(GetProcAddress(component, "DllCanUnloadNow")))() == S_OK;
}

DISPID IdOf(IDispatch* object, const wchar_t* name) {
    auto* asked = const_cast<LPOLESTR>(name);
    DISPID id = DISPID_UNKNOWN;
    Expect(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id) == S_OK,
           "no member " + windows::Narrow(name));
    return id;
}

ULONG ReferencesOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

namespace {

int Run(std::string_view name) {
    for (const auto checks : {LifeChecks(), CallChecks(), ArgumentChecks(), ContractChecks(),
                              DescriptionChecks(), RegistrationChecks(), MemberIdChecks()}) {
        for (const HostCheck& check : checks) {
            if (name.empty()) std::printf("%s\n", std::string(check.name).c_str());
            if (check.name != name) continue;
            check.run();
            std::printf("held\n");
            return 0;
        }
    }
    return name.empty() ? 0 : 2;
}

}  // namespace

}  // namespace qor::host

int main(int count, char** arguments) {
    CoInitialize(nullptr);
    int status = 1;
    try {
        status = qor::host::Run(count > 1 ? arguments[1] : "");
    } catch (const qor::Error& error) {
        std::printf("error %ld: %s\n", static_cast<long>(error.number()), error.description().c_str());
    } catch (const std::exception& failure) {
        std::printf("%s\n", failure.what());
    }
    std::fflush(stdout);
    CoUninitialize();
    return status;
}
