#include "platform/late_bound.h"

#include "platform/conversions.h"

namespace qor {

namespace {

/// Adapts a foreign object that has the member by which objects of that shape are known.
template <class Interface, class Adapter>
Ref<Interface> Adapted(const Value& value, std::string_view shapeMember) {
    if (value.IsEmpty() || value.IsNothing()) return {};
    if (!value.IsObject()) Raise(Automation::TypeMismatch);
    if (auto* own = dynamic_cast<Interface*>(value.object())) return Ref<Interface>(own);
    if (value.object()->FindMember(shapeMember) == kNoMember) Raise(Automation::TypeMismatch);
    return MakeRef<Adapter>(Ref<Object>(value.object()));
}

}  // namespace

template <>
Ref<Dictionary> As<Dictionary>(const Value& value) {
    return Adapted<Dictionary, LateBoundDictionary>(value, "Lookup");
}

template <>
Ref<Vector> As<Vector>(const Value& value) {
    return Adapted<Vector, LateBoundVector>(value, "Item");
}

template <>
Ref<RecordSet> As<RecordSet>(const Value& value) {
    return Adapted<RecordSet, LateBoundRecordSet>(value, "MoveFirst");
}

MemberId LateBoundMember::Id(Object& object) const {
    if (id_ == kNotAsked) id_ = object.FindMember(name_);
    if (id_ == kNoMember) Raise(Automation::NoSuchMember);
    return id_;
}

bool LateBoundDictionary::Lookup(std::string_view key) const {
    return ToBoolean(lookup_.Invoke(*object_, InvokeKind::Method, key));
}

Value LateBoundDictionary::Get(std::string_view key) const {
    return value_.Invoke(*object_, InvokeKind::Get, key);
}

void LateBoundDictionary::Put(std::string_view key, Value value) {
    const InvokeKind kind = value.IsObject() ? InvokeKind::PutRef : InvokeKind::Put;
    value_.Invoke(*object_, kind, key, std::move(value));
}

void LateBoundDictionary::Remove(std::string_view key) { remove_.Invoke(*object_, InvokeKind::Method, key); }

std::size_t LateBoundDictionary::Count() const {
    return static_cast<std::size_t>(ToInt32(count_.Invoke(*object_, InvokeKind::Get)));
}

std::string LateBoundDictionary::KeyAt(std::size_t position) const {
    return ToText(name_.Invoke(*object_, InvokeKind::Get, static_cast<std::int32_t>(position + 1)));
}

std::int32_t LateBoundVector::Count() const { return ToInt32(count_.Invoke(*object_, InvokeKind::Get)); }

void LateBoundVector::Add(Value item) { add_.Invoke(*object_, InvokeKind::Method, std::move(item)); }

Value LateBoundVector::Item(std::int32_t index) const {
    return item_.Invoke(*object_, InvokeKind::Get, index);
}

bool LateBoundRecordSet::Eof() const { return ToBoolean(eof_.Invoke(*object_, InvokeKind::Get)); }

bool LateBoundRecordSet::Bof() const { return ToBoolean(bof_.Invoke(*object_, InvokeKind::Get)); }

void LateBoundRecordSet::MoveFirst() { moveFirst_.Invoke(*object_, InvokeKind::Method); }

void LateBoundRecordSet::Move(std::int32_t rows) { move_.Invoke(*object_, InvokeKind::Method, rows); }

Value LateBoundRecordSet::FieldObject(const Value& index) const {
    return ObjectIn(fields_.Invoke(*object_, InvokeKind::Get)).Get("Item", index);
}

Value LateBoundRecordSet::Field(std::string_view name) const {
    return ObjectIn(FieldObject(name)).Get("Value");
}

Value LateBoundRecordSet::FieldAt(std::size_t column) const {
    return ObjectIn(FieldObject(static_cast<std::int32_t>(column))).Get("Value");
}

std::size_t LateBoundRecordSet::FieldCount() const {
    return static_cast<std::size_t>(
        ToInt32(ObjectIn(fields_.Invoke(*object_, InvokeKind::Get)).Get("Count")));
}

std::string LateBoundRecordSet::FieldName(std::size_t column) const {
    return ToText(ObjectIn(FieldObject(static_cast<std::int32_t>(column))).Get("Name"));
}

std::int32_t LateBoundRecordSet::RowCount() const {
    return ToInt32(recordCount_.Invoke(*object_, InvokeKind::Get));
}

}  // namespace qor
