// The order of base data by code.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "embedded/account_set.h"

namespace qor {

class CodeRanks {
 public:
    CodeRanks(AccountSet& set, std::int32_t itemClass) {
        Statement items(set.database(), "SELECT FItemID FROM t_Item WHERE FItemClassID=? ORDER BY FNumber");
        items.With(itemClass);
        while (items.Step()) {
            ranks_.try_emplace(items.Int(0), ranks_.size() + 1);
        }
    }

    /// From 1 in the order of codes; 0 for what is no item of the class.
    std::size_t Of(std::int64_t id) const {
        const auto found = ranks_.find(id);
        return found == ranks_.end() ? 0 : found->second;
    }

 private:
    std::unordered_map<std::int64_t, std::size_t> ranks_;
};

}  // namespace qor
