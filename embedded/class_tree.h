// The income or expense classes of an account set as a tree, and which of them a filter takes.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/category_side.h"

namespace qor {

class ClassTree {
 public:
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

    struct Class {
        Value number, name;
        std::int32_t level;  // from 1 at the top
        std::size_t parent;  // its place, or kNone
        std::size_t rank;    // its place by code alone
        bool detail;         // carries bills, and no classes below
        bool inRange;        // of a category: with everything below it
        bool taken;          // a detail class in the range that is not disabled, or disabled and asked for
    };

    /// Takes BTypeIn, ETypeIn and chkForbiddenTypeInclude from the filter.
    ClassTree(AccountSet& set, const CategorySide& side, const Dictionary& filter);

    /// In the order of the tree: a class, what stands below it, its next sibling; siblings by code.
    const std::vector<Class>& classes() const { return classes_; }
    /// The place of a detail class that the filter takes; kNone for any other item.
    std::size_t PlaceOfTaken(std::int64_t id) const {
        const auto found = takenPlaces_.find(id);
        return found == takenPlaces_.end() ? kNone : found->second;
    }
    /// The class itself or the class above it that has this level; kNone where it stands higher.
    std::size_t At(std::size_t place, std::int32_t level) const {
        while (place != kNone && classes_[place].level > level)
            place = classes_[place].parent;
        return place != kNone && classes_[place].level == level ? place : kNone;
    }

 private:
    std::vector<Class> classes_;
    std::unordered_map<std::int64_t, std::size_t> takenPlaces_;
};

}  // namespace qor
