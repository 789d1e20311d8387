#include "viewer/playing.h"

namespace qor::test {

namespace {

std::string FileOf(std::string_view steps, std::string_view components = "{}") {
    return R"({"today": "2020-09-15", "process": 4711, "components": )" + std::string(components) +
           R"(, "steps": )" + std::string(steps) + "}";
}

/// The line of a step's outcome; null where it has none of that event.
const Json* OutcomeOf(const Lines& lines, std::string_view event, std::size_t step) {
    for (const Json& line : lines) {
        if (line["event"] == event && line["index"] == step) return &line;
    }
    return nullptr;
}

}  // namespace

Lines Played(std::string_view file) {
    const Json conversation = viewer::ReadConversation(file);
    viewer::Transcript transcript;
    viewer::Player(conversation, transcript).Play();
    Lines lines;
    for (const std::string& line : transcript.lines()) {
        if (!line.empty()) lines.push_back(Json::parse(line));
    }
    return lines;
}

Lines PlayedSteps(std::string_view steps) { return Played(FileOf(steps)); }

Lines PlayedSteps(std::string_view steps, std::string_view components) {
    return Played(FileOf(steps, components));
}

std::string RefusalOf(std::string_view file) {
    try {
        Played(file);
        return "";
    } catch (const viewer::Mistake& mistake) {
        return mistake.place() + ": " + mistake.what();
    }
}

std::string RefusalOfSteps(std::string_view steps) { return RefusalOf(FileOf(steps)); }

std::vector<std::string> Events(const Lines& lines) { return Values(lines, "event"); }

std::vector<std::string> Values(const Lines& lines, std::string_view key) {
    std::vector<std::string> values;
    for (const Json& line : lines) {
        values.push_back(line[std::string(key)]);
    }
    return values;
}

Lines EventsOf(const Lines& lines, std::string_view event) { return EventsOf(lines, event, "event", event); }

Lines EventsOf(const Lines& lines, std::string_view event, std::string_view key, std::string_view value) {
    Lines found;
    for (const Json& line : lines) {
        if (line["event"] == event && line.contains(key) && line[std::string(key)] == value) {
            found.push_back(line);
        }
    }
    return found;
}

Json ResultOf(const Lines& lines, std::size_t step) {
    const Json* line = OutcomeOf(lines, "result", step);
    return line ? (*line)["value"] : Json(Json::value_t::discarded);
}

int ErrorOfStep(const Lines& lines, std::size_t step) {
    const Json* line = OutcomeOf(lines, "error", step);
    return line ? (*line)["number"].get<int>() : 0;
}

}  // namespace qor::test
