// NameIndex: the members of one class by name, looked up once a class and kept.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/object.h"

namespace qor::windows {

class NameIndex {
 public:
    /// The index of the object's class; null for an object without a member table.
    static const NameIndex* Of(Object& object);

    explicit NameIndex(std::span<const Member> members);
    /// The member of that name, without regard to the case of ASCII letters; kNoMember if there is none.
    MemberId Find(const wchar_t* name) const;

 private:
    std::vector<std::pair<std::wstring, MemberId>> byName_;  // in lower case, sorted
};

}  // namespace qor::windows
