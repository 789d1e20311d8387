// The member tables of the report classes: one list of all members in the order of the interface, of which
// each class shows those that its description grants it.
#pragma once

#include <span>

#include "report/report_description.h"

namespace qor {

struct Member;

std::span<const Member> ReportMembers(const ReportDescription& description);

}  // namespace qor
