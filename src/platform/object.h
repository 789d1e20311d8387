// Object: a late-bound object, reached by member name as hosts and server components do. A class of
// this library publishes its members as one table, in the order of its interface (TableObject); a
// component of somebody else answers Object directly.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/error.h"
#include "platform/ref.h"
#include "platform/value.h"

namespace qor {

/// One argument of a late-bound call: a value, or a reference to the caller's variable, in which the
/// callee may leave another value.
class Argument {
 public:
    template <class T>
    requires std::constructible_from<Value, T> &&
        (!std::same_as<std::remove_cvref_t<T>, Argument>)Argument(T&& value)
        : own_(std::forward<T>(value)) {}

    /// Borrows `variable`, which must outlive the call.
    static Argument ByRef(Value& variable) {
        Argument argument;
        argument.variable_ = &variable;
        return argument;
    }
    /// An optional argument that the caller left out.
    static Argument Missing() {
        Argument argument;
        argument.missing_ = true;
        return argument;
    }

    bool IsByRef() const noexcept { return variable_ != nullptr; }
    bool IsMissing() const noexcept { return missing_; }
    /// Whether it is the one for which the callee refused the call.
    bool IsRefused() const noexcept { return refused_; }
    void MarkRefused(bool refused) noexcept { refused_ = refused; }
    Value& operator*() noexcept { return variable_ ? *variable_ : own_; }
    const Value& operator*() const noexcept { return variable_ ? *variable_ : own_; }
    Value* operator->() noexcept { return &**this; }

 private:
    Argument() = default;

    Value own_;
    Value* variable_ = nullptr;
    bool missing_ = false;
    bool refused_ = false;
};

using Arguments = std::span<Argument>;

/// How a member is reached. A put hands the new value as its last argument; PutRef is the put of an object.
enum class InvokeKind : std::uint8_t { Method, Get, Put, PutRef };

/// Names a member of one object for as long as the object lives. Equal for all objects of one class.
using MemberId = std::int32_t;
inline constexpr MemberId kNoMember = -1;

class Object : public RefCounted {
 public:
    virtual std::string_view ClassName() const = 0;

    /// The member of that name, compared without regard to case; kNoMember if there is none.
    virtual MemberId FindMember(std::string_view name) = 0;
    /// The member that stands for the object itself, as `d("key")` reads it; kNoMember if there is none.
    virtual MemberId DefaultMember() { return kNoMember; }
    /// Reads, writes or calls. Raises 438 where the member cannot be reached in that way, 449 and 450 for
    /// a wrong number of arguments, and whatever the member itself raises.
    virtual Value Invoke(MemberId member, InvokeKind kind, Arguments arguments) = 0;

    /// The object that others know this one as: itself, or the object that it stands for.
    virtual Object& Identity() { return *this; }

    // The same by name; an unknown name raises 438.
    Value InvokeByName(std::string_view name, InvokeKind kind, Arguments arguments);
    template <class... A>
    Value Call(std::string_view name, A&&... arguments) {
        return InvokeWith(name, InvokeKind::Method, std::forward<A>(arguments)...);
    }
    template <class... A>
    Value Get(std::string_view name, A&&... arguments) {
        return InvokeWith(name, InvokeKind::Get, std::forward<A>(arguments)...);
    }
    /// Puts the last argument; an object is put by reference.
    template <class... A>
    void Put(std::string_view name, A&&... argumentsAndValue) {
        std::array<Argument, sizeof...(A)> all{Argument(std::forward<A>(argumentsAndValue))...};
        InvokeByName(name, (*all.back()).IsObject() ? InvokeKind::PutRef : InvokeKind::Put, all);
    }

 private:
    template <class... A>
    Value InvokeWith(std::string_view name, InvokeKind kind, A&&... arguments) {
        if constexpr (sizeof...(A) == 0) {
            return InvokeByName(name, kind, {});
        } else {
            std::array<Argument, sizeof...(A)> all{Argument(std::forward<A>(arguments))...};
            return InvokeByName(name, kind, all);
        }
    }
};

/// What a parameter takes. Arguments are converted to it before the member runs.
enum class ParameterType : std::uint8_t { Any, Boolean, Int16, Int32, Text, Object };

struct Parameter {
    std::string_view name{};  // "" ends a member's parameters
    ParameterType type = ParameterType::Any;
    bool byReference = false;
    bool optional = false;
};

/// One row of a class's member table. A property that is read and written has a row for each, side by side.
struct Member {
    std::string_view name;
    InvokeKind kind = InvokeKind::Method;
    Value (*invoke)(Object& self, Arguments arguments) = nullptr;
    ParameterType result = ParameterType::Any;
    std::array<Parameter, 6> parameters{};  // of a put, the last is the new value

    constexpr std::size_t ParameterCount() const {
        std::size_t count = 0;
        while (count < parameters.size() && !parameters[count].name.empty())
            ++count;
        return count;
    }
};

/// A class of this library: its member table is all that late binding and the type library know of it.
class TableObject : public Object {
 public:
    virtual std::span<const Member> Members() const = 0;

    MemberId FindMember(std::string_view name) final;
    Value Invoke(MemberId member, InvokeKind kind, Arguments arguments) final;
};

/// Adapts a member function to a row of a member table.
template <class T, auto Function>
Value Bind(Object& self, Arguments arguments) {
    return (static_cast<T&>(self).*Function)(arguments);
}

/// Case-blind comparison of ASCII letters, as member names and session keys are compared.
bool EqualsIgnoringCase(std::string_view a, std::string_view b) noexcept;

/// The object that a value holds. Raises 91 for no object and 424 for a value that is none.
Object& ObjectIn(const Value& value);

/// The object in `value` as a `T`; nothing where it holds nothing. Raises 13 for an object of another shape.
template <class T>
Ref<T> As(const Value& value) {
    if (value.IsEmpty() || value.IsNothing()) return {};
    if (value.IsObject()) {
        if (T* object = dynamic_cast<T*>(value.object())) return Ref<T>(object);
    }
    Raise(Automation::TypeMismatch);
}

}  // namespace qor
