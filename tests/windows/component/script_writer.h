// Writes a conversation as a script host's program: every step a statement, everything late bound.
#pragma once

#include <string>

#include "viewer/json.h"

namespace qor::component {

/// A script that plays the conversation of `file` and leaves what it saw in `transcript`; both are named as
/// the script's system names them. The last line it prints is "played".
std::string WriteScript(const viewer::Json& conversation, const std::string& file,
                        const std::string& transcript);

}  // namespace qor::component
