#include "embedded/middle_tier.h"

#include <algorithm>

#include "embedded/lookup_components.h"
#include "embedded/report_components.h"
#include "embedded/session_components.h"

namespace qor {

namespace {

constexpr ComponentRow kComponents[] = {
    {"QORPropsMgr.ShareProps", CreateFromTable<kSharePropsMembers>},
    {"QORMtsCacheService.CacheFacade", CreateFromTable<kCacheFacadeMembers>},
    {"QOREBSBase.SystemProfile", CreateFromTable<kSystemProfileMembers>},
    {"QOREBSBase.SecurityInfo", CreateFromTable<kSecurityInfoMembers>},
    {"QORMAppConnection.AppConnection", CreateFromTable<kConnectionMembers>},
    {"QOREBCGLView.GLData", CreateFromTable<kGLDataMembers>},
    {"QOREBCGLView.GLView", CreateFromTable<kGLViewMembers>},
    {"QOREBCBASE.UserProfile", CreateUserProfile},
    {"ZEP_APFC.FrameData", CreateFrameData},
    {"QORGLNameListLib2.GLNameList", CreateNameList},
    {"QORMArApRpt.Data", CreateFromTable<kDataMembers>},
    {"QORMArApRpt.Data10525", CreateFromTable<kData10525Members>},
    {"QORMArApRpt.Data10526", CreateFromTable<kData10526Members>},
    {"QORMArApRpt.Data10530", CreateFromTable<kData10530Members>},
};

}  // namespace

MiddleTier::MiddleTier(const std::filesystem::path& accountSet, std::int32_t userId,
                       std::unique_ptr<UserProfileStore> profiles)
    : server_(std::make_shared<Server>(AccountSet(accountSet), userId, std::move(profiles))) {
    if (!server_->profiles) server_->profiles = std::make_unique<MemoryProfiles>();
    if (!server_->accountSet.UserName(userId)) {
        RaiseAccountSetError("账套中没有用户 " + std::to_string(userId));
    }
}

Ref<Object> MiddleTier::Create(std::string_view name) {
    const auto* row = std::ranges::find_if(kComponents, [name](const ComponentRow& component) {
        return EqualsIgnoringCase(component.name, name);
    });
    return row == std::end(kComponents) ? Ref<Object>() : row->create(*row, server_);
}

}  // namespace qor
