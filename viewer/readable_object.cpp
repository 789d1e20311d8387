#include "viewer/readable_object.h"

namespace qor::viewer {

MemberId ReadableObject::FindMember(std::string_view name) {
    for (std::size_t i = 0; i < members_.size(); ++i) {
        if (EqualsIgnoringCase(members_[i].first, name)) return static_cast<MemberId>(i);
    }
    return kNoMember;
}

Value ReadableObject::Invoke(MemberId member, InvokeKind kind, Arguments arguments) {
    const bool reads = kind == InvokeKind::Method || kind == InvokeKind::Get;
    if (!reads || member < 0 || static_cast<std::size_t>(member) >= members_.size()) {
        Raise(Automation::NoSuchMember);
    }
    const Value& held = members_[static_cast<std::size_t>(member)].second;
    if (arguments.empty()) return held;
    Object& object = ObjectIn(held);
    const MemberId item = object.DefaultMember();
    if (item == kNoMember) Raise(Automation::WrongArguments);
    return object.Invoke(item, InvokeKind::Get, arguments);
}

}  // namespace qor::viewer
