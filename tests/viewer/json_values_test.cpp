#include "viewer/json_values.h"

#include <gtest/gtest.h>

#include "platform/conversions.h"
#include "platform/dictionary.h"
#include "platform/vector.h"
#include "viewer/mistake.h"

namespace qor::viewer {
namespace {

Value Read(std::string_view json) { return ReadValue(Json::parse(json), {}, ObjectNames()); }

std::string Written(const Value& value, const ObjectNames& names = {}) {
    return WriteValue(value, names).dump();
}

std::string RefusalOf(std::string_view json) {
    try {
        Read(json);
        return "";
    } catch (const Mistake& mistake) {
        return mistake.place() + ": " + mistake.what();
    }
}

struct PlainValue {
    const char* json;
    Value value;
};

TEST(JsonValues, EveryKindOfPlainValueReadsAndWrites) {
    const PlainValue kValues[] = {
        {R"("text")", "text"},
        {R"("")", ""},
        {"true", true},
        {"false", false},
        {"null", Value::Null()},
        {"7", std::int32_t{7}},
        {"-2147483648", std::numeric_limits<std::int32_t>::min()},
        {"7.5", 7.5},
        {R"({"$double":7})", 7.0},
        {R"({"$double":-3})", -3.0},
        {R"({"$int16":7})", std::int16_t{7}},
        {R"({"$int16":-32768})", std::numeric_limits<std::int16_t>::min()},
        {R"({"$date":"2020-09-01"})", DateFromCalendar(2020, 9, 1).value()},
        {R"({"$date":"2020-09-01 12:00:00"})", Date{DateFromCalendar(2020, 9, 1)->serial + 0.5}},
        {R"({"$empty":true})", Value()},
        {R"({"$nothing":true})", Value::Nothing()},
    };
    for (const PlainValue& row : kValues) {
        EXPECT_EQ(Read(row.json), row.value) << row.json;
        EXPECT_EQ(Written(row.value), row.json);
    }
}

TEST(JsonValues, APlainNumberWithAFractionPointIsADouble) {
    EXPECT_EQ(Read("7.0"), Value(7.0));
    EXPECT_EQ(Read("1e3"), Value(1000.0));
}

TEST(JsonValues, ALargeDoubleReadsBackAsADouble) {
    const std::string text = Written(1e20);
    EXPECT_EQ(Read(text), Value(1e20)) << text;
}

TEST(JsonValues, SecondsOfADateSurvive) {
    const std::string text = R"({"$date":"1899-12-28 18:05:59"})";
    EXPECT_EQ(Written(Read(text)), text);
    const std::string late = R"({"$date":"9999-12-31 23:59:59"})";
    EXPECT_EQ(Written(Read(late)), late);
}

TEST(JsonValues, ADictionaryKeepsTheOrderOfItsKeys) {
    const std::string text = R"({"$dictionary":{"Z":1,"A":{"$int16":2},"M":{"$dictionary":{}}}})";
    EXPECT_EQ(Written(Read(text)), text);
}

TEST(JsonValues, AListAndARecordSetAreWrittenOutWhole) {
    const std::string list = R"({"$vector":["a",{"$vector":[]},null]})";
    EXPECT_EQ(Written(Read(list)), list);
    const std::string set =
        R"({"$recordset":{"fields":["FName","FAmount"],"rows":[["x",1.5],[null,{"$int16":1}]]}})";
    EXPECT_EQ(Written(Read(set)), set);
}

TEST(JsonValues, ARecordSetIsWrittenWithoutMovingIt) {
    const Value value = Read(R"({"$recordset": {"fields": ["F"], "rows": [[1], [2]]}})");
    auto& set = static_cast<RecordSet&>(*value.object());
    set.Move(1);
    Written(value);
    EXPECT_EQ(set.Field("F"), Value(std::int32_t{2}));
}

TEST(JsonValues, AnObjectHasReadableMembersWhateverTheirCase) {
    const Value value = Read(R"({"$object": {"ReturnObject": {"$object": {"Number": "01.02"}}}})");
    Object& inner = ObjectIn(ObjectIn(value).Get("returnobject"));
    EXPECT_EQ(inner.Get("Number"), Value("01.02"));
    EXPECT_EQ(Written(value), R"({"$object":"Object"})");
}

TEST(JsonValues, AnObjectInsideItselfIsWrittenOnce) {
    const auto dictionary = MakeRef<OrderedDictionary>();
    dictionary->Put("Self", dictionary);
    EXPECT_EQ(Written(dictionary), R"({"$dictionary":{"Self":{"$again":true}}})");
    dictionary->Remove("Self");
}

TEST(JsonValues, AnObjectTwiceSideBySideIsWrittenTwice) {
    const auto shared = MakeRef<OrderedDictionary>();
    const auto list = MakeRef<ArrayVector>();
    list->Add(shared);
    list->Add(shared);
    EXPECT_EQ(Written(list), R"({"$vector":[{"$dictionary":{}},{"$dictionary":{}}]})");
}

TEST(JsonValues, ANamedObjectIsWrittenByItsNameUnlessItIsWrittenOut) {
    ObjectNames names;
    const Value lookup = Read(R"({"$object": {}})"), dictionary = Read(R"({"$dictionary": {}})");
    names.Keep("lookup", lookup);
    names.Keep("d", dictionary);
    EXPECT_EQ(Written(lookup, names), R"({"$ref":"lookup"})");
    EXPECT_EQ(Written(dictionary, names), R"({"$dictionary":{}})");
    EXPECT_EQ(ReadValue(Json::parse(R"({"$ref": "d"})"), {}, names), dictionary);
    names.Drop("lookup");
    EXPECT_EQ(Written(lookup, names), R"({"$object":"Object"})");
}

TEST(JsonValues, WhatStandsForNoValueIsRefusedAtItsPlace) {
    constexpr std::pair<const char*, const char*> kRefusals[] = {
        {"[1]", ": must be a value; a list is written {\"$vector\": [...]}"},
        {"{}", ": must have one key, such as \"$date\""},
        {R"({"$date": "2020-09-01", "x": 1})", ": must have one key, such as \"$date\""},
        {R"({"a": 1})", ": unknown kind of value \"a\""},
        {"3000000000", ": does not fit into 32 bits; a double is written {\"$double\": ...}"},
        {"-9223372036854775808", ": does not fit into 32 bits; a double is written {\"$double\": ...}"},
        {"18446744073709551615", ": does not fit into 32 bits; a double is written {\"$double\": ...}"},
        {R"({"$int16": 32768})", "$int16: does not fit into 16 bits"},
        {R"({"$int16": 1.5})", "$int16: must be a whole number"},
        {R"({"$double": "7"})", "$double: must be a number"},
        {R"({"$date": 7})", "$date: must be a date, \"YYYY-MM-DD\" or \"YYYY-MM-DD hh:mm:ss\""},
        {R"({"$date": "2020-02-30"})", "$date: must be a date, \"YYYY-MM-DD\" or \"YYYY-MM-DD hh:mm:ss\""},
        {R"({"$date": "2020-9-1"})", "$date: must be a date, \"YYYY-MM-DD\" or \"YYYY-MM-DD hh:mm:ss\""},
        {R"({"$date": "2020-09-01 24:00:00"})",
         "$date: must be a date, \"YYYY-MM-DD\" or \"YYYY-MM-DD hh:mm:ss\""},
        {R"({"$date": "2020-09-01x12:00:00"})",
         "$date: must be a date, \"YYYY-MM-DD\" or \"YYYY-MM-DD hh:mm:ss\""},
        {R"({"$empty": 1})", "$empty: must be true"},
        {R"({"$nothing": false})", "$nothing: must be true"},
        {R"({"$dictionary": []})", "$dictionary: must be an object"},
        {R"({"$dictionary": {"a b": [1]}})",
         "$dictionary[\"a b\"]: must be a value; a list is written {\"$vector\": [...]}"},
        {R"({"$vector": {}})", "$vector: must be an array"},
        {R"({"$vector": [1, {"$vector": [[]]}]})",
         "$vector[1].$vector[0]: must be a value; a list is written {\"$vector\": [...]}"},
        {R"({"$recordset": {"rows": []}})", "$recordset: \"fields\" is missing"},
        {R"({"$recordset": {"fields": ["a"], "row": []}})", "$recordset: unknown key \"row\""},
        {R"({"$recordset": {"fields": [1]}})", "$recordset.fields[0]: must be a field's name"},
        {R"({"$recordset": {"fields": ["a"], "rows": [[1], [1, 2]]}})",
         "$recordset.rows[1]: must have one value for each of the 1 fields"},
        {R"({"$ref": 1})", "$ref: must be the name of a kept object"},
    };
    for (const auto& [json, refusal] : kRefusals) {
        EXPECT_EQ(RefusalOf(json), refusal) << json;
    }
}

}  // namespace
}  // namespace qor::viewer
