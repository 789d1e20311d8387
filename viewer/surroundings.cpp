#include "viewer/surroundings.h"

#include <unistd.h>

#include <chrono>
#include <string>

#include "frames/plain_scheme_frame.h"
#include "frames/scheme_dialog_frame.h"
#include "library.h"
#include "platform/conversions.h"
#include "viewer/json_values.h"

namespace qor::viewer {

namespace {

Date MachineDate() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    return DateFromCalendar(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value();
}

/// Whoever has logged in where a file does not say.
const Json& StandardSession() {
    static const Json session = {{"PropsString", "UserID=1;"}};
    return session;
}

}  // namespace

Surroundings::Surroundings(Transcript& transcript, UserScript& script, const ObjectNames& names)
    : transcript_(transcript),
      names_(names),
      windows_(transcript, script),
      server_{transcript, names, MachineDate()},
      bag_(MakeRef<ShellBag>()),
      processNumber_(static_cast<std::int32_t>(getpid())) {
    server_.session.Lay(StandardSession(), names_);
}

void Surroundings::SetUp(const Json& file) {
    Change(file);
    if (file.contains("process")) processNumber_ = file["process"].get<std::int32_t>();
    if (file.contains("userProfile")) server_.profiles.Load(file["userProfile"], names_);
    if (file.contains("schemes")) LoadSchemes(file["schemes"]);
}

void Surroundings::Change(const Json& step) {
    if (step.contains("today")) SetToday(step["today"]);
    if (step.contains("session")) server_.session.Lay(step["session"], names_);
    if (step.contains("bag")) LayBag(step["bag"]);
    if (step.contains("components")) server_.script.Lay(step["components"]);
}

void Surroundings::SetToday(const Json& day) {
    server_.today = day.is_null() ? MachineDate() : ReadDate(day, {}, false);
}

void Surroundings::LayBag(const Json& bag) {
    if (bag.is_null()) {
        bag_ = {};
        return;
    }
    if (!bag_) bag_ = MakeRef<ShellBag>();
    for (const auto& [key, value] : bag.items()) {
        if (value.is_null()) {
            bag_->items().Remove(key);
        } else {
            bag_->items().Put(key, ReadValue(value, {}, names_));
        }
    }
}

void Surroundings::LoadSchemes(const Json& schemes) {
    for (const auto& [number, named] : schemes.items()) {
        for (const auto& [name, items] : named.items()) {
            SavedScheme scheme;
            for (const auto& [key, value] : items.items()) {
                scheme.push_back({key, ReadValue(value, {}, names_)});
            }
            schemes_.Save(ToInt32(number), name, scheme);
        }
    }
}

Ref<Object> Surroundings::CreateComponent(std::string_view name) {
    // The foundation library's own objects are values, as they are when a file makes them.
    if (EqualsIgnoringCase(name, "QRB.Dictionary")) return NewDictionary();
    if (EqualsIgnoringCase(name, "QRB.Vector")) return NewVector();
    const std::size_t line = transcript_.Reserve();
    const auto record = [&](bool failed) {
        Json event = {{"component", name}};
        if (failed) event["failed"] = true;
        transcript_.Fill(line, "create", event);
    };
    Ref<Object> created;
    try {
        created = Create(name);
    } catch (const Error&) {
        record(false);
        throw;
    }
    record(!created);
    if (!created) Raise(Automation::CannotCreate);
    return created;
}

Ref<Object> Surroundings::Create(std::string_view name) {
    if (process_ && !server_.script.IsRemoved(name)) {
        if (Ref<Object> report = CreateReportClass(*process_, name)) return report;
    }
    if (ComponentExists(server_, name)) return MakeComponent(server_, name);
    return {};
}

std::unique_ptr<PlainFrame> Surroundings::NewPlainFrame(PlainFrameHost& form) {
    return std::make_unique<PlainSchemeFrame>(*this, schemes_, form);
}

std::unique_ptr<SchemeFrame> Surroundings::NewSchemeFrame(SchemeFrameHost& form) {
    return std::make_unique<SchemeDialogFrame>(*this, schemes_, form);
}

}  // namespace qor::viewer
