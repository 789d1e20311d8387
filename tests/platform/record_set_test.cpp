#include "platform/record_set.h"

#include <gtest/gtest.h>

#include "support/raises.h"

namespace qor {
namespace {

using test::RaisedBy;

class RecordSetTest : public testing::Test {
 protected:
    RecordSetTest() {
        for (int i = 1; i <= 3; ++i) {
            rows->AddRow({"name" + std::to_string(i), i});
        }
    }
    Ref<ColumnarRecordSet> rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FName", "FQty"});
    Ref<ColumnarRecordSet> empty = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FName"});
};

TEST_F(RecordSetTest, StartsOnItsFirstRow) {
    EXPECT_FALSE(rows->Bof());
    EXPECT_FALSE(rows->Eof());
    EXPECT_EQ(rows->Field("FName"), Value("name1"));
    EXPECT_EQ(rows->RowCount(), 3);
    EXPECT_EQ(rows->FieldCount(), 2U);
    EXPECT_EQ(rows->FieldName(1), "FQty");
    EXPECT_EQ(rows->Cell(2, 1), Value(3));
}

TEST_F(RecordSetTest, FindsFieldsInWhateverCase) {
    EXPECT_EQ(rows->Field("fqty"), Value(1));
    EXPECT_EQ(rows->FieldAt(0), Value("name1"));
    EXPECT_EQ(RaisedBy([&] { rows->Field("FPrice"); }), Automation::NoSuchField);
    EXPECT_EQ(RaisedBy([&] { rows->FieldAt(2); }), Automation::NoSuchField);
}

TEST_F(RecordSetTest, MovesByAnyNumberOfRowsAndStopsAtItsEnds) {
    rows->Move(2);
    EXPECT_EQ(rows->Field("FQty"), Value(3));
    rows->Move(-1);
    EXPECT_EQ(rows->Field("FQty"), Value(2));
    rows->Move(100);
    EXPECT_TRUE(rows->Eof());
    EXPECT_FALSE(rows->Bof());
    rows->Move(-1);
    EXPECT_EQ(rows->Field("FQty"), Value(3));
    rows->Move(-100);
    EXPECT_TRUE(rows->Bof());
    EXPECT_FALSE(rows->Eof());
    rows->MoveFirst();
    EXPECT_EQ(rows->Field("FQty"), Value(1));
}

TEST_F(RecordSetTest, RaisesForMovingFurtherOut) {
    rows->Move(3);
    EXPECT_EQ(RaisedBy([&] { rows->Move(1); }), Automation::NoCurrentRecord);
    rows->Move(-4);
    EXPECT_EQ(RaisedBy([&] { rows->Move(-1); }), Automation::NoCurrentRecord);
}

TEST_F(RecordSetTest, RaisesForReadingOutsideItsRows) {
    rows->Move(3);
    EXPECT_EQ(RaisedBy([&] { rows->Field("FName"); }), Automation::NoCurrentRecord);
    rows->Move(-4);
    EXPECT_EQ(RaisedBy([&] { rows->Field("FName"); }), Automation::NoCurrentRecord);
}

TEST_F(RecordSetTest, WithoutRowsIsAtBothEnds) {
    EXPECT_TRUE(empty->Bof());
    EXPECT_TRUE(empty->Eof());
    EXPECT_EQ(RaisedBy([&] { empty->MoveFirst(); }), Automation::NoCurrentRecord);
    EXPECT_EQ(RaisedBy([&] { empty->Move(1); }), Automation::NoCurrentRecord);
    EXPECT_EQ(RaisedBy([&] { empty->Field("FName"); }), Automation::NoCurrentRecord);
    const auto withoutFields = MakeRef<ColumnarRecordSet>(std::vector<std::string>{});
    EXPECT_TRUE(withoutFields->Bof());
    EXPECT_TRUE(withoutFields->Eof());
}

TEST_F(RecordSetTest, RefusesARowOfAnotherWidth) {
    EXPECT_EQ(RaisedBy([&] { rows->AddRow({"name4"}); }), Automation::InvalidCall);
    EXPECT_EQ(rows->RowCount(), 3);
}

TEST_F(RecordSetTest, IsReachedByName) {
    Object& object = *rows;
    EXPECT_EQ(object.Get("EOF"), Value(false));
    EXPECT_EQ(object.Get("BOF"), Value(false));
    EXPECT_EQ(object.Get("RecordCount"), Value(3));
    object.Call("MoveNext");
    EXPECT_EQ(ObjectIn(object.Get("Fields", "FQty")).Get("Value"), Value(2));
    object.Call("MovePrevious");
    object.Call("Move", std::int16_t{2});
    EXPECT_EQ(rows->Field("FQty"), Value(3));
    object.Call("MoveFirst");
    EXPECT_EQ(rows->Field("FQty"), Value(1));
}

TEST_F(RecordSetTest, GivesItsFieldsByNameAndPosition) {
    const Value held = rows->Get("Fields");
    Object& fields = ObjectIn(held);
    EXPECT_EQ(fields.ClassName(), "ADODB.Fields");
    EXPECT_EQ(fields.Get("Count"), Value(2));
    const Value byName = fields.Get("Item", "fname");
    const Value byPosition = fields.Get("Item", 1);
    EXPECT_EQ(ObjectIn(byName).ClassName(), "ADODB.Field");
    EXPECT_EQ(ObjectIn(byName).Get("Name"), Value("FName"));
    EXPECT_EQ(ObjectIn(byPosition).Get("Value"), Value(1));
    rows->Move(1);
    EXPECT_EQ(ObjectIn(byPosition).Get("Value"), Value(2));
    for (const Value& index : {Value("FPrice"), Value(2), Value(-1)}) {
        EXPECT_EQ(RaisedBy([&] { fields.Get("Item", index); }), Automation::NoSuchField);
    }
}

TEST_F(RecordSetTest, LivesAsLongAsOneOfItsFields) {
    const Value field = ObjectIn(rows->Get("Fields")).Get("Item", "FName");
    rows = nullptr;
    EXPECT_EQ(ObjectIn(field).Get("Value"), Value("name1"));
}

TEST_F(RecordSetTest, GivesAStandInForNull) {
    rows->AddRow({Value::Null(), Value()});
    rows->Move(3);
    EXPECT_EQ(FieldOr(*rows, "FName", "none"), Value("none"));
    EXPECT_EQ(FieldOr(*rows, "FQty", 0), Value(0));
    rows->MoveFirst();
    EXPECT_EQ(FieldOr(*rows, "FName", "none"), Value("name1"));
    EXPECT_EQ(RaisedBy([&] { FieldOr(*rows, "FPrice", 0); }), Automation::NoSuchField);
}

}  // namespace
}  // namespace qor
