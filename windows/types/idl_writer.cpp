#include "windows/types/idl_writer.h"

#include "library.h"
#include "platform/headless.h"
#include "progress/bar.h"
#include "windows/types/class_ids.h"

namespace qor::windows {

namespace {

/// Surroundings in which a class can be made to be looked at; nothing of it is run.
class BarePlatform final : public Platform {
 public:
    Ref<Object> CreateComponent(std::string_view) override { Raise(Automation::CannotCreate); }
    WindowSystem& windows() override { return windows_; }
    Date Now() override { return {}; }
    std::int32_t ProcessNumber() override { return 0; }
    Ref<Object> ProcessBag() override { return {}; }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost&) override { return nullptr; }
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost&) override { return nullptr; }

 private:
    HeadlessWindows windows_;
};

struct Event {
    std::string_view name;
    std::string_view parameters;
};

constexpr Event kBarEvents[] = {{"Active", ""}};

constexpr Event kPassEvents[] = {
    {"SetBarMaxValue", "[in] long value"},
    {"SetBarMinValue", "[in] long value"},
    {"SetBarValue", "[in] long value"},
    {"SetMsg", "[in] BSTR text"},
    {"SetBarValueWithMax", ""},
    {"Unload", ""},
    {"Active", ""},
    {"HideProgBar", ""},
    {"ShowProgBar", ""},
};

// Browsers show the class in their place.
constexpr std::string_view kInterfaceAttributes = ", hidden";

// widl brings no automation types of its own.
constexpr std::string_view kTypes = R"(typedef wchar_t OLECHAR;
typedef OLECHAR* BSTR;
typedef short VARIANT_BOOL;
typedef unsigned short VARTYPE;
typedef struct tagVARIANT { VARTYPE vt; short a, b, c; hyper d, e; } VARIANT;

[object, uuid(00000000-0000-0000-C000-000000000046)]
interface IUnknown {}

[object, uuid(00020400-0000-0000-C000-000000000046)]
interface IDispatch : IUnknown {}
)";

std::string_view TypeText(ParameterType type) {
    switch (type) {
        case ParameterType::Any:
            return "VARIANT";
        case ParameterType::Boolean:
            return "VARIANT_BOOL";
        case ParameterType::Int16:
            return "short";
        case ParameterType::Int32:
            return "long";
        case ParameterType::Text:
            return "BSTR";
        case ParameterType::Object:
            return "IDispatch*";
    }
    return "VARIANT";
}

std::string ParameterText(const Parameter& parameter) {
    // Only a VARIANT can tell that it was left out.
    const std::string_view type = parameter.optional ? "VARIANT" : TypeText(parameter.type);
    std::string text = parameter.byReference ? "[in, out" : "[in";
    if (parameter.optional) text += ", optional";
    return text + "] " + std::string(type) + (parameter.byReference ? "* " : " ") +
           std::string(parameter.name);
}

std::string_view PropertyText(InvokeKind kind) {
    switch (kind) {
        case InvokeKind::Method:
            return "";
        case InvokeKind::Get:
            return ", propget";
        case InvokeKind::Put:
            return ", propput";
        case InvokeKind::PutRef:
            return ", propputref";
    }
    return "";
}

std::string MemberText(const Member& member, std::size_t id) {
    const bool answers = member.kind == InvokeKind::Get || member.kind == InvokeKind::Method;
    std::string text = "        [id(" + std::to_string(id) + ")" + std::string(PropertyText(member.kind)) +
                       "] " + std::string(answers ? TypeText(member.result) : "void") + " " +
                       std::string(member.name) + "(";
    for (std::size_t i = 0; i < member.ParameterCount(); ++i) {
        text += (i == 0 ? "" : ", ") + ParameterText(member.parameters[i]);
    }
    return text + ");\n";
}

std::string InterfaceText(const PublicClass& publicClass, std::span<const Member> members) {
    std::string text = "    [uuid(" + IdText(publicClass.InterfaceId()) + ")" +
                       std::string(kInterfaceAttributes) + "]\n    dispinterface _" + publicClass.name +
                       " {\n        properties:\n        methods:\n";
    std::size_t id = 0;
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (i == 0 || members[i].name != members[i - 1].name)
            id = i + 1;  // a property keeps one id for all its rows
        text += MemberText(members[i], id);
    }
    return text + "    }\n\n";
}

std::string EventsText(const PublicClass& publicClass, std::span<const Event> events) {
    std::string text = "    [uuid(" + IdText(MakeId(publicClass.number, IdKind::Events)) + ")" +
                       std::string(kInterfaceAttributes) + "]\n    dispinterface __" + publicClass.name +
                       " {\n        properties:\n        methods:\n";
    for (std::size_t i = 0; i < events.size(); ++i) {
        text += "        [id(" + std::to_string(i + 1) + ")] void " + std::string(events[i].name) + "(" +
                std::string(events[i].parameters) + ");\n";
    }
    return text + "    }\n\n";
}

std::string ClassText(const PublicClass& publicClass, bool hasEvents) {
    std::string text = "    [uuid(" + IdText(publicClass.ClassId()) + ")]\n    coclass " + publicClass.name +
                       " {\n        [default] dispinterface _" + publicClass.name + ";\n";
    if (hasEvents) text += "        [default, source] dispinterface __" + publicClass.name + ";\n";
    return text + "    }\n\n";
}

}  // namespace

std::string WriteIdl() {
    BarePlatform platform;
    Process process(platform);
    std::string text =
        "// Written from the member tables of the classes by build/qor_idl; not to be edited.\n" +
        std::string(kTypes) + "\n[uuid(" + IdText(kLibraryId) +
        "), version(1.0), helpstring(\"QORArApRpt\")]\nlibrary QORArApRpt {\n";
    for (const PublicClass& publicClass : PublicClasses()) {
        const Ref<Object> object = CreateReportClass(process, publicClass.ProgId());
        text += InterfaceText(publicClass, static_cast<TableObject&>(*object).Members());
        const std::span<const Event> events =
            publicClass.number == kBarNumber    ? std::span<const Event>(kBarEvents)
            : publicClass.number == kPassNumber ? std::span<const Event>(kPassEvents)
                                                : std::span<const Event>();
        if (!events.empty()) text += EventsText(publicClass, events);
        text += ClassText(publicClass, !events.empty());
    }
    text.pop_back();
    return text + "}\n";
}

}  // namespace qor::windows
