// Statements about errors: which number a step raises.
#pragma once

#include <optional>
#include <ostream>
#include <utility>

#include "platform/error.h"

namespace qor::test {

/// The error that `step` raises; nothing where it runs to its end.
template <class Step>
std::optional<Error> ErrorOf(Step&& step) {
    try {
        std::forward<Step>(step)();
        return std::nullopt;
    } catch (const Error& error) {
        return error;
    }
}

/// The number of the error that `step` raises, 0 for none: `EXPECT_EQ(RaisedBy([&]{ ... }),
/// Automation::Overflow)`.
template <class Step>
Automation RaisedBy(Step&& step) {
    const auto error = ErrorOf(std::forward<Step>(step));
    return static_cast<Automation>(error ? error->number() : 0);
}

/// No error at all, to compare with RaisedBy.
inline constexpr Automation kNoError{};

}  // namespace qor::test

namespace qor {

inline void PrintTo(Automation error, std::ostream* out) { *out << static_cast<std::int32_t>(error); }

}  // namespace qor
