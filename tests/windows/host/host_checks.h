// What a native host checks of the registered component. Each check runs in a process of its own and raises
// std::runtime_error with what was wrong.
#pragma once

#include <source_location>
#include <span>
#include <string_view>

#include "windows/bridge.h"

namespace qor::host {

struct HostCheck {
    std::string_view name;
    void (*run)();
};

std::span<const HostCheck> LifeChecks();
std::span<const HostCheck> CallChecks();
std::span<const HostCheck> ArgumentChecks();
std::span<const HostCheck> ContractChecks();
std::span<const HostCheck> DescriptionChecks();
std::span<const HostCheck> RegistrationChecks();
std::span<const HostCheck> MemberIdChecks();

/// Raises, with the line, where `holds` is false.
void Expect(bool holds, std::string_view what,
            const std::source_location& place = std::source_location::current());

/// A new object of a registered class.
windows::ComPtr<IDispatch> Create(std::string_view progId);
/// The same, to be used late bound.
Ref<Object> CreateObject(std::string_view progId);

/// The id of a member of that name. Raises where there is none.
DISPID IdOf(IDispatch* object, const wchar_t* name);
/// How many hold an object.
ULONG ReferencesOf(IUnknown* object);

/// Whether the component says that it may be unloaded.
bool CanUnload();

}  // namespace qor::host
