#include "windows/member_ids.h"

#include <oleauto.h>

#include <algorithm>
#include <cstring>
#include <map>

#include "windows/handles.h"

namespace qor::windows {

namespace {

struct ByBytes {
    bool operator()(const GUID& a, const GUID& b) const { return std::memcmp(&a, &b, sizeof a) < 0; }
};

/// The id of the description that the object gives of itself; GUID_NULL where it has none.
GUID DescribedAs(IDispatch& object) {
    UINT count = 0;
    ComPtr<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    if (FAILED(object.GetTypeInfoCount(&count)) || count == 0 ||
        FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) || !info ||
        FAILED(info->GetTypeAttr(&attributes))) {
        return GUID_NULL;
    }
    const GUID id = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    return id == IID_IDispatch || id == IID_IUnknown ? GUID_NULL : id;  // which say nothing
}

}  // namespace

std::shared_ptr<MemberIds> MemberIds::Of(IDispatch& object) {
    static std::map<GUID, std::shared_ptr<MemberIds>, ByBytes> classes;
    const GUID id = DescribedAs(object);
    if (id == GUID_NULL) return std::make_shared<MemberIds>();
    std::shared_ptr<MemberIds>& shared = classes[id];
    if (!shared) shared = std::make_shared<MemberIds>();
    return shared;
}

std::optional<DISPID> MemberIds::Find(std::string_view name) const {
    const auto found = std::ranges::find(known_, name, &Known::name);
    return found == known_.end() ? std::nullopt : std::optional(found->id);
}

}  // namespace qor::windows
