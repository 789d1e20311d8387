#include "support/report_host.h"

#include "frames/plain_scheme_frame.h"
#include "frames/scheme_dialog_frame.h"
#include "library.h"
#include "platform/conversions.h"
#include "platform/frame_owner.h"

namespace qor::test {

namespace {

/// The properties string is asked for again at every server call, which says nothing about a report.
bool IsOfSession(const std::string& line) {
    return line.find("QORMtsCacheService") != std::string::npos ||
           line.find("QORPropsMgr") != std::string::npos;
}

}  // namespace

ReportHost::ReportHost() {
    platform.makePlainFrame = [this](PlainFrameHost& form) {
        return std::make_unique<PlainSchemeFrame>(platform, schemes, form);
    };
    platform.makeSchemeFrame = [this](SchemeFrameHost& form) {
        return std::make_unique<SchemeDialogFrame>(platform, schemes, form);
    };
    platform.makeClass = [this](std::string_view name) {
        Ref<Object> object = CreateReportClass(process, name);
        if (!object) Raise(Automation::CannotCreate);
        return object;
    };
}

Ref<Object> ReportHost::Create(std::string_view reportClass) {
    return platform.CreateComponent("QORArApRpt." + std::string(reportClass));
}

void ReportHost::InDialog(std::function<void(Form&)> person) {
    platform.windows().user = [person = std::move(person)](Form& form) {
        if (dynamic_cast<FrameOwner*>(&form)) person(form);
    };
}

Log ReportHost::LogOf(const std::function<void()>& step) {
    platform.log().clear();
    step();
    Log log;
    for (const std::string& line : platform.log()) {
        if (!IsOfSession(line)) log.push_back(line);
    }
    return log;
}

Value Entry(Object& object, std::string_view property, std::string_view key) {
    return ObjectIn(object.Get(property)).Get("Value", key);
}

std::string Keys(const Value& dictionary) {
    const Ref<Dictionary> entries = As<Dictionary>(dictionary);
    std::string keys;
    for (std::size_t i = 0; entries && i < entries->Count(); ++i) {
        keys += (i ? " " : "") + entries->KeyAt(i);
    }
    return keys;
}

Log Columns(Object& report) {
    Log columns;
    const Ref<Vector> header = As<Vector>(report.Get("Header"));
    for (std::int32_t i = 1; header && i <= header->Count(); ++i) {
        std::string line;
        for (const char* key :
             {"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible", "FForceHide"}) {
            line += (line.empty() ? "" : " ") + Shown(ObjectIn(header->Item(i)).Get("Value", key));
        }
        columns.push_back(line);
    }
    return columns;
}

}  // namespace qor::test
