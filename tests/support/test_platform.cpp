#include "support/test_platform.h"

#include "platform/conversions.h"
#include "platform/record_set.h"

namespace qor::test {

namespace {

constexpr std::string_view kSystemProfileOfData = "QOREBCGLView.GLData.SystemProfile";

Value EmptyRecordSet(Arguments) { return MakeRef<ColumnarRecordSet>(std::vector<std::string>{}); }

Value SaysNothing(Arguments) { return {}; }

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

}  // namespace

std::int32_t LoggedWindows::MessageBox(std::string_view text, std::string_view title, std::int32_t style) {
    log_->push_back("box " + Quoted(text) + " " + Quoted(title) + " " + std::to_string(style));
    return PlayedWindows::MessageBox(text, title, style);
}

void LoggedWindows::Pump() {
    log_->push_back("pump");
    PlayedWindows::Pump();
}

TestPlatform::TestPlatform() : bag(MakeRef<OrderedDictionary>()), now(*DateFromCalendar(2020, 9, 15)) {
    session["PropsString"] = "UserID=16;UserName=demo;";
    ScriptSession();
    ScriptProfiles();
    ScriptUserProfile();
    Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", false);
    Component("QORMAppConnection.AppConnection").Answers("Execute", EmptyRecordSet);
    Component("QORFrmRes.FrmResLoader").Answers("LoadFrmResStrings", [this](Arguments) -> Value {
        return NewVector();
    });
    Component("ZEP_APFC.FrameData").Otherwise(SaysNothing);
    Component("QORGLNameListLib2.GLNameList").Otherwise(SaysNothing);
    for (const std::string_view data :
         {"QORMArApRpt.Data", "QORMArApRpt.Data10525", "QORMArApRpt.Data10526", "QORMArApRpt.Data10530"}) {
        Component(data).Answers("GetItemMaxLevel", 1).Otherwise(EmptyRecordSet);
    }
}

void TestPlatform::ScriptSession() {
    const Script::Answer answer = [this](Arguments a) {
        const auto found = session.find(ToText(*a[1]));
        return found == session.end() ? Value() : found->second;
    };
    Component("QORMtsCacheService.CacheFacade").Answers("GetItem", answer);
    Component("QORPropsMgr.ShareProps").Answers("GetProperty", answer);
}

void TestPlatform::ScriptProfiles() {
    Component("QOREBCGLView.GLData")
        .Answers("AccessCheck", true)
        .Answers("GetAuthItemClassList", "")
        .Answers("Refresh", Value())
        .Answers("SystemProfile", [this](Arguments) -> Value {
            Component(kSystemProfileOfData);
            const std::string name(kSystemProfileOfData);
            return MakeRef<ScriptedObject>(name, components_[name], log_);
        });
    Component(kSystemProfileOfData).Answers("GetSystemProfile", [this](Arguments a) -> Value {
        const CalendarTime today = ToCalendar(now);
        if (*a[0] == Value("IC") && *a[1] == Value("CurrentYear")) return today.year;
        if (*a[0] == Value("IC") && *a[1] == Value("CurrentPeriod")) return today.month;
        return *a[2];
    });
    Component("QOREBSBase.SystemProfile").Answers("GetProfile", Value::Null());
    Component("QOREBCGLView.GLView").Otherwise([](Arguments) { return Value::Nothing(); });
}

void TestPlatform::ScriptUserProfile() {
    Component("QOREBCBASE.UserProfile")
        .Answers("Load",
                 [this](Arguments a) -> Value {
                     Ref<Dictionary>& kept = userProfile[ToText(*a[0]) + "/" + ToText(*a[1])];
                     if (!kept) kept = NewDictionary();
                     loadedProfile_ = kept;
                     return {};
                 })
        .Answers("Dictionary", [this](Arguments) -> Value { return loadedProfile_; })
        .Answers("Save", Value());
}

Script& TestPlatform::Component(std::string_view name) {
    auto& script = components_[std::string(name)];
    if (!script) script = std::make_shared<Script>();
    return *script;
}

void TestPlatform::Remove(std::string_view name) { components_.erase(std::string(name)); }

Ref<Object> TestPlatform::CreateComponent(std::string_view name) {
    const auto found = components_.find(name);
    if (found == components_.end()) {
        log_->push_back("create " + std::string(name) + (makeClass ? "" : ": failed"));
        if (makeClass) return makeClass(name);
        Raise(Automation::CannotCreate);
    }
    log_->push_back("create " + std::string(name));
    return MakeRef<ScriptedObject>(found->first, found->second, log_);
}

std::unique_ptr<PlainFrame> TestPlatform::NewPlainFrame(PlainFrameHost& form) {
    if (!makePlainFrame) Raise(Automation::CannotCreate);
    return makePlainFrame(form);
}

std::unique_ptr<SchemeFrame> TestPlatform::NewSchemeFrame(SchemeFrameHost& form) {
    if (!makeSchemeFrame) Raise(Automation::CannotCreate);
    return makeSchemeFrame(form);
}

}  // namespace qor::test
