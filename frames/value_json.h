// Values as JSON in such a way that the very same value comes back: its type, its width, the fraction of a
// second. Objects have no place in a scheme.
#pragma once

#include <nlohmann/json.hpp>

#include "platform/value.h"

namespace qor {

using OrderedJson = nlohmann::ordered_json;

/// Raises 13 for an object.
OrderedJson PlainValueToJson(const Value& value);
/// Raises 13 for anything that PlainValueToJson does not write, and 6 for a number too large for its type.
Value PlainValueFromJson(const OrderedJson& json);

}  // namespace qor
