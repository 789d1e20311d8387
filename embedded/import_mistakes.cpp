#include "embedded/import_mistakes.h"

#include <algorithm>

namespace qor {

std::string ImportMistake::Text() const {
    std::string text = file + ":";
    if (line > 0) text += std::to_string(line) + ":";
    if (!column.empty()) text += " " + column + ":";
    return text + " " + reason;
}

void ImportMistakes::Add(std::string_view file, std::int64_t line, std::string_view column,
                         std::string reason) {
    ++count_;
    if (kept_.size() == kKept) return;
    kept_.push_back({std::string(file), line, std::string(column), std::move(reason)});
}

std::string Shown(std::string_view text) {
    std::string shown(text);
    std::ranges::replace_if(
        shown, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return "\"" + shown + "\"";
}

}  // namespace qor
