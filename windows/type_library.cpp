#include "windows/type_library.h"

#include "windows/module.h"

namespace qor::windows {

namespace {

ComPtr<ITypeLib> library_;

}  // namespace

ComPtr<ITypeLib> EmbeddedTypeLibrary() {
    if (!library_ && FAILED(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library_))) library_.Reset();
    return library_;
}

ComPtr<ITypeInfo> DescriptionOf(const ComponentId& id) {
    ComPtr<ITypeInfo> info;
    if (const ComPtr<ITypeLib> library = EmbeddedTypeLibrary()) library->GetTypeInfoOfGuid(ToGuid(id), &info);
    return info;
}

void ReleaseTypeLibrary() { library_.Reset(); }

void AbandonTypeLibrary() { (void)library_.Detach(); }

}  // namespace qor::windows
