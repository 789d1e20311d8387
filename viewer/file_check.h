// The check of a conversation's file before anything is played: every object in it against the keys that it
// may have, every value against its shape, every name against those that stand by then.
#pragma once

#include <initializer_list>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "viewer/json.h"
#include "viewer/object_names.h"

namespace qor::viewer {

class FileCheck;

/// What a key of an object takes.
using Shape = void (*)(FileCheck& check, const Json& json, const Place& place);

struct Key {
    std::string_view name;
    Shape shape = nullptr;
    bool optional = false;
};

class FileCheck final : public References {
 public:
    explicit FileCheck(const Json& file);

    /// Raises a Mistake for the first key that is unknown, missing or of the wrong shape.
    void Keys(const Json& json, const Place& place, std::span<const Key> keys);

    void Declare(const std::string& name) { kept_.insert(name); }
    void Forget(const std::string& name) { kept_.erase(name); }
    /// Raises a Mistake where no earlier step has kept an object under that name.
    Value Resolve(const std::string& name, const Place& place) const override;

    /// The names that any step keeps: an answer is given when its component is called, not where it stands.
    const References& anyStep() const { return anyStep_; }

 private:
    using Names = std::set<std::string, std::less<>>;
    struct AnyStep final : References {
        Value Resolve(const std::string& name, const Place& place) const override;
        Names names;
    };

    Names kept_;  // at the step that is being checked
    AnyStep anyStep_;
};

/// The kind of thing that an object of the file is: the key that names it, the keys that it may have, and
/// what is done with it. Steps and actions are told apart by these, the first that fits.
template <class Run>
struct Kind {
    std::string_view verb;
    std::span<const Key> keys;
    Run run;
    void (*also)(const Json& json, const Place& place) = nullptr;  // what one key asks of another
};

/// The kind of `json`; null where no key of it names one.
template <class Run>
const Kind<Run>* FindKind(std::span<const Kind<Run>> kinds, const Json& json) {
    for (const Kind<Run>& kind : kinds) {
        if (json.contains(kind.verb)) return &kind;
    }
    return nullptr;
}

/// Checks one step or action, of which `what` is the word. Answers its kind.
template <class Run>
const Kind<Run>& CheckKind(FileCheck& check, std::span<const Kind<Run>> kinds, const Json& json,
                           const Place& place, std::string_view what) {
    if (!json.is_object() || json.empty()) {
        throw Mistake(place, "must be an object that names its " + std::string(what));
    }
    const Kind<Run>* kind = FindKind(kinds, json);
    if (!kind) throw Mistake(place, "unknown " + std::string(what) + " " + Quoted(json.begin().key()));
    check.Keys(json, place, kind->keys);
    if (kind->also) kind->also(json, place);
    return *kind;
}

namespace shape {

void Text(FileCheck&, const Json&, const Place&);
void Integer(FileCheck&, const Json&, const Place&);
void ZeroOrOne(FileCheck&, const Json&, const Place&);
void True(FileCheck&, const Json&, const Place&);
void Day(FileCheck&, const Json&, const Place&);
void DayOrNull(FileCheck&, const Json&, const Place&);
void AnyValue(FileCheck&, const Json&, const Place&);
void ValueList(FileCheck&, const Json&, const Place&);
void ValuesByKeyOrNull(FileCheck&, const Json&, const Place&);  // an object of values, or null
void ComponentsOrNull(FileCheck&, const Json&, const Place&);
void Profiles(FileCheck&, const Json&, const Place&);
void Schemes(FileCheck&, const Json&, const Place&);
void NewName(FileCheck&, const Json&, const Place&);  // declares it
void KeptName(FileCheck&, const Json&, const Place&);
void ReleasedName(FileCheck&, const Json&, const Place&);  // a kept one, which is forgotten
void MemberPath(FileCheck&, const Json&, const Place&);    // "name.Member" of a kept object

}  // namespace shape

}  // namespace qor::viewer
