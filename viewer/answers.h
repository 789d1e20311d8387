// Answer: what a member of a scripted server component answers, as a conversation describes it.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/object.h"
#include "viewer/json.h"
#include "viewer/object_names.h"

namespace qor::viewer {

/// Raises a Mistake where `json` is no answer.
void CheckAnswer(const Json& json, const Place& place, const References& references);

class Answer {
 public:
    /// Borrows `json`, a checked answer.
    explicit Answer(const Json& json);

    /// Answers a call: leaves values in its by-reference arguments, and returns or raises. Nothing where none
    /// of its cases fits the arguments.
    std::optional<Value> Give(Arguments arguments, const ObjectNames& names);

 private:
    Answer* Choose(Arguments arguments, const ObjectNames& names);
    void LeaveArguments(Arguments arguments, const ObjectNames& names) const;

    const Json& json_;
    std::vector<std::unique_ptr<Answer>> sequence_;
    std::size_t next_ = 0;  // of the sequence
    std::vector<std::pair<const Json*, std::unique_ptr<Answer>>>
        cases_;  // leading arguments and their answer
    std::unique_ptr<Answer> otherwise_;
};

}  // namespace qor::viewer
