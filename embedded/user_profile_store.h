// Where the small values that the server keeps for a user live: in memory, or in a file beside the account
// set.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/value.h"

namespace qor {

/// The values of one product and section, in the order of their first saving.
using ProfileSection = std::vector<std::pair<std::string, Value>>;

struct ProfileKey {
    std::int32_t userId = 0;
    std::string product;
    std::string section;
    friend auto operator<=>(const ProfileKey&, const ProfileKey&) = default;
};

class UserProfileStore {
 public:
    virtual ~UserProfileStore() = default;
    /// Empty for what was never saved.
    virtual ProfileSection Load(const ProfileKey& key) = 0;
    virtual void Save(const ProfileKey& key, const ProfileSection& section) = 0;
};

class MemoryProfiles final : public UserProfileStore {
 public:
    ProfileSection Load(const ProfileKey& key) override { return sections_[key]; }
    void Save(const ProfileKey& key, const ProfileSection& section) override { sections_[key] = section; }

 private:
    std::map<ProfileKey, ProfileSection> sections_;
};

/// One file for all users, replaced in one step at each saving. A file that is no profile is an error, and is
/// never written over.
class FileProfiles final : public UserProfileStore {
 public:
    explicit FileProfiles(std::filesystem::path file) : file_(std::move(file)) {}
    ProfileSection Load(const ProfileKey& key) override;
    void Save(const ProfileKey& key, const ProfileSection& section) override;

 private:
    std::filesystem::path file_;
};

}  // namespace qor
