#include "tests/windows/stage/stage.h"

#include <filesystem>
#include <fstream>

#include "platform/conversions.h"
#include "tests/windows/stage/shown_object.h"
#include "viewer/json_values.h"

namespace qor::stage {

namespace {

using viewer::Json;

Stage* current_ = nullptr;

Stage& Self(Object& self) { return static_cast<Stage&>(self); }

constexpr Parameter kStep{"Step", ParameterType::Int32};
constexpr Parameter kName{"Name", ParameterType::Text};
constexpr Parameter kFile{"File", ParameterType::Text};

constexpr Member kMembers[] = {
    {.name = "Open",
     .invoke = [](Object& self, Arguments a) { return Self(self).Open(a[0]->text()), Value(); },
     .parameters = {{kFile}}},
    {.name = "Step",
     .invoke = [](Object& self, Arguments a) { return Self(self).Step(a[0]->int32()), Value(); },
     .parameters = {{kStep}}},
    {.name = "To",
     .invoke = [](Object& self, Arguments a) { return Self(self).To(a[0]->int32()); },
     .parameters = {{kStep}}},
    {.name = "Argument",
     .invoke = [](Object& self, Arguments a) { return Self(self).Argument(a[0]->int32(), a[1]->int32()); },
     .parameters = {{kStep, {"Position", ParameterType::Int32}}}},
    {.name = "Result",
     .invoke = [](Object& self, Arguments a) { return Self(self).Result(a[0]->int32(), *a[1]), Value(); },
     .parameters = {{kStep, {"Value"}}}},
    {.name = "Failed",
     .invoke =
         [](Object& self, Arguments a) {
             Self(self).Failed(a[0]->int32(), a[1]->int32(), a[2]->text(), a[3]->text());
             return Value();
         },
     .parameters = {{kStep,
                     {"Number", ParameterType::Int32},
                     {"Source", ParameterType::Text},
                     {"Description", ParameterType::Text}}}},
    {.name = "Kept",
     .invoke = [](Object& self, Arguments a) { return Self(self).Kept(a[0]->text()); },
     .parameters = {{kName}}},
    {.name = "Drop",
     .invoke = [](Object& self, Arguments a) { return Self(self).Drop(a[0]->text()), Value(); },
     .parameters = {{kName}}},
    {.name = "Change",
     .invoke = [](Object& self, Arguments a) { return Self(self).Change(a[0]->int32()), Value(); },
     .parameters = {{kStep}}},
    {.name = "Close",
     .invoke = [](Object& self, Arguments a) { return Self(self).Close(a[0]->text()), Value(); },
     .parameters = {{kFile}}},
};

Date Today() {
    SYSTEMTIME time;
    GetLocalTime(&time);
    return DateFromCalendar(time.wYear, time.wMonth, time.wDay).value();
}

std::string BagName() { return std::to_string(GetCurrentProcessId()); }

/// Whether the component, if it is there, says that nobody uses it any more.
Json CanUnload() {
    const HMODULE component = GetModuleHandleW(L"QORArApRpt.dll");
    if (!component) return nullptr;
    using CanUnloadNow = HRESULT(WINAPI*)();
    const auto ask =
        reinterpret_cast<CanUnloadNow>(reinterpret_cast<void*>(GetProcAddress(component, "DllCanUnloadNow")));
    return ask() == S_OK;
}

}  // namespace

Stage& Stage::Current() {
    if (!current_) {
        Ref<Stage> made = MakeRef<Stage>();
        if (const wchar_t* file = _wgetenv(L"QOR_STAGE")) {
            made->Open(windows::Narrow(file));
            made->UseAllDialogs();
        }
        made.Detach();  // stays to the end of the process
    }
    return *current_;
}

void Stage::UseAllDialogs() {
    for (const Json& step : file_["steps"]) {
        if (step.contains("user")) entries_.insert(entries_.end(), step["user"].begin(), step["user"].end());
    }
    user_.Begin(&entries_, 0);
}

Stage::Stage() : server_{transcript_, names_, Today()}, user_(transcript_) {
    current_ = this;
    names_.ReadOthersBy(ShownObject);
}

Stage::~Stage() {
    ShowBag(nullptr);
    if (current_ == this) current_ = nullptr;
}

std::span<const Member> Stage::Members() const { return kMembers; }

Ref<Object> Stage::CreateComponent(std::string_view name) {
    if (!viewer::ComponentExists(server_, name)) {
        transcript_.Add("create", {{"component", name}, {"failed", true}});
        return {};
    }
    transcript_.Add("create", {{"component", name}});
    return viewer::MakeComponent(server_, name);
}

void Stage::Open(const std::string& file) {
    file_ = Json::parse(std::ifstream(std::filesystem::path(file)));
    server_.session.Lay({{"PropsString", "UserID=1;"}}, names_);
    LayBag(Json::object());
    Lay(file_);
    if (file_.contains("userProfile")) server_.profiles.Load(file_["userProfile"], names_);
    transcript_.Add("process", {{"number", GetCurrentProcessId()}});
}

void Stage::Lay(const Json& step) {
    if (step.contains("session")) server_.session.Lay(step["session"], names_);
    if (step.contains("bag")) LayBag(step["bag"]);
    if (step.contains("components")) server_.script.Lay(step["components"]);
}

void Stage::LayBag(const Json& bag) {
    if (bag.is_null()) return ShowBag(nullptr);
    if (!bag_) bag_ = MakeRef<viewer::ShellBag>();
    for (const auto& [key, value] : bag.items()) {
        if (value.is_null()) {
            bag_->items().Remove(key);
        } else {
            bag_->items().Put(key, viewer::ReadValue(value, {}, names_));
        }
    }
    ShowBag(windows::Outward(bag_.get()).Get());
}

void Stage::ShowBag(IDispatch* bag) {
    if (bag) {
        SetPropA(GetDesktopWindow(), BagName().c_str(), bag);
    } else {
        RemovePropA(GetDesktopWindow(), BagName().c_str());
        bag_ = {};
    }
    shownBag_ = bag;
}

void Stage::Step(std::int32_t step) {
    transcript_.Add("step", {{"index", step}, {"step", At(step)}});
    user_.Begin(At(step).contains("user") ? &At(step)["user"] : nullptr, step);
}

Value Stage::To(std::int32_t step) { return viewer::ReadValue(At(step)["to"], {}, names_); }

Value Stage::Argument(std::int32_t step, std::int32_t position) {
    return viewer::ReadValue(At(step)["args"][static_cast<std::size_t>(position)], {}, names_);
}

void Stage::Result(std::int32_t step, const Value& value) {
    user_.End();
    transcript_.Add("result", {{"index", step}, {"value", viewer::WriteValue(value, names_)}});
    if (const auto as = At(step).find("as"); as != At(step).end()) {
        names_.Keep(as->get_ref<const std::string&>(), value);
    }
}

void Stage::Failed(std::int32_t step, std::int32_t number, const std::string& source,
                   const std::string& text) {
    user_.End();
    transcript_.Add("error",
                    {{"index", step}, {"number", number}, {"source", source}, {"description", text}});
}

void Stage::Change(std::int32_t step) { Lay(At(step)); }

void Stage::Close(const std::string& file) {
    transcript_.Add("closing");
    names_.DropAll();
    const Json canUnload = CanUnload();
    transcript_.Add("end", {{"component-can-go", canUnload}});
    std::ofstream out(std::filesystem::path(file), std::ios::binary);
    transcript_.Write(out);
    transcript_.Close();
    ShowBag(nullptr);
}

}  // namespace qor::stage
