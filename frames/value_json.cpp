#include "frames/value_json.h"

#include <cmath>
#include <limits>
#include <string>

#include "platform/conversions.h"
#include "platform/error.h"

namespace qor {

namespace {

OrderedJson Tagged(const char* tag, OrderedJson content) {
    OrderedJson tagged = OrderedJson::object();
    tagged[tag] = std::move(content);
    return tagged;
}

/// JSON has no word for these, and they come out of divisions.
OrderedJson NumberToJson(double number) {
    if (std::isnan(number)) return "nan";
    if (std::isinf(number)) return number > 0 ? "inf" : "-inf";
    return number;
}

double NumberFromJson(const OrderedJson& json) {
    if (json.is_number()) return json.get<double>();
    if (json == "nan") return std::numeric_limits<double>::quiet_NaN();
    if (json == "inf") return std::numeric_limits<double>::infinity();
    if (json == "-inf") return -std::numeric_limits<double>::infinity();
    Raise(Automation::TypeMismatch);
}

OrderedJson DoubleToJson(double number) {
    // A whole number without its type would come back as an integer.
    const bool speaksForItself = std::isfinite(number) && number != std::trunc(number);
    return speaksForItself ? OrderedJson(number) : Tagged("$double", NumberToJson(number));
}

/// Dates are written to be read by people, unless that would lose part of a second.
OrderedJson DateToJson(Date date) {
    std::string text;
    Date back;
    constexpr double kBeyondTheCalendar = 3e6;
    const bool isReadable = std::abs(date.serial) < kBeyondTheCalendar &&
                            IgnoringErrors([&] { back = ToDate(text = ToText(date)); });
    return isReadable && back == date ? Tagged("$date", text) : Tagged("$serial", NumberToJson(date.serial));
}

template <class Integer>
Integer IntegerFromJson(const OrderedJson& json) {
    if (!json.is_number_integer()) Raise(Automation::TypeMismatch);
    // Read as a double first: that holds every integer that fits, and no other one looks like it.
    const auto number = json.get<double>();
    if (number < std::numeric_limits<Integer>::min() || number > std::numeric_limits<Integer>::max()) {
        Raise(Automation::Overflow);
    }
    return static_cast<Integer>(number);
}

Value FromTagged(const std::string& tag, const OrderedJson& content) {
    if (tag == "$int16") return IntegerFromJson<std::int16_t>(content);
    if (tag == "$double") return NumberFromJson(content);
    if (tag == "$single") return static_cast<float>(NumberFromJson(content));
    if (tag == "$date" && content.is_string()) return ToDate(content.get<std::string>());
    if (tag == "$serial") return Date{NumberFromJson(content)};
    if (tag == "$empty") return {};
    Raise(Automation::TypeMismatch);
}

}  // namespace

OrderedJson PlainValueToJson(const Value& value) {
    switch (value.type()) {
        case Value::Type::Empty:
            return Tagged("$empty", true);
        case Value::Type::Null:
            return nullptr;
        case Value::Type::Boolean:
            return value.boolean();
        case Value::Type::Int16:
            return Tagged("$int16", value.int16());
        case Value::Type::Int32:
            return value.int32();
        case Value::Type::Single:
            return Tagged("$single", NumberToJson(static_cast<double>(value.single())));
        case Value::Type::Double:
            return DoubleToJson(value.number());
        case Value::Type::Date:
            return DateToJson(value.date());
        case Value::Type::Text:
            return value.text();
        case Value::Type::Object:
            break;
    }
    Raise(Automation::TypeMismatch);
}

Value PlainValueFromJson(const OrderedJson& json) {
    if (json.is_null()) return Value::Null();
    if (json.is_boolean()) return json.get<bool>();
    if (json.is_string()) return json.get<std::string>();
    if (json.is_number_float()) return json.get<double>();
    if (json.is_number()) return IntegerFromJson<std::int32_t>(json);
    if (json.is_object() && json.size() == 1) return FromTagged(json.begin().key(), json.begin().value());
    Raise(Automation::TypeMismatch);
}

}  // namespace qor
