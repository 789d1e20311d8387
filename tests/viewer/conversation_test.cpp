#include "viewer/conversation.h"

#include <gtest/gtest.h>

#include "viewer/playing.h"
#include "viewer/routines.h"
#include "viewer/steps.h"
#include "viewer/user_script.h"

namespace qor::test {
namespace {

struct Refused {
    const char* file;
    const char* refusal;
};

TEST(Conversation, WhatIsWrongAtTheTopIsRefusedAtItsPlace) {
    constexpr Refused kFiles[] = {
        {"", "line 1, column 1: this is not JSON"},
        {"{\n  \"steps\": [],\n}", "line 3, column 1: this is not JSON"},
        {"{\"steps\": []} {}", "line 1, column 15: this is not JSON"},
        {R"({"steps": [], "steps": []})", ": the key \"steps\" stands twice"},
        {R"({"bag": {"A": 1}, "steps": [{"today": null}, {"bag": {"A": 1, "B": 2, "A": 3}}]})",
         "steps[1].bag: the key \"A\" stands twice"},
        {"[]", ": must be an object"},
        {"{}", ": \"steps\" is missing"},
        {R"({"steps": {}})", "steps: must be an array of steps"},
        {R"({"steps": [], "stepz": []})", ": unknown key \"stepz\""},
        {R"({"steps": [], "today": "15.9.2020"})", "today: must be a date, \"YYYY-MM-DD\""},
        {R"({"steps": [], "today": "2020-09-15 10:00:00"})", "today: must be a date, \"YYYY-MM-DD\""},
        {R"({"steps": [], "process": "4711"})", "process: must be a whole number"},
        {R"({"steps": [], "session": "UserID=1;"})", "session: must be an object of values"},
        {R"({"steps": [], "session": {"PropsString": []}})",
         "session.PropsString: must be a value; a list is written {\"$vector\": [...]}"},
        {R"({"steps": [], "bag": {"AppType": {"$int": 1}}})", "bag.AppType: unknown kind of value \"$int\""},
        {R"({"steps": [], "userProfile": {"QOR": {}}})",
         "userProfile.QOR: must be a product and a section, such as \"QOR/ARAP\""},
        {R"({"steps": [], "userProfile": {"QOR/ARAP": 1}})",
         "userProfile[\"QOR/ARAP\"]: must be an object of values"},
        {R"({"steps": [], "schemes": {"x": {}}})", "schemes.x: must be a report number, such as \"10522\""},
        {R"({"steps": [], "schemes": {"10522": {"a": {"K": {"$vector": []}}}}})",
         "schemes.10522.a.K: must be a plain value, no object"},
    };
    for (const Refused& row : kFiles) {
        EXPECT_EQ(RefusalOf(row.file), row.refusal) << row.file;
    }
}

TEST(Conversation, AWrongAnswerOfAComponentIsRefusedAtItsPlace) {
    const std::string member = "components[\"X.Y\"].M";
    const std::pair<const char*, std::string> kAnswers[] = {
        {"7", ": must be an answer, such as {\"value\": 1}"},
        {"{}", ": must have one of value, recordset, object, nothing, error, sequence and when"},
        {R"({"args": {}})", ": must have one of value, recordset, object, nothing, error, sequence and when"},
        {R"({"value": 1, "nothing": true})",
         ": must have one of value, recordset, object, nothing, error, sequence and when"},
        {R"({"val": 1})", ": unknown key \"val\""},
        {R"({"value": 1, "else": {"value": 2}})", ": unknown key \"else\""},
        {R"({"value": [1]})", ".value: must be a value; a list is written {\"$vector\": [...]}"},
        {R"({"recordset": []})", ".recordset: must be an object"},
        {R"({"object": {"A": {"$x": 1}}})", ".object.A: unknown kind of value \"$x\""},
        {R"({"nothing": 1})", ".nothing: must be true"},
        {R"({"error": {"source": "s"}})", ".error: \"number\" is missing"},
        {R"({"error": {"number": "1"}})", ".error.number: must be a whole number"},
        {R"({"error": {"number": 1, "text": "t"}})", ".error: unknown key \"text\""},
        {R"({"error": {"number": 1, "description": 2}})", ".error.description: must be a text"},
        {R"({"sequence": []})", ".sequence: must be an array of at least one answer"},
        {R"({"sequence": [{"value": 1}, {}]})",
         ".sequence[1]: must have one of value, recordset, object, nothing, error, sequence and when"},
        {R"({"when": {}})", ".when: must be an array of cases"},
        {R"({"when": [[["a"]]]})", ".when[0]: must be [[arguments], answer]"},
        {R"({"when": [["a", {"value": 1}]]})", ".when[0][0]: must be an array of values"},
        {R"({"when": [], "else": 1})", ".else: must be an answer, such as {\"value\": 1}"},
        {R"({"value": 1, "args": []})", ".args: must be an object of values by the argument's number"},
        {R"({"value": 1, "args": {"0": 1}})", ".args.0: must be the number of an argument, from 1"},
        {R"({"value": {"$ref": "nobody"}})", ".value.$ref: no object is kept under the name \"nobody\""},
    };
    for (const auto& [answer, refusal] : kAnswers) {
        const std::string file =
            R"({"steps": [], "components": {"X.Y": {"M": )" + std::string(answer) + "}}}";
        EXPECT_EQ(RefusalOf(file), member + refusal) << answer;
    }
    EXPECT_EQ(RefusalOf(R"({"steps": [], "components": {"X.Y": 1}})"),
              "components[\"X.Y\"]: must be an object of answers");
}

TEST(Conversation, AWrongStepIsRefusedAtItsPlace) {
    constexpr Refused kSteps[] = {
        {"[1]", "steps[0]: must be an object that names its step"},
        {"[{}]", "steps[0]: must be an object that names its step"},
        {R"([{"today": "2020-01-01"}, {"crate": "X"}])", "steps[1]: unknown step \"crate\""},
        {R"([{"create": 1}])", "steps[0].create: must be a text"},
        {R"([{"create": "X", "as": ""}])", "steps[0].as: must be a name without a dot"},
        {R"([{"create": "X", "as": "a.b"}])", "steps[0].as: must be a name without a dot"},
        {R"([{"create": "X", "name": "a"}])", "steps[0]: unknown key \"name\""},
        {R"([{"create": "X", "call": "a.b"}])", "steps[0]: unknown key \"call\""},
        {R"([{"call": "r.ShowFilter"}])", "steps[0].call: no object is kept under the name \"r\""},
        {R"([{"create": "X", "as": "r"}, {"call": "r"}])",
         "steps[1].call: must be a kept name and a member, such as \"r.Filter\""},
        {R"([{"create": "X", "as": "r"}, {"get": "r.Result.OK"}])",
         "steps[1].get: must be a kept name and a member, such as \"r.Filter\""},
        {R"([{"create": "X", "as": "r"}, {"call": "r.M", "args": 1}])",
         "steps[1].args: must be an array of values"},
        {R"([{"create": "X", "as": "r"}, {"call": "r.M", "args": [1, {"$ref": "q"}]}])",
         "steps[1].args[1].$ref: no object is kept under the name \"q\""},
        {R"([{"create": "X", "as": "r"}, {"call": "r.M", "args": [{"$ref": "q"}], "as": "q"}])",
         "steps[1].args[0].$ref: no object is kept under the name \"q\""},
        {R"([{"create": "X", "as": "r"}, {"set": "r.M"}])", "steps[1]: \"to\" is missing"},
        {R"([{"create": "X", "as": "r"}, {"put": "r.M", "to": 1}])", "steps[1]: \"key\" is missing"},
        {R"([{"create": "X", "as": "r"}, {"put": "r.M", "key": 1, "to": 1}])",
         "steps[1].key: must be a text"},
        {R"([{"create": "X", "as": "r"}, {"get": "r.M", "user": []}])", "steps[1]: unknown key \"user\""},
        {R"([{"invoke": "NoSuchRoutine"}])", "steps[0].invoke: no routine has the name \"NoSuchRoutine\""},
        {R"([{"release": "r"}])", "steps[0].release: no object is kept under the name \"r\""},
        {R"([{"create": "X", "as": "r"}, {"release": "r"}, {"get": "r.M"}])",
         "steps[2].get: no object is kept under the name \"r\""},
        {R"([{"today": "yesterday"}])", "steps[0].today: must be a date, \"YYYY-MM-DD\""},
        {R"([{"bag": 1}])", "steps[0].bag: must be an object of values"},
    };
    for (const Refused& row : kSteps) {
        EXPECT_EQ(RefusalOfSteps(row.file), row.refusal) << row.file;
    }
}

TEST(Conversation, AWrongEntryOfTheUserIsRefusedAtItsPlace) {
    const std::pair<const char*, std::string> kUsers[] = {
        {"{}", ": must be an array with an entry for each dialog"},
        {R"([{"do": []}])", "[0]: \"dialog\" is missing"},
        {R"([{"dialog": "f"}])", "[0]: \"do\" is missing"},
        {R"([{"dialog": "f", "do": [], "then": 1}])", "[0]: unknown key \"then\""},
        {R"([{"dialog": "f", "do": {}}])", "[0].do: must be an array of actions"},
        {R"([{"dialog": "f", "do": [{}]}])", "[0].do[0]: must be an object that names its action"},
        {R"([{"dialog": "f", "do": []}, {"dialog": "f", "do": [{"dump": true}, {"clik": "cmdOK"}]}])",
         "[1].do[1]: unknown action \"clik\""},
        {R"([{"dialog": "f", "do": [{"click": 1}]}])", "[0].do[0].click: must be a text"},
        {R"([{"dialog": "f", "do": [{"click": "a", "focus": "b"}]}])", "[0].do[0]: unknown key \"click\""},
        {R"([{"dialog": "f", "do": [{"text": "t"}]}])", "[0].do[0]: \"to\" is missing"},
        {R"([{"dialog": "f", "do": [{"type": "t", "to": "x"}]}])", "[0].do[0]: unknown key \"to\""},
        {R"([{"dialog": "f", "do": [{"key": "t", "code": "F7"}]}])",
         "[0].do[0].code: must be a whole number"},
        {R"([{"dialog": "f", "do": [{"check": "c", "to": 2}]}])", "[0].do[0].to: must be 0 or 1"},
        {R"([{"dialog": "f", "do": [{"check": "c", "to": true}]}])", "[0].do[0].to: must be 0 or 1"},
        {R"([{"dialog": "f", "do": [{"select": "c", "to": "x"}]}])", "[0].do[0].to: must be a whole number"},
        {R"([{"dialog": "f", "do": [{"date": "d", "to": "2020-13-01"}]}])",
         "[0].do[0].to: must be a date, \"YYYY-MM-DD\""},
        {R"([{"dialog": "f", "do": [{"cell": "g", "row": 1, "text": "1"}]}])",
         "[0].do[0]: \"column\" is missing"},
        {R"([{"dialog": "f", "do": [{"row": "g"}]}])", "[0].do[0]: \"to\" is missing"},
        {R"([{"dialog": "f", "do": [{"frame": "okay"}]}])",
         "[0].do[0].frame: must be one of ok, cancel, defaults, save, load, delete and panel"},
        {R"([{"dialog": "f", "do": [{"frame": "save"}]}])", "[0].do[0]: \"name\" is missing"},
        {R"([{"dialog": "f", "do": [{"frame": "ok", "name": "x"}]}])", "[0].do[0]: unknown key \"name\""},
        {R"([{"dialog": "f", "do": [{"frame": "panel"}]}])", "[0].do[0]: \"to\" is missing"},
        {R"([{"dialog": "f", "do": [{"frame": "panel", "to": "all"}]}])",
         "[0].do[0].to: must be \"common\" or \"whole\""},
        {R"([{"dialog": "f", "do": [{"dump": 1}]}])", "[0].do[0].dump: must be true"},
    };
    for (const auto& [user, refusal] : kUsers) {
        const std::string steps =
            R"([{"create": "X", "as": "r"}, {"call": "r.M", "user": )" + std::string(user) + "}]";
        EXPECT_EQ(RefusalOfSteps(steps), "steps[1].user" + refusal) << user;
    }
}

TEST(Conversation, AFileOfEndlessLevelsIsRefused) {
    const std::string deep = std::string(100000, '[') + std::string(100000, ']');
    EXPECT_EQ(RefusalOf(deep), ": has more than 200 levels");
}

TEST(Conversation, EveryVerbStandsOnce) {
    std::set<std::string_view> verbs;
    for (const auto& kind : viewer::StepKinds()) {
        EXPECT_TRUE(verbs.insert(kind.verb).second) << kind.verb;
        EXPECT_EQ(std::ranges::count(kind.keys, kind.verb, &viewer::Key::name), 1) << kind.verb;
    }
    verbs.clear();
    for (const auto& kind : viewer::ActionKinds()) {
        EXPECT_TRUE(verbs.insert(kind.verb).second) << kind.verb;
        EXPECT_EQ(std::ranges::count(kind.keys, kind.verb, &viewer::Key::name), 1) << kind.verb;
    }
}

TEST(Conversation, AnAnswerMayNameAnObjectOfALaterStep) {
    EXPECT_EQ(RefusalOf(R"({"components": {"X.Y": {"M": {"value": {"$ref": "r"}}}},
                            "steps": [{"create": "X.Y", "as": "r"}]})"),
              "");
}

}  // namespace
}  // namespace qor::test
