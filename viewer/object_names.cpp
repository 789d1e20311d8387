#include "viewer/object_names.h"

#include <algorithm>

namespace qor::viewer {

void ObjectNames::Keep(std::string_view name, Value value) {
    const auto found = std::ranges::find(kept_, name, &std::pair<std::string, Value>::first);
    if (found == kept_.end()) {
        kept_.emplace_back(name, std::move(value));
    } else {
        std::swap(found->second, value);
    }
}

void ObjectNames::Drop(std::string_view name) {
    const auto found = std::ranges::find(kept_, name, &std::pair<std::string, Value>::first);
    if (found == kept_.end()) return;
    // The object may end here, and its end must find the list in order.
    const Value last = std::move(found->second);
    kept_.erase(found);
}

Value ObjectNames::Find(std::string_view name) const {
    const auto found = std::ranges::find(kept_, name, &std::pair<std::string, Value>::first);
    return found == kept_.end() ? Value::Nothing() : found->second;
}

std::string_view ObjectNames::NameOf(const Object& object) const {
    const auto found = std::ranges::find_if(
        kept_, [&](const auto& kept) { return kept.second.IsObject() && kept.second.object() == &object; });
    return found == kept_.end() ? std::string_view() : std::string_view(found->first);
}

}  // namespace qor::viewer
