// The user profile: small values that the server keeps for a user beyond the session.
#pragma once

#include <string_view>

#include "platform/platform.h"

namespace qor {

class UserProfile {
 public:
    explicit UserProfile(Platform& platform) : platform_(platform) {}

    /// The value as text, or as a boolean where `standIn` is one; Empty on any failure.
    Value GetUserProfileValue(std::string_view product, std::string_view section, std::string_view key,
                              const Value& standIn);
    /// Always true; an error goes to the caller.
    bool SaveUserProfileValue(std::string_view product, std::string_view section, std::string_view key,
                              const Value& value);

 private:
    Platform& platform_;
};

}  // namespace qor
