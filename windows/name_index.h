// NameIndex: the members of one class by name, looked up once a class and kept.
#pragma once

#include <span>
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
    /// Whether a name leads to the id.
    bool Has(MemberId member) const {
        return member >= 0 && static_cast<std::size_t>(member) < rows_.size() && RowOf(member).isNamed;
    }
    bool IsMethod(MemberId member) const { return RowOf(member).isMethod; }
    /// The place of a member's parameter of that name; kNoMember if there is none. What a property is put to
    /// has no name.
    MemberId FindParameter(MemberId member, const wchar_t* name) const;
    /// How many of its parameters can be named.
    std::size_t ParameterCount(MemberId member) const { return RowOf(member).nameable; }

 private:
    /// What each call asks of a row of the table.
    struct Row {
        bool isNamed, isMethod;
        std::size_t nameable;
    };
    const Row& RowOf(MemberId member) const { return rows_[static_cast<std::size_t>(member)]; }

    std::span<const Member> members_;
    std::vector<Row> rows_;
    std::vector<std::pair<std::wstring, MemberId>> byName_;  // in lower case, sorted
};

}  // namespace qor::windows
