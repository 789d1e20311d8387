// A conversation's file, read and checked as a whole before anything of it is played.
#pragma once

#include <string_view>

#include "viewer/json.h"
#include "viewer/mistake.h"

namespace qor::viewer {

/// Raises a Mistake, with its place, for anything in the file that cannot be played.
Json ReadConversation(std::string_view text);

}  // namespace qor::viewer
