#include "viewer/conversation.h"

#include <algorithm>
#include <string>

#include "viewer/file_check.h"
#include "viewer/steps.h"

namespace qor::viewer {

namespace {

/// "line 3, column 7" of a byte, counted from 1.
std::string LineAndColumn(std::string_view text, std::size_t byte) {
    const std::string_view before = text.substr(0, byte > 0 ? byte - 1 : 0);
    const auto line = std::ranges::count(before, '\n') + 1;
    const std::size_t lineStart = before.rfind('\n');
    const std::size_t column =
        lineStart == std::string_view::npos ? before.size() + 1 : before.size() - lineStart;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

Json ParseJson(std::string_view text) {
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        throw Mistake(LineAndColumn(text, error.byte), "this is not JSON");
    }
}

void Steps(FileCheck& check, const Json& json, const Place& place) {
    if (!json.is_array()) throw Mistake(place, "must be an array of steps");
    for (std::size_t i = 0; i < json.size(); ++i) {
        CheckKind(check, StepKinds(), json[i], place.Index(i), "step");
    }
}

using namespace shape;

// `steps` comes last: nothing ahead of it can know the names that it keeps.
constexpr Key kFileKeys[] = {
    {"today", DayOrNull, true},           {"process", Integer, true},
    {"session", ValuesByKeyOrNull, true}, {"bag", ValuesByKeyOrNull, true},
    {"components", Components, true},     {"userProfile", Profiles, true},
    {"schemes", Schemes, true},           {"steps", Steps},
};

}  // namespace

Json ReadConversation(std::string_view text) {
    Json file = ParseJson(text);
    FileCheck(file).Keys(file, {}, kFileKeys);
    return file;
}

}  // namespace qor::viewer
