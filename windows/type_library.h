// The embedded type library, by which early-bound hosts and object browsers see the classes.
#pragma once

#include "windows/bridge.h"

namespace qor::windows {

/// The type library bound into this module; null where it cannot be loaded.
ComPtr<ITypeLib> EmbeddedTypeLibrary();
/// The description of a public class's members; null for other objects.
ComPtr<ITypeInfo> TypeInfoOf(const Object& object);
/// Whether `id` is the member interface of the object's class.
bool IsInterfaceOf(const Object& object, REFIID id);

}  // namespace qor::windows
