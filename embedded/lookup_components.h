// The picker of base data. With no window it takes what the search text finds, unless the application brings
// a picker of its own.
#pragma once

#include "embedded/server.h"

namespace qor {

extern const std::span<const Member> kGLViewMembers;

/// The item whose code is `search`, else the first by code that begins with it, else the first whose name
/// does. Nothing for an empty text, which asks for a list that nobody can be shown.
std::optional<std::int64_t> FindBySearchText(AccountSet& set, const LookupRequest& request);

}  // namespace qor
