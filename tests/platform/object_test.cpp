#include "platform/object.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/conversions.h"
#include "platform/dictionary.h"
#include "platform/vector.h"
#include "support/raises.h"
#include "support/scripted_object.h"

namespace qor {
namespace {

using test::ErrorOf;
using test::RaisedBy;
using test::Shown;

/// A class with a member of every kind.
class Sample final : public TableObject {
 public:
    std::string_view ClassName() const override { return "Sample"; }
    std::span<const Member> Members() const override;

    Value entries = MakeRef<OrderedDictionary>();
    Value items = MakeRef<ArrayVector>();
    std::string text = "before";
    std::string calls;
};

Sample& Self(Object& self) { return static_cast<Sample&>(self); }

Value Told(Object& self, std::string_view member, Arguments arguments) {
    Self(self).calls += std::string(member) + "(";
    for (const Argument& argument : arguments) {
        Self(self).calls += (argument.IsMissing() ? "missing" : Shown(*argument)) + ";";
    }
    Self(self).calls += ")";
    return {};
}

constexpr Member kMembers[] = {
    {.name = "Entries",
     .kind = InvokeKind::Get,
     .invoke = [](Object& s, Arguments) { return Self(s).entries; }},
    {.name = "Items", .kind = InvokeKind::Get, .invoke = [](Object& s, Arguments) { return Self(s).items; }},
    {.name = "MakeEntries",
     .kind = InvokeKind::Method,
     .invoke = [](Object& s, Arguments) { return Self(s).entries; }},
    {.name = "Text",
     .kind = InvokeKind::Get,
     .invoke = [](Object& s, Arguments) -> Value { return Self(s).text; }},
    {.name = "Text",
     .kind = InvokeKind::Put,
     .invoke = [](Object& s, Arguments a) { return Self(s).text = a[0]->text(), Value(); },
     .parameters = {{{"Text", ParameterType::Text}}}},
    {.name = "Number", .kind = InvokeKind::Get, .invoke = [](Object&, Arguments) -> Value { return 7; }},
    {.name = "WriteOnly",
     .kind = InvokeKind::Put,
     .invoke = [](Object& s, Arguments a) { return Told(s, "WriteOnly", a); },
     .parameters = {{{"Value"}}}},
    {.name = "Whole",
     .kind = InvokeKind::PutRef,
     .invoke = [](Object& s, Arguments a) { return Told(s, "Whole", a); },
     .parameters = {{{"Value", ParameterType::Object}}}},
    {.name = "Convert",
     .kind = InvokeKind::Method,
     .invoke = [](Object& s, Arguments a) { return Told(s, "Convert", a); },
     .parameters = {{{"B", ParameterType::Boolean},
                     {"S", ParameterType::Int16},
                     {"L", ParameterType::Int32},
                     {"T", ParameterType::Text},
                     {"Any", ParameterType::Any, false, true},
                     {"O", ParameterType::Object, false, true}}}},
    {.name = "Replace",
     .kind = InvokeKind::Method,
     .invoke = [](Object&, Arguments a) { return *a[0] = ToText(*a[0]) + "!", Value(); },
     .parameters = {{{"Text", ParameterType::Text, true}}}},
};

std::span<const Member> Sample::Members() const { return kMembers; }

class LateBinding : public testing::Test {
 protected:
    Ref<Sample> sample = MakeRef<Sample>();
};

TEST_F(LateBinding, FindsMembersInWhateverCase) {
    EXPECT_EQ(sample->FindMember("TEXT"), sample->FindMember("text"));
    EXPECT_EQ(sample->FindMember("Missing"), kNoMember);
    EXPECT_EQ(sample->FindMember(""), kNoMember);
    EXPECT_EQ(sample->Get("tExT"), Value("before"));
}

TEST_F(LateBinding, RaisesNoSuchMemberForWhatIsNotThere) {
    EXPECT_EQ(RaisedBy([&] { sample->Get("Missing"); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { sample->Call("Missing", 1); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { sample->Put("Missing", 1); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { sample->Invoke(99, InvokeKind::Get, {}); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { sample->Invoke(-1, InvokeKind::Get, {}); }), Automation::NoSuchMember);
}

TEST_F(LateBinding, RaisesNoSuchMemberForTheWrongWayToReachOne) {
    EXPECT_EQ(RaisedBy([&] { sample->Get("WriteOnly"); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { sample->Get("WriteOnly", 1); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { sample->Put("Number", 1); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { sample->Put("Entries", 1); }), Automation::NoSuchMember);
}

TEST_F(LateBinding, ReadsAPropertyThatIsCalledAndCallsAMethodThatIsRead) {
    EXPECT_EQ(sample->Call("Number"), Value(7));
    EXPECT_EQ(sample->Get("MakeEntries"), sample->entries);
}

TEST_F(LateBinding, TakesEitherSortOfPutForTheOther) {
    sample->Put("Whole", sample->entries);
    sample->Put("WriteOnly", sample->items);
    EXPECT_EQ(sample->calls, "Whole({};)WriteOnly(<QRB.Vector>;)");
    EXPECT_EQ(RaisedBy([&] { sample->Put("Whole", 1); }), Automation::TypeMismatch);
}

TEST_F(LateBinding, RaisesForTooFewAndTooManyArguments) {
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert"); }), Automation::ArgumentNotOptional);
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert", true, 1, 1); }), Automation::ArgumentNotOptional);
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert", true, Argument::Missing(), 1, ""); }),
              Automation::ArgumentNotOptional);
    EXPECT_EQ(RaisedBy([&] { sample->InvokeByName("Text", InvokeKind::Put, {}); }),
              Automation::ArgumentNotOptional);
    EXPECT_EQ(RaisedBy([&] { sample->Get("Number", 1); }), Automation::WrongArguments);
    EXPECT_EQ(RaisedBy([&] { sample->Get("Text", 1); }), Automation::WrongArguments);
    EXPECT_EQ(RaisedBy([&] { sample->Put("Text", 1, 2); }), Automation::WrongArguments);
}

TEST_F(LateBinding, DoesNotRunAMethodThatGetsTooManyArguments) {
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert", true, 1, 1, "", 1, sample->items, 1); }),
              Automation::WrongArguments);
    EXPECT_EQ(RaisedBy([&] { sample->Put("Convert", true, 1, 1, "", 1, sample->items, 1, 1); }),
              Automation::NoSuchMember);
    EXPECT_EQ(sample->calls, "");
    EXPECT_EQ(RaisedBy([&] { sample->Call("MakeEntries", "key"); }), Automation::WrongArguments);
}

TEST_F(LateBinding, ConvertsArgumentsToWhatTheParametersTake) {
    sample->Call("Convert", 1, "7", 2.5, 8);
    EXPECT_EQ(sample->calls, "Convert(True;int16(7);2;\"8\";)");
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert", "x", 1, 1, ""); }), Automation::TypeMismatch);
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert", true, 70000, 1, ""); }), Automation::Overflow);
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert", true, 1, 1, Value::Null()); }),
              Automation::InvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { sample->Call("Convert", true, 1, 1, "", 1, 1); }), Automation::TypeMismatch);
}

/// The place of the argument for which a call is refused; nothing where the call fails for another reason.
std::optional<std::ptrdiff_t> RefusedPlace(Object& object, std::string_view member, InvokeKind kind,
                                           std::vector<Argument> arguments) {
    EXPECT_TRUE(ErrorOf([&] { object.InvokeByName(member, kind, arguments); })) << member;
    const auto refused = std::ranges::find_if(arguments, &Argument::IsRefused);
    if (refused == arguments.end()) return std::nullopt;
    return refused - arguments.begin();
}

TEST_F(LateBinding, TellsTheArgumentForWhichACallIsRefused) {
    const auto called = [&](std::vector<Argument> arguments) {
        return RefusedPlace(*sample, "Convert", InvokeKind::Method, std::move(arguments));
    };
    EXPECT_EQ(called({"x", 1, 1, ""}), 0);
    EXPECT_EQ(called({true, 70000, 1, ""}), 1);
    EXPECT_EQ(called({true, Argument::Missing(), 1, ""}), 1);
    EXPECT_EQ(called({true, 1, 1, "", 1, 1}), 5);
    EXPECT_EQ(called({true, 1}), std::nullopt);
    EXPECT_EQ(called({true, 1, 1, "", 1, sample->items, 1}), std::nullopt);
    // An index that goes on to the object that is answered keeps its place.
    EXPECT_EQ(RefusedPlace(*sample, "Entries", InvokeKind::Get, {Value::Null()}), 0);
    EXPECT_EQ(RefusedPlace(*sample, "Entries", InvokeKind::Put, {Value::Null(), 1}), 0);
    Value variable;
    std::vector<Argument> read = {Argument::ByRef(variable)};
    sample->InvokeByName("Replace", InvokeKind::Method, read);
    EXPECT_FALSE(read[0].IsRefused());
}

TEST_F(LateBinding, HandsOptionalArgumentsOnAsTheyAre) {
    sample->Call("Convert", true, 1, 1, "", 2.5, Value::Nothing());
    sample->Call("Convert", true, 1, 1, "", Argument::Missing(), sample->entries);
    EXPECT_EQ(sample->calls,
              "Convert(True;int16(1);1;\"\";double(2.5);Nothing;)Convert(True;int16(1);1;\"\";missing;{};)");
}

TEST_F(LateBinding, LeavesTheCalleesValueInAReference) {
    Value variable = 7;
    sample->Call("Replace", Argument::ByRef(variable));
    EXPECT_EQ(variable, Value("7!"));
    const Value untouched = "7";
    sample->Call("Replace", untouched);
    EXPECT_EQ(untouched, Value("7"));
}

TEST_F(LateBinding, PassesSurplusIndicesToTheObjectThatIsAnswered) {
    sample->Put("Entries", "key", 5);
    EXPECT_EQ(As<Dictionary>(sample->entries)->Get("key"), Value(5));
    EXPECT_EQ(sample->Get("Entries", "key"), Value(5));
    EXPECT_EQ(sample->Call("Entries", "key"), Value(5));
    sample->Put("Entries", "object", sample->items);
    EXPECT_EQ(sample->Get("Entries", "object"), sample->items);
    As<Vector>(sample->items)->Add("first");
    EXPECT_EQ(sample->Get("Items", 1), Value("first"));
}

TEST_F(LateBinding, RaisesForSurplusIndicesThatNobodyTakes) {
    EXPECT_EQ(RaisedBy([&] { sample->Get("Items", 1); }), Automation::SubscriptOutOfRange);
    As<Vector>(sample->items)->Add("first");
    EXPECT_EQ(RaisedBy([&] { sample->Get("Items", 1, 2); }), Automation::WrongArguments);
    EXPECT_EQ(RaisedBy([&] { sample->Put("Items", 1, 2); }), Automation::NoSuchMember);
    sample->entries = Value::Nothing();
    EXPECT_EQ(RaisedBy([&] { sample->Get("Entries", "key"); }), Automation::ObjectNotSet);
    sample->entries = test::Readable({});
    EXPECT_EQ(RaisedBy([&] { sample->Get("Entries", "key"); }), Automation::WrongArguments);
}

TEST(ObjectIn, RaisesWhereThereIsNoObject) {
    const Ref<Object> object = test::Readable({});
    EXPECT_EQ(&ObjectIn(object), object.get());
    EXPECT_EQ(RaisedBy([] { ObjectIn(Value::Nothing()); }), Automation::ObjectNotSet);
    EXPECT_EQ(RaisedBy([] { ObjectIn(Value()); }), Automation::ObjectRequired);
    EXPECT_EQ(RaisedBy([] { ObjectIn("text"); }), Automation::ObjectRequired);
}

TEST(As, TakesNothingAndTheClassThatIsAskedFor) {
    const Ref<OrderedDictionary> dictionary = MakeRef<OrderedDictionary>();
    EXPECT_EQ(As<Dictionary>(dictionary), Ref<Dictionary>(dictionary));
    EXPECT_FALSE(As<Dictionary>(Value()));
    EXPECT_FALSE(As<Dictionary>(Value::Nothing()));
    EXPECT_EQ(RaisedBy([&] { As<Vector>(dictionary); }), Automation::TypeMismatch);
    EXPECT_EQ(RaisedBy([] { As<Dictionary>("text"); }), Automation::TypeMismatch);
}

TEST(EqualsIgnoringCase, ComparesAsciiLettersOnly) {
    EXPECT_TRUE(EqualsIgnoringCase("UserID", "USERid"));
    EXPECT_FALSE(EqualsIgnoringCase("UserID", "UserI"));
    EXPECT_FALSE(EqualsIgnoringCase("a[", "A{"));
    EXPECT_TRUE(EqualsIgnoringCase("客户", "客户"));
}

}  // namespace
}  // namespace qor
