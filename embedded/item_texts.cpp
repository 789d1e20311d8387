#include "embedded/item_texts.h"

#include <algorithm>

namespace qor {

namespace {
constexpr std::int64_t kSmallIds = 1 << 20;
constexpr std::size_t kMostSharedTexts = 1 << 14;  // beyond, texts hardly come again
}  // namespace

const ItemTexts::Texts& ItemTexts::Read(std::int64_t id) {
    const auto [place, isNew] = known_.try_emplace(id);
    Texts& texts = place->second;
    if (isNew && id != 0 && item_.With(id).Step()) {
        std::string_view number = item_.Text(0);
        if (shortNumbers_) number.remove_prefix(number.rfind('.') + 1);
        texts = {number, item_.Text(1)};
    }
    if (id >= 0 && id < kSmallIds) {
        const auto small = static_cast<std::size_t>(id);
        if (small >= byId_.size()) byId_.resize(std::max(small + 1, byId_.size() * 2));
        byId_[small] = &texts;
    }
    return texts;
}

Value SharedTexts::Share(std::string_view text) {
    const auto found = known_.find(text);
    if (found != known_.end()) return found->second;
    Value value = text;
    if (known_.size() < kMostSharedTexts) known_.emplace(text, value);
    return value;
}

}  // namespace qor
