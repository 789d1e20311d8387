// Rows for the member tables of the progress trio: calls without an argument, with a number, with a text.
#pragma once

#include "platform/object.h"

namespace qor::progress {

template <class T, void (T::*Function)()>
constexpr Member PlainCall(std::string_view name) {
    return {.name = name, .invoke = [](Object& self, Arguments) {
                (static_cast<T&>(self).*Function)();
                return Value();
            }};
}

template <class T, void (T::*Function)(std::int32_t)>
constexpr Member NumberCall(std::string_view name) {
    return {.name = name,
            .invoke =
                [](Object& self, Arguments arguments) {
                    (static_cast<T&>(self).*Function)(arguments[0]->int32());
                    return Value();
                },
            .parameters = {{{"value", ParameterType::Int32}}}};
}

template <class T, void (T::*Function)(std::string_view)>
constexpr Member TextCall(std::string_view name) {
    return {.name = name,
            .invoke =
                [](Object& self, Arguments arguments) {
                    (static_cast<T&>(self).*Function)(arguments[0]->text());
                    return Value();
                },
            .parameters = {{{"text", ParameterType::Text}}}};
}

}  // namespace qor::progress
