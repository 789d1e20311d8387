#include "services/process_bag.h"

#include <gtest/gtest.h>

#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::RaisedBy;
using test::Script;
using test::ScriptedObject;
using test::TestProcess;

TEST(ProcessBag, GivesTheStandInWithoutABagOrAnItem) {
    TestProcess test;
    EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour", "blue"), Value("blue"));
    EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour"), Value());
    test.platform.bag = nullptr;
    EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour", "blue"), Value("blue"));
    EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour"), Value());
}

TEST(ProcessBag, GivesTheItemAsItStands) {
    TestProcess test;
    test.platform.Bag().Put("Colour", std::int16_t{7});
    EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour", "blue"), Value(std::int16_t{7}));
}

TEST(ProcessBag, GivesTheStandInWhereTheBagFails) {
    const Error broken(-1, "Shell", "broken");
    auto lookupFails = std::make_shared<Script>();
    lookupFails->Raises("Lookup", broken).Answers("Item", "red");
    auto itemFails = std::make_shared<Script>();
    itemFails->Answers("Lookup", true).Raises("Item", broken);
    auto lookupIsNoBoolean = std::make_shared<Script>();
    lookupIsNoBoolean->Answers("Lookup", "perhaps").Answers("Item", "red");

    TestProcess test;
    for (const auto& script : {lookupFails, itemFails, lookupIsNoBoolean}) {
        test.platform.bag = MakeRef<ScriptedObject>("Bag", script);
        EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour", "blue"), Value("blue"));
        EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour"), Value());
    }
}

TEST(ProcessBag, ReadsABagThatHasOnlyAnItemMember) {
    auto script = std::make_shared<Script>();
    script->Answers("Lookup", std::int16_t{-1}).Answers("Item", "red");
    TestProcess test;
    test.platform.bag = MakeRef<ScriptedObject>("Bag", script);
    EXPECT_EQ(test.process.bag.GetProcessBagItem("Colour", "blue"), Value("red"));
}

TEST(ProcessBag, PutsAnItem) {
    TestProcess test;
    test.process.bag.SetProcessBagItem("Colour", "red");
    EXPECT_EQ(test.platform.Bag().Get("Colour"), Value("red"));
    const Value object = MakeRef<OrderedDictionary>();
    test.process.bag.SetProcessBagItem("Colour", object);
    EXPECT_EQ(test.platform.Bag().Get("Colour"), object);
}

TEST(ProcessBag, RaisesForAPutWithoutABag) {
    TestProcess test;
    test.platform.bag = nullptr;
    EXPECT_EQ(RaisedBy([&] { test.process.bag.SetProcessBagItem("Colour", "red"); }),
              Automation::ObjectNotSet);
}

TEST(ProcessBag, NeverKeepsTheBag) {
    auto log = std::make_shared<test::Log>();
    auto script = std::make_shared<Script>();
    script->Answers("Lookup", true).Answers("Item", 1);
    TestProcess test;
    test.platform.bag = MakeRef<ScriptedObject>("Bag", script, log);
    test.process.bag.GetAppType();
    test.process.bag.SetProcessBagItem("AppType", 2);
    test.platform.bag = nullptr;
    ASSERT_FALSE(log->empty());
    EXPECT_EQ(log->back(), "release Bag");
}

TEST(ProcessBag, HasDefaultsForItsSettings) {
    TestProcess test;
    for (const bool hasBag : {true, false}) {
        if (!hasBag) test.platform.bag = nullptr;
        EXPECT_EQ(test.process.bag.GetAppType(), 2);
        EXPECT_EQ(test.process.bag.GetIndustryType(), 0);
        EXPECT_TRUE(test.process.bag.IsGLAndICUnite());
    }
}

TEST(ProcessBag, ConvertsItsSettings) {
    TestProcess test;
    test.platform.Bag().Put("AppType", "4");
    test.platform.Bag().Put("IndustryType", std::int16_t{3});
    test.platform.Bag().Put("GLAndICUnite", 0);
    EXPECT_EQ(test.process.bag.GetAppType(), 4);
    EXPECT_EQ(test.process.bag.GetIndustryType(), 3);
    EXPECT_FALSE(test.process.bag.IsGLAndICUnite());
    test.platform.Bag().Put("AppType", "four");
    EXPECT_EQ(RaisedBy([&] { test.process.bag.GetAppType(); }), Automation::TypeMismatch);
}

}  // namespace
}  // namespace qor
