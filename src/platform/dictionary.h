// Dictionary: the foundation library's keyed store, QRB.Dictionary. Every filter, result, property set
// and column descriptor is one. Keys are compared exactly and keep the order of their first put.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/object.h"

namespace qor {

class Dictionary : public TableObject {
 public:
    std::string_view ClassName() const override { return "QRB.Dictionary"; }
    std::span<const Member> Members() const override;
    MemberId DefaultMember() override;

    virtual bool Lookup(std::string_view key) const = 0;
    /// The value under the key; Empty if there is none.
    virtual Value Get(std::string_view key) const = 0;
    virtual void Put(std::string_view key, Value value) = 0;
    virtual void Remove(std::string_view key) = 0;
    virtual std::size_t Count() const = 0;
    /// Key by position, from 0, in the order of the first puts.
    virtual std::string KeyAt(std::size_t position) const = 0;

    /// The value under the key, or `standIn` where the key is missing.
    Value GetOr(std::string_view key, Value standIn) const {
        return Lookup(key) ? Get(key) : std::move(standIn);
    }
};

class OrderedDictionary final : public Dictionary {
 public:
    bool Lookup(std::string_view key) const override { return Find(key) != nullptr; }
    Value Get(std::string_view key) const override;
    void Put(std::string_view key, Value value) override;
    void Remove(std::string_view key) override;
    std::size_t Count() const override { return entries_.size(); }
    std::string KeyAt(std::size_t position) const override { return entries_.at(position).key; }

 private:
    struct Entry {
        std::string key;
        Value value;
    };
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
    };
    using Index = std::unordered_map<std::string, std::size_t, KeyHash, std::equal_to<>>;

    const Entry* Find(std::string_view key) const;
    void BuildIndex();

    std::vector<Entry> entries_;
    std::unique_ptr<Index> index_;  // only for dictionaries too large to be searched from end to end
};

/// An object of somebody else is taken where it has the shape of one (see late_bound.h).
template <>
Ref<Dictionary> As<Dictionary>(const Value& value);

}  // namespace qor
