#include "bench/ready_platform.h"

#include "frames/plain_scheme_frame.h"
#include "platform/user.h"

namespace qor::bench {

namespace {

constexpr std::string_view kMembers[] = {
    "AccessCheck",          "SystemProfile", "GetSystemProfile", "GetProfile", "NeedAutorized",
    "GetAuthItemClassList", "GetItem",       "GetProperty",      "Execute",    "GetRpt10522Data",
};

}  // namespace

/// Every server component at once: it has all members.
class ReadyPlatform::Component final : public Object {
 public:
    explicit Component(ReadyPlatform& platform) : platform_(platform) {}
    std::string_view ClassName() const override { return "Component"; }
    MemberId FindMember(std::string_view name) override {
        for (std::size_t i = 0; i < std::size(kMembers); ++i) {
            if (EqualsIgnoringCase(kMembers[i], name)) return static_cast<MemberId>(i);
        }
        return kNoMember;
    }
    Value Invoke(MemberId member, InvokeKind, Arguments arguments) override {
        const std::string_view name = kMembers[static_cast<std::size_t>(member)];
        if (name == "SystemProfile") return Ref<Object>(this);
        if (name == "GetItem") return 0;  // a normal login
        if (name == "GetSystemProfile") return *arguments[1] == Value("CurrentYear") ? 2020 : 9;
        return platform_.Answer(name);
    }

 private:
    ReadyPlatform& platform_;
};

ReadyPlatform::ReadyPlatform()
    : bag_(MakeRef<OrderedDictionary>()),
      rows_(MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FName", "FAmount"})) {
    bag_->Put("AppType", 2);
}

Ref<Object> ReadyPlatform::CreateComponent(std::string_view name) {
    if (name == "QORMArApRpt.Data") clock.End(Stage::DataRight);
    if (name.starts_with("QORGLNameListLib2")) Raise(Automation::CannotCreate);
    return MakeRef<Component>(*this);
}

Ref<Vector> ReadyPlatform::NewVector() {
    if (++listsSinceCheck_ == 2) clock.End(Stage::Columns);
    return Platform::NewVector();
}

std::unique_ptr<PlainFrame> ReadyPlatform::NewPlainFrame(PlainFrameHost& form) {
    return std::make_unique<PlainSchemeFrame>(*this, schemes_, form);
}

std::unique_ptr<SchemeFrame> ReadyPlatform::NewSchemeFrame(SchemeFrameHost&) {
    Raise(Automation::CannotCreate);
}

void ReadyPlatform::FormShown(Form& form) {
    if (form.ClassName() == "frmProgBar") clock.End(Stage::Captions);
}

void ReadyPlatform::PlayUser(Form& form) {
    if (Control* ok = form.Find("cmdOK")) {
        clock.End(Stage::OpenDialog);
        User(form).Click(static_cast<Button&>(*ok));
    }
}

Value ReadyPlatform::Answer(std::string_view member) {
    if (member == "GetProperty") return "UserID=16;UserName=demo;";
    if (member == "NeedAutorized") return true;
    if (member == "GetAuthItemClassList") return "1,8";
    if (member == "AccessCheck") {
        clock.End(Stage::Activate);
        listsSinceCheck_ = 0;
        return true;
    }
    if (member == "GetRpt10522Data") {
        clock.End(Stage::Call);
        return rows_;
    }
    return {};
}

}  // namespace qor::bench
