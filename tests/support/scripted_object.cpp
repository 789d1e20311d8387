#include "support/scripted_object.h"

#include "platform/conversions.h"
#include "platform/dictionary.h"

namespace qor::test {

namespace {

std::string ShownDictionary(const Dictionary& dictionary) {
    std::string text = "{";
    for (std::size_t i = 0; i < dictionary.Count(); ++i) {
        const std::string key = dictionary.KeyAt(i);
        text += (i ? ", " : "") + key + ": " + Shown(dictionary.Get(key));
    }
    return text + "}";
}

std::string ShownObject(const Value& value) {
    if (value.IsNothing()) return "Nothing";
    if (const auto* dictionary = dynamic_cast<const Dictionary*>(value.object())) {
        return ShownDictionary(*dictionary);
    }
    return "<" + std::string(value.object()->ClassName()) + ">";
}

std::string ShownArguments(Arguments arguments) {
    std::string text;
    for (const Argument& argument : arguments) {
        if (!text.empty()) text += ", ";
        text += argument.IsMissing() ? "missing" : (argument.IsByRef() ? "&" : "") + Shown(*argument);
    }
    return text;
}

/// "call X.M(1)", "read X.M" or "read X.M(1)", "put X.M = 1" or "put X.M(1) = 2".
std::string ShownInvocation(InvokeKind kind, const std::string& member, Arguments arguments) {
    const auto inParentheses = [](Arguments indices) { return "(" + ShownArguments(indices) + ")"; };
    if (kind == InvokeKind::Method) return "call " + member + inParentheses(arguments);
    if (kind == InvokeKind::Get) {
        return "read " + member + (arguments.empty() ? "" : inParentheses(arguments));
    }
    const Arguments indices = arguments.first(arguments.size() - 1);
    return "put " + member + (indices.empty() ? "" : inParentheses(indices)) + " = " +
           Shown(*arguments.back());
}

}  // namespace

std::string Shown(const Value& value) {
    switch (value.type()) {
        case Value::Type::Empty:
            return "Empty";
        case Value::Type::Null:
            return "Null";
        case Value::Type::Int16:
            return "int16(" + ToText(value) + ")";
        case Value::Type::Single:
            return "single(" + ToText(value) + ")";
        case Value::Type::Double:
            return "double(" + ToText(value) + ")";
        case Value::Type::Date:
            return "#" + ToText(value) + "#";
        case Value::Type::Text:
            return "\"" + value.text() + "\"";
        case Value::Type::Object:
            return ShownObject(value);
        default:
            return ToText(value);
    }
}

std::size_t Script::PlaceOf(std::string_view member) {
    std::size_t place = 0;
    while (place < rows_.size() && !EqualsIgnoringCase(rows_[place].member, member))
        ++place;
    if (place == rows_.size()) rows_.push_back({std::string(member), nullptr});
    return place;
}

MemberId Script::Find(std::string_view member) {
    const std::size_t place = PlaceOf(member);
    return rows_[place].answer || otherwise_ ? static_cast<MemberId>(place) : kNoMember;
}

Script& Script::Answers(std::string_view member, Value value) {
    return Answers(member, [value](Arguments) { return value; });
}

Script& Script::Answers(std::string_view member, Answer answer) {
    rows_[PlaceOf(member)].answer = std::move(answer);
    return *this;
}

Script& Script::AnswersInTurn(std::string_view member, std::vector<Answer> answers) {
    return Answers(member, [answers, next = std::size_t{0}](Arguments arguments) mutable {
        const std::size_t turn = next;
        if (next + 1 < answers.size()) ++next;
        return answers[turn](arguments);
    });
}

Script& Script::Raises(std::string_view member, Error error) {
    return Answers(member, [error](Arguments) -> Value { throw error; });
}

Script& Script::Otherwise(Answer answer) {
    otherwise_ = std::move(answer);
    return *this;
}

ScriptedObject::~ScriptedObject() {
    if (log_) log_->push_back("release " + className_);
}

Value ScriptedObject::Invoke(MemberId member, InvokeKind kind, Arguments arguments) {
    const Script::Row& row = script_->rows_.at(static_cast<std::size_t>(member));
    if (log_) log_->push_back(ShownInvocation(kind, className_ + "." + row.member, arguments));
    return row.answer ? row.answer(arguments) : script_->otherwise_(arguments);
}

Ref<Object> Readable(std::initializer_list<std::pair<std::string_view, Value>> members) {
    auto script = std::make_shared<Script>();
    for (const auto& [name, value] : members) {
        script->Answers(name, value);
    }
    return MakeRef<ScriptedObject>("Readable", std::move(script));
}

}  // namespace qor::test
