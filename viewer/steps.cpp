#include "viewer/steps.h"

#include <algorithm>
#include <string>

#include "viewer/json_values.h"
#include "viewer/routines.h"
#include "viewer/user_script.h"

namespace qor::viewer {

namespace {

Value ReadAt(const Stage& stage, const Json& step, std::string_view key) {
    return ReadValue(*step.find(key), {}, stage.names);
}

std::vector<Value> ReadArguments(const Stage& stage, const Json& step) {
    std::vector<Value> values;
    const auto args = step.find("args");
    if (args == step.end()) return values;
    for (const Json& value : *args) {
        values.push_back(ReadValue(value, {}, stage.names));
    }
    return values;
}

/// A member of a kept object.
struct Target {
    Target(const Stage& stage, const std::string& path)
        : object(stage.names.Find(path.substr(0, path.find('.')))), member(path.substr(path.find('.') + 1)) {}

    Value Invoke(InvokeKind kind, Arguments arguments) const {
        return ObjectIn(object).InvokeByName(member, kind, arguments);
    }

    Value object;
    std::string member;
};

/// Which arguments of a call go by reference: of our own classes those that the member takes so, of all
/// others every one.
bool TakesByReference(Object& object, const std::string& member, std::size_t position) {
    const auto* ours = dynamic_cast<const TableObject*>(&object);
    if (!ours) return true;
    const auto rows = ours->Members();
    const auto row = std::ranges::find_if(rows, [&](const Member& m) {
        return m.kind == InvokeKind::Method && EqualsIgnoringCase(m.name, member);
    });
    return row != rows.end() && position < row->ParameterCount() && row->parameters[position].byReference;
}

std::optional<StepResult> Create(Stage& stage, const Json& step) {
    return StepResult{stage.surroundings.CreateComponent(TextAt(step, "create"))};
}

std::optional<StepResult> Call(Stage& stage, const Json& step) {
    const Target target(stage, TextAt(step, "call"));
    Object& object = ObjectIn(target.object);
    std::vector<Value> variables = ReadArguments(stage, step);
    std::vector<Argument> arguments;
    bool byReference = false;
    for (std::size_t i = 0; i < variables.size(); ++i) {
        const bool referred = TakesByReference(object, target.member, i);
        arguments.push_back(referred ? Argument::ByRef(variables[i]) : Argument(variables[i]));
        byReference = byReference || referred;
    }
    StepResult result{target.Invoke(InvokeKind::Method, arguments)};
    if (byReference) result.arguments = std::move(variables);
    return result;
}

std::optional<StepResult> Get(Stage& stage, const Json& step) {
    return StepResult{Target(stage, TextAt(step, "get")).Invoke(InvokeKind::Get, {})};
}

InvokeKind PutOf(const Value& value) { return value.IsObject() ? InvokeKind::PutRef : InvokeKind::Put; }

std::optional<StepResult> Set(Stage& stage, const Json& step) {
    const Value value = ReadAt(stage, step, "to");
    Argument argument(value);
    Target(stage, TextAt(step, "set")).Invoke(PutOf(value), {&argument, 1});
    return std::nullopt;
}

std::optional<StepResult> Put(Stage& stage, const Json& step) {
    const Value held = Target(stage, TextAt(step, "put")).Invoke(InvokeKind::Get, {});
    Object& dictionary = ObjectIn(held);
    const Value value = ReadAt(stage, step, "to");
    Argument arguments[] = {TextAt(step, "key"), value};
    const MemberId item = dictionary.DefaultMember();
    if (item == kNoMember) Raise(Automation::NoSuchMember);
    dictionary.Invoke(item, PutOf(value), arguments);
    return std::nullopt;
}

std::optional<StepResult> Invoke(Stage& stage, const Json& step) {
    const Routine& routine = *FindRoutine(TextAt(step, "invoke"));
    std::vector<Value> arguments = ReadArguments(stage, step);
    StepResult result{CallRoutine(routine, stage.process, arguments)};
    if (routine.byReference) result.arguments = std::move(arguments);
    return result;
}

std::optional<StepResult> Release(Stage& stage, const Json& step) {
    stage.names.Drop(TextAt(step, "release"));
    return std::nullopt;
}

std::optional<StepResult> Change(Stage& stage, const Json& step) {
    stage.surroundings.Change(step);
    return std::nullopt;
}

void RoutineName(FileCheck& check, const Json& json, const Place& place) {
    shape::Text(check, json, place);
    const std::string& name = json.get_ref<const std::string&>();
    if (!FindRoutine(name)) throw Mistake(place, "no routine has the name " + Quoted(name));
}

using namespace shape;

// `as` comes last: the step itself does not know the name yet.
constexpr Key kCreateKeys[] = {{"create", Text}, {"as", NewName, true}};
constexpr Key kCallKeys[] = {
    {"call", MemberPath}, {"args", ValueList, true}, {"user", UserEntries, true}, {"as", NewName, true}};
constexpr Key kGetKeys[] = {{"get", MemberPath}, {"as", NewName, true}};
constexpr Key kSetKeys[] = {{"set", MemberPath}, {"to", AnyValue}};
constexpr Key kPutKeys[] = {{"put", MemberPath}, {"key", Text}, {"to", AnyValue}};
constexpr Key kInvokeKeys[] = {
    {"invoke", RoutineName}, {"args", ValueList, true}, {"user", UserEntries, true}, {"as", NewName, true}};
constexpr Key kReleaseKeys[] = {{"release", ReleasedName}};
constexpr Key kChangeKeys[] = {{"bag", ValuesByKeyOrNull, true},
                               {"session", ValuesByKeyOrNull, true},
                               {"components", ComponentsOrNull, true},
                               {"today", DayOrNull, true}};

constexpr Kind<StepRun> kStepKinds[] = {
    {"create", kCreateKeys, Create},
    {"call", kCallKeys, Call},
    {"get", kGetKeys, Get},
    {"set", kSetKeys, Set},
    {"put", kPutKeys, Put},
    {"invoke", kInvokeKeys, Invoke},
    {"release", kReleaseKeys, Release},
    {"bag", kChangeKeys, Change},
    {"session", kChangeKeys, Change},
    {"components", kChangeKeys, Change},
    {"today", kChangeKeys, Change},
};

}  // namespace

std::span<const Kind<StepRun>> StepKinds() { return kStepKinds; }

}  // namespace qor::viewer
