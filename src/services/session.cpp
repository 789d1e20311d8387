#include "services/session.h"

#include <algorithm>

#include "platform/conversions.h"

namespace qor {

namespace {

/// What the cache service answers for of a session that logged in from outside.
constexpr std::string_view kOuterKeys[] = {
    "UserName", "UserID", "PropsString", "LogStatus",   "AcctName", "AcctType", "Setuptype",
    "AcctID",   "SubID",  "AcctClosed",  "MachineName", "IP",       "UUID",     "QORLogin",
};

constexpr std::int32_t kNormalLogin = 0;
constexpr std::int32_t kOuterLogin = 1;

/// Takes the text up to the first `delimiter` off the head of `rest`; all of it where there is none.
std::string_view TakeUpTo(std::string_view& rest, char delimiter) {
    const std::size_t end = rest.find(delimiter);
    const std::string_view piece = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return piece;
}

/// A value in braces may hold ";" and "="; what stands between the brace and the next ";" is lost.
std::string_view TakeValue(std::string_view& rest) {
    rest = Trimmed(rest);
    if (!rest.starts_with('{')) return Trimmed(TakeUpTo(rest, ';'));
    rest.remove_prefix(1);
    const std::string_view value = TakeUpTo(rest, '}');
    TakeUpTo(rest, ';');
    return Trimmed(value);
}

}  // namespace

std::string Session::GetPropsString() { return ToText(GetSharedProperty("PropsString")); }

Value Session::GetSharedProperty(std::string_view key) {
    Value replaceable = key;
    return GetSharedProperty(replaceable);
}

Value Session::GetSharedProperty(Value& key) {
    Value process = platform_.ProcessNumber();
    // Each service is asked once whether its answer is an object, and once more for the answer itself.
    const auto ask = [&](const Ref<Object>& service, std::string_view member) {
        Value answer;
        const auto call = [&] {
            if (!service) Raise(Automation::ObjectNotSet);
            return service->Call(member, Argument::ByRef(process), Argument::ByRef(key));
        };
        IgnoringErrors([&] { call(); });
        IgnoringErrors([&] { answer = call(); });
        return answer;
    };

    Ref<Object> cache;
    IgnoringErrors([&] { cache = platform_.CreateComponent("QORMtsCacheService.CacheFacade"); });
    std::int32_t outer = kNormalLogin;
    if (cache) {
        IgnoringErrors(
            [&] { outer = ToInt32(cache->Call("GetItem", Argument::ByRef(process), "IsOuterLogin")); });
    }
    if (outer == kOuterLogin && std::ranges::find(kOuterKeys, ToText(key)) != std::end(kOuterKeys)) {
        return ask(cache, "GetItem");
    }
    if (outer != kNormalLogin) return {};
    Ref<Object> properties;
    IgnoringErrors([&] { properties = platform_.CreateComponent("QORPropsMgr.ShareProps"); });
    return ask(properties, "GetProperty");
}

bool Session::ParsePropsString(std::string_view properties) {
    parsed_ = properties;
    values_.clear();
    std::string_view rest = parsed_;
    for (;;) {
        const std::string_view key = Trimmed(TakeUpTo(rest, '='));
        const std::string_view value = TakeValue(rest);
        if (key.empty()) return true;
        if (Find(key)) Raise(Automation::KeyAlreadyThere);
        values_.emplace_back(key, value);
    }
}

const std::string_view* Session::Find(std::string_view key) const {
    const auto found = std::ranges::find_if(
        values_, [key](const auto& entry) { return EqualsIgnoringCase(entry.first, key); });
    return found == values_.end() ? nullptr : &found->second;
}

std::string Session::GetPropsValue(std::string_view key) const {
    const std::string_view* value = Find(key);
    if (!value) Raise(Automation::InvalidCall);
    return std::string(*value);
}

std::int16_t Session::GetUserID() const { return ToInt16(GetPropsValue("UserID")); }

}  // namespace qor
