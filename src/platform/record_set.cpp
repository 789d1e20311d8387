#include "platform/record_set.h"

#include <algorithm>

#include "platform/conversions.h"

namespace qor {

namespace {

RecordSet& Self(Object& self) { return static_cast<RecordSet&>(self); }

/// One field of a record set, read at the set's current row.
class FieldObject final : public TableObject {
 public:
    FieldObject(RecordSet& rows, std::size_t column) : rows_(&rows), column_(column) {}
    std::string_view ClassName() const override { return "ADODB.Field"; }
    std::span<const Member> Members() const override;
    MemberId DefaultMember() override { return 0; }

    Value Current() const { return rows_->FieldAt(column_); }
    std::string Name() const { return rows_->FieldName(column_); }

 private:
    Ref<RecordSet> rows_;
    std::size_t column_;
};

constexpr Member kFieldMembers[] = {
    {.name = "Value",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) { return static_cast<FieldObject&>(self).Current(); }},
    {.name = "Name",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return static_cast<FieldObject&>(self).Name(); },
     .result = ParameterType::Text},
};

std::span<const Member> FieldObject::Members() const { return kFieldMembers; }

/// The fields of a record set, by name or by position from 0.
class FieldsObject final : public TableObject {
 public:
    explicit FieldsObject(RecordSet& rows) : rows_(&rows) {}
    std::string_view ClassName() const override { return "ADODB.Fields"; }
    std::span<const Member> Members() const override;
    MemberId DefaultMember() override { return 1; }

    std::int32_t Count() const { return static_cast<std::int32_t>(rows_->FieldCount()); }
    Value Item(const Value& index) const { return MakeRef<FieldObject>(*rows_, Find(index)); }

 private:
    std::size_t Find(const Value& index) const {
        const std::size_t count = rows_->FieldCount();
        if (index.IsText()) {
            for (std::size_t i = 0; i < count; ++i) {
                if (EqualsIgnoringCase(rows_->FieldName(i), index.text())) return i;
            }
        } else {
            const std::int32_t position = ToInt32(index);
            if (position >= 0 && static_cast<std::size_t>(position) < count)
                return static_cast<std::size_t>(position);
        }
        Raise(Automation::NoSuchField);
    }

    Ref<RecordSet> rows_;
};

constexpr Member kFieldsMembers[] = {
    {.name = "Count",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return static_cast<FieldsObject&>(self).Count(); },
     .result = ParameterType::Int32},
    {.name = "Item",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments a) { return static_cast<FieldsObject&>(self).Item(*a[0]); },
     .result = ParameterType::Object,
     .parameters = {{{"Index"}}}},
};

std::span<const Member> FieldsObject::Members() const { return kFieldsMembers; }

constexpr Member kMembers[] = {
    {.name = "Fields",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return MakeRef<FieldsObject>(Self(self)); },
     .result = ParameterType::Object},
    {.name = "EOF",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return Self(self).Eof(); },
     .result = ParameterType::Boolean},
    {.name = "BOF",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return Self(self).Bof(); },
     .result = ParameterType::Boolean},
    {.name = "MoveFirst",
     .kind = InvokeKind::Method,
     .invoke = [](Object& self, Arguments) { return Self(self).MoveFirst(), Value(); }},
    {.name = "MoveNext",
     .kind = InvokeKind::Method,
     .invoke = [](Object& self, Arguments) { return Self(self).Move(1), Value(); }},
    {.name = "MovePrevious",
     .kind = InvokeKind::Method,
     .invoke = [](Object& self, Arguments) { return Self(self).Move(-1), Value(); }},
    {.name = "Move",
     .kind = InvokeKind::Method,
     .invoke = [](Object& self, Arguments a) { return Self(self).Move(a[0]->int32()), Value(); },
     .parameters = {{{"NumRecords", ParameterType::Int32}}}},
    {.name = "RecordCount",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value { return Self(self).RowCount(); },
     .result = ParameterType::Int32},
};

}  // namespace

std::span<const Member> RecordSet::Members() const { return kMembers; }

MemberId RecordSet::DefaultMember() { return 0; }

ColumnarRecordSet::ColumnarRecordSet(std::vector<std::string> fields)
    : fields_(std::move(fields)), columns_(fields_.size()) {}

void ColumnarRecordSet::AddRow(std::vector<Value>&& cells) {
    if (cells.size() != columns_.size()) Raise(Automation::InvalidCall);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        columns_[i].push_back(std::move(cells[i]));
    }
}

void ColumnarRecordSet::Reserve(std::size_t rows) {
    for (auto& column : columns_) {
        column.reserve(rows);
    }
}

void ColumnarRecordSet::MoveFirst() {
    if (Rows() == 0) Raise(Automation::NoCurrentRecord);
    position_ = 0;
}

void ColumnarRecordSet::Move(std::int32_t rows) {
    if (Rows() == 0 || (rows > 0 && Eof()) || (rows < 0 && Bof())) Raise(Automation::NoCurrentRecord);
    position_ = std::clamp<std::int64_t>(position_ + rows, -1, Rows());
}

Value ColumnarRecordSet::Field(std::string_view name) const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        if (EqualsIgnoringCase(fields_[i], name)) return FieldAt(i);
    }
    Raise(Automation::NoSuchField);
}

Value ColumnarRecordSet::FieldAt(std::size_t column) const {
    if (column >= columns_.size()) Raise(Automation::NoSuchField);
    if (Eof() || Bof()) Raise(Automation::NoCurrentRecord);
    return columns_[column][static_cast<std::size_t>(position_)];
}

Value FieldOr(const RecordSet& rows, std::string_view name, Value standIn) {
    Value value = rows.Field(name);
    return value.IsNull() || value.IsEmpty() ? std::move(standIn) : value;
}

}  // namespace qor
