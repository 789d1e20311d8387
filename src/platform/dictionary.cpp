#include "platform/dictionary.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t kSearchedFromEndToEnd = 24;

Dictionary& Self(Object& self) { return static_cast<Dictionary&>(self); }

constexpr Member kMembers[] = {
    {.name = "Lookup",
     .kind = InvokeKind::Method,
     .invoke = [](Object& self, Arguments a) -> Value { return Self(self).Lookup(a[0]->text()); },
     .result = ParameterType::Boolean,
     .parameters = {{{"Key", ParameterType::Text}}}},
    {.name = "Value",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments a) { return Self(self).Get(a[0]->text()); },
     .parameters = {{{"Key", ParameterType::Text}}}},
    {.name = "Value",
     .kind = InvokeKind::Put,
     .invoke = [](Object& self, Arguments a) { return Self(self).Put(a[0]->text(), *a[1]), Value(); },
     .parameters = {{{"Key", ParameterType::Text}, {"Value"}}}},
    {.name = "Value",
     .kind = InvokeKind::PutRef,
     .invoke = [](Object& self, Arguments a) { return Self(self).Put(a[0]->text(), *a[1]), Value(); },
     .parameters = {{{"Key", ParameterType::Text}, {"Value", ParameterType::Object}}}},
    {.name = "GetValue",
     .kind = InvokeKind::Method,
     .invoke =
         [](Object& self, Arguments a) {
             return Self(self).GetOr(a[0]->text(), a.size() > 1 && !a[1].IsMissing() ? *a[1] : Value());
         },
     .parameters = {{{"Key", ParameterType::Text}, {"Default", ParameterType::Any, false, true}}}},
    {.name = "Remove",
     .kind = InvokeKind::Method,
     .invoke = [](Object& self, Arguments a) { return Self(self).Remove(a[0]->text()), Value(); },
     .parameters = {{{"Key", ParameterType::Text}}}},
    {.name = "Count",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return static_cast<std::int32_t>(Self(self).Count()); },
     .result = ParameterType::Int32},
    {.name = "Name",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments a) -> Value {
         const std::int32_t position = a[0]->int32();
         if (position < 1 || static_cast<std::size_t>(position) > Self(self).Count()) {
             Raise(Automation::SubscriptOutOfRange);
         }
         return Self(self).KeyAt(static_cast<std::size_t>(position - 1));
     },
     .result = ParameterType::Text,
     .parameters = {{{"Position", ParameterType::Int32}}}},
};

constexpr MemberId kValueMember = 1;

}  // namespace

std::span<const Member> Dictionary::Members() const { return kMembers; }

MemberId Dictionary::DefaultMember() { return kValueMember; }

const OrderedDictionary::Entry* OrderedDictionary::Find(std::string_view key) const {
    if (index_) {
        const auto found = index_->find(key);
        return found == index_->end() ? nullptr : &entries_[found->second];
    }
    const auto found = std::ranges::find_if(entries_, [key](const Entry& entry) { return entry.key == key; });
    return found == entries_.end() ? nullptr : &*found;
}

void OrderedDictionary::BuildIndex() {
    index_ = std::make_unique<Index>(entries_.size() * 2);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        index_->emplace(entries_[i].key, i);
    }
}

Value OrderedDictionary::Get(std::string_view key) const {
    const Entry* entry = Find(key);
    return entry ? entry->value : Value();
}

void OrderedDictionary::Put(std::string_view key, Value value) {
    if (const Entry* entry = Find(key)) {
        const_cast<Entry*>(entry)->value = std::move(value);
        return;
    }
    if (entries_.empty()) entries_.reserve(8);
    entries_.push_back({std::string(key), std::move(value)});
    if (index_) {
        index_->emplace(entries_.back().key, entries_.size() - 1);
    } else if (entries_.size() > kSearchedFromEndToEnd) {
        BuildIndex();
    }
}

void OrderedDictionary::Remove(std::string_view key) {
    const Entry* entry = Find(key);
    if (!entry) return;
    entries_.erase(entries_.begin() + (entry - entries_.data()));
    if (index_) BuildIndex();
}

}  // namespace qor
