// The embedded middle tier: the server side of the reports in this process, on an account set in a file. A
// platform hands the names that it does not know itself to Create.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "embedded/server.h"

namespace qor {

class MiddleTier {
 public:
    /// Opens the account set and logs the user in. Raises an error where it cannot be opened or does not know
    /// the user. Without a store of profiles they are kept in memory.
    explicit MiddleTier(const std::filesystem::path& accountSet, std::int32_t userId = 1,
                        std::unique_ptr<UserProfileStore> profiles = nullptr);

    /// A server component; nothing for a name that is none. It may outlive the middle tier.
    Ref<Object> Create(std::string_view name);

    /// Shows pickers from now on; before, a lookup takes what its search text finds.
    void SetPicker(PickItem pick) { server_->pick = std::move(pick); }
    /// The session properties string of the login.
    std::string PropsString() { return server_->PropsString(); }
    AccountSet& accountSet() { return server_->accountSet; }
    const std::vector<UsageRecord>& usage() const { return server_->usage; }

 private:
    ServerRef server_;
};

}  // namespace qor
