#include "services/user_profile.h"

#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::string_view kUserProfile = "QOREBCBASE.UserProfile";

}  // namespace

Value UserProfile::GetUserProfileValue(std::string_view product, std::string_view section,
                                       std::string_view key, const Value& standIn) {
    Value answer;
    IgnoringErrors([&] {
        const Ref<Object> profile = platform_.CreateComponent(kUserProfile);
        profile->Call("Load", product, section);
        const Value entries = profile->Get("Dictionary");
        const Value kept = ObjectIn(entries).Call("GetValue", key, standIn);
        if (standIn.type() == Value::Type::Boolean) {
            answer = ToBoolean(kept);
        } else {
            answer = ToText(kept);
        }
    });
    return answer;
}

bool UserProfile::SaveUserProfileValue(std::string_view product, std::string_view section,
                                       std::string_view key, const Value& value) {
    const Ref<Object> profile = platform_.CreateComponent(kUserProfile);
    profile->Call("Load", product, section);
    const Value entries = profile->Get("Dictionary");
    ObjectIn(entries).Put("Value", key, value);
    profile->Call("Save", product, section);
    return true;
}

}  // namespace qor
