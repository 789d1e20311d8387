#include "embedded/class_tree.h"

#include <unordered_set>

namespace qor {

namespace {

std::unordered_set<std::int64_t> ReadRange(AccountSet& set, const CategorySide& side,
                                           const ReportFilter& filter) {
    Conditions range;
    range.Add({"i.FItemClassID=?"}, {std::int64_t{side.classes}});
    AddCodeRange(range, "i.FItemID", side.classes, filter.Code("BTypeIn"), filter.Code("ETypeIn"));
    Statement found(set.database(), "SELECT i.FItemID FROM t_Item i WHERE " + range.Text());
    range.BindTo(found);
    std::unordered_set<std::int64_t> ids;
    while (found.Step()) {
        ids.insert(found.Int(0));
    }
    return ids;
}

}  // namespace

ClassTree::ClassTree(AccountSet& set, const CategorySide& side, const Dictionary& dictionary)
    : tree_(set, side.classes) {
    const ReportFilter filter(dictionary);
    const std::unordered_set<std::int64_t> range = ReadRange(set, side, filter);
    const bool withDisabled = filter.Flag("chkForbiddenTypeInclude");
    for (const ItemTree::Node& node : tree_.nodes()) {
        const bool inRange = range.contains(node.id);
        classes_.push_back(
            {node, !node.detail || inRange, node.detail && inRange && (withDisabled || !node.disabled)});
    }
    for (std::size_t place = classes_.size(); place-- > 0;) {
        const Class& row = classes_[place];
        if (!row.inRange && row.parent != kNone) classes_[row.parent].inRange = false;
    }
}

}  // namespace qor
