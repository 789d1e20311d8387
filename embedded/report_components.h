// The data components of the reports: one row a member, with the function that computes it.
#pragma once

#include "embedded/server.h"

namespace qor {

extern const std::span<const Member> kDataMembers;
extern const std::span<const Member> kData10525Members;
extern const std::span<const Member> kData10526Members;
extern const std::span<const Member> kData10530Members;

}  // namespace qor
