#include "platform/vector.h"

namespace qor {

namespace {

Vector& Self(Object& self) { return static_cast<Vector&>(self); }

constexpr Member kMembers[] = {
    {.name = "Count",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return Self(self).Count(); },
     .result = ParameterType::Int32},
    {.name = "Add",
     .kind = InvokeKind::Method,
     .invoke = [](Object& self, Arguments a) { return Self(self).Add(*a[0]), Value(); },
     .parameters = {{{"Item"}}}},
    {.name = "Item",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments a) { return Self(self).Item(a[0]->int32()); },
     .parameters = {{{"Index", ParameterType::Int32}}}},
};

constexpr MemberId kItemMember = 2;

}  // namespace

std::span<const Member> Vector::Members() const { return kMembers; }

MemberId Vector::DefaultMember() { return kItemMember; }

Value ArrayVector::Item(std::int32_t index) const {
    if (index < 1 || index > Count()) Raise(Automation::SubscriptOutOfRange);
    return items_[static_cast<std::size_t>(index - 1)];
}

}  // namespace qor
