#include "tests/windows/component/script_writer.h"

#include <set>

namespace qor::component {

namespace {

using viewer::Json;

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

std::string TextAt(const Json& step, const char* key) { return step[key].get<std::string>(); }

/// An object is put with Set.
bool IsObject(const Json& value) {
    constexpr const char* kObjects[] = {"$dictionary", "$vector", "$object",
                                        "$recordset",  "$ref",    "$nothing"};
    return value.is_object() &&
           std::ranges::any_of(kObjects, [&](const char* mark) { return value.contains(mark); });
}

class ScriptWriter {
 public:
    void Write(std::size_t index, const Json& step) {
        number_ = std::to_string(index);
        Line("stage.Step " + number_);
        if (step.contains("create")) {
            Result("WScript.CreateObject(" + Quoted(TextAt(step, "create")) + ")");
        } else if (step.contains("call")) {
            Result(TextAt(step, "call") + Arguments(step));
        } else if (step.contains("get")) {
            Result(TextAt(step, "get"));
        } else if (step.contains("set")) {
            Put(step, TextAt(step, "set"));
        } else if (step.contains("put")) {
            Put(step, TextAt(step, "put") + ".Value(" + Quoted(TextAt(step, "key")) + ")");
        } else if (step.contains("release")) {
            const std::string name = TextAt(step, "release");
            Line("Set " + name + " = Nothing");
            Line("stage.Drop " + Quoted(name));
        } else {
            Line("stage.Change " + number_);
        }
        Line("Told " + number_);
        if (step.contains("as")) {
            const std::string name = TextAt(step, "as");
            Line("Set " + name + " = stage.Kept(" + Quoted(name) + ")");
            names_.insert(name);
        }
    }

    void LetGo() {
        for (const std::string& name : names_) {
            Line("Set " + name + " = Nothing");
        }
    }

    void Line(const std::string& line) { text_ += line + "\r\n"; }
    const std::string& text() const { return text_; }

 private:
    void Result(const std::string& expression) { Line("stage.Result " + number_ + ", " + expression); }

    void Put(const Json& step, const std::string& target) {
        Line((IsObject(step["to"]) ? "Set " : "") + target + " = stage.To(" + number_ + ")");
    }

    std::string Arguments(const Json& step) const {
        std::string list;
        if (!step.contains("args")) return list;
        for (std::size_t i = 0; i < step["args"].size(); ++i) {
            list += (i == 0 ? "(" : ", ") + ("stage.Argument(" + number_ + ", " + std::to_string(i) + ")");
        }
        return list.empty() ? list : list + ")";
    }

    std::string text_;
    std::string number_;
    std::set<std::string> names_;
};

}  // namespace

std::string WriteScript(const Json& conversation, const std::string& file, const std::string& transcript) {
    ScriptWriter script;
    script.Line("Sub Told(index)");
    script.Line("If Err.Number <> 0 Then");
    script.Line("stage.Failed index, Err.Number, Err.Source, Err.Description");
    script.Line("Err.Clear");
    script.Line("End If");
    script.Line("End Sub");
    // The language's own CreateObject keeps a reference for good, in wine's script engine.
    script.Line("Set stage = WScript.CreateObject(\"QORTest.Stage\")");
    script.Line("stage.Open " + Quoted(file));
    script.Line("On Error Resume Next");
    for (std::size_t i = 0; i < conversation["steps"].size(); ++i) {
        script.Write(i, conversation["steps"][i]);
    }
    script.LetGo();
    script.Line("stage.Close " + Quoted(transcript));
    script.Line("Set stage = Nothing");
    script.Line("WScript.Echo \"played\"");
    return script.text();
}

}  // namespace qor::component
