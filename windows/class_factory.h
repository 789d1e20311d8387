// The class objects of the component: they make one of the public classes each.
#pragma once

#include "windows/bridge.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

/// The factory of a public class, as the interface asked for.
HRESULT GetFactory(REFCLSID classId, REFIID interfaceId, void** factory);

}  // namespace qor::windows
