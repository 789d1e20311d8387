#include "viewer/conversation.h"

#include <algorithm>
#include <string>
#include <vector>

#include "viewer/file_check.h"
#include "viewer/steps.h"

namespace qor::viewer {

namespace {

/// Follows the parser, and refuses what it would let pass: a key that stands twice in one object, of which
/// only one could be played, and more levels than any file needs.
class StrictParse {
 public:
    void Take(Json::parse_event_t event, const Json& parsed) {
        switch (event) {
            case Json::parse_event_t::object_start:
                Open(false);
                break;
            case Json::parse_event_t::array_start:
                Open(true);
                break;
            case Json::parse_event_t::object_end:
            case Json::parse_event_t::array_end:
                open_.pop_back();
                break;
            case Json::parse_event_t::key:
                TakeKey(parsed.get_ref<const std::string&>());
                break;
            case Json::parse_event_t::value:
                Count();
                break;
        }
    }

 private:
    static constexpr std::size_t kMostLevels = 200;
    struct Level {
        bool isArray;
        std::size_t count = 0;
        std::vector<std::string> keys;
    };

    void Count() {
        if (!open_.empty() && open_.back().isArray) ++open_.back().count;
    }

    void Open(bool isArray) {
        if (open_.size() == kMostLevels) throw Mistake("", "has more than 200 levels");
        Count();
        open_.push_back({isArray});
    }

    void TakeKey(const std::string& key) {
        std::vector<std::string>& keys = open_.back().keys;
        if (std::ranges::find(keys, key) != keys.end()) {
            throw Mistake(PlaceOf(0, {}), "the key " + Quoted(key) + " stands twice");
        }
        keys.push_back(key);
    }

    /// The place of the innermost object.
    std::string PlaceOf(std::size_t level, const Place& around) const {
        if (level + 1 == open_.size()) return around.Text();
        const Level& open = open_[level];
        return PlaceOf(level + 1, open.isArray ? around.Index(open.count - 1) : around.Key(open.keys.back()));
    }

    std::vector<Level> open_;
};

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
    StrictParse strict;
    try {
        return Json::parse(text, [&](int, Json::parse_event_t event, const Json& parsed) {
            strict.Take(event, parsed);
            return true;
        });
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
    {"today", DayOrNull, true},
    {"process", Integer, true},
    {"session", ValuesByKeyOrNull, true},
    {"bag", ValuesByKeyOrNull, true},
    {"components", ComponentsOrNull, true},
    {"userProfile", Profiles, true},
    {"schemes", Schemes, true},
    {"steps", Steps},
};

}  // namespace

Json ReadConversation(std::string_view text) {
    Json file = ParseJson(text);
    FileCheck(file).Keys(file, {}, kFileKeys);
    return file;
}

}  // namespace qor::viewer
