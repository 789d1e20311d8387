#include "viewer/json_values.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "platform/conversions.h"
#include "platform/dictionary.h"
#include "platform/vector.h"
#include "viewer/readable_object.h"

namespace qor::viewer {

namespace {

Value ReadInt16(const Json& json, const Place& place, const References&) {
    const std::int32_t number = ReadInteger(json, place);
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max()) {
        throw Mistake(place, "does not fit into 16 bits");
    }
    return static_cast<std::int16_t>(number);
}

Value ReadDouble(const Json& json, const Place& place, const References&) {
    if (!json.is_number()) throw Mistake(place, "must be a number");
    return json.get<double>();
}

Value ReadDateValue(const Json& json, const Place& place, const References&) {
    return ReadDate(json, place, true);
}

void ExpectTrue(const Json& json, const Place& place) {
    if (json != true) throw Mistake(place, "must be true");
}

Value ReadEmpty(const Json& json, const Place& place, const References&) {
    ExpectTrue(json, place);
    return {};
}

Value ReadNothing(const Json& json, const Place& place, const References&) {
    ExpectTrue(json, place);
    return Value::Nothing();
}

void ExpectObject(const Json& json, const Place& place) {
    if (!json.is_object()) throw Mistake(place, "must be an object");
}

void ExpectArray(const Json& json, const Place& place) {
    if (!json.is_array()) throw Mistake(place, "must be an array");
}

Value ReadDictionary(const Json& json, const Place& place, const References& references) {
    ExpectObject(json, place);
    const auto dictionary = MakeRef<OrderedDictionary>();
    for (const auto& [key, entry] : json.items()) {
        dictionary->Put(key, ReadValue(entry, place.Key(key), references));
    }
    return dictionary;
}

Value ReadVector(const Json& json, const Place& place, const References& references) {
    ExpectArray(json, place);
    const auto vector = MakeRef<ArrayVector>();
    for (std::size_t i = 0; i < json.size(); ++i) {
        vector->Add(ReadValue(json[i], place.Index(i), references));
    }
    return vector;
}

Value ReadReference(const Json& json, const Place& place, const References& references) {
    if (!json.is_string()) throw Mistake(place, "must be the name of a kept object");
    return references.Resolve(json.get_ref<const std::string&>(), place);
}

struct Marked {
    std::string_view key;
    Value (*read)(const Json& json, const Place& place, const References& references);
};

constexpr Marked kMarked[] = {
    {"$double", ReadDouble},
    {"$int16", ReadInt16},
    {"$date", ReadDateValue},
    {"$empty", ReadEmpty},
    {"$nothing", ReadNothing},
    {"$dictionary", ReadDictionary},
    {"$vector", ReadVector},
    {"$object",
     [](const Json& j, const Place& p, const References& r) -> Value { return ReadObject(j, p, r); }},
    {"$recordset",
     [](const Json& j, const Place& p, const References& r) -> Value { return ReadRecordSet(j, p, r); }},
    {"$ref", ReadReference},
};

Value ReadMarked(const Json& json, const Place& place, const References& references) {
    if (json.size() != 1) throw Mistake(place, "must have one key, such as \"$date\"");
    const std::string& key = json.begin().key();
    for (const Marked& marked : kMarked) {
        if (marked.key == key) return marked.read(json.begin().value(), place.Key(key), references);
    }
    throw Mistake(place, "unknown kind of value " + Quoted(key));
}

/// The digits of `text` from `from` on as a number, or -1 where a character is none.
int Digits(std::string_view text, std::size_t from, std::size_t count) {
    int number = 0;
    for (const char c : text.substr(from, count)) {
        if (c < '0' || c > '9') return -1;
        number = number * 10 + (c - '0');
    }
    return number;
}

/// The part of a day that "hh:mm:ss" is, or -1 where it is no time.
double TimeOfDay(std::string_view text) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':') return -1;
    const int hour = Digits(text, 0, 2), minute = Digits(text, 3, 2), second = Digits(text, 6, 2);
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return -1;
    return (hour * 3600 + minute * 60 + second) / 86400.0;
}

}  // namespace

std::int32_t ReadInteger(const Json& json, const Place& place) {
    if (!json.is_number_integer()) throw Mistake(place, "must be a whole number");
    const bool fits =
        json.is_number_unsigned()
            ? json.get<std::uint64_t>() <= std::uint64_t{std::numeric_limits<std::int32_t>::max()}
            : json.get<std::int64_t>() >= std::numeric_limits<std::int32_t>::min() &&
                  json.get<std::int64_t>() <= std::numeric_limits<std::int32_t>::max();
    if (!fits) throw Mistake(place, "does not fit into 32 bits; a double is written {\"$double\": ...}");
    return json.get<std::int32_t>();
}

Date ReadDate(const Json& json, const Place& place, bool withTime) {
    const std::string expected = withTime ? "must be a date, \"YYYY-MM-DD\" or \"YYYY-MM-DD hh:mm:ss\""
                                          : "must be a date, \"YYYY-MM-DD\"";
    if (!json.is_string()) throw Mistake(place, expected);
    const std::string_view text = json.get_ref<const std::string&>();
    if (text.size() < 10 || text[4] != '-' || text[7] != '-') throw Mistake(place, expected);
    const int year = Digits(text, 0, 4), month = Digits(text, 5, 2), day = Digits(text, 8, 2);
    const std::optional<Date> date =
        year < 0 || month < 0 || day < 0 ? std::nullopt : DateFromCalendar(year, month, day);
    if (!date) throw Mistake(place, expected);
    if (text.size() == 10) return *date;
    const double time = withTime && text[10] == ' ' ? TimeOfDay(text.substr(11)) : -1;
    if (time < 0) throw Mistake(place, expected);
    // Before the first day of the count, the time of day is counted away from zero.
    return Date{date->serial < 0 ? date->serial - time : date->serial + time};
}

Ref<RecordSet> ReadRecordSet(const Json& body, const Place& place, const References& references) {
    ExpectObject(body, place);
    for (const auto& [key, part] : body.items()) {
        if (key != "fields" && key != "rows") throw Mistake(place, "unknown key " + Quoted(key));
        ExpectArray(part, place.Key(key));
    }
    if (!body.contains("fields")) throw Mistake(place, "\"fields\" is missing");
    const Place fieldsPlace = place.Key("fields"), rowsPlace = place.Key("rows");

    std::vector<std::string> fields;
    for (const Json& field : body["fields"]) {
        if (!field.is_string()) throw Mistake(fieldsPlace.Index(fields.size()), "must be a field's name");
        fields.push_back(field.get<std::string>());
    }
    const std::size_t width = fields.size();
    auto set = MakeRef<ColumnarRecordSet>(std::move(fields));
    if (!body.contains("rows")) return set;
    const Json& rows = body["rows"];
    set->Reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Place rowPlace = rowsPlace.Index(i);
        ExpectArray(rows[i], rowPlace);
        if (rows[i].size() != width) {
            throw Mistake(rowPlace,
                          "must have one value for each of the " + std::to_string(width) + " fields");
        }
        for (std::size_t column = 0; column < width; ++column) {
            set->AddCell(column, ReadValue(rows[i][column], rowPlace.Index(column), references));
        }
    }
    return set;
}

Ref<Object> ReadObject(const Json& members, const Place& place, const References& references) {
    ExpectObject(members, place);
    auto object = MakeRef<ReadableObject>();
    for (const auto& [name, member] : members.items()) {
        object->AddMember(name, ReadValue(member, place.Key(name), references));
    }
    return object;
}

Value ReadValue(const Json& json, const Place& place, const References& references) {
    switch (json.type()) {
        case Json::value_t::string:
            return json.get_ref<const std::string&>();
        case Json::value_t::boolean:
            return json.get<bool>();
        case Json::value_t::null:
            return Value::Null();
        case Json::value_t::number_integer:
        case Json::value_t::number_unsigned:
            return ReadInteger(json, place);
        case Json::value_t::number_float:
            return json.get<double>();
        case Json::value_t::object:
            return ReadMarked(json, place, references);
        default:
            throw Mistake(place, "must be a value; a list is written {\"$vector\": [...]}");
    }
}

namespace {

Json WriteDouble(double number) {
    if (number != std::trunc(number)) return number;
    // A whole number would read back as an integer.
    const bool shortInteger = std::abs(number) < 1e15 && !(number == 0 && std::signbit(number));
    return {{"$double", shortInteger ? Json(static_cast<std::int64_t>(number)) : Json(number)}};
}

class ValueWriter {
 public:
    explicit ValueWriter(const ObjectNames& names) : names_(names) {}

    Json Write(const Value& value) {
        switch (value.type()) {
            case Value::Type::Empty:
                return {{"$empty", true}};
            case Value::Type::Null:
                return nullptr;
            case Value::Type::Boolean:
                return value.boolean();
            case Value::Type::Int16:
                return {{"$int16", value.int16()}};
            case Value::Type::Int32:
                return value.int32();
            case Value::Type::Single:
                return WriteDouble(static_cast<double>(value.single()));
            case Value::Type::Double:
                return WriteDouble(value.number());
            case Value::Type::Date:
                return {{"$date", ToText(value)}};
            case Value::Type::Text:
                return value.text();
            case Value::Type::Object:
                break;
        }
        if (value.IsNothing()) return {{"$nothing", true}};
        return WriteObject(value.object()->Identity());
    }

 private:
    Json WriteObject(Object& object) {
        if (std::ranges::find(open_, &object) != open_.end()) return {{"$again", true}};
        open_.push_back(&object);
        const Ref<Object> reading = names_.Reading(object);
        Json json = WriteWhole(*reading);
        open_.pop_back();
        return json.is_null() ? WriteByName(object, reading->ClassName()) : json;
    }

    /// Null for an object that is not written out.
    Json WriteWhole(Object& object) {
        if (const auto* dictionary = dynamic_cast<const Dictionary*>(&object))
            return WriteDictionary(*dictionary);
        if (const auto* vector = dynamic_cast<const Vector*>(&object)) return WriteVector(*vector);
        if (const auto* rows = dynamic_cast<const ColumnarRecordSet*>(&object)) return WriteRows(*rows);
        return nullptr;
    }

    Json WriteDictionary(const Dictionary& dictionary) {
        Json entries = Json::object();
        for (std::size_t i = 0; i < dictionary.Count(); ++i) {
            const std::string key = dictionary.KeyAt(i);
            entries.push_back({key, Write(dictionary.Get(key))});
        }
        return {{"$dictionary", std::move(entries)}};
    }

    Json WriteVector(const Vector& vector) {
        Json items = Json::array();
        for (std::int32_t i = 1; i <= vector.Count(); ++i) {
            items.push_back(Write(vector.Item(i)));
        }
        return {{"$vector", std::move(items)}};
    }

    Json WriteRows(const ColumnarRecordSet& set) {
        Json fields = Json::array(), rows = Json::array();
        for (std::size_t column = 0; column < set.FieldCount(); ++column) {
            fields.push_back(set.FieldName(column));
        }
        for (std::size_t row = 0; row < static_cast<std::size_t>(set.RowCount()); ++row) {
            Json cells = Json::array();
            for (std::size_t column = 0; column < set.FieldCount(); ++column) {
                cells.push_back(Write(set.Cell(row, column)));
            }
            rows.push_back(std::move(cells));
        }
        return {{"$recordset", {{"fields", std::move(fields)}, {"rows", std::move(rows)}}}};
    }

    Json WriteByName(const Object& object, std::string_view className) {
        if (const std::string_view name = names_.NameOf(object); !name.empty()) return {{"$ref", name}};
        return {{className.starts_with("Rpt") ? "$report" : "$object", className}};
    }

    const ObjectNames& names_;
    std::vector<const Object*> open_;  // the objects that are being written, from the outermost in
};

}  // namespace

Json WriteValue(const Value& value, const ObjectNames& names) { return ValueWriter(names).Write(value); }

}  // namespace qor::viewer
