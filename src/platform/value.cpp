#include "platform/value.h"

#include "platform/object.h"

namespace qor {

Value::Value(std::string_view text) : Value(std::string(text)) {}

Value::Value(std::string&& text) {
    payload_.text = new SharedText(std::move(text));
    payload_.text->AddRef();
    type_ = Type::Text;
}

Value::Value(Ref<Object> object) noexcept : type_(Type::Object) { payload_.object = object.Detach(); }

Value Value::Null() noexcept {
    Value value;
    value.type_ = Type::Null;
    return value;
}

Value Value::Nothing() noexcept { return Value(Ref<Object>()); }

Value& Value::operator=(const Value& other) noexcept {
    Value copy(other);
    return *this = std::move(copy);
}

Value& Value::operator=(Value&& other) noexcept {
    std::swap(type_, other.type_);
    std::swap(payload_, other.payload_);
    return *this;
}

void Value::Hold() const noexcept {
    if (type_ == Type::Text) payload_.text->AddRef();
    if (type_ == Type::Object && payload_.object) payload_.object->AddRef();
}

void Value::Drop() noexcept {
    if (type_ == Type::Text) payload_.text->Release();
    if (type_ == Type::Object && payload_.object) payload_.object->Release();
}

bool operator==(const Value& a, const Value& b) noexcept {
    if (a.type_ != b.type_) return false;
    switch (a.type_) {
        case Value::Type::Empty:
        case Value::Type::Null:
            return true;
        case Value::Type::Boolean:
            return a.boolean() == b.boolean();
        case Value::Type::Int16:
            return a.int16() == b.int16();
        case Value::Type::Int32:
            return a.int32() == b.int32();
        case Value::Type::Single:
            return a.single() == b.single();
        case Value::Type::Double:
        case Value::Type::Date:
            return a.payload_.number == b.payload_.number;
        case Value::Type::Text:
            return a.text() == b.text();
        case Value::Type::Object:
            return a.object() == b.object();
    }
    return false;
}

std::string_view TypeName(Value::Type type) {
    switch (type) {
        case Value::Type::Empty:
            return "Empty";
        case Value::Type::Null:
            return "Null";
        case Value::Type::Boolean:
            return "Boolean";
        case Value::Type::Int16:
            return "Integer";
        case Value::Type::Int32:
            return "Long";
        case Value::Type::Single:
            return "Single";
        case Value::Type::Double:
            return "Double";
        case Value::Type::Date:
            return "Date";
        case Value::Type::Text:
            return "String";
        case Value::Type::Object:
            return "Object";
    }
    return "";
}

}  // namespace qor
