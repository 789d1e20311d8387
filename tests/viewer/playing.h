// Playing conversations in tests: from the text of a file to the lines of its transcript.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "viewer/conversation.h"
#include "viewer/player.h"

namespace qor::test {

using viewer::Json;
using Lines = std::vector<Json>;

/// The transcript of a conversation.
Lines Played(std::string_view file);
/// The transcript of steps alone, a JSON array, on 2020-09-15 in process 4711.
Lines PlayedSteps(std::string_view steps);

/// The same with server components, a JSON object of answers.
Lines PlayedSteps(std::string_view steps, std::string_view components);

/// What the file is refused for, "place: message"; "" where it is played.
std::string RefusalOf(std::string_view file);
/// The same of steps alone.
std::string RefusalOfSteps(std::string_view steps);

/// The lines of one event.
Lines EventsOf(const Lines& lines, std::string_view event);
/// The lines of one event that belong to a dialog or a component.
Lines EventsOf(const Lines& lines, std::string_view event, std::string_view key, std::string_view value);
/// The events of all lines.
std::vector<std::string> Events(const Lines& lines);
/// What every line holds under a key.
std::vector<std::string> Values(const Lines& lines, std::string_view key);
/// The value of a step's `result` line; a `discarded` JSON where it has none.
Json ResultOf(const Lines& lines, std::size_t step);
/// The number of a step's `error` line, 0 where it has none.
int ErrorOfStep(const Lines& lines, std::size_t step);

}  // namespace qor::test
