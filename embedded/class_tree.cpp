#include "embedded/class_tree.h"

#include <unordered_set>

namespace qor {

namespace {

struct ReadClass {
    std::int64_t id, parent;
    ClassTree::Class row;
};

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

/// By code, each still without its place in the tree.
std::vector<ReadClass> ReadClasses(AccountSet& set, const CategorySide& side, const ReportFilter& filter) {
    const std::unordered_set<std::int64_t> range = ReadRange(set, side, filter);
    const bool withDisabled = filter.Flag("chkForbiddenTypeInclude");
    Statement found(set.database(),
                    "SELECT FItemID, FParentID, FNumber, FName, FDetail, FDeleted FROM t_Item "
                    "WHERE FItemClassID=? ORDER BY FNumber");
    found.With(side.classes);
    std::vector<ReadClass> classes;
    while (found.Step()) {
        const bool detail = found.Int(4) != 0, inRange = range.contains(found.Int(0));
        classes.push_back({.id = found.Int(0),
                           .parent = found.Int(1),
                           .row = {.number = found.Text(2),
                                   .name = found.Text(3),
                                   .level = 1,
                                   .parent = ClassTree::kNone,
                                   .rank = classes.size(),
                                   .detail = detail,
                                   .inRange = !detail || inRange,
                                   .taken = detail && inRange && (withDisabled || found.Int(5) == 0)}});
    }
    return classes;
}

}  // namespace

ClassTree::ClassTree(AccountSet& set, const CategorySide& side, const Dictionary& filter) {
    std::vector<ReadClass> read = ReadClasses(set, side, ReportFilter(filter));
    std::unordered_map<std::int64_t, std::vector<std::size_t>> below;
    for (std::size_t i = 0; i < read.size(); ++i) {
        below[read[i].parent].push_back(i);
    }
    struct Open {
        std::size_t read, parent;
    };
    std::vector<Open> open;
    const auto openBelow = [&](std::int64_t id, std::size_t place) {
        const std::vector<std::size_t>& children = below[id];
        for (auto child = children.rbegin(); child != children.rend(); ++child) {
            open.push_back({*child, place});
        }
    };
    openBelow(0, kNone);
    while (!open.empty()) {
        const Open next = open.back();
        open.pop_back();
        const std::size_t place = classes_.size();
        Class& row = classes_.emplace_back(std::move(read[next.read].row));
        row.parent = next.parent;
        if (next.parent != kNone) row.level = classes_[next.parent].level + 1;
        if (row.taken) takenPlaces_[read[next.read].id] = place;
        openBelow(read[next.read].id, place);
    }
    for (std::size_t place = classes_.size(); place-- > 0;) {
        const Class& row = classes_[place];
        if (!row.inRange && row.parent != kNone) classes_[row.parent].inRange = false;
    }
}

}  // namespace qor
