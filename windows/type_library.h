// The embedded type library, by which early-bound hosts and object browsers see the classes.
#pragma once

#include "windows/handles.h"

namespace qor::windows {

/// The type library bound into this module, loaded at the first use; null where it cannot be.
ComPtr<ITypeLib> EmbeddedTypeLibrary();
/// The description of one of its classes or interfaces; null where there is none.
ComPtr<ITypeInfo> DescriptionOf(const ComponentId& id);
/// Lets go of the library.
void ReleaseTypeLibrary();
/// Leaves it to the end of the process, when nothing may be called any more.
void AbandonTypeLibrary();

}  // namespace qor::windows
