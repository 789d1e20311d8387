// The type library, as early-bound hosts and object browsers read it, and the registry.
#include <ocidl.h>

#include <algorithm>

#include "library.h"
#include "report/report_members.h"
#include "tests/windows/host/host_checks.h"
#include "windows/class_registration.h"
#include "windows/types/class_ids.h"

namespace qor::host {

namespace {

using windows::ComPtr;
using windows::ToGuid;

std::string NameOf(ITypeInfo& info, MEMBERID member) {
    BSTR name = nullptr;
    info.GetDocumentation(member, &name, nullptr, nullptr, nullptr);
    const std::string text = windows::Narrow({name, SysStringLen(name)});
    SysFreeString(name);
    return text;
}

/// The members of an interface, each with its way of being reached: "Filter 2" is a property that is read.
std::vector<std::string> MembersOf(ITypeInfo& info, IDispatch* object) {
    TYPEATTR* attributes = nullptr;
    info.GetTypeAttr(&attributes);
    std::vector<std::string> members;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        info.GetFuncDesc(i, &function);
        const std::string name = NameOf(info, function->memid);
        members.push_back(name + " " + std::to_string(static_cast<int>(function->invkind)));
        if (object) {
            std::wstring wide = windows::Wide(name);
            LPOLESTR asked = wide.data();
            DISPID id = 0;
            Expect(SUCCEEDED(object->GetIDsOfNames(IID_NULL, &asked, 1, 0, &id)) && id == function->memid,
                   name + " has another id late bound");
        }
        info.ReleaseFuncDesc(function);
    }
    info.ReleaseTypeAttr(attributes);
    return members;
}

void ALibraryHasEveryClass(ITypeLib& library) {
    for (const windows::PublicClass& known : windows::PublicClasses()) {
        ComPtr<ITypeInfo> members, whole;
        Expect(SUCCEEDED(library.GetTypeInfoOfGuid(ToGuid(known.InterfaceId()), &members)),
               known.name + " has no members");
        Expect(SUCCEEDED(library.GetTypeInfoOfGuid(ToGuid(known.ClassId()), &whole)),
               known.name + " is no class");
        Expect(NameOf(*whole.Get(), MEMBERID_NIL) == known.name, "another class than " + known.name);
    }
}

/// What the member table of a class says, in its order.
std::vector<std::string> TableOf(std::span<const Member> table) {
    constexpr int kWays[] = {INVOKE_FUNC, INVOKE_PROPERTYGET, INVOKE_PROPERTYPUT, INVOKE_PROPERTYPUTREF};
    std::vector<std::string> members;
    for (const Member& member : table) {
        members.push_back(std::string(member.name) + " " +
                          std::to_string(kWays[static_cast<std::size_t>(member.kind)]));
    }
    return members;
}

void TheTypeLibraryTellsEveryMember() {
    for (const ReportEntry& report : Reports()) {
        const ComPtr<IDispatch> object = Create("QORArApRpt.Rpt" + std::to_string(report.description.number));
        ComPtr<ITypeInfo> info;
        Expect(SUCCEEDED(object->GetTypeInfo(0, 0, &info)), "no description");
        const auto described = MembersOf(*info.Get(), object.Get());
        Expect(described == TableOf(ReportMembers(report.description)),
               "other members of " + std::to_string(report.description.number));
    }
}

/// What an early-bound host follows first: each interface is one of late binding.
void TheInterfacesRestOnLateBinding() {
    for (const windows::PublicClass& known : windows::PublicClasses()) {
        ComPtr<ITypeInfo> info, base;
        Expect(SUCCEEDED(Create(known.ProgId())->GetTypeInfo(0, 0, &info)), known.name + " is not described");
        HREFTYPE reference = 0;
        Expect(SUCCEEDED(info->GetRefTypeOfImplType(0, &reference)), known.name + " rests on nothing");
        Expect(SUCCEEDED(info->GetRefTypeInfo(reference, &base)), known.name + " rests on what is not there");
        TYPEATTR* attributes = nullptr;
        base->GetTypeAttr(&attributes);
        const GUID id = attributes->guid;
        base->ReleaseTypeAttr(attributes);
        Expect(id == IID_IDispatch, known.name + " rests on another interface");
    }
}

/// What `read` makes of a description's attributes.
template <class Read>
auto AttributesOf(ITypeInfo& info, Read&& read) {
    TYPEATTR* attributes = nullptr;
    Expect(SUCCEEDED(info.GetTypeAttr(&attributes)), "no attributes");
    const auto answer = read(*attributes);
    info.ReleaseTypeAttr(attributes);
    return answer;
}

WORD FlagsOf(ITypeInfo& info) {
    return AttributesOf(info, [](const TYPEATTR& attributes) { return attributes.wTypeFlags; });
}

/// Browsers show the classes in the place of their interfaces.
void OnlyTheClassesAreShown() {
    constexpr WORD kInterface = TYPEFLAG_FDISPATCHABLE | TYPEFLAG_FHIDDEN;
    for (const windows::PublicClass& known : windows::PublicClasses()) {
        ComPtr<IProvideClassInfo2> provider;
        ComPtr<ITypeInfo> whole;
        Expect(SUCCEEDED(Create(known.ProgId())->QueryInterface(IID_PPV_ARGS(&provider))),
               "no class description");
        Expect(SUCCEEDED(provider->GetClassInfo(&whole)), "no class");
        Expect(FlagsOf(*whole.Get()) == TYPEFLAG_FCANCREATE, known.name + " cannot be created, or is hidden");
        constexpr INT kWays[] = {IMPLTYPEFLAG_FDEFAULT, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE};
        GUID events;
        const UINT count = provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events) == S_OK ? 2 : 1;
        const UINT described = AttributesOf(
            *whole.Get(), [](const TYPEATTR& attributes) -> UINT { return attributes.cImplTypes; });
        Expect(described == count, known.name + " has another number of interfaces");
        for (UINT i = 0; i < count; ++i) {
            INT way = 0;
            HREFTYPE reference = 0;
            ComPtr<ITypeInfo> info;
            Expect(SUCCEEDED(whole->GetImplTypeFlags(i, &way)) && way == kWays[i],
                   known.name + " has another default");
            Expect(SUCCEEDED(whole->GetRefTypeOfImplType(i, &reference)) &&
                       SUCCEEDED(whole->GetRefTypeInfo(reference, &info)),
                   known.name + " has an interface that is not there");
            Expect(FlagsOf(*info.Get()) == kInterface, known.name + " shows its interface");
        }
    }
}

/// How a parameter is passed, as a host's compiler reads it.
USHORT ParameterFlags(std::string_view progId, std::string_view member) {
    ComPtr<ITypeInfo> info;
    Create(progId)->GetTypeInfo(0, 0, &info);
    const WORD count =
        AttributesOf(*info.Get(), [](const TYPEATTR& attributes) { return attributes.cFuncs; });
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        Expect(SUCCEEDED(info->GetFuncDesc(i, &function)), "no member");
        const bool isIt = NameOf(*info.Get(), function->memid) == member && function->cParams == 1;
        const USHORT flags = isIt ? function->lprgelemdescParam[0].paramdesc.wParamFlags : 0;
        info->ReleaseFuncDesc(function);
        if (isIt) return flags;
    }
    return 0;
}

void ParametersSayHowTheyArePassed() {
    Expect(ParameterFlags("QORArApRpt.Rpt10503", "AddDataRight") == (PARAMFLAG_FIN | PARAMFLAG_FOPT),
           "a filter cannot be left out");
    Expect(ParameterFlags("QORArApRpt.Rpt10503", "GetDetailReport") == PARAMFLAG_FIN,
           "a row can be left out");
    Expect(ParameterFlags("QORArApRpt.Bar", "SetMsg") == PARAMFLAG_FIN, "a text can be left out");
}

void TheTypeLibraryIsRegistered() {
    ComPtr<ITypeLib> library;
    Expect(SUCCEEDED(LoadRegTypeLib(ToGuid(windows::kLibraryId), 1, 0, LOCALE_NEUTRAL, &library)),
           "it is not registered");
    BSTR described = nullptr;
    Expect(SUCCEEDED(library->GetDocumentation(-1, nullptr, &described, nullptr, nullptr)) &&
               windows::Narrow({described, SysStringLen(described)}) == "QORArApRpt",
           "a list of libraries shows no line for it");
    SysFreeString(described);
    ALibraryHasEveryClass(*library.Get());
}

void BothWidthsHaveTheTypeLibrary() {
    for (const wchar_t* file :
         {L"..\\build-windows64\\QORArApRpt.dll", L"..\\build-windows32\\QORArApRpt.dll"}) {
        ComPtr<ITypeLib> library;
        Expect(SUCCEEDED(LoadTypeLibEx(file, REGKIND_NONE, &library)), windows::Narrow(file) + " has none");
        ALibraryHasEveryClass(*library.Get());
    }
}

void EventsAreDescribed() {
    for (const char* name : {"QORArApRpt.Bar", "QORArApRpt.clsPass"}) {
        ComPtr<IProvideClassInfo2> provider;
        Expect(SUCCEEDED(Create(name)->QueryInterface(IID_PPV_ARGS(&provider))), "no class description");
        GUID events;
        Expect(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events) == S_OK, "no events");
        ComPtr<ITypeInfo> whole, info;
        ComPtr<ITypeLib> library;
        UINT index = 0;
        Expect(SUCCEEDED(provider->GetClassInfo(&whole)), "no class");
        Expect(SUCCEEDED(whole->GetContainingTypeLib(&library, &index)), "no library");
        Expect(SUCCEEDED(library->GetTypeInfoOfGuid(events, &info)), "its events are not described");
    }
}

/// The classes that can be created by what stands in the registry below a root.
int ClassesBelow(HKEY root) {
    return static_cast<int>(std::ranges::count_if(windows::PublicClasses(), [&](const auto& known) {
        return windows::HasClassesKey(root, windows::Wide(known.ProgId()) + L"\\CLSID") &&
               windows::HasClassesKey(root, L"CLSID\\" + windows::BracedId(known.ClassId()));
    }));
}

/// Everything of the component that stands there.
int RegisteredBelow(HKEY root) {
    int found = 0;
    for (const windows::PublicClass& known : windows::PublicClasses()) {
        for (const std::wstring& key :
             {windows::Wide(known.ProgId()), L"CLSID\\" + windows::BracedId(known.ClassId()),
              L"Interface\\" + windows::BracedId(known.InterfaceId())}) {
            if (windows::HasClassesKey(root, key)) ++found;
        }
    }
    for (const auto& id : {windows::kBarEventsId, windows::kPassEventsId}) {
        if (windows::HasClassesKey(root, L"Interface\\" + windows::BracedId(id))) ++found;
    }
    if (windows::HasClassesKey(root, L"TypeLib\\" + windows::BracedId(windows::kLibraryId))) ++found;
    return found;
}

void RegistrationGoesAsItCame() {
    const HMODULE component = LoadLibraryW(L"..\\build-windows64\\QORArApRpt.dll");
    Expect(component, "no component");
    using Server = HRESULT(WINAPI*)();
    using Install = HRESULT(WINAPI*)(BOOL, PCWSTR);
    const auto find = [&](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(component, name));
    };
    const auto registerServer = reinterpret_cast<Server>(find("DllRegisterServer"));
    const auto unregisterServer = reinterpret_cast<Server>(find("DllUnregisterServer"));
    const auto install = reinterpret_cast<Install>(find("DllInstall"));

    Expect(unregisterServer() == S_OK, "it cannot be taken back");
    Expect(RegisteredBelow(HKEY_LOCAL_MACHINE) == 0 && RegisteredBelow(HKEY_CURRENT_USER) == 0,
           "something stays in the registry");
    Expect(unregisterServer() == S_OK, "taking back twice fails");
    Expect(install(TRUE, L"user") == S_OK, "it cannot be registered for the user");
    Expect(ClassesBelow(HKEY_CURRENT_USER) == 22, "the user's registration is incomplete");
    Expect(ClassesBelow(HKEY_LOCAL_MACHINE) == 0, "the user's registration is the machine's");
    // Wine knows no type libraries of one user: it registers them for all.
    Expect(install(FALSE, nullptr) == S_OK && RegisteredBelow(HKEY_CURRENT_USER) == 0 &&
               RegisteredBelow(HKEY_LOCAL_MACHINE) == 0,
           "something stays in the user's registry");
    Expect(registerServer() == S_OK && ClassesBelow(HKEY_LOCAL_MACHINE) == 22,
           "it cannot be registered again");
}

/// Hosts of the other width find the class by the same name.
void ANameStaysForTheOtherWidth() {
    const windows::PublicClass& known = windows::PublicClasses()[0];
    const windows::RegisteredClass registered{"QORTest.BothWidths", known.InterfaceId(), false};
    const std::wstring other = L"Software\\Classes\\CLSID\\" + windows::BracedId(registered.id);
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, other.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS | KEY_WOW64_32KEY,
                    nullptr, &key, nullptr);
    RegCloseKey(key);
    windows::WriteClass(HKEY_LOCAL_MACHINE, registered);
    windows::RemoveClass(HKEY_LOCAL_MACHINE, registered);
    const bool stays = windows::HasClassesKey(HKEY_LOCAL_MACHINE, L"QORTest.BothWidths");
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, other.c_str(), KEY_WOW64_32KEY, 0);
    windows::RemoveClass(HKEY_LOCAL_MACHINE, registered);
    Expect(stays, "the name went with one width");
    Expect(!windows::HasClassesKey(HKEY_LOCAL_MACHINE, L"QORTest.BothWidths"), "the name stays for nobody");
}

constexpr HostCheck kChecks[] = {
    {"TheTypeLibraryTellsEveryMember", TheTypeLibraryTellsEveryMember},
    {"TheInterfacesRestOnLateBinding", TheInterfacesRestOnLateBinding},
    {"OnlyTheClassesAreShown", OnlyTheClassesAreShown},
    {"ParametersSayHowTheyArePassed", ParametersSayHowTheyArePassed},
    {"TheTypeLibraryIsRegistered", TheTypeLibraryIsRegistered},
    {"BothWidthsHaveTheTypeLibrary", BothWidthsHaveTheTypeLibrary},
    {"EventsAreDescribed", EventsAreDescribed},
    {"ANameStaysForTheOtherWidth", ANameStaysForTheOtherWidth},
    {"RegistrationGoesAsItCame", RegistrationGoesAsItCame},
};

}  // namespace

std::span<const HostCheck> DescriptionChecks() { return kChecks; }

}  // namespace qor::host
