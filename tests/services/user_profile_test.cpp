#include "services/user_profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::RaisedBy;
using test::TestProcess;
using testing::ElementsAre;

constexpr const char* kProfile = "QOREBCBASE.UserProfile";
const Error kDown(-1, "Server", "down");
constexpr auto kDownNumber = static_cast<Automation>(-1);

Value Read(TestProcess& test, const Value& standIn) {
    return test.process.userProfile.GetUserProfileValue("QOR", "ARAP", "ZLFXB", standIn);
}

bool Save(TestProcess& test, const Value& value) {
    return test.process.userProfile.SaveUserProfileValue("QOR", "ARAP", "ZLFXB", value);
}

TEST(GetUserProfileValue, ReadsFromTheLoadedDictionary) {
    TestProcess test;
    EXPECT_EQ(Read(test, "0"), Value("0"));
    EXPECT_THAT(
        test.platform.log(),
        ElementsAre("create QOREBCBASE.UserProfile", "call QOREBCBASE.UserProfile.Load(\"QOR\", \"ARAP\")",
                    "read QOREBCBASE.UserProfile.Dictionary", "release QOREBCBASE.UserProfile"));
}

TEST(GetUserProfileValue, IsABooleanWhereItsStandInIsOneElseAText) {
    const struct {
        Value kept, standIn, answer;
    } rows[] = {
        {1, "0", "1"},       {1, false, true}, {"False", true, false},
        {true, "0", "True"}, {1, 0, "1"},      {"x", Value(), "x"},
    };
    for (const auto& row : rows) {
        TestProcess test;
        Save(test, row.kept);
        EXPECT_EQ(Read(test, row.standIn), row.answer);
    }
}

TEST(GetUserProfileValue, IsEmptyOnEveryFailure) {
    for (const char* member : {"Load", "Dictionary"}) {
        TestProcess test;
        test.platform.Component(kProfile).Raises(member, kDown);
        EXPECT_EQ(Read(test, "0"), Value()) << member;
    }
    TestProcess test;
    Save(test, "perhaps");
    EXPECT_EQ(Read(test, false), Value());
    test.platform.Component(kProfile).Answers("Dictionary", Value::Nothing());
    EXPECT_EQ(Read(test, "0"), Value());
    test.platform.Remove(kProfile);
    EXPECT_EQ(Read(test, "0"), Value());
}

TEST(SaveUserProfileValue, SavesTheLoadedDictionary) {
    TestProcess test;
    EXPECT_TRUE(Save(test, "1"));
    EXPECT_EQ(test.platform.userProfile["QOR/ARAP"]->Get("ZLFXB"), Value("1"));
    EXPECT_THAT(
        test.platform.log(),
        ElementsAre("create QOREBCBASE.UserProfile", "call QOREBCBASE.UserProfile.Load(\"QOR\", \"ARAP\")",
                    "read QOREBCBASE.UserProfile.Dictionary",
                    "call QOREBCBASE.UserProfile.Save(\"QOR\", \"ARAP\")", "release QOREBCBASE.UserProfile"));
    EXPECT_EQ(Read(test, "0"), Value("1"));
}

TEST(SaveUserProfileValue, LetsErrorsThrough) {
    for (const char* member : {"Load", "Dictionary", "Save"}) {
        TestProcess test;
        test.platform.Component(kProfile).Raises(member, kDown);
        EXPECT_EQ(RaisedBy([&] { Save(test, "1"); }), kDownNumber) << member;
        EXPECT_EQ(test.platform.log().back(), "release QOREBCBASE.UserProfile");
    }
    TestProcess test;
    test.platform.Remove(kProfile);
    EXPECT_EQ(RaisedBy([&] { Save(test, "1"); }), Automation::CannotCreate);
}

}  // namespace
}  // namespace qor
