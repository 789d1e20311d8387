#include "embedded/session_components.h"

#include <algorithm>

#include "embedded/connection.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// A value within the session string: in braces, without what would end them.
std::string InBraces(std::string text) {
    std::erase(text, '}');
    return "{" + text + "}";
}

Value SessionValue(Server& server, std::string_view key) {
    if (key == "PropsString") return server.PropsString();
    if (key == "UserID") return server.userId;
    if (key == "UserName") return server.UserName();
    if (key == "AcctName") return server.accountSet.Name();
    if (key == "LogStatus") return std::int32_t{1};
    return {};
}

/// A profile entry, as a number where it is one.
Value ProfileValue(Server& server, std::string_view category, std::string_view key) {
    const auto entry = server.accountSet.Profile(category, key);
    if (!entry) return Value::Null();
    const bool digits = !entry->empty() && entry->size() < 10 &&
                        std::ranges::all_of(*entry, [](char c) { return c >= '0' && c <= '9'; });
    return digits ? Value(ToInt32(*entry)) : Value(*entry);
}

constexpr Member kShareProps[] = {
    {.name = "GetProperty",
     .invoke = [](Object& self, Arguments a) { return SessionValue(ServerOf(self), a[1]->text()); },
     .parameters = {{{"ProcessId", ParameterType::Any, true}, {"Key", ParameterType::Text, true}}}},
};

// The session of this process is a normal one, never one that logged in from outside.
constexpr Member kCacheFacade[] = {
    {.name = "GetItem",
     .invoke = [](Object&, Arguments a) -> Value {
         return a[1]->text() == "IsOuterLogin" ? Value(std::int32_t{0}) : Value();
     },
     .parameters = {{{"ProcessId", ParameterType::Any, true}, {"Key", ParameterType::Text, true}}}},
};

constexpr Member kSecurityInfo[] = {
    {.name = "NeedAutorized",
     .invoke = [](Object& self, Arguments) -> Value {
         AccountSet& set = ServerOf(self).accountSet;
         return set.Profile("Base", "NeedAuthrize") == "1" && !set.HasAllRights(ServerOf(self).userId);
     },
     .result = ParameterType::Boolean,
     .parameters = {{{"PropsString", ParameterType::Text}}}},
};

constexpr Member kSystemProfile[] = {
    {.name = "GetProfile",
     .invoke = [](Object& self,
                  Arguments a) { return ProfileValue(ServerOf(self), a[1]->text(), a[2]->text()); },
     .parameters = {{{"PropsString", ParameterType::Text},
                     {"Category", ParameterType::Text},
                     {"Key", ParameterType::Text}}}},
};

constexpr Member kConnection[] = {
    {.name = "Execute",
     .invoke = [](Object& self, Arguments a) -> Value {
         return ExecuteStatement(ServerOf(self).accountSet, a[1]->text());
     },
     .result = ParameterType::Object,
     .parameters = {{{"PropsString", ParameterType::Text}, {"Statement", ParameterType::Text, true}}}},
};

// What GLData answers for SystemProfile.
constexpr Member kProfileWithDefault[] = {
    {.name = "GetSystemProfile",
     .invoke =
         [](Object& self, Arguments a) {
             const Value entry = ProfileValue(ServerOf(self), a[0]->text(), a[1]->text());
             return entry.IsNull() ? *a[2] : entry;
         },
     .parameters = {{{"Category", ParameterType::Text}, {"Key", ParameterType::Text}, {"Default"}}}},
};

constexpr Member kGLData[] = {
    {.name = "AccessCheck",
     .invoke = [](Object& self, Arguments) -> Value {
         Server& server = ServerOf(self);
         if (!server.accountSet.UserName(server.userId)) RaiseAccountSetError("您没有查看此报表的权限");
         return true;
     },
     .result = ParameterType::Boolean,
     .parameters = {{{"Subsystem", ParameterType::Int16},
                     {"Object", ParameterType::Int16},
                     {"Right", ParameterType::Int16}}}},
    // Nothing is kept of the base data between two lists, so there is nothing to renew.
    {.name = "Refresh", .invoke = [](Object&, Arguments) { return Value(); }},
    {.name = "GetAuthItemClassList",
     .invoke = [](Object& self, Arguments) -> Value {
         return ServerOf(self).accountSet.Profile("Base", "AuthrizeItemClassList").value_or("");
     },
     .result = ParameterType::Text},
    {.name = "SystemProfile",
     .kind = InvokeKind::Get,
     .invoke = [](Object& self, Arguments) -> Value {
         return MakeRef<ServerComponent>("QOREBCGLView.GLData.SystemProfile", kProfileWithDefault,
                                         static_cast<ServerComponent&>(self).shared());
     },
     .result = ParameterType::Object},
};

}  // namespace

std::string Server::PropsString() {
    return "UserID=" + std::to_string(userId) + ";UserName=" + InBraces(UserName()) +
           ";AcctName=" + InBraces(accountSet.Name()) + ";";
}

const std::span<const Member> kSharePropsMembers = kShareProps;
const std::span<const Member> kCacheFacadeMembers = kCacheFacade;
const std::span<const Member> kSecurityInfoMembers = kSecurityInfo;
const std::span<const Member> kSystemProfileMembers = kSystemProfile;
const std::span<const Member> kConnectionMembers = kConnection;
const std::span<const Member> kGLDataMembers = kGLData;

}  // namespace qor
