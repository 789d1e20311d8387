#include "embedded/item_tree.h"

namespace qor {

namespace {

struct ReadItem {
    ItemTree::Node node;
    std::int64_t parent;
};

/// By code, each still without its place in the tree.
std::vector<ReadItem> ReadItems(AccountSet& set, std::int32_t itemClass) {
    Statement found(set.database(),
                    "SELECT FItemID, FParentID, FNumber, FName, FDetail, FDeleted FROM t_Item "
                    "WHERE FItemClassID=? ORDER BY FNumber");
    found.With(itemClass);
    std::vector<ReadItem> items;
    while (found.Step()) {
        items.push_back({.node = {.id = found.Int(0),
                                  .number = found.Text(2),
                                  .name = found.Text(3),
                                  .level = 1,
                                  .parent = ItemTree::kNone,
                                  .rank = items.size(),
                                  .detail = found.Int(4) != 0,
                                  .disabled = found.Int(5) != 0},
                         .parent = found.Int(1)});
    }
    return items;
}

}  // namespace

ItemTree::ItemTree(AccountSet& set, std::int32_t itemClass) {
    std::vector<ReadItem> read = ReadItems(set, itemClass);
    std::unordered_map<std::int64_t, std::vector<std::size_t>> below;
    for (const ReadItem& item : read) {
        below[item.node.id];
    }
    for (std::size_t i = 0; i < read.size(); ++i) {
        below[below.contains(read[i].parent) ? read[i].parent : 0].push_back(i);  // 0: stands at the top
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
        const std::size_t place = nodes_.size();
        Node& node = nodes_.emplace_back(std::move(read[next.read].node));
        node.parent = next.parent;
        if (next.parent != kNone) node.level = nodes_[next.parent].level + 1;
        places_[node.id] = place;
        openBelow(node.id, place);
    }
}

}  // namespace qor
