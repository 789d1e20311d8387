#include "viewer/shell_bag.h"

namespace qor::viewer {

namespace {

OrderedDictionary& Items(Object& self) { return static_cast<ShellBag&>(self).items(); }

Value PutItem(Object& self, Arguments a) {
    Items(self).Put(a[0]->text(), *a[1]);
    return {};
}

constexpr std::array<Parameter, 6> kKey = {{{"Key", ParameterType::Text}}};
constexpr std::array<Parameter, 6> kKeyAndValue = {{{"Key", ParameterType::Text}, {"Value"}}};

constexpr Member kMembers[] = {
    {.name = "Lookup",
     .invoke = [](Object& self, Arguments a) -> Value { return Items(self).Lookup(a[0]->text()); },
     .parameters = kKey},
    {.name = "Item",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments a) { return Items(self).Get(a[0]->text()); },
     .parameters = kKey},
    {.name = "Item", .kind = InvokeKind::Put, .invoke = PutItem, .parameters = kKeyAndValue},
    {.name = "Item", .kind = InvokeKind::PutRef, .invoke = PutItem, .parameters = kKeyAndValue},
};
constexpr MemberId kItem = 1;

}  // namespace

std::span<const Member> ShellBag::Members() const { return kMembers; }

MemberId ShellBag::DefaultMember() { return kItem; }

}  // namespace qor::viewer
