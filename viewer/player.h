// Player: plays the steps of a conversation against the library, in a process of its own.
#pragma once

#include "viewer/steps.h"

namespace qor::viewer {

class Player {
 public:
    /// Borrows a checked file, and the transcript.
    Player(const Json& file, Transcript& transcript);
    /// Ends the conversation: what still stands goes without being recorded.
    ~Player();

    /// Raises a Mistake where a dialog has no such control as the file names.
    void Play();

 private:
    void PlayStep(std::size_t index, const Json& step);
    /// Runs the step under its user's script; the script ends with the step, whatever becomes of it.
    std::optional<StepResult> RunStep(std::size_t index, const Json& step);
    void WriteResult(std::size_t index, const StepResult& result);

    const Json& file_;
    Transcript& transcript_;
    ObjectNames names_;
    UserScript script_;
    Surroundings surroundings_;
    Process process_;
};

}  // namespace qor::viewer
