// `For Each` over the library's lists (their items) and dictionaries (their keys).
#pragma once

#include "windows/bridge.h"

namespace qor::windows {

/// An IEnumVARIANT over what stands in the object now; null for an object that cannot be walked.
ComPtr<IUnknown> MakeEnumerator(Object& object);

}  // namespace qor::windows
