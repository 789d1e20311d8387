// Value: the one type that crosses every border. It knows its exact width, because a 16-bit and a
// 32-bit integer are different answers to a late-bound host. Sixteen bytes; copying never allocates.
// How one type becomes another is told in conversions.h.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/ref.h"

namespace qor {

class Object;

/// Days since 1899-12-30; the fraction is the time of day.
struct Date {
    double serial = 0;
    friend auto operator<=>(const Date&, const Date&) = default;
};

class Value {
 public:
    enum class Type : std::uint8_t { Empty, Null, Boolean, Int16, Int32, Single, Double, Date, Text, Object };

    Value() noexcept = default;
    template <std::same_as<bool> T>
    Value(T value) noexcept : type_(Type::Boolean) {
        payload_.boolean = value;
    }
    Value(std::int16_t value) noexcept : type_(Type::Int16) { payload_.int16 = value; }
    Value(std::int32_t value) noexcept : type_(Type::Int32) { payload_.int32 = value; }
    Value(float value) noexcept : type_(Type::Single) { payload_.single = value; }
    Value(double value) noexcept : type_(Type::Double) { payload_.number = value; }
    Value(qor::Date value) noexcept : type_(Type::Date) { payload_.number = value.serial; }
    Value(std::string_view text);
    Value(std::string&& text);
    Value(const std::string& text) : Value(std::string_view(text)) {}
    Value(const char* text) : Value(std::string_view(text)) {}

    /// An object; an empty reference gives the value "no object", which is of type Object too.
    Value(Ref<Object> object) noexcept;
    template <std::derived_from<Object> T>
    Value(const Ref<T>& object) noexcept : Value(Ref<Object>(object)) {}

    static Value Null() noexcept;
    static Value Nothing() noexcept;  // the value "no object"

    Value(const Value& other) noexcept : type_(other.type_), payload_(other.payload_) { Hold(); }
    Value(Value&& other) noexcept : type_(other.type_), payload_(other.payload_) {
        other.type_ = Type::Empty;
    }
    Value& operator=(const Value& other) noexcept;
    Value& operator=(Value&& other) noexcept;
    ~Value() { Drop(); }

    Type type() const noexcept { return type_; }
    bool IsEmpty() const noexcept { return type_ == Type::Empty; }
    bool IsNull() const noexcept { return type_ == Type::Null; }
    bool IsText() const noexcept { return type_ == Type::Text; }
    bool IsObject() const noexcept { return type_ == Type::Object; }
    bool IsNothing() const noexcept { return type_ == Type::Object && payload_.object == nullptr; }

    // Exact reads: the type must be the one asked for; converting reads are in conversions.h.
    bool boolean() const noexcept { return payload_.boolean; }
    std::int16_t int16() const noexcept { return payload_.int16; }
    std::int32_t int32() const noexcept { return payload_.int32; }
    float single() const noexcept { return payload_.single; }
    double number() const noexcept { return payload_.number; }  // Double
    Date date() const noexcept { return Date{payload_.number}; }
    const std::string& text() const noexcept { return payload_.text->text; }
    Object* object() const noexcept { return payload_.object; }  // borrowed; null for "no object"

    /// Same type and same content; objects are the same only if they are one object.
    friend bool operator==(const Value& a, const Value& b) noexcept;

 private:
    struct SharedText final : RefCounted {
        explicit SharedText(std::string&& content) : text(std::move(content)) {}
        const std::string text;
    };
    union Payload {
        bool boolean;
        std::int16_t int16;
        std::int32_t int32;
        float single;
        double number = 0;
        const SharedText* text;
        Object* object;
    };

    void Hold() const noexcept;
    void Drop() noexcept;

    Type type_ = Type::Empty;
    Payload payload_;
};

static_assert(sizeof(Value) == 16);

/// The type's name as scripts know it: "Integer" for 16 bits, "Long" for 32 bits, "String", ...
std::string_view TypeName(Value::Type type);

}  // namespace qor
