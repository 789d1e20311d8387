#include "platform/dictionary.h"

#include <gtest/gtest.h>

#include "support/raises.h"

namespace qor {
namespace {

using test::RaisedBy;

std::string KeysOf(const Dictionary& dictionary) {
    std::string keys;
    for (std::size_t i = 0; i < dictionary.Count(); ++i) {
        keys += dictionary.KeyAt(i) + ";";
    }
    return keys;
}

class DictionaryTest : public testing::Test {
 protected:
    Ref<Dictionary> dictionary = MakeRef<OrderedDictionary>();
};

TEST_F(DictionaryTest, KeepsKeysInTheOrderOfTheirFirstPut) {
    dictionary->Put("b", 1);
    dictionary->Put("a", 2);
    dictionary->Put("b", 3);
    EXPECT_EQ(KeysOf(*dictionary), "b;a;");
    EXPECT_EQ(dictionary->Get("b"), Value(3));
}

TEST_F(DictionaryTest, ComparesKeysExactly) {
    dictionary->Put("Key", 1);
    EXPECT_TRUE(dictionary->Lookup("Key"));
    EXPECT_FALSE(dictionary->Lookup("key"));
    EXPECT_FALSE(dictionary->Lookup("Key "));
}

TEST_F(DictionaryTest, GivesEmptyOrTheStandInForAMissingKey) {
    EXPECT_EQ(dictionary->Get("key"), Value());
    EXPECT_EQ(dictionary->GetOr("key", 7), Value(7));
    EXPECT_FALSE(dictionary->Lookup("key"));
    dictionary->Put("key", Value());
    EXPECT_TRUE(dictionary->Lookup("key"));
    EXPECT_EQ(dictionary->GetOr("key", 7), Value());
}

TEST_F(DictionaryTest, RemovesKeys) {
    dictionary->Put("a", 1);
    dictionary->Put("b", 2);
    dictionary->Remove("a");
    dictionary->Remove("missing");
    EXPECT_EQ(KeysOf(*dictionary), "b;");
    dictionary->Put("a", 3);
    EXPECT_EQ(KeysOf(*dictionary), "b;a;");
}

TEST_F(DictionaryTest, StaysTheSameWhenItGrowsLarge) {
    for (int i = 0; i < 1000; ++i) {
        dictionary->Put("key" + std::to_string(i), i);
    }
    for (int i = 0; i < 1000; i += 2) {
        dictionary->Remove("key" + std::to_string(i));
    }
    dictionary->Put("key1", "changed");
    EXPECT_EQ(dictionary->Count(), 500U);
    EXPECT_EQ(dictionary->KeyAt(499), "key999");
    EXPECT_EQ(dictionary->Get("key999"), Value(999));
    EXPECT_EQ(dictionary->Get("key1"), Value("changed"));
    EXPECT_FALSE(dictionary->Lookup("key998"));
}

TEST_F(DictionaryTest, IsReachedByName) {
    static_cast<Object&>(*dictionary).Put("Value", "a", 1);
    EXPECT_EQ(dictionary->Call("Lookup", "a"), Value(true));
    EXPECT_EQ(dictionary->Call("Lookup", 7), Value(false));
    EXPECT_EQ(static_cast<Object&>(*dictionary).Get("Value", "a"), Value(1));
    EXPECT_EQ(dictionary->Call("GetValue", "a", 2), Value(1));
    EXPECT_EQ(dictionary->Call("GetValue", "b", 2), Value(2));
    EXPECT_EQ(dictionary->Call("GetValue", "b"), Value());
    EXPECT_EQ(dictionary->Call("Count"), Value(1));
    EXPECT_EQ(dictionary->Call("Name", 1), Value("a"));
    dictionary->Call("Remove", "a");
    EXPECT_EQ(dictionary->Count(), 0U);
}

TEST_F(DictionaryTest, RaisesForAPositionOutside) {
    for (const int position : {0, 1, -1}) {
        EXPECT_EQ(RaisedBy([&] { dictionary->Call("Name", position); }), Automation::SubscriptOutOfRange);
    }
}

TEST_F(DictionaryTest, HasItsValuesAsDefaultMember) {
    dictionary->Put("a", 1);
    Argument key("a");
    EXPECT_EQ(dictionary->Invoke(dictionary->DefaultMember(), InvokeKind::Get, {&key, 1}), Value(1));
    Argument put[] = {"b", dictionary};
    dictionary->Invoke(dictionary->DefaultMember(), InvokeKind::PutRef, put);
    EXPECT_EQ(dictionary->Get("b"), Value(dictionary));
    dictionary->Remove("b");
}

}  // namespace
}  // namespace qor
