#include "viewer/player.h"

#include "viewer/json_values.h"

namespace qor::viewer {

Player::Player(const Json& file, Transcript& transcript)
    : file_(file),
      transcript_(transcript),
      script_(transcript, names_),
      surroundings_(transcript, script_, names_),
      process_(surroundings_) {
    surroundings_.SetUp(file);
    surroundings_.Serve(process_);
}

Player::~Player() {
    transcript_.Close();
    names_.DropAll();
}

void Player::Play() {
    const Json& steps = file_["steps"];
    for (std::size_t i = 0; i < steps.size(); ++i) {
        PlayStep(i, steps[i]);
    }
}

void Player::PlayStep(std::size_t index, const Json& step) {
    transcript_.Add("step", {{"index", index}, {"step", step}});
    try {
        std::optional<StepResult> result = RunStep(index, step);
        if (!result) return;
        WriteResult(index, *result);
        if (step.contains("as")) names_.Keep(TextAt(step, "as"), std::move(result->value));
    } catch (const Error& error) {
        transcript_.Add("error", {{"index", index},
                                  {"number", error.number()},
                                  {"source", error.source()},
                                  {"description", error.description()}});
    }
}

std::optional<StepResult> Player::RunStep(std::size_t index, const Json& step) {
    const auto user = step.find("user");
    script_.Begin(user == step.end() ? nullptr : &*user, index);
    Stage stage{names_, surroundings_, process_};
    try {
        std::optional<StepResult> result = FindKind(StepKinds(), step)->run(stage, step);
        script_.End();
        return result;
    } catch (const Error&) {
        script_.End();
        throw;
    }
}

void Player::WriteResult(std::size_t index, const StepResult& result) {
    Json line = {{"index", index}, {"value", WriteValue(result.value, names_)}};
    if (result.arguments) {
        line["args"] = Json::array();
        for (const Value& argument : *result.arguments) {
            line["args"].push_back(WriteValue(argument, names_));
        }
    }
    transcript_.Add("result", line);
}

}  // namespace qor::viewer
