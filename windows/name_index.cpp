#include "windows/name_index.h"

#include <algorithm>
#include <unordered_map>

#include "windows/handles.h"

namespace qor::windows {

namespace {

wchar_t Lower(wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; }

/// Orders a name in lower case and one as a host writes it: below 0, 0 or above 0.
int Compare(const std::wstring& known, const wchar_t* asked) {
    for (const wchar_t c : known) {
        const wchar_t other = Lower(*asked);
        if (c != other) return c < other ? -1 : 1;
        ++asked;
    }
    return *asked == L'\0' ? 0 : -1;
}

bool IsFirstRow(std::span<const Member> members, std::size_t row) {
    return row == 0 || members[row].name != members[row - 1].name;
}

/// The parameters of a row that a call can name: not the new value of a put.
std::span<const Parameter> Nameable(const Member& row) {
    const bool isPut = row.kind == InvokeKind::Put || row.kind == InvokeKind::PutRef;
    return std::span(row.parameters).first(row.ParameterCount() - (isPut ? 1 : 0));
}

}  // namespace

const NameIndex* NameIndex::Of(Object& object) {
    const auto* described = dynamic_cast<const TableObject*>(&object);
    if (!described) return nullptr;
    static std::unordered_map<const Member*, NameIndex> classes;
    const std::span<const Member> members = described->Members();
    return &classes.try_emplace(members.data(), members).first->second;
}

NameIndex::NameIndex(std::span<const Member> members) : members_(members) {
    for (std::size_t i = 0; i < members.size(); ++i) {
        // The rows of one property stand side by side; the first names it.
        const bool isNamed = IsFirstRow(members, i);
        rows_.push_back({isNamed, members[i].kind == InvokeKind::Method, Nameable(members[i]).size()});
        if (!isNamed) continue;
        std::wstring name = Wide(members[i].name);
        std::ranges::transform(name, name.begin(), Lower);
        byName_.emplace_back(std::move(name), static_cast<MemberId>(i));
    }
    std::ranges::sort(byName_);
}

MemberId NameIndex::Find(const wchar_t* name) const {
    const auto found = std::partition_point(byName_.begin(), byName_.end(),
                                            [name](const auto& row) { return Compare(row.first, name) < 0; });
    return found != byName_.end() && Compare(found->first, name) == 0 ? found->second : kNoMember;
}

MemberId NameIndex::FindParameter(MemberId member, const wchar_t* name) const {
    const std::string asked = Narrow(name);
    const auto parameters = Nameable(members_[static_cast<std::size_t>(member)]);
    const auto found = std::ranges::find_if(
        parameters, [&](const Parameter& parameter) { return EqualsIgnoringCase(parameter.name, asked); });
    return found == parameters.end() ? kNoMember : static_cast<MemberId>(found - parameters.begin());
}

}  // namespace qor::windows
