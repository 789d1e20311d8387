#include <algorithm>

#include "platform/conversions.h"
#include "viewer/json_values.h"
#include "viewer/scripted_components.h"

namespace qor::viewer {

const ComponentScript::Component* ComponentScript::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        components_, [name](const Component& c) { return EqualsIgnoringCase(c.name, name); });
    return found == components_.end() ? nullptr : &*found;
}

ComponentScript::Component& ComponentScript::At(std::string_view name) {
    if (const Component* found = Find(name)) return const_cast<Component&>(*found);
    return components_.emplace_back(Component{.name = std::string(name)});
}

void ComponentScript::LayMember(Component& component, const std::string& member, const Json& answer) {
    std::erase_if(component.members, [&](const auto& m) { return EqualsIgnoringCase(m.first, member); });
    if (!answer.is_null()) component.members.emplace_back(member, std::make_unique<Answer>(answer));
}

void ComponentScript::Lay(const Json& components) {
    if (components.is_null()) return components_.clear();
    for (const auto& [name, members] : components.items()) {
        Component& component = At(name);
        component.removed = members.is_null();
        if (component.removed) {
            component.members.clear();
            continue;
        }
        for (const auto& [member, answer] : members.items()) {
            LayMember(component, member, answer);
        }
    }
}

bool ComponentScript::IsNamed(std::string_view component) const {
    const Component* found = Find(component);
    return found && !found->removed;
}

bool ComponentScript::IsRemoved(std::string_view component) const {
    const Component* found = Find(component);
    return found && found->removed;
}

Answer* ComponentScript::Find(std::string_view component, std::string_view member) {
    const Component* found = Find(component);
    if (!found) return nullptr;
    const auto answer = std::ranges::find_if(
        found->members, [member](const auto& m) { return EqualsIgnoringCase(m.first, member); });
    return answer == found->members.end() ? nullptr : answer->second.get();
}

void SessionStore::Lay(const Json& session, const References& references) {
    exists_ = !session.is_null();
    if (!exists_) {
        values_ = MakeRef<OrderedDictionary>();
        return;
    }
    for (const auto& [key, value] : session.items()) {
        if (value.is_null()) {
            values_->Remove(key);
        } else {
            values_->Put(key, ReadValue(value, {}, references));
        }
    }
}

bool SessionStore::IsOuterLogin() const {
    std::int32_t outer = 0;
    IgnoringErrors([&] { outer = ToInt32(values_->Get("IsOuterLogin")); });
    return outer == 1;
}

namespace {

Ref<Dictionary> CopyOf(const Dictionary& values) {
    Ref<Dictionary> copy = MakeRef<OrderedDictionary>();
    for (std::size_t i = 0; i < values.Count(); ++i) {
        const std::string key = values.KeyAt(i);
        copy->Put(key, values.Get(key));
    }
    return copy;
}

}  // namespace

void ProfileStore::Load(const Json& profiles, const References& references) {
    for (const auto& [place, values] : profiles.items()) {
        const Ref<Dictionary> dictionary = MakeRef<OrderedDictionary>();
        for (const auto& [key, value] : values.items()) {
            dictionary->Put(key, ReadValue(value, {}, references));
        }
        kept_.emplace_back(place, dictionary);
    }
}

Ref<Dictionary> ProfileStore::Open(const std::string& product, const std::string& section) const {
    const auto found = std::ranges::find(kept_, product + "/" + section, &decltype(kept_)::value_type::first);
    return found == kept_.end() ? MakeRef<OrderedDictionary>() : CopyOf(*found->second);
}

void ProfileStore::Save(const std::string& product, const std::string& section, const Dictionary& values) {
    const std::string place = product + "/" + section;
    const auto found = std::ranges::find(kept_, place, &decltype(kept_)::value_type::first);
    if (found == kept_.end()) {
        kept_.emplace_back(place, CopyOf(values));
    } else {
        found->second = CopyOf(values);
    }
}

}  // namespace qor::viewer
