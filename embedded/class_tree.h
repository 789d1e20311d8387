// The income or expense classes of an account set as a tree, and which of them a filter takes.
#pragma once

#include <cstdint>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/category_side.h"
#include "embedded/item_tree.h"

namespace qor {

class ClassTree {
 public:
    static constexpr std::size_t kNone = ItemTree::kNone;

    struct Class : ItemTree::Node {
        bool inRange;  // of a category: with everything below it
        bool taken;    // a detail class in the range that is not disabled, or disabled and asked for
    };

    /// Takes BTypeIn, ETypeIn and chkForbiddenTypeInclude from the filter.
    ClassTree(AccountSet& set, const CategorySide& side, const Dictionary& filter);

    /// In the order of the tree: a class, what stands below it, its next sibling; siblings by code.
    const std::vector<Class>& classes() const { return classes_; }
    /// The place of a detail class that the filter takes; kNone for any other item.
    std::size_t PlaceOfTaken(std::int64_t id) const {
        const std::size_t place = tree_.PlaceOf(id);
        return place != kNone && classes_[place].taken ? place : kNone;
    }
    /// The class itself or the class above it that has this level; kNone where it stands higher.
    std::size_t At(std::size_t place, std::int32_t level) const { return tree_.At(place, level); }

 private:
    ItemTree tree_;
    std::vector<Class> classes_;
};

}  // namespace qor
