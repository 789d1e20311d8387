// The library's shared routines and the automation conversions, by name, as a conversation invokes them.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "process/process.h"

namespace qor::viewer {

struct Routine {
    std::string_view name;
    std::size_t required;
    std::size_t most;
    /// Runs with all required arguments; leaves in the by-reference ones what the routine leaves there.
    Value (*run)(Process& process, std::span<Value> arguments);
    bool byReference = false;  // whether any argument is
};

/// Null for an unknown name.
const Routine* FindRoutine(std::string_view name);

/// Raises 449 for a missing argument, 450 for one too many, and whatever the routine raises.
Value CallRoutine(const Routine& routine, Process& process, std::span<Value> arguments);

}  // namespace qor::viewer
