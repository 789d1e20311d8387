// A class of base data as a tree: its categories with what stands below them.
#pragma once

#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

#include "embedded/account_set.h"
#include "platform/value.h"

namespace qor {

class ItemTree {
 public:
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

    struct Node {
        std::int64_t id;
        Value number, name;
        std::int32_t level;  // from 1 at the top
        std::size_t parent;  // its place, or kNone
        std::size_t rank;    // its place by code alone
        bool detail;         // no category
        bool disabled;
    };

    ItemTree(AccountSet& set, std::int32_t itemClass);

    /// In the order of the tree: an item, what stands below it, its next sibling; siblings by code.
    const std::vector<Node>& nodes() const { return nodes_; }
    /// kNone for what is no item of the class.
    std::size_t PlaceOf(std::int64_t id) const {
        const auto found = places_.find(id);
        return found == places_.end() ? kNone : found->second;
    }
    /// The node itself or the one above it that has this level; kNone where it stands higher.
    std::size_t At(std::size_t place, std::int32_t level) const {
        while (place != kNone && nodes_[place].level > level)
            place = nodes_[place].parent;
        return place != kNone && nodes_[place].level == level ? place : kNone;
    }

 private:
    std::vector<Node> nodes_;
    std::unordered_map<std::int64_t, std::size_t> places_;
};

}  // namespace qor
