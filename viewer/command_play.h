// `qorview play`: plays a conversation and writes its transcript.
#pragma once

#include <iosfwd>
#include <string>

namespace qor::viewer {

/// Plays the conversation in `file`, "-" for standard input. Answers the exit status: 0 where it was played
/// to its end, 2 where it was refused; the reason is then one line on `errors`.
int PlayConversation(const std::string& file, std::istream& in, std::ostream& out, std::ostream& errors);

}  // namespace qor::viewer
