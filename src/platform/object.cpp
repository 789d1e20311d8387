#include "platform/object.h"

#include <algorithm>
#include <optional>

#include "platform/conversions.h"

namespace qor {

namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsPut(InvokeKind kind) { return kind == InvokeKind::Put || kind == InvokeKind::PutRef; }

/// A read may reach a method and a call a readable property; a put of either sort reaches the other.
const Member* FindRow(std::span<const Member> rows, MemberId first, InvokeKind kind) {
    const Member* second = nullptr;
    for (std::size_t i = static_cast<std::size_t>(first); i < rows.size() && rows[i].name == rows[first].name;
         ++i) {
        if (rows[i].kind == kind) return &rows[i];
        if (IsPut(rows[i].kind) == IsPut(kind)) second = &rows[i];
    }
    return second;
}

void ConvertArgument(Argument& argument, const Parameter& parameter) {
    switch (parameter.type) {
        case ParameterType::Any:
            break;
        case ParameterType::Boolean:
            *argument = ToBoolean(*argument);
            break;
        case ParameterType::Int16:
            *argument = ToInt16(*argument);
            break;
        case ParameterType::Int32:
            *argument = ToInt32(*argument);
            break;
        case ParameterType::Text:
            if (!argument->IsText()) *argument = ToText(*argument);
            break;
        case ParameterType::Object:
            if (!argument->IsObject()) Raise(Automation::TypeMismatch);
            break;
    }
}

void CheckArgument(Argument& argument, const Parameter& parameter) {
    // A caller's variable is its own: only a parameter by reference may leave something in it.
    if (argument.IsByRef() && !parameter.byReference) argument = Value(*argument);
    argument.MarkRefused(true);  // until it is taken
    if (!argument.IsMissing()) {
        ConvertArgument(argument, parameter);
    } else if (!parameter.optional) {
        Raise(Automation::ArgumentNotOptional);
    }
    argument.MarkRefused(false);
}

void CheckArguments(const Member& row, Arguments arguments) {
    const std::size_t count = row.ParameterCount();
    for (std::size_t i = 0; i < count; ++i) {
        if (i < arguments.size()) {
            CheckArgument(arguments[i], row.parameters[i]);
        } else if (!row.parameters[i].optional) {
            Raise(Automation::ArgumentNotOptional);
        }
    }
}

}  // namespace

bool EqualsIgnoringCase(std::string_view a, std::string_view b) noexcept {
    return std::ranges::equal(a, b, [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

Object& ObjectIn(const Value& value) {
    if (!value.IsObject()) Raise(Automation::ObjectRequired);
    if (value.IsNothing()) Raise(Automation::ObjectNotSet);
    return *value.object();
}

Value Object::InvokeByName(std::string_view name, InvokeKind kind, Arguments arguments) {
    const MemberId member = FindMember(name);
    if (member == kNoMember) Raise(Automation::NoSuchMember);
    return Invoke(member, kind, arguments);
}

MemberId TableObject::FindMember(std::string_view name) {
    const auto rows = Members();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (EqualsIgnoringCase(rows[i].name, name)) return static_cast<MemberId>(i);
    }
    return kNoMember;
}

Value TableObject::Invoke(MemberId member, InvokeKind kind, Arguments arguments) {
    const auto rows = Members();
    if (member < 0 || static_cast<std::size_t>(member) >= rows.size()) Raise(Automation::NoSuchMember);
    const Member* row = FindRow(rows, member, kind);
    const std::size_t taken = row ? row->ParameterCount() : 0;
    if (row && arguments.size() <= taken) {
        CheckArguments(*row, arguments);
        return row->invoke(*this, arguments);
    }

    // What a property does not take itself belongs to the object that it answers: `r.Filter("BDate")`. A
    // method with too many arguments must not run at all.
    const Member* reader = FindRow(rows, member, InvokeKind::Get);
    if (!reader) Raise(Automation::NoSuchMember);
    if (reader->kind == InvokeKind::Method) {
        Raise(row ? Automation::WrongArguments : Automation::NoSuchMember);
    }
    const std::size_t own = reader->ParameterCount();
    const std::size_t indices = arguments.size() - (IsPut(kind) && !arguments.empty() ? 1 : 0);
    if (indices <= own) Raise(row ? Automation::WrongArguments : Automation::NoSuchMember);
    CheckArguments(*reader, arguments.first(own));
    const Value answer = reader->invoke(*this, arguments.first(own));
    if (!answer.IsObject()) Raise(Automation::WrongArguments);
    Object& object = ObjectIn(answer);
    const MemberId rest = object.DefaultMember();
    if (rest == kNoMember) Raise(Automation::WrongArguments);
    return object.Invoke(rest, kind == InvokeKind::Method ? InvokeKind::Get : kind, arguments.subspan(own));
}

}  // namespace qor
