// The data components of the reports. A report that is answered has a row with its function; the others have
// a row that says so.
#pragma once

#include "embedded/server.h"

namespace qor {

extern const std::span<const Member> kDataMembers;
extern const std::span<const Member> kData10525Members;
extern const std::span<const Member> kData10526Members;
extern const std::span<const Member> kData10530Members;

}  // namespace qor
