#include "embedded/item_texts.h"

namespace qor {

namespace {
constexpr std::size_t kMostSharedTexts = 1 << 14;  // beyond, texts hardly come again
}

const ItemTexts::Texts& ItemTexts::Of(std::int64_t id) {
    const auto [place, isNew] = known_.try_emplace(id);
    if (!isNew || id == 0) return place->second;
    if (item_.With(id).Step()) {
        std::string_view number = item_.Text(0);
        if (shortNumbers_) number.remove_prefix(number.rfind('.') + 1);
        place->second = {number, item_.Text(1)};
    }
    return place->second;
}

Value SharedTexts::Share(std::string_view text) {
    const auto found = known_.find(text);
    if (found != known_.end()) return found->second;
    Value value = text;
    if (known_.size() < kMostSharedTexts) known_.emplace(text, value);
    return value;
}

}  // namespace qor
