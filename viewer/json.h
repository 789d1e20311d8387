// The JSON of conversations and transcripts: keys keep their order.
#pragma once

#include <nlohmann/json.hpp>

namespace qor::viewer {

using Json = nlohmann::ordered_json;

}  // namespace qor::viewer
