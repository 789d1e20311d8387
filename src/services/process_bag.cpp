#include "services/process_bag.h"

#include "platform/conversions.h"

namespace qor {

namespace {

/// Reaches the bag's entries: its default member, which the shell calls Item.
Value InvokeItem(Object& bag, InvokeKind kind, Arguments arguments) {
    const MemberId byDefault = bag.DefaultMember();
    if (byDefault == kNoMember) return bag.InvokeByName("Item", kind, arguments);
    return bag.Invoke(byDefault, kind, arguments);
}

Value ReadItem(const Ref<Object>& bag, std::string_view key, const Value& standIn) {
    if (!bag || !ToBoolean(bag->Call("Lookup", key))) return standIn;
    Argument argument(key);
    return InvokeItem(*bag, InvokeKind::Get, {&argument, 1});
}

}  // namespace

Value ProcessBag::GetProcessBagItem(std::string_view key, Value standIn) const {
    Value item = standIn;
    IgnoringErrors([&] { item = ReadItem(platform_.ProcessBag(), key, standIn); });
    return item;
}

void ProcessBag::SetProcessBagItem(std::string_view key, Value value) {
    const Ref<Object> bag = platform_.ProcessBag();
    if (!bag) Raise(Automation::ObjectNotSet);
    const InvokeKind kind = value.IsObject() ? InvokeKind::PutRef : InvokeKind::Put;
    Argument arguments[] = {key, std::move(value)};
    InvokeItem(*bag, kind, arguments);
}

std::int32_t ProcessBag::GetAppType() const { return ToInt32(GetProcessBagItem("AppType", 2)); }

std::int32_t ProcessBag::GetIndustryType() const { return ToInt32(GetProcessBagItem("IndustryType", 0)); }

bool ProcessBag::IsGLAndICUnite() const { return ToBoolean(GetProcessBagItem("GLAndICUnite", true)); }

}  // namespace qor
