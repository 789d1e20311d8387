#include "frames/scheme_text.h"

#include "platform/conversions.h"

namespace qor {

namespace {

constexpr char kEscape = '\\', kAssign = '=', kNext = ';';

void AppendEscaped(std::string& scheme, std::string_view text) {
    for (const char c : text) {
        if (c == kEscape || c == kAssign || c == kNext) scheme += kEscape;
        scheme += c;
    }
}

std::string MakeItem(std::string_view key, std::string_view value) {
    std::string item;
    AppendEscaped(item, key);
    item += kAssign;
    AppendEscaped(item, value);
    return item;
}

/// Takes the head of `rest` up to a bare `mark` or the end, without its escapes, and the mark with it.
std::string TakeUpTo(char mark, std::string_view& rest) {
    std::string text;
    std::size_t i = 0;
    for (; i < rest.size() && rest[i] != mark; ++i) {
        if (rest[i] == kEscape && i + 1 < rest.size()) ++i;
        text += rest[i];
    }
    rest.remove_prefix(i < rest.size() ? i + 1 : i);
    return text;
}

struct Item {
    std::string key, value;
    std::size_t begin, end;  // where it stands in the text, its ";" excluded
};

/// Walks the items until `take` answers true.
template <class Take>
void ForEachItem(std::string_view scheme, Take&& take) {
    std::string_view rest = scheme;
    while (!rest.empty()) {
        Item item;
        item.begin = scheme.size() - rest.size();
        item.key = TakeUpTo(kAssign, rest);
        item.value = TakeUpTo(kNext, rest);
        item.end = scheme.size() - rest.size() - (rest.empty() ? 0 : 1);
        if (take(item)) return;
    }
}

std::string TextOf(const Value& value) { return value.IsNull() ? "" : ToText(value); }

}  // namespace

std::string FindInSchemeText(std::string_view scheme, std::string_view key) {
    std::string value;
    ForEachItem(scheme, [&](Item& item) {
        if (item.key != key) return false;
        value = std::move(item.value);
        return true;
    });
    return value;
}

void PutIntoSchemeText(std::string& scheme, std::string_view key, std::string_view value) {
    bool replaced = false;
    const std::string fresh = MakeItem(key, value);
    ForEachItem(scheme, [&](const Item& item) {
        if (item.key != key) return false;
        scheme.replace(item.begin, item.end - item.begin, fresh);
        return replaced = true;
    });
    if (replaced) return;
    if (!scheme.empty()) scheme += kNext;
    scheme += fresh;
}

SavedScheme ParseSchemeText(std::string_view scheme) {
    SavedScheme items;
    ForEachItem(scheme, [&](Item& item) {
        items.push_back({std::move(item.key), Value(std::move(item.value))});
        return false;
    });
    return items;
}

std::string MakeSchemeText(const SavedScheme& scheme) {
    std::string text;
    for (const SchemeItem& item : scheme) {
        PutIntoSchemeText(text, item.key, TextOf(item.value));
    }
    return text;
}

}  // namespace qor
