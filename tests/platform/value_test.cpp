#include "platform/value.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/scripted_object.h"

namespace qor {
namespace {

using test::Readable;

/// One value of each type, all different.
std::vector<Value> OneOfEach() {
    return {Value(),    Value::Null(),  Value(true), Value(std::int16_t{1}), Value(1),        Value(1.0F),
            Value(1.0), Value(Date{1}), Value("1"),  Value(Readable({})),    Value::Nothing()};
}

TEST(Value, KnowsItsType) {
    const struct {
        Value value;
        Value::Type type;
        const char* name;
    } rows[] = {
        {Value(), Value::Type::Empty, "Empty"},
        {Value::Null(), Value::Type::Null, "Null"},
        {true, Value::Type::Boolean, "Boolean"},
        {std::int16_t{7}, Value::Type::Int16, "Integer"},
        {7, Value::Type::Int32, "Long"},
        {7.0F, Value::Type::Single, "Single"},
        {7.0, Value::Type::Double, "Double"},
        {Date{7}, Value::Type::Date, "Date"},
        {"7", Value::Type::Text, "String"},
        {std::string("7"), Value::Type::Text, "String"},
        {std::string_view("7"), Value::Type::Text, "String"},
        {Readable({}), Value::Type::Object, "Object"},
        {Value::Nothing(), Value::Type::Object, "Object"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.value.type(), row.type) << row.name;
        EXPECT_EQ(TypeName(row.value.type()), row.name);
    }
}

TEST(Value, HoldsWhatItWasGiven) {
    EXPECT_EQ(Value(true).boolean(), true);
    EXPECT_EQ(Value(std::int16_t{-7}).int16(), -7);
    EXPECT_EQ(Value(70000).int32(), 70000);
    EXPECT_EQ(Value(1.5F).single(), 1.5F);
    EXPECT_EQ(Value(2.5).number(), 2.5);
    EXPECT_EQ(Value(Date{44075}).date(), Date{44075});
    EXPECT_EQ(Value("往来").text(), "往来");
    const Ref<Object> object = Readable({});
    EXPECT_EQ(Value(object).object(), object.get());
    EXPECT_EQ(Value::Nothing().object(), nullptr);
}

TEST(Value, TellsEmptyNullAndNothingApart) {
    EXPECT_TRUE(Value().IsEmpty());
    EXPECT_TRUE(Value::Null().IsNull());
    EXPECT_TRUE(Value::Nothing().IsNothing());
    EXPECT_TRUE(Value::Nothing().IsObject());
    EXPECT_FALSE(Value(Readable({})).IsNothing());
    EXPECT_FALSE(Value().IsNothing());
    EXPECT_FALSE(Value("").IsEmpty());
}

TEST(Value, IsEqualOnlyInTypeAndContent) {
    const std::vector<Value> values = OneOfEach();
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (std::size_t j = 0; j < values.size(); ++j) {
            EXPECT_EQ(values[i] == values[j], i == j) << i << " " << j;
        }
    }
    EXPECT_EQ(Value("a"), Value(std::string("a")));
    EXPECT_NE(Value("a"), Value("b"));
    EXPECT_NE(Value(Readable({})), Value(Readable({})));
}

TEST(Value, IsCopiedMovedAndAssigned) {
    for (const Value& value : OneOfEach()) {
        Value copy = value;
        EXPECT_EQ(copy, value);
        Value& itself = copy;
        copy = itself;
        EXPECT_EQ(copy, value);
        Value moved = std::move(copy);
        EXPECT_EQ(moved, value);
        for (const Value& other : OneOfEach()) {
            Value assigned = other;
            assigned = value;
            EXPECT_EQ(assigned, value);
        }
    }
}

TEST(Value, SharesItsTextWithItsCopies) {
    const Value text = std::string(100, 'x');
    const Value copy = text;
    EXPECT_EQ(&copy.text(), &text.text());
}

TEST(Value, KeepsItsObjectAliveAndLetsItGo) {
    auto log = std::make_shared<test::Log>();
    Value first = MakeRef<test::ScriptedObject>("Kept", std::make_shared<test::Script>(), log);
    {
        const Value second = first;
        first = Value();
        EXPECT_TRUE(log->empty());
    }
    EXPECT_EQ(*log, test::Log{"release Kept"});
}

TEST(Ref, SharesMovesAndHandsOver) {
    auto log = std::make_shared<test::Log>();
    Ref<Object> first = MakeRef<test::ScriptedObject>("Kept", std::make_shared<test::Script>(), log);
    Ref<Object> second = first;
    EXPECT_EQ(first, second);
    Ref<Object> third = std::move(first);
    EXPECT_FALSE(first);
    second = nullptr;
    EXPECT_TRUE(log->empty());
    third.Detach()->Release();
    EXPECT_FALSE(third);
    EXPECT_EQ(*log, test::Log{"release Kept"});
}

}  // namespace
}  // namespace qor
