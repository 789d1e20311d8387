// What the server components of one middle tier share: the open account set, who is logged in, and what the
// application around it brings. A component is a name and a member table over it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/user_profile_store.h"
#include "platform/object.h"

namespace qor {

/// A request for an item of base data, as a picker window shows it.
struct LookupRequest {
    std::int32_t itemClass = 0;
    std::string search;  // the text typed so far
    bool withDisabled = true;
};

/// Chooses an item, by its t_Item.FItemID; nothing where the user cancels.
using PickItem = std::function<std::optional<std::int64_t>(AccountSet& set, const LookupRequest& request)>;

/// One use of a function that the application frame was told of.
struct UsageRecord {
    std::string module;
    std::string code;
};

struct Server {
    AccountSet accountSet;
    std::int32_t userId = 1;
    std::unique_ptr<UserProfileStore> profiles;
    PickItem pick;
    std::vector<UsageRecord> usage{};

    /// "UserID=1;UserName={...};AcctName={...};"
    std::string PropsString();
    std::string UserName() { return accountSet.UserName(userId).value_or(""); }
};

using ServerRef = std::shared_ptr<Server>;

/// A component without a state of its own. It keeps the server alive.
class ServerComponent : public TableObject {
 public:
    ServerComponent(std::string_view name, std::span<const Member> members, ServerRef server)
        : name_(name), members_(members), server_(std::move(server)) {}
    std::string_view ClassName() const override { return name_; }
    std::span<const Member> Members() const override { return members_; }
    Server& server() { return *server_; }
    const ServerRef& shared() { return server_; }

 private:
    std::string_view name_;
    std::span<const Member> members_;
    ServerRef server_;
};

inline Server& ServerOf(Object& self) { return static_cast<ServerComponent&>(self).server(); }

/// One server component that can be created by name.
struct ComponentRow {
    std::string_view name;
    Ref<Object> (*create)(const ComponentRow& row, const ServerRef& server);
};

/// Creates a component that is a member table and nothing more.
template <const auto& Table>
Ref<Object> CreateFromTable(const ComponentRow& row, const ServerRef& server) {
    return MakeRef<ServerComponent>(row.name, Table, server);
}

}  // namespace qor
