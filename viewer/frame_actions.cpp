#include "viewer/frame_actions.h"

#include <algorithm>

#include "platform/frame_owner.h"
#include "platform/user.h"

namespace qor::viewer {

namespace {

/// A frame's own buttons. Each takes the frame of its sort; null where that sort has no such button.
struct Command {
    std::string_view name;
    std::string_view takes;  // the further key that it needs
    void (*onPlain)(PlainFrame& frame, const std::string& argument);
    void (*onScheme)(SchemeFrame& frame, const std::string& argument);
};

constexpr Command kCommands[] = {
    {"ok", "", nullptr, [](SchemeFrame& f, const std::string&) { f.Confirm(); }},
    {"cancel", "", nullptr, [](SchemeFrame& f, const std::string&) { f.Cancel(); }},
    {"defaults", "", [](PlainFrame& f, const std::string&) { f.ShowDefaults(); },
     [](SchemeFrame& f, const std::string&) { f.ShowDefaults(); }},
    {"save", "name", [](PlainFrame& f, const std::string& name) { f.SaveScheme(name); },
     [](SchemeFrame& f, const std::string& name) { f.SaveScheme(name); }},
    {"load", "name", [](PlainFrame& f, const std::string& name) { f.LoadScheme(name); },
     [](SchemeFrame& f, const std::string& name) { f.LoadSavedScheme(name); }},
    {"delete", "name", [](PlainFrame& f, const std::string& name) { f.DeleteScheme(name); },
     [](SchemeFrame& f, const std::string& name) { f.DeleteScheme(name); }},
    {"panel", "to", nullptr, [](SchemeFrame& f, const std::string& to) { f.SwitchPanel(to == "whole"); }},
};

const Command* FindCommand(std::string_view name) {
    const auto found = std::ranges::find(kCommands, name, &Command::name);
    return found == std::end(kCommands) ? nullptr : &*found;
}

struct FrameOf {
    explicit FrameOf(Form& form) {
        if (auto* owner = dynamic_cast<FrameOwner*>(&form)) {
            plain = owner->plainFrame();
            scheme = owner->schemeFrame();
        }
    }
    bool Has(const Command& command) const {
        return plain ? command.onPlain != nullptr : scheme && command.onScheme;
    }

    PlainFrame* plain = nullptr;
    SchemeFrame* scheme = nullptr;
};

Control* FrameControl(const Form& form) {
    Control* plain = form.Find("QORRptFilter1");
    return plain ? plain : form.Find("QORRptFilter");
}

/// Presses the button on the frame that the dialog has.
void Press(const FrameOf& frame, const Command& command, const std::string& argument) {
    if (frame.plain) {
        command.onPlain(*frame.plain, argument);
    } else {
        command.onScheme(*frame.scheme, argument);
    }
}

}  // namespace

namespace shape {

void FrameCommand(FileCheck& check, const Json& json, const Place& place) {
    Text(check, json, place);
    if (!FindCommand(json.get_ref<const std::string&>())) {
        throw Mistake(place, "must be one of ok, cancel, defaults, save, load, delete and panel");
    }
}

void Panel(FileCheck&, const Json& json, const Place& place) {
    if (json != "common" && json != "whole") throw Mistake(place, "must be \"common\" or \"whole\"");
}

}  // namespace shape

void CheckFrameKeys(const Json& action, const Place& place) {
    const std::string_view takes = FindCommand(TextAt(action, "frame"))->takes;
    for (const std::string_view key : {"name", "to"}) {
        if (key == takes && !action.contains(key)) throw Mistake(place, Quoted(key) + " is missing");
        if (key != takes && action.contains(key)) throw Mistake(place, "unknown key " + Quoted(key));
    }
}

bool PressFrame(Scene& scene, const Json& action) {
    const Command& command = *FindCommand(TextAt(action, "frame"));
    const FrameOf frame(scene.form);
    if (!frame.Has(command)) {
        throw Mistake(scene.place, std::string(scene.form.ClassName()) + " has no frame that takes " +
                                       Quoted(command.name));
    }
    if (!scene.IsOpen()) return false;
    Control* control = FrameControl(scene.form);
    if (control && control->TakesFocus() && !User(scene.form).Focus(*control)) return false;
    const std::string argument = command.takes.empty() ? "" : TextAt(action, command.takes);
    if (command.takes != "name") {
        Press(frame, command, argument);
        return true;
    }
    try {
        Press(frame, command, argument);
    } catch (const Error& error) {
        // A scheme that cannot be saved or is not there is told to the user as the frame's own bar does.
        scene.windows.MessageBox(error.description(), "信息提示", kInformationIcon);
    }
    return true;
}

}  // namespace qor::viewer
