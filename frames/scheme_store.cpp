#include "frames/scheme_store.h"

#include <algorithm>

namespace qor {

const SchemeBook::Page* SchemeBook::Find(std::int32_t rptID) const {
    const auto found = pages_.find(rptID);
    return found == pages_.end() ? nullptr : &found->second;
}

std::vector<std::string> SchemeBook::Names(std::int32_t rptID) const {
    std::vector<std::string> names;
    if (const Page* page = Find(rptID)) {
        std::ranges::transform(page->schemes, std::back_inserter(names), &Named::name);
    }
    return names;
}

std::string SchemeBook::LastUsed(std::int32_t rptID) const {
    const Page* page = Find(rptID);
    return page ? page->lastUsed : "";
}

std::optional<SavedScheme> SchemeBook::Find(std::int32_t rptID, std::string_view name) const {
    const Page* page = Find(rptID);
    if (!page) return std::nullopt;
    const auto found = std::ranges::find(page->schemes, name, &Named::name);
    return found == page->schemes.end() ? std::nullopt : std::optional(found->scheme);
}

void SchemeBook::Save(std::int32_t rptID, std::string_view name, const SavedScheme& scheme) {
    Page& kept = page(rptID);
    const auto found = std::ranges::find(kept.schemes, name, &Named::name);
    if (found == kept.schemes.end()) {
        kept.schemes.push_back({std::string(name), scheme});
    } else {
        found->scheme = scheme;
    }
    kept.lastUsed = name;
}

bool SchemeBook::MarkUsed(std::int32_t rptID, std::string_view name) {
    if (!Find(rptID, name)) return false;
    page(rptID).lastUsed = name;
    return true;
}

bool SchemeBook::Remove(std::int32_t rptID, std::string_view name) {
    if (!Find(rptID, name)) return false;
    Page& kept = page(rptID);
    std::erase_if(kept.schemes, [name](const Named& each) { return each.name == name; });
    if (kept.schemes.empty()) {
        pages_.erase(rptID);
    } else if (kept.lastUsed == name) {
        kept.lastUsed = kept.schemes.back().name;  // while there are schemes, a dialog starts from one
    }
    return true;
}

}  // namespace qor
