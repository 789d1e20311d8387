#include "viewer/answers.h"

#include <algorithm>
#include <string>

#include "platform/conversions.h"
#include "viewer/json_values.h"

namespace qor::viewer {

namespace {

void CheckError(const Json& json, const Place& place, const References&) {
    if (!json.is_object()) throw Mistake(place, "must be an object with a number");
    for (const auto& [key, part] : json.items()) {
        if (key == "number") {
            ReadInteger(part, place.Key(key));
        } else if (key != "source" && key != "description") {
            throw Mistake(place, "unknown key " + Quoted(key));
        } else if (!part.is_string()) {
            throw Mistake(place.Key(key), "must be a text");
        }
    }
    if (!json.contains("number")) throw Mistake(place, "\"number\" is missing");
}

void CheckSequence(const Json& json, const Place& place, const References& references) {
    if (!json.is_array() || json.empty()) throw Mistake(place, "must be an array of at least one answer");
    for (std::size_t i = 0; i < json.size(); ++i) {
        CheckAnswer(json[i], place.Index(i), references);
    }
}

void CheckValues(const Json& json, const Place& place, const References& references) {
    if (!json.is_array()) throw Mistake(place, "must be an array of values");
    for (std::size_t i = 0; i < json.size(); ++i) {
        ReadValue(json[i], place.Index(i), references);
    }
}

void CheckCases(const Json& json, const Place& place, const References& references) {
    if (!json.is_array()) throw Mistake(place, "must be an array of cases");
    for (std::size_t i = 0; i < json.size(); ++i) {
        const Place row = place.Index(i);
        if (!json[i].is_array() || json[i].size() != 2) throw Mistake(row, "must be [[arguments], answer]");
        CheckValues(json[i][0], row.Index(0), references);
        CheckAnswer(json[i][1], row.Index(1), references);
    }
}

void CheckNothing(const Json& json, const Place& place, const References&) {
    if (json != true) throw Mistake(place, "must be true");
}

void CheckArguments(const Json& json, const Place& place, const References& references) {
    if (!json.is_object()) throw Mistake(place, "must be an object of values by the argument's number");
    for (const auto& [key, value] : json.items()) {
        const bool counts = !key.empty() && key.size() < 4 && key[0] != '0' &&
                            std::ranges::all_of(key, [](char c) { return c >= '0' && c <= '9'; });
        if (!counts) throw Mistake(place.Key(key), "must be the number of an argument, from 1");
        ReadValue(value, place.Key(key), references);
    }
}

struct AnswerKind {
    std::string_view key;
    void (*check)(const Json& json, const Place& place, const References& references);
};

constexpr AnswerKind kAnswerKinds[] = {
    {"value", [](const Json& j, const Place& p, const References& r) { ReadValue(j, p, r); }},
    {"recordset", [](const Json& j, const Place& p, const References& r) { ReadRecordSet(j, p, r); }},
    {"object", [](const Json& j, const Place& p, const References& r) { ReadObject(j, p, r); }},
    {"nothing", CheckNothing},
    {"error", CheckError},
    {"sequence", CheckSequence},
    {"when", CheckCases},
};

bool IsNumber(const Value& value) {
    switch (value.type()) {
        case Value::Type::Int16:
        case Value::Type::Int32:
        case Value::Type::Single:
        case Value::Type::Double:
            return true;
        default:
            return false;
    }
}

/// Numbers are equal whatever their width; objects, where they are written in the same way.
bool SameArgument(const Value& given, const Value& expected, const ObjectNames& names) {
    if (IsNumber(given) && IsNumber(expected)) return ToDouble(given) == ToDouble(expected);
    if (given.IsObject() && expected.IsObject()) {
        return given == expected || WriteValue(given, names) == WriteValue(expected, names);
    }
    return given == expected;
}

bool LeadingArgumentsEqual(Arguments arguments, const Json& expected, const ObjectNames& names) {
    if (expected.size() > arguments.size()) return false;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (!SameArgument(*arguments[i], ReadValue(expected[i], {}, names), names)) return false;
    }
    return true;
}

[[noreturn]] void RaiseScripted(const Json& error) {
    throw Error(error["number"].get<std::int32_t>(), error.value("source", ""),
                error.value("description", ""));
}

}  // namespace

void CheckAnswer(const Json& json, const Place& place, const References& references) {
    if (!json.is_object()) throw Mistake(place, "must be an answer, such as {\"value\": 1}");
    int kinds = 0;
    for (const auto& [key, part] : json.items()) {
        const auto kind = std::ranges::find(kAnswerKinds, std::string_view(key), &AnswerKind::key);
        if (kind != std::end(kAnswerKinds)) {
            kind->check(part, place.Key(key), references);
            ++kinds;
        } else if (key == "args") {
            CheckArguments(part, place.Key(key), references);
        } else if (key == "else" && json.contains("when")) {
            CheckAnswer(part, place.Key(key), references);
        } else {
            throw Mistake(place, "unknown key " + Quoted(key));
        }
    }
    if (kinds != 1) {
        throw Mistake(place, "must have one of value, recordset, object, nothing, error, sequence and when");
    }
}

Answer::Answer(const Json& json) : json_(json) {
    if (json.contains("sequence")) {
        for (const Json& answer : json["sequence"]) {
            sequence_.push_back(std::make_unique<Answer>(answer));
        }
    }
    if (json.contains("when")) {
        for (const Json& row : json["when"]) {
            cases_.emplace_back(&row[0], std::make_unique<Answer>(row[1]));
        }
    }
    if (json.contains("else")) otherwise_ = std::make_unique<Answer>(json["else"]);
}

Answer* Answer::Choose(Arguments arguments, const ObjectNames& names) {
    if (!sequence_.empty()) {
        const std::size_t now = next_;
        if (next_ + 1 < sequence_.size()) ++next_;
        return sequence_[now].get();
    }
    const auto fitting = std::ranges::find_if(
        cases_, [&](const auto& row) { return LeadingArgumentsEqual(arguments, *row.first, names); });
    return fitting == cases_.end() ? otherwise_.get() : fitting->second.get();
}

void Answer::LeaveArguments(Arguments arguments, const ObjectNames& names) const {
    const auto args = json_.find("args");
    if (args == json_.end()) return;
    for (const auto& [number, value] : args->items()) {
        const std::size_t position = static_cast<std::size_t>(ToInt32(number)) - 1;
        if (position < arguments.size() && arguments[position].IsByRef()) {
            *arguments[position] = ReadValue(value, {}, names);
        }
    }
}

std::optional<Value> Answer::Give(Arguments arguments, const ObjectNames& names) {
    Answer* chosen = Choose(arguments, names);
    LeaveArguments(arguments, names);
    if (chosen) return chosen->Give(arguments, names);
    if (json_.contains("error")) RaiseScripted(json_["error"]);
    if (json_.contains("nothing")) return Value::Nothing();
    if (const auto value = json_.find("value"); value != json_.end()) return ReadValue(*value, {}, names);
    if (const auto set = json_.find("recordset"); set != json_.end()) return ReadRecordSet(*set, {}, names);
    if (const auto object = json_.find("object"); object != json_.end())
        return ReadObject(*object, {}, names);
    return std::nullopt;
}

}  // namespace qor::viewer
