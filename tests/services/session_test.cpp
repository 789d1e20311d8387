#include "services/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::kNoError;
using test::RaisedBy;
using test::TestProcess;
using testing::ElementsAre;

constexpr const char* kCache = "QORMtsCacheService.CacheFacade";
constexpr const char* kProperties = "QORPropsMgr.ShareProps";

TEST(GetSharedProperty, AsksTheSharedPropertiesTwiceForANormalSession) {
    TestProcess test;
    test.platform.session["AcctName"] = "演示账套";
    EXPECT_EQ(test.process.session.GetSharedProperty("AcctName"), Value("演示账套"));
    EXPECT_THAT(test.platform.log(),
                ElementsAre("create QORMtsCacheService.CacheFacade",
                            "call QORMtsCacheService.CacheFacade.GetItem(&4711, \"IsOuterLogin\")",
                            "create QORPropsMgr.ShareProps",
                            "call QORPropsMgr.ShareProps.GetProperty(&4711, &\"AcctName\")",
                            "call QORPropsMgr.ShareProps.GetProperty(&4711, &\"AcctName\")",
                            "release QORPropsMgr.ShareProps", "release QORMtsCacheService.CacheFacade"));
}

TEST(GetSharedProperty, AsksTheCacheTwiceForASessionFromOutside) {
    TestProcess test;
    test.platform.session["IsOuterLogin"] = 1;
    EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), Value("UserID=16;UserName=demo;"));
    EXPECT_THAT(test.platform.log(),
                ElementsAre("create QORMtsCacheService.CacheFacade",
                            "call QORMtsCacheService.CacheFacade.GetItem(&4711, \"IsOuterLogin\")",
                            "call QORMtsCacheService.CacheFacade.GetItem(&4711, &\"PropsString\")",
                            "call QORMtsCacheService.CacheFacade.GetItem(&4711, &\"PropsString\")",
                            "release QORMtsCacheService.CacheFacade"));
}

TEST(GetSharedProperty, KnowsTheKeysOfASessionFromOutside) {
    TestProcess test;
    test.platform.session["IsOuterLogin"] = "1";
    for (const char* key :
         {"UserName", "UserID", "PropsString", "LogStatus", "AcctName", "AcctType", "Setuptype", "AcctID",
          "SubID", "AcctClosed", "MachineName", "IP", "UUID", "QORLogin"}) {
        test.platform.session[key] = 7;
        EXPECT_EQ(test.process.session.GetSharedProperty(key), Value(7)) << key;
    }
    for (const char* key : {"username", "SetupType", "Language", "IsOuterLogin", ""}) {
        test.platform.session[key] = 7;
        EXPECT_EQ(test.process.session.GetSharedProperty(key), Value()) << key;
    }
}

TEST(GetSharedProperty, IsEmptyForEveryOtherSortOfLogin) {
    TestProcess test;
    for (const Value& outer : {Value(2), Value(-1), Value(true)}) {
        test.platform.session["IsOuterLogin"] = outer;
        test.platform.log().clear();
        EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), Value());
        EXPECT_EQ(test.platform.log().size(), 3U);
    }
}

TEST(GetSharedProperty, TakesALoginThatCannotBeReadForANormalOne) {
    TestProcess test;
    const Value props = test.platform.session["PropsString"];
    for (const Value& outer : {Value(), Value::Null(), Value("abc"), Value(1e10)}) {
        test.platform.session["IsOuterLogin"] = outer;
        EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), props);
    }
    test.platform.Component(kCache).Raises("GetItem", Error(-1, "Cache", "down"));
    EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), props);
    test.platform.Remove(kCache);
    EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), props);
}

TEST(GetSharedProperty, IsEmptyWhereAServiceIsMissingOrFails) {
    TestProcess test;
    test.platform.Component(kProperties).Raises("GetProperty", Error(-1, "Props", "down"));
    EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), Value());
    test.platform.Remove(kProperties);
    EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), Value());
    test.platform.Remove(kCache);
    EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), Value());
    EXPECT_EQ(test.process.session.GetPropsString(), "");
}

TEST(GetSharedProperty, TakesAnObjectAsItIs) {
    TestProcess test;
    const Value object = MakeRef<OrderedDictionary>();
    test.platform.session["Connection"] = object;
    EXPECT_EQ(test.process.session.GetSharedProperty("Connection"), object);
}

TEST(GetSharedProperty, TakesTheSecondAnswer) {
    TestProcess test;
    test.platform.Component(kProperties)
        .AnswersInTurn("GetProperty",
                       {[](Arguments) { return Value("first"); }, [](Arguments) { return Value("second"); }});
    EXPECT_EQ(test.process.session.GetSharedProperty("PropsString"), Value("second"));
}

TEST(GetPropsString, IsAskedAnewEveryTime) {
    TestProcess test;
    EXPECT_EQ(test.process.session.GetPropsString(), "UserID=16;UserName=demo;");
    test.platform.session["PropsString"] = "UserID=17;";
    EXPECT_EQ(test.process.session.GetPropsString(), "UserID=17;");
    test.platform.session["PropsString"] = Value();
    EXPECT_EQ(test.process.session.GetPropsString(), "");
}

TEST(ParsePropsString, SplitsPairs) {
    const struct {
        const char* properties;
        std::map<std::string, std::string> values;
    } rows[] = {
        {"a=1;b={x;y=z};c=3", {{"a", "1"}, {"b", "x;y=z"}, {"c", "3"}}},
        {"a = 1 ; b=2", {{"a", "1"}, {"b", "2"}}},
        {"a={1} lost ;b=2;", {{"a", "1"}, {"b", "2"}}},
        {"a={ 1 };b= 2 2 ", {{"a", "1"}, {"b", "2 2"}}},
        {"a={1;b=2", {{"a", "1;b=2"}}},
        {"a={1} lost, b=2", {{"a", "1"}}},
        {"a=1;b", {{"a", "1"}, {"b", ""}}},
        {"a=;b=2", {{"a", ""}, {"b", "2"}}},
        {"a=1;;b=2", {{"a", "1"}, {";b", "2"}}},
        {"a=1;=lost;b=2", {{"a", "1"}}},
        {"a=1=2;", {{"a", "1=2"}}},
        {"名称=演示;", {{"名称", "演示"}}},
    };
    for (const auto& row : rows) {
        TestProcess test;
        EXPECT_TRUE(test.process.session.ParsePropsString(row.properties)) << row.properties;
        for (const auto& [key, value] : row.values) {
            EXPECT_EQ(test.process.session.GetPropsValue(key), value) << row.properties << " " << key;
        }
        if (!row.values.contains("b")) {
            EXPECT_EQ(RaisedBy([&] { test.process.session.GetPropsValue("b"); }), Automation::InvalidCall)
                << row.properties;
        }
    }
}

TEST(ParsePropsString, OfAnEmptyTextForgetsTheLastOne) {
    TestProcess test;
    EXPECT_TRUE(test.process.session.ParsePropsString("a=1"));
    EXPECT_TRUE(test.process.session.ParsePropsString(""));
    EXPECT_EQ(RaisedBy([&] { test.process.session.GetPropsValue("a"); }), Automation::InvalidCall);
}

TEST(ParsePropsString, RaisesForARepeatedKeyInWhateverCase) {
    TestProcess test;
    EXPECT_EQ(RaisedBy([&] { test.process.session.ParsePropsString("User=1;USER=2"); }),
              Automation::KeyAlreadyThere);
    EXPECT_EQ(test.process.session.GetPropsValue("User"), "1");
}

TEST(GetPropsValue, ComparesKeysWithoutRegardToCase) {
    TestProcess test;
    test.process.session.ParsePropsString("UserName=demo");
    EXPECT_EQ(test.process.session.GetPropsValue("USERNAME"), "demo");
    EXPECT_EQ(RaisedBy([&] { test.process.session.GetPropsValue("User"); }), Automation::InvalidCall);
}

TEST(GetUserID, IsASixteenBitNumber) {
    const struct {
        const char* properties;
        Automation raised;
        std::int16_t user;
    } rows[] = {
        {"UserID=16", kNoError, 16},
        {"userid={ 32767 }", kNoError, 32767},
        {"UserID=32768", Automation::Overflow, 0},
        {"UserID=demo", Automation::TypeMismatch, 0},
        {"UserID=", Automation::TypeMismatch, 0},
        {"UserName=demo", Automation::InvalidCall, 0},
    };
    for (const auto& row : rows) {
        TestProcess test;
        test.process.session.ParsePropsString(row.properties);
        std::int16_t user = 0;
        EXPECT_EQ(RaisedBy([&] { user = test.process.session.GetUserID(); }), row.raised) << row.properties;
        EXPECT_EQ(user, row.user) << row.properties;
    }
}

}  // namespace
}  // namespace qor
