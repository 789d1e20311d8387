// Where something stands in a list, by the id of an item.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

namespace qor {

class PlaceById {
 public:
    static constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

    void Put(std::int64_t id, std::size_t place) {
        if (id < 0 || id >= kSmallIds) {
            large_[id] = place;
            return;
        }
        const auto small = static_cast<std::size_t>(id);
        if (small >= small_.size()) small_.resize(std::max(small + 1, small_.size() * 2), kNowhere);
        small_[small] = place;
    }

    /// kNowhere for an id that was not put.
    std::size_t Of(std::int64_t id) const {
        const auto small = static_cast<std::uint64_t>(id);
        if (small < small_.size()) return small_[small];
        if (large_.empty()) return kNowhere;
        const auto found = large_.find(id);
        return found == large_.end() ? kNowhere : found->second;
    }

 private:
    static constexpr std::int64_t kSmallIds = 1 << 20;

    std::vector<std::size_t> small_;  // by id, as base data mostly have them
    std::unordered_map<std::int64_t, std::size_t> large_;
};

}  // namespace qor
