#include "windows/type_library.h"

#include "windows/module.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

ComPtr<ITypeLib> EmbeddedTypeLibrary() {
    ComPtr<ITypeLib> library;
    if (FAILED(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library))) return {};
    return library;
}

ComPtr<ITypeInfo> TypeInfoOf(const Object& object) {
    const PublicClass* publicClass = PublicClassOf(object);
    if (!publicClass) return {};
    ComPtr<ITypeInfo> info;
    if (const ComPtr<ITypeLib> library = EmbeddedTypeLibrary()) {
        library->GetTypeInfoOfGuid(ToGuid(publicClass->InterfaceId()), &info);
    }
    return info;
}

bool IsInterfaceOf(const Object& object, REFIID id) {
    const PublicClass* publicClass = PublicClassOf(object);
    return publicClass && ToGuid(publicClass->InterfaceId()) == id;
}

}  // namespace qor::windows
