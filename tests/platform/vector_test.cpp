#include "platform/vector.h"

#include <gtest/gtest.h>

#include "support/raises.h"

namespace qor {
namespace {

using test::RaisedBy;

TEST(VectorTest, CountsFromOne) {
    const Ref<Vector> list = MakeRef<ArrayVector>();
    EXPECT_EQ(list->Count(), 0);
    list->Add("a");
    list->Add(Value::Nothing());
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(list->Item(1), Value("a"));
    EXPECT_EQ(list->Item(2), Value::Nothing());
}

TEST(VectorTest, RaisesForAnIndexOutside) {
    const Ref<Vector> list = MakeRef<ArrayVector>();
    list->Add("a");
    for (const std::int32_t index : {0, 2, -1}) {
        EXPECT_EQ(RaisedBy([&] { list->Item(index); }), Automation::SubscriptOutOfRange) << index;
    }
}

TEST(VectorTest, IsReachedByName) {
    const Ref<Object> list = MakeRef<ArrayVector>();
    list->Call("Add", "a");
    EXPECT_EQ(list->Get("Count"), Value(1));
    EXPECT_EQ(list->Get("Item", "1"), Value("a"));
    Argument index(std::int16_t{1});
    EXPECT_EQ(list->Invoke(list->DefaultMember(), InvokeKind::Get, {&index, 1}), Value("a"));
}

}  // namespace
}  // namespace qor
