#include "viewer/file_check.h"

#include <algorithm>

#include "viewer/answers.h"
#include "viewer/json_values.h"

namespace qor::viewer {

namespace {

[[noreturn]] void UnknownName(const std::string& name, const Place& place) {
    throw Mistake(place, "no object is kept under the name " + Quoted(name));
}

}  // namespace

FileCheck::FileCheck(const Json& file) {
    if (!file.is_object() || !file.contains("steps") || !file["steps"].is_array()) return;
    for (const Json& step : file["steps"]) {
        if (step.is_object() && step.contains("as") && step["as"].is_string()) {
            anyStep_.names.insert(step["as"].get<std::string>());
        }
    }
}

void FileCheck::Keys(const Json& json, const Place& place, std::span<const Key> keys) {
    if (!json.is_object()) throw Mistake(place, "must be an object");
    for (const auto& [name, part] : json.items()) {
        if (std::ranges::find(keys, std::string_view(name), &Key::name) == keys.end()) {
            throw Mistake(place, "unknown key " + Quoted(name));
        }
    }
    for (const Key& key : keys) {
        const auto part = json.find(key.name);
        if (part != json.end()) {
            key.shape(*this, *part, place.Key(key.name));
        } else if (!key.optional) {
            throw Mistake(place, Quoted(key.name) + " is missing");
        }
    }
}

Value FileCheck::Resolve(const std::string& name, const Place& place) const {
    if (!kept_.contains(name)) UnknownName(name, place);
    return Value::Nothing();
}

Value FileCheck::AnyStep::Resolve(const std::string& name, const Place& place) const {
    if (!names.contains(name)) UnknownName(name, place);
    return Value::Nothing();
}

namespace shape {

void Text(FileCheck&, const Json& json, const Place& place) {
    if (!json.is_string()) throw Mistake(place, "must be a text");
}

void Integer(FileCheck&, const Json& json, const Place& place) { ReadInteger(json, place); }

void ZeroOrOne(FileCheck&, const Json& json, const Place& place) {
    if (!json.is_number_integer() || (json != 0 && json != 1)) throw Mistake(place, "must be 0 or 1");
}

void True(FileCheck&, const Json& json, const Place& place) {
    if (json != true) throw Mistake(place, "must be true");
}

void Day(FileCheck&, const Json& json, const Place& place) { ReadDate(json, place, false); }

void DayOrNull(FileCheck& check, const Json& json, const Place& place) {
    if (!json.is_null()) Day(check, json, place);
}

void AnyValue(FileCheck& check, const Json& json, const Place& place) { ReadValue(json, place, check); }

void ValueList(FileCheck& check, const Json& json, const Place& place) {
    if (!json.is_array()) throw Mistake(place, "must be an array of values");
    for (std::size_t i = 0; i < json.size(); ++i) {
        ReadValue(json[i], place.Index(i), check);
    }
}

namespace {

template <class CheckEntry>
void EachEntry(const Json& json, const Place& place, std::string_view expected, CheckEntry&& checkEntry) {
    if (!json.is_object()) throw Mistake(place, "must be an object of " + std::string(expected));
    for (const auto& [key, entry] : json.items()) {
        checkEntry(key, entry, place.Key(key));
    }
}

void ExpectReportNumber(const std::string& number, const Place& place) {
    const bool isNumber = !number.empty() && number.size() < 10 &&
                          std::ranges::all_of(number, [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber) throw Mistake(place, "must be a report number, such as \"10522\"");
}

void CheckValues(FileCheck& check, const Json& json, const Place& place) {
    EachEntry(json, place, "values",
              [&](const std::string&, const Json& value, const Place& at) { ReadValue(value, at, check); });
}

void CheckScheme(FileCheck& check, const Json& json, const Place& place) {
    EachEntry(json, place, "values", [&](const std::string&, const Json& value, const Place& at) {
        if (ReadValue(value, at, check).IsObject()) throw Mistake(at, "must be a plain value, no object");
    });
}

}  // namespace

void ValuesByKeyOrNull(FileCheck& check, const Json& json, const Place& place) {
    if (!json.is_null()) CheckValues(check, json, place);
}

void ComponentsOrNull(FileCheck& check, const Json& json, const Place& place) {
    if (json.is_null()) return;
    EachEntry(json, place, "components",
              [&](const std::string&, const Json& members, const Place& component) {
                  if (members.is_null()) return;
                  EachEntry(members, component, "answers",
                            [&](const std::string&, const Json& answer, const Place& at) {
                                if (!answer.is_null()) CheckAnswer(answer, at, check.anyStep());
                            });
              });
}

void Profiles(FileCheck& check, const Json& json, const Place& place) {
    EachEntry(json, place, "sections", [&](const std::string& name, const Json& values, const Place& at) {
        if (name.find('/') == std::string::npos) {
            throw Mistake(at, "must be a product and a section, such as \"QOR/ARAP\"");
        }
        CheckValues(check, values, at);
    });
}

void Schemes(FileCheck& check, const Json& json, const Place& place) {
    EachEntry(json, place, "reports", [&](const std::string& number, const Json& schemes, const Place& at) {
        ExpectReportNumber(number, at);
        EachEntry(schemes, at, "schemes", [&](const std::string& name, const Json& scheme, const Place& its) {
            if (name.empty()) throw Mistake(its, "a scheme needs a name");
            CheckScheme(check, scheme, its);
        });
    });
}

void NewName(FileCheck& check, const Json& json, const Place& place) {
    Text(check, json, place);
    const std::string& name = json.get_ref<const std::string&>();
    if (name.empty() || name.find('.') != std::string::npos) {
        throw Mistake(place, "must be a name without a dot");
    }
    check.Declare(name);
}

void KeptName(FileCheck& check, const Json& json, const Place& place) {
    Text(check, json, place);
    check.Resolve(json.get_ref<const std::string&>(), place);
}

void ReleasedName(FileCheck& check, const Json& json, const Place& place) {
    KeptName(check, json, place);
    check.Forget(json.get_ref<const std::string&>());
}

void MemberPath(FileCheck& check, const Json& json, const Place& place) {
    Text(check, json, place);
    const std::string& path = json.get_ref<const std::string&>();
    const std::size_t dot = path.find('.');
    if (dot == std::string::npos || dot + 1 == path.size() || path.find('.', dot + 1) != std::string::npos) {
        throw Mistake(place, "must be a kept name and a member, such as \"r.Filter\"");
    }
    check.Resolve(path.substr(0, dot), place);
}

}  // namespace shape

}  // namespace qor::viewer
