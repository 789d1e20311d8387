#include "viewer/scripted_components.h"

#include <algorithm>

#include "platform/conversions.h"
#include "platform/record_set.h"
#include "viewer/json_values.h"

namespace qor::viewer {

namespace {

/// Every component that the system creates by name.
constexpr std::string_view kComponents[] = {
    "QORMArApRpt.Data",
    "QORMArApRpt.Data10525",
    "QORMArApRpt.Data10526",
    "QORMArApRpt.Data10530",
    "QOREBCGLView.GLData",
    "QOREBCGLView.GLView",
    "QOREBSBase.SystemProfile",
    "QOREBSBase.SecurityInfo",
    "QORMAppConnection.AppConnection",
    "QORMtsCacheService.CacheFacade",
    "QORPropsMgr.ShareProps",
    "QORFrmRes.FrmResLoader",
    "QOREBCBASE.UserProfile",
    "ZEP_APFC.FrameData",
    "QORGLNameListLib2.GLNameList",
};
constexpr std::string_view kOuterSession = "QORMtsCacheService.CacheFacade";
constexpr std::string_view kSession = "QORPropsMgr.ShareProps";
constexpr std::string_view kUserProfile = "QOREBCBASE.UserProfile";
constexpr std::string_view kGLData = "QOREBCGLView.GLData";

bool IsSessionService(std::string_view name) {
    return EqualsIgnoringCase(name, kOuterSession) || EqualsIgnoringCase(name, kSession);
}

std::string TextOf(Arguments arguments, std::size_t position) {
    return position < arguments.size() && !arguments[position].IsMissing() ? ToText(*arguments[position])
                                                                           : "";
}

class ScriptedComponent : public Object {
 public:
    ScriptedComponent(Server& server, std::string name) : server_(server), name_(std::move(name)) {}
    ~ScriptedComponent() override { server_.transcript.Add("release", {{"component", name_}}); }

    std::string_view ClassName() const override { return name_; }

    /// A component takes any member: what the file does not name answers by default.
    MemberId FindMember(std::string_view name) override {
        auto found = std::ranges::find(members_, name);
        if (found == members_.end()) found = members_.emplace(found, name);
        return static_cast<MemberId>(found - members_.begin());
    }

    Value Invoke(MemberId id, InvokeKind kind, Arguments arguments) override {
        if (id < 0 || static_cast<std::size_t>(id) >= members_.size()) Raise(Automation::NoSuchMember);
        const std::string member = members_[static_cast<std::size_t>(id)];
        Report(member, kind, arguments);
        if (Answer* answer = server_.script.Find(name_, member)) {
            if (const std::optional<Value> given = answer->Give(arguments, server_.names)) return *given;
        }
        return StandardAnswer(member, kind, arguments);
    }

 protected:
    virtual Value StandardAnswer(std::string_view member, InvokeKind kind, Arguments arguments);

    Server& server_;

 private:
    void Report(const std::string& member, InvokeKind kind, Arguments arguments);

    std::string name_;
    std::vector<std::string> members_;
};

void ScriptedComponent::Report(const std::string& member, InvokeKind kind, Arguments arguments) {
    Json line = {{"component", name_}, {"member", member}};
    const auto write = [this](const Argument& a) { return WriteValue(*a, server_.names); };
    switch (kind) {
        case InvokeKind::Get:
            server_.transcript.Add("read", line);
            break;
        case InvokeKind::Put:
        case InvokeKind::PutRef:
            line["value"] = write(arguments.back());
            server_.transcript.Add("put", line);
            break;
        case InvokeKind::Method:
            line["args"] = Json::array();
            for (const Argument& argument : arguments) {
                line["args"].push_back(write(argument));
            }
            server_.transcript.Add("call", line);
            break;
    }
}

Value EmptyRecordSet(Server&, Arguments) { return MakeRef<ColumnarRecordSet>(std::vector<std::string>()); }

/// The account set is in the period of the clock's month.
Value CurrentPeriod(Server& server, Arguments arguments) {
    const CalendarTime today = ToCalendar(server.today);
    const std::string key = TextOf(arguments, 1);
    if (TextOf(arguments, 0) == "IC" && key == "CurrentYear") return std::int32_t{today.year};
    if (TextOf(arguments, 0) == "IC" && key == "CurrentPeriod") return std::int32_t{today.month};
    return arguments.size() > 2 ? *arguments[2] : Value();
}

Value NoChoice(Server&, Arguments) { return Value::Nothing(); }

struct Standard {
    std::string_view member;
    Value (*answer)(Server& server, Arguments arguments);
};

constexpr Standard kStandards[] = {
    {"AccessCheck", [](Server&, Arguments) -> Value { return true; }},
    {"NeedAutorized", [](Server&, Arguments) -> Value { return false; }},
    {"GetAuthItemClassList", [](Server&, Arguments) -> Value { return ""; }},
    {"GetProfile", [](Server&, Arguments) -> Value { return Value::Null(); }},
    {"GetSystemProfile", CurrentPeriod},
    {"Execute", EmptyRecordSet},
    {"GetData", EmptyRecordSet},
    {"GetItemMaxLevel", [](Server&, Arguments) -> Value { return std::int32_t{1}; }},
    {"ItemLookUp", NoChoice},
    {"UnitLookup", NoChoice},
    {"SubMesLookup", NoChoice},
    {"CurrencyLookup", NoChoice},
    {"SettTypeLookup", NoChoice},
    {"AccountLookup", NoChoice},
};

/// The members that hand over a report's data: GetRpt10522Data and its kin.
bool IsDataMember(std::string_view member) {
    constexpr std::string_view kPrefix = "GetRpt";
    return EqualsIgnoringCase(member.substr(0, kPrefix.size()), kPrefix);
}

Value ScriptedComponent::StandardAnswer(std::string_view member, InvokeKind kind, Arguments arguments) {
    if (kind == InvokeKind::Put || kind == InvokeKind::PutRef) return {};
    if (EqualsIgnoringCase(name_, kGLData) && EqualsIgnoringCase(member, "SystemProfile")) {
        const std::string part = std::string(kGLData) + ".SystemProfile";
        return server_.script.IsRemoved(part) ? Value::Nothing()
                                              : Value(MakeRef<ScriptedComponent>(server_, part));
    }
    for (const Standard& standard : kStandards) {
        if (EqualsIgnoringCase(standard.member, member)) return standard.answer(server_, arguments);
    }
    return IsDataMember(member) ? EmptyRecordSet(server_, arguments) : Value();
}

/// One of the two services that hold session values. Which of them does, the session itself says.
class SessionService final : public ScriptedComponent {
 public:
    using ScriptedComponent::ScriptedComponent;

 protected:
    Value StandardAnswer(std::string_view member, InvokeKind, Arguments arguments) override {
        const std::string key = TextOf(arguments, 1);
        const bool outer = EqualsIgnoringCase(ClassName(), kOuterSession);
        if (!EqualsIgnoringCase(member, outer ? "GetItem" : "GetProperty")) return {};
        const bool holds = server_.session.IsOuterLogin() == outer || (outer && key == "IsOuterLogin");
        return holds ? server_.session.Get(key) : Value();
    }
};

class UserProfileComponent final : public ScriptedComponent {
 public:
    using ScriptedComponent::ScriptedComponent;

 protected:
    Value StandardAnswer(std::string_view member, InvokeKind kind, Arguments arguments) override {
        if (EqualsIgnoringCase(member, "Load")) {
            values_ = server_.profiles.Open(TextOf(arguments, 0), TextOf(arguments, 1));
        } else if (EqualsIgnoringCase(member, "Save")) {
            server_.profiles.Save(TextOf(arguments, 0), TextOf(arguments, 1), *values_);
        } else if (EqualsIgnoringCase(member, "Dictionary")) {
            // With a key, the property goes on to the entry.
            return arguments.empty() ? Value(values_)
                                     : values_->Invoke(values_->DefaultMember(), kind, arguments);
        }
        return {};
    }

 private:
    Ref<Dictionary> values_ = MakeRef<OrderedDictionary>();
};

}  // namespace

bool ComponentExists(const Server& server, std::string_view name) {
    if (server.script.IsRemoved(name)) return false;
    if (server.script.IsNamed(name)) return true;
    if (IsSessionService(name)) return server.session.Exists();
    return std::ranges::any_of(kComponents, [name](auto known) { return EqualsIgnoringCase(known, name); });
}

Ref<Object> MakeComponent(Server& server, std::string_view name) {
    std::string own(name);
    if (IsSessionService(name)) return MakeRef<SessionService>(server, std::move(own));
    if (EqualsIgnoringCase(name, kUserProfile)) return MakeRef<UserProfileComponent>(server, std::move(own));
    return MakeRef<ScriptedComponent>(server, std::move(own));
}

}  // namespace qor::viewer
