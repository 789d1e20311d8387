#include <string>

#include "platform/user.h"
#include "viewer/control_dump.h"
#include "viewer/frame_actions.h"
#include "viewer/json_values.h"
#include "viewer/user_script.h"

namespace qor::viewer {

namespace {

std::int32_t NumberAt(const Json& action, std::string_view key) {
    return action.find(key)->get<std::int32_t>();
}

Control& FindControl(const Scene& scene, const std::string& name) {
    if (Control* control = scene.form.Find(name)) return *control;
    throw Mistake(scene.place, std::string(scene.form.ClassName()) + " has no control " + Quoted(name));
}

/// The control of an action as its own kind.
template <class T>
T& ControlOf(const Scene& scene, const Json& action, std::string_view verb, Control::Kind kind) {
    Control& control = FindControl(scene, TextAt(action, verb));
    if (control.kind() == kind) return static_cast<T&>(control);
    throw Mistake(scene.place, Quoted(control.name()) + " is a control of the kind \"" +
                                   std::string(KindName(control.kind())) + "\"; \"" + std::string(verb) +
                                   "\" takes one of the kind \"" + std::string(KindName(kind)) + "\"");
}

bool SetText(Scene& scene, const Json& action) {
    auto& box = ControlOf<TextBox>(scene, action, "text", Control::Kind::Text);
    return scene.IsOpen() && User(scene.form).Text(box, TextAt(action, "to"));
}

bool TypeCharacters(Scene& scene, const Json& action) {
    return scene.IsOpen() &&
           User(scene.form).Type(FindControl(scene, TextAt(action, "type")), TextAt(action, "characters"));
}

bool PressKey(Scene& scene, const Json& action) {
    return scene.IsOpen() &&
           User(scene.form).Key(FindControl(scene, TextAt(action, "key")), NumberAt(action, "code"));
}

bool SetCheck(Scene& scene, const Json& action) {
    auto& box = ControlOf<CheckBox>(scene, action, "check", Control::Kind::Check);
    return scene.IsOpen() && User(scene.form).Check(box, static_cast<std::int16_t>(NumberAt(action, "to")));
}

bool PickOption(Scene& scene, const Json& action) {
    return scene.IsOpen() &&
           User(scene.form).Option(ControlOf<OptionButton>(scene, action, "option", Control::Kind::Option));
}

/// An entry that the list does not show cannot be picked.
bool SelectEntry(Scene& scene, const Json& action) {
    auto& list = ControlOf<DropDown>(scene, action, "select", Control::Kind::List);
    const std::int32_t index = NumberAt(action, "to");
    User user(scene.form);
    if (!scene.IsOpen() || !user.Focus(list) || index < 0 ||
        static_cast<std::size_t>(index) >= list.items().size())
        return false;
    return user.Select(list, index);
}

/// A day outside the picker's range cannot be picked.
bool PickDate(Scene& scene, const Json& action) {
    auto& picker = ControlOf<DatePicker>(scene, action, "date", Control::Kind::Date);
    const Date date = ReadDate(*action.find("to"), {}, false);
    User user(scene.form);
    if (!scene.IsOpen() || !user.Focus(picker) || date < picker.minDate() || date > picker.maxDate())
        return false;
    return user.Date(picker, date);
}

bool MoveFocus(Scene& scene, const Json& action) {
    return scene.IsOpen() && User(scene.form).Focus(FindControl(scene, TextAt(action, "focus")));
}

bool MoveSpin(Scene& scene, const Json& action) {
    auto& spin = ControlOf<Spin>(scene, action, "spin", Control::Kind::Spin);
    return scene.IsOpen() && User(scene.form).Spin(spin, NumberAt(action, "to"));
}

bool ClickButton(Scene& scene, const Json& action) {
    return scene.IsOpen() &&
           User(scene.form).Click(ControlOf<Button>(scene, action, "click", Control::Kind::Button));
}

bool EditCell(Scene& scene, const Json& action) {
    auto& grid = ControlOf<Grid>(scene, action, "cell", Control::Kind::Grid);
    return scene.IsOpen() &&
           User(scene.form)
               .Cell(grid, NumberAt(action, "row"), NumberAt(action, "column"), TextAt(action, "text"));
}

bool GoToRow(Scene& scene, const Json& action) {
    auto& grid = ControlOf<Grid>(scene, action, "row", Control::Kind::Grid);
    return scene.IsOpen() && User(scene.form).Row(grid, NumberAt(action, "to"));
}

bool ActivateAgain(Scene& scene, const Json&) {
    if (!scene.IsOpen()) return false;
    scene.form.Activate();
    return true;
}

bool DumpControls(Scene& scene, const Json&) {
    scene.transcript.Add("controls", DumpForm(scene.form, scene.names));
    return true;
}

using shape::Text;

constexpr Key kTextKeys[] = {{"text", Text}, {"to", Text}};
constexpr Key kTypeKeys[] = {{"type", Text}, {"characters", Text}};
constexpr Key kKeyKeys[] = {{"key", Text}, {"code", shape::Integer}};
constexpr Key kCheckKeys[] = {{"check", Text}, {"to", shape::ZeroOrOne}};
constexpr Key kOptionKeys[] = {{"option", Text}};
constexpr Key kSelectKeys[] = {{"select", Text}, {"to", shape::Integer}};
constexpr Key kDateKeys[] = {{"date", Text}, {"to", shape::Day}};
constexpr Key kFocusKeys[] = {{"focus", Text}};
constexpr Key kSpinKeys[] = {{"spin", Text}, {"to", shape::Integer}};
constexpr Key kCellKeys[] = {
    {"cell", Text}, {"row", shape::Integer}, {"column", shape::Integer}, {"text", Text}};
constexpr Key kRowKeys[] = {{"row", Text}, {"to", shape::Integer}};
constexpr Key kClickKeys[] = {{"click", Text}};
constexpr Key kActivateKeys[] = {{"activate", shape::True}};
constexpr Key kDumpKeys[] = {{"dump", shape::True}};

constexpr Kind<ActionRun> kActionKinds[] = {
    {"cell", kCellKeys, EditCell},  // ahead of the verbs that are keys of it
    {"text", kTextKeys, SetText},
    {"type", kTypeKeys, TypeCharacters},
    {"key", kKeyKeys, PressKey},
    {"check", kCheckKeys, SetCheck},
    {"option", kOptionKeys, PickOption},
    {"select", kSelectKeys, SelectEntry},
    {"date", kDateKeys, PickDate},
    {"focus", kFocusKeys, MoveFocus},
    {"spin", kSpinKeys, MoveSpin},
    {"row", kRowKeys, GoToRow},
    {"click", kClickKeys, ClickButton},
    {"frame", kFrameKeys, PressFrame, CheckFrameKeys},
    {"activate", kActivateKeys, ActivateAgain},
    {"dump", kDumpKeys, DumpControls},
};

}  // namespace

std::span<const Kind<ActionRun>> ActionKinds() { return kActionKinds; }

}  // namespace qor::viewer
