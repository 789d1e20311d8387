// Dictionaries, lists and record sets that somebody else made: a host's or a server's objects of the
// foundation library's shape, reached by member name. Each adapter stands for the object behind it, which
// is what goes out again when the adapter is handed on (Object::Identity).
#pragma once

#include "platform/dictionary.h"
#include "platform/record_set.h"
#include "platform/vector.h"

namespace qor {

/// One member of a foreign object; its id is looked up at the first use and kept.
class LateBoundMember {
 public:
    constexpr explicit LateBoundMember(std::string_view name) : name_(name) {}

    /// Raises 438 where the object has no such member, and whatever the member raises.
    template <class... A>
    Value Invoke(Object& object, InvokeKind kind, A&&... arguments) const {
        std::array<Argument, sizeof...(A)> all{Argument(std::forward<A>(arguments))...};
        return object.Invoke(Id(object), kind, all);
    }

 private:
    MemberId Id(Object& object) const;

    static constexpr MemberId kNotAsked = -2;
    std::string_view name_;
    mutable MemberId id_ = kNotAsked;
};

class LateBoundDictionary final : public Dictionary {
 public:
    explicit LateBoundDictionary(Ref<Object> object) : object_(std::move(object)) {}
    Object& Identity() override { return *object_; }

    bool Lookup(std::string_view key) const override;
    Value Get(std::string_view key) const override;
    void Put(std::string_view key, Value value) override;
    // The foundation library's dictionary offers these only where it can be counted.
    void Remove(std::string_view key) override;
    std::size_t Count() const override;
    std::string KeyAt(std::size_t position) const override;

 private:
    Ref<Object> object_;
    LateBoundMember lookup_{"Lookup"}, value_{"Value"}, remove_{"Remove"}, count_{"Count"}, name_{"Name"};
};

class LateBoundVector final : public Vector {
 public:
    explicit LateBoundVector(Ref<Object> object) : object_(std::move(object)) {}
    Object& Identity() override { return *object_; }

    std::int32_t Count() const override;
    void Add(Value item) override;
    Value Item(std::int32_t index) const override;

 private:
    Ref<Object> object_;
    LateBoundMember count_{"Count"}, add_{"Add"}, item_{"Item"};
};

class LateBoundRecordSet final : public RecordSet {
 public:
    explicit LateBoundRecordSet(Ref<Object> object) : object_(std::move(object)) {}
    Object& Identity() override { return *object_; }

    bool Eof() const override;
    bool Bof() const override;
    void MoveFirst() override;
    void Move(std::int32_t rows) override;
    Value Field(std::string_view name) const override;
    Value FieldAt(std::size_t column) const override;
    std::size_t FieldCount() const override;
    std::string FieldName(std::size_t column) const override;
    std::int32_t RowCount() const override;

 private:
    Value FieldObject(const Value& index) const;

    Ref<Object> object_;
    LateBoundMember fields_{"Fields"}, eof_{"EOF"}, bof_{"BOF"}, moveFirst_{"MoveFirst"}, move_{"Move"},
        recordCount_{"RecordCount"};
};

}  // namespace qor
