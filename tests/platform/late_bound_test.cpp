#include "platform/late_bound.h"

#include <gtest/gtest.h>

#include "support/foreign.h"
#include "support/raises.h"
#include "support/scripted_object.h"

namespace qor {
namespace {

using test::Foreign;
using test::RaisedBy;

class LateBoundTest : public testing::Test {
 protected:
    Ref<Object> dictionaryObject = MakeRef<Foreign>(MakeRef<OrderedDictionary>());
    Ref<Object> listObject = MakeRef<Foreign>(MakeRef<ArrayVector>());
    Ref<ColumnarRecordSet> rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FName", "FQty"});
    Ref<Object> rowsObject = MakeRef<Foreign>(rows);
};

TEST_F(LateBoundTest, DictionaryDoesWhatItsObjectDoes) {
    const Ref<Dictionary> dictionary = As<Dictionary>(dictionaryObject);
    dictionary->Put("a", 1);
    dictionary->Put("list", listObject);
    EXPECT_TRUE(dictionary->Lookup("a"));
    EXPECT_FALSE(dictionary->Lookup("b"));
    EXPECT_EQ(dictionary->Get("a"), Value(1));
    EXPECT_EQ(dictionary->Get("list"), Value(listObject));
    EXPECT_EQ(dictionary->GetOr("b", 2), Value(2));
    EXPECT_EQ(dictionary->Count(), 2U);
    EXPECT_EQ(dictionary->KeyAt(1), "list");
    dictionary->Remove("a");
    EXPECT_FALSE(dictionary->Lookup("a"));
    EXPECT_EQ(dictionaryObject->Call("Count"), Value(1));
}

TEST_F(LateBoundTest, VectorDoesWhatItsObjectDoes) {
    const Ref<Vector> list = As<Vector>(listObject);
    list->Add("first");
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->Item(1), Value("first"));
    EXPECT_EQ(RaisedBy([&] { list->Item(2); }), Automation::SubscriptOutOfRange);
}

TEST_F(LateBoundTest, RecordSetDoesWhatItsObjectDoes) {
    const Ref<RecordSet> set = As<RecordSet>(rowsObject);
    EXPECT_TRUE(set->Eof());
    EXPECT_TRUE(set->Bof());
    rows->AddRow({"name1", 1});
    rows->AddRow({"name2", 2});
    set->MoveFirst();
    set->Move(1);
    EXPECT_FALSE(set->Eof());
    EXPECT_EQ(set->Field("FQty"), Value(2));
    EXPECT_EQ(set->FieldAt(0), Value("name2"));
    EXPECT_EQ(set->FieldCount(), 2U);
    EXPECT_EQ(set->FieldName(1), "FQty");
    EXPECT_EQ(set->RowCount(), 2);
    EXPECT_EQ(FieldOr(*set, "FName", ""), Value("name2"));
    EXPECT_EQ(RaisedBy([&] { set->Field("FPrice"); }), Automation::NoSuchField);
}

TEST_F(LateBoundTest, StandsForTheObjectBehindIt) {
    EXPECT_EQ(&As<Dictionary>(dictionaryObject)->Identity(), dictionaryObject.get());
    EXPECT_EQ(&As<Vector>(listObject)->Identity(), listObject.get());
    EXPECT_EQ(&As<RecordSet>(rowsObject)->Identity(), rowsObject.get());
    EXPECT_EQ(&dictionaryObject->Identity(), dictionaryObject.get());
}

TEST_F(LateBoundTest, TakesOurOwnAsTheyAre) {
    EXPECT_EQ(As<RecordSet>(rows), Ref<RecordSet>(rows));
    EXPECT_FALSE(As<RecordSet>(Value::Nothing()));
    EXPECT_FALSE(As<Vector>(Value()));
}

TEST_F(LateBoundTest, RefusesObjectsOfAnotherShape) {
    EXPECT_EQ(RaisedBy([&] { As<Dictionary>(listObject); }), Automation::TypeMismatch);
    EXPECT_EQ(RaisedBy([&] { As<Vector>(dictionaryObject); }), Automation::TypeMismatch);
    EXPECT_EQ(RaisedBy([&] { As<RecordSet>(dictionaryObject); }), Automation::TypeMismatch);
    EXPECT_EQ(RaisedBy([&] { As<RecordSet>("rows"); }), Automation::TypeMismatch);
}

TEST_F(LateBoundTest, RaisesForWhatTheObjectDoesNotHave) {
    const Ref<Dictionary> dictionary = As<Dictionary>(test::Readable({{"Lookup", true}}));
    EXPECT_TRUE(dictionary->Lookup("a"));
    EXPECT_EQ(RaisedBy([&] { dictionary->Get("a"); }), Automation::NoSuchMember);
    EXPECT_EQ(RaisedBy([&] { dictionary->Count(); }), Automation::NoSuchMember);
}

}  // namespace
}  // namespace qor
