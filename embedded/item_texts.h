// Codes and names of base data for the rows of a record set. Each is read once, and all rows share it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/account_set.h"
#include "platform/value.h"

namespace qor {

class ItemTexts {
 public:
    struct Texts {
        Value number = "";
        Value name = "";
    };

    /// With `shortNumbers` a code is the part behind its last point.
    ItemTexts(AccountSet& set, bool shortNumbers)
        : item_(set.database(), "SELECT FNumber, FName FROM t_Item WHERE FItemID=?"),
          shortNumbers_(shortNumbers) {}

    /// Of an item; empty texts for 0. Valid as long as this object.
    const Texts& Of(std::int64_t id) {
        const auto place = static_cast<std::uint64_t>(id);
        return place < byId_.size() && byId_[place] ? *byId_[place] : Read(id);
    }

 private:
    const Texts& Read(std::int64_t id);

    Statement item_;
    bool shortNumbers_;
    std::vector<const Texts*> byId_;  // of small ids, as base data mostly have; null where not known yet
    std::unordered_map<std::int64_t, Texts> known_;
};

/// Texts that come again and again, each kept once.
class SharedTexts {
 public:
    Value Share(std::string_view text);

 private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    std::unordered_map<std::string, Value, Hash, std::equal_to<>> known_;
};

}  // namespace qor
