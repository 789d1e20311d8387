// Registration: what makes the component known to hosts, for all users or for this one.
#pragma once

#include <windows.h>

namespace qor::windows {

/// Registers machine-wide, or for the user where that is denied.
HRESULT RegisterComponent();
HRESULT RegisterComponentForUser();
/// Removes everything that either registration wrote. Removing twice is harmless.
HRESULT UnregisterComponent();

}  // namespace qor::windows
