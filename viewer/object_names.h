// ObjectNames: the objects that a conversation keeps, by the names of its `as`.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/object.h"
#include "viewer/mistake.h"

namespace qor::viewer {

/// Finds what a `$ref` names. Raises a Mistake where a file cannot name it there.
class References {
 public:
    virtual Value Resolve(const std::string& name, const Place& place) const = 0;

 protected:
    ~References() = default;
};

class ObjectNames final : public References {
 public:
    /// A name that stands already takes the new value.
    void Keep(std::string_view name, Value value);
    void Drop(std::string_view name);
    /// The kept value; no object where a failed step has left the name empty.
    Value Find(std::string_view name) const;
    Value Resolve(const std::string& name, const Place&) const override { return Find(name); }
    /// The object's first name, "" for an object without one.
    std::string_view NameOf(const Object& object) const;

    /// For objects that are not of this library: `read` answers what is written in the place of one, or
    /// nothing where it is written as any other object.
    void ReadOthersBy(Ref<Object> (*read)(Object& object)) { readOther_ = read; }
    Ref<Object> Reading(Object& object) const {
        Ref<Object> other = readOther_ ? readOther_(object) : Ref<Object>();
        return other ? other : Ref<Object>(&object);
    }
    /// Drops all names. A conversation may have put objects into each other; the dictionaries that the
    /// names reach are emptied, so that none keeps another alive.
    void DropAll();

 private:
    std::vector<std::pair<std::string, Value>> kept_;
    Ref<Object> (*readOther_)(Object& object) = nullptr;
};

}  // namespace qor::viewer
