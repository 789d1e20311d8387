// The components of a session: who is logged in, what the account set's profile says, the log of uses, and
// the name list that this server has no window for.
#pragma once

#include "embedded/server.h"

namespace qor {

extern const std::span<const Member> kSharePropsMembers;
extern const std::span<const Member> kCacheFacadeMembers;
extern const std::span<const Member> kSecurityInfoMembers;
extern const std::span<const Member> kSystemProfileMembers;
extern const std::span<const Member> kConnectionMembers;
extern const std::span<const Member> kGLDataMembers;

Ref<Object> CreateFrameData(const ComponentRow& row, const ServerRef& server);
Ref<Object> CreateNameList(const ComponentRow& row, const ServerRef& server);
Ref<Object> CreateUserProfile(const ComponentRow& row, const ServerRef& server);

}  // namespace qor
