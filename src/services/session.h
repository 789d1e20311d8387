// The session: who is logged in, and into which account set. One text of "key=value;" pairs, asked from
// the host's session services anew for every server call, and split when a single value is needed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace qor {

class Session {
 public:
    explicit Session(Platform& platform) : platform_(platform) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The session properties string, "" where no session service answers. Not cached.
    std::string GetPropsString();
    /// One value of the session store; Empty on every failure.
    Value GetSharedProperty(std::string_view key);
    /// The same, where the service may replace the key.
    Value GetSharedProperty(Value& key);

    /// Splits `properties` for GetPropsValue; always true. A repeated key raises 457.
    bool ParsePropsString(std::string_view properties);
    /// A value of the last parse, by key without regard to case. Raises 5 for a key that is not there.
    std::string GetPropsValue(std::string_view key) const;
    /// "UserID" of the last parse. Raises overflow (6) above 32767.
    std::int16_t GetUserID() const;

 private:
    const std::string_view* Find(std::string_view key) const;

    Platform& platform_;
    std::string parsed_;  // the string last split; the keys and values are pieces of it
    std::vector<std::pair<std::string_view, std::string_view>> values_;
};

}  // namespace qor
