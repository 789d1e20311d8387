#include "frames/scheme_file.h"

#include <algorithm>

#include "frames/value_json.h"
#include "platform/conversions.h"
#include "platform/error.h"

namespace qor {

namespace {

OrderedJson SchemeToJson(const SavedScheme& scheme) {
    OrderedJson items = OrderedJson::object();
    for (const SchemeItem& item : scheme) {
        if (item.value.IsObject()) {
            throw Error(static_cast<std::int32_t>(Automation::TypeMismatch), std::string(kLibraryName),
                        "过滤方案的项“" + item.key + "”是对象，不能保存。");
        }
        items[item.key] = PlainValueToJson(item.value);
    }
    return items;
}

OrderedJson PageToJson(const SchemeBook::Page& page) {
    OrderedJson schemes = OrderedJson::object();
    for (const SchemeBook::Named& each : page.schemes) {
        schemes[each.name] = SchemeToJson(each.scheme);
    }
    return {{"lastUsed", page.lastUsed}, {"schemes", std::move(schemes)}};
}

SavedScheme SchemeFromJson(const OrderedJson& json) {
    SavedScheme scheme;
    for (const auto& [key, value] : json.get_ref<const OrderedJson::object_t&>()) {
        scheme.push_back({key, PlainValueFromJson(value)});
    }
    return scheme;
}

void PageFromJson(const OrderedJson& json, SchemeBook::Page& page) {
    page.lastUsed = json.at("lastUsed").get<std::string>();
    for (const auto& [name, scheme] : json.at("schemes").get_ref<const OrderedJson::object_t&>()) {
        page.schemes.push_back({name, SchemeFromJson(scheme)});
    }
    if (std::ranges::find(page.schemes, page.lastUsed, &SchemeBook::Named::name) == page.schemes.end()) {
        page.lastUsed.clear();
    }
}

std::int32_t NumberFromKey(std::string_view key) {
    const std::int32_t number = ToInt32(key);
    if (std::to_string(number) != key) Raise(Automation::TypeMismatch);
    return number;
}

SchemeBook BookFromJson(const OrderedJson& json) {
    SchemeBook book;
    for (const auto& [number, page] : json.at("reports").get_ref<const OrderedJson::object_t&>()) {
        PageFromJson(page, book.page(NumberFromKey(number)));
    }
    return book;
}

}  // namespace

std::string WriteSchemeFile(const SchemeBook& book) {
    try {
        OrderedJson reports = OrderedJson::object();
        for (const auto& [number, page] : book.pages()) {
            reports[std::to_string(number)] = PageToJson(page);
        }
        return OrderedJson{{"version", kSchemeFileVersion}, {"reports", std::move(reports)}}.dump(2) + "\n";
    } catch (const OrderedJson::exception&) {
        throw Error(static_cast<std::int32_t>(Automation::InvalidCall), std::string(kLibraryName),
                    "过滤方案含有不能保存的字符。");
    }
}

SchemeFileReading ReadSchemeFile(std::string_view text) {
    try {
        const OrderedJson json = OrderedJson::parse(text);
        const OrderedJson& version = json.at("version");
        if (version.is_number() && version.get<double>() > kSchemeFileVersion)
            return {.laterVersion = version.dump()};
        if (version != kSchemeFileVersion) return {};
        return {.book = BookFromJson(json)};
    } catch (const OrderedJson::exception&) {
        return {};
    } catch (const Error&) {
        return {};
    }
}

}  // namespace qor
