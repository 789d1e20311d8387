// An account set that is open for reports: it is read and never written.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "embedded/sqlite.h"

namespace qor {

class AccountSet {
 public:
    /// Raises an error for a missing file, a file that is no account set, and one of another version.
    explicit AccountSet(const std::filesystem::path& file);

    Database& database() { return database_; }
    /// A value of the system profile; nothing where the entry is missing or Null.
    std::optional<std::string> Profile(std::string_view category, std::string_view key);
    /// The firm whose books these are.
    std::string Name();
    /// The name of a user; nothing for a number that the account set does not know.
    std::optional<std::string> UserName(std::int32_t user);
    /// Whether a user sees every customer and supplier.
    bool HasAllRights(std::int32_t user);
    /// The deepest level of an item class, categories and items alike; 0 where it has none.
    std::int32_t DeepestLevel(std::int32_t itemClass);
    /// The day that the books themselves take for today: the one that was set, or that their profile names.
    std::optional<std::int64_t> OwnToday();
    /// The day on which the books are looked at: their own, or the clock's where they have none.
    std::int64_t Today();
    void SetToday(std::int64_t day) { today_ = day; }

 private:
    Database database_;
    std::optional<std::int64_t> today_;
};

}  // namespace qor
