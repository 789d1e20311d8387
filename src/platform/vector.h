// Vector: the foundation library's list of objects, QRB.Vector, counted from 1. `Header`, `Title` and the
// age groups are such lists.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/object.h"

namespace qor {

class Vector : public TableObject {
 public:
    std::string_view ClassName() const override { return "QRB.Vector"; }
    std::span<const Member> Members() const override;
    MemberId DefaultMember() override;

    virtual std::int32_t Count() const = 0;
    virtual void Add(Value item) = 0;
    /// Item by index from 1 to Count; raises subscript out of range (9) outside.
    virtual Value Item(std::int32_t index) const = 0;
};

class ArrayVector final : public Vector {
 public:
    std::int32_t Count() const override { return static_cast<std::int32_t>(items_.size()); }
    void Add(Value item) override { items_.push_back(std::move(item)); }
    Value Item(std::int32_t index) const override;
    void Clear() { items_.clear(); }

 private:
    std::vector<Value> items_;
};

/// An object of somebody else is taken where it has the shape of one (see late_bound.h).
template <>
Ref<Vector> As<Vector>(const Value& value);

}  // namespace qor
