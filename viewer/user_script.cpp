#include "viewer/user_script.h"

namespace qor::viewer {

void UserScript::Begin(const Json* entries, std::size_t step) {
    entries_ = entries;
    step_ = step;
    used_.assign(entries ? entries->size() : 0, false);
}

bool UserScript::Play(Form& form, WindowSystem& windows) {
    const Place root, steps = root.Key("steps"), step = steps.Index(step_), user = step.Key("user");
    for (std::size_t i = 0; i < used_.size(); ++i) {
        const Json& entry = (*entries_)[i];
        if (used_[i] || entry["dialog"].get_ref<const std::string&>() != form.ClassName()) continue;
        used_[i] = true;
        const Place at = user.Index(i), actions = at.Key("do");
        for (std::size_t k = 0; k < entry["do"].size(); ++k) {
            const Place place = actions.Index(k);
            Scene scene{form, windows, transcript_, names_, place};
            Perform(scene, entry["do"][k]);
        }
        return true;
    }
    return false;
}

void UserScript::Perform(Scene& scene, const Json& action) {
    // The action's line stands ahead of what it sets off, and says at last whether it was lost.
    const std::size_t line = transcript_.Reserve();
    Json event = {{"dialog", scene.form.ClassName()}, {"action", action}};
    try {
        if (!FindKind(ActionKinds(), action)->run(scene, action)) event["lost"] = true;
    } catch (const Error&) {
        transcript_.Fill(line, "action", event);
        throw;
    }
    transcript_.Fill(line, "action", event);
}

void UserScript::End() {
    for (std::size_t i = 0; i < used_.size(); ++i) {
        if (!used_[i]) transcript_.Add("unused", {{"dialog", (*entries_)[i]["dialog"]}});
    }
    Begin(nullptr, 0);
}

namespace shape {

namespace {

void Actions(FileCheck& check, const Json& json, const Place& place) {
    if (!json.is_array()) throw Mistake(place, "must be an array of actions");
    for (std::size_t i = 0; i < json.size(); ++i) {
        CheckKind(check, ActionKinds(), json[i], place.Index(i), "action");
    }
}

constexpr Key kEntryKeys[] = {{"dialog", Text}, {"do", Actions}};

}  // namespace

void UserEntries(FileCheck& check, const Json& json, const Place& place) {
    if (!json.is_array()) throw Mistake(place, "must be an array with an entry for each dialog");
    for (std::size_t i = 0; i < json.size(); ++i) {
        check.Keys(json[i], place.Index(i), kEntryKeys);
    }
}

}  // namespace shape

}  // namespace qor::viewer
