// The report identifiers by the lower bound that their dates take.
#pragma once

#include <cstdint>
#include <string_view>

namespace qor {

/// 1 where the earliest date of the report is the account set's start date, 0 for every other identifier.
/// Blanks around the identifier do not count; the comparison is of texts, so "010501" is another one.
std::int32_t UsesAccountStartDate(std::string_view RptID);

}  // namespace qor
