// The steps of a conversation: what a host does with a report, one row a step.
#pragma once

#include <optional>
#include <span>

#include "process/process.h"
#include "viewer/file_check.h"
#include "viewer/surroundings.h"

namespace qor::viewer {

/// What steps work on.
struct Stage {
    ObjectNames& names;
    Surroundings& surroundings;
    Process& process;
};

struct StepResult {
    Value value;
    /// All arguments as they stand after the call; nothing where none is by reference.
    std::optional<std::vector<Value>> arguments{};
};

/// Runs a checked step. Nothing for a step that has no value. Raises what the step itself raises.
using StepRun = std::optional<StepResult> (*)(Stage& stage, const Json& step);

std::span<const Kind<StepRun>> StepKinds();

}  // namespace qor::viewer
