// Objects whose members are scripts: the server components of a test, and the objects that they answer.
//
//     script.Answers("NeedAutorized", true)
//           .Answers("GetItem", [](Arguments a) -> Value { return ToText(*a[1]); })
//           .Raises("Execute", Error(-1, "Server", "no connection"));
#pragma once

#include <deque>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/object.h"

namespace qor::test {

using Log = std::vector<std::string>;

/// A value as logs write it: 7, int16(7), double(7.5), "text", True, #2020-09-01#, Empty, Null, Nothing; a
/// dictionary with its entries, another object as <its class>.
std::string Shown(const Value& value);

/// What the members of a class answer. One script serves all objects of the class and may change at any time.
class Script {
 public:
    using Answer = std::function<Value(Arguments)>;

    Script& Answers(std::string_view member, Value value);
    Script& Answers(std::string_view member, Answer answer);
    /// One after the other; the last one stays.
    Script& AnswersInTurn(std::string_view member, std::vector<Answer> answers);
    Script& Raises(std::string_view member, Error error);
    /// What every member answers that has no answer of its own. Without it such a member does not exist.
    Script& Otherwise(Answer answer);

 private:
    friend class ScriptedObject;
    struct Row {
        std::string member;
        Answer answer;  // none: the answer of `otherwise_`
    };
    /// The place of a member's row, which is made where there is none.
    std::size_t PlaceOf(std::string_view member);
    MemberId Find(std::string_view member);

    std::deque<Row> rows_;  // rows stay where they are while an answer adds others
    Answer otherwise_;
};

class ScriptedObject final : public Object {
 public:
    /// Logs its calls, reads, puts and its release, where it has a log.
    ScriptedObject(std::string className, std::shared_ptr<Script> script, std::shared_ptr<Log> log = nullptr)
        : className_(std::move(className)), script_(std::move(script)), log_(std::move(log)) {}
    ~ScriptedObject() override;

    std::string_view ClassName() const override { return className_; }
    MemberId FindMember(std::string_view name) override { return script_->Find(name); }
    Value Invoke(MemberId member, InvokeKind kind, Arguments arguments) override;

 private:
    std::string className_;
    std::shared_ptr<Script> script_;
    std::shared_ptr<Log> log_;
};

/// An object with these readable members, which logs nothing.
Ref<Object> Readable(std::initializer_list<std::pair<std::string_view, Value>> members);

}  // namespace qor::test
