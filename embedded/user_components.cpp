#include "embedded/session_components.h"
#include "platform/dictionary.h"

namespace qor {

namespace {

/// The application frame, as far as reports use it: the log of what users use.
class FrameData final : public ServerComponent {
 public:
    using ServerComponent::ServerComponent;

    Value PropString(Arguments) { return propString_; }
    Value PutPropString(Arguments a) { return propString_ = *a[0], Value(); }
    Value WriteMGLog(Arguments a) {
        server().usage.push_back({a[0]->text(), a[1]->text()});
        return {};
    }

 private:
    Value propString_ = "";
};

constexpr Member kFrameData[] = {
    {.name = "PropString",
     .kind = InvokeKind::Get,
     .invoke = Bind<FrameData, &FrameData::PropString>,
     .result = ParameterType::Text},
    {.name = "PropString",
     .kind = InvokeKind::Put,
     .invoke = Bind<FrameData, &FrameData::PutPropString>,
     .parameters = {{{"PropString", ParameterType::Text}}}},
    {.name = "WriteMGLog",
     .invoke = Bind<FrameData, &FrameData::WriteMGLog>,
     .parameters = {{{"Module", ParameterType::Text}, {"Code", ParameterType::Text}}}},
};

/// The values of one product and section of the user's profile: loaded, changed in the dictionary, saved.
class UserProfileComponent final : public ServerComponent {
 public:
    using ServerComponent::ServerComponent;

    Value Load(Arguments a) {
        dictionary_ = MakeRef<OrderedDictionary>();
        for (auto& [name, value] : server().profiles->Load(KeyOf(a))) {
            dictionary_->Put(name, value);
        }
        return true;
    }
    Value Save(Arguments a) {
        ProfileSection section;
        for (std::size_t i = 0; i < dictionary_->Count(); ++i) {
            const std::string name = dictionary_->KeyAt(i);
            section.emplace_back(name, dictionary_->Get(name));
        }
        server().profiles->Save(KeyOf(a), section);
        return true;
    }
    Value ValuesOf(Arguments) { return dictionary_; }

 private:
    ProfileKey KeyOf(Arguments a) { return {server().userId, a[0]->text(), a[1]->text()}; }

    Ref<Dictionary> dictionary_ = MakeRef<OrderedDictionary>();
};

constexpr Member kUserProfile[] = {
    {.name = "Load",
     .invoke = Bind<UserProfileComponent, &UserProfileComponent::Load>,
     .result = ParameterType::Boolean,
     .parameters = {{{"Product", ParameterType::Text}, {"Section", ParameterType::Text}}}},
    {.name = "Save",
     .invoke = Bind<UserProfileComponent, &UserProfileComponent::Save>,
     .result = ParameterType::Boolean,
     .parameters = {{{"Product", ParameterType::Text}, {"Section", ParameterType::Text}}}},
    {.name = "Dictionary",
     .kind = InvokeKind::Get,
     .invoke = Bind<UserProfileComponent, &UserProfileComponent::ValuesOf>,
     .result = ParameterType::Object},
};

/// The type-ahead list of code boxes. It takes its settings and, with no window to draw on, shows nothing.
class NameList final : public ServerComponent {
 public:
    using ServerComponent::ServerComponent;

    template <std::size_t I>
    Value Setting(Arguments) {
        return settings_[I];
    }
    template <std::size_t I>
    Value PutSetting(Arguments a) {
        return settings_[I] = *a[0], Value();
    }
    Value Nothing(Arguments) { return {}; }

 private:
    Value settings_[4];
};

template <std::size_t I>
constexpr Member SettingGetter(std::string_view name) {
    return {.name = name, .kind = InvokeKind::Get, .invoke = Bind<NameList, &NameList::Setting<I>>};
}
template <std::size_t I>
constexpr Member SettingPutter(std::string_view name) {
    return {.name = name,
            .kind = InvokeKind::Put,
            .invoke = Bind<NameList, &NameList::PutSetting<I>>,
            .parameters = {{{"Value"}}}};
}

constexpr Member kNameList[] = {
    SettingGetter<0>("LookUpClassID"),
    SettingPutter<0>("LookUpClassID"),
    SettingGetter<1>("GetDataType"),
    SettingPutter<1>("GetDataType"),
    SettingGetter<2>("NoKeyDownKeyUp"),
    SettingPutter<2>("NoKeyDownKeyUp"),
    SettingGetter<3>("HotTrace"),
    SettingPutter<3>("HotTrace"),
    {.name = "AttachByHWnd",
     .invoke = Bind<NameList, &NameList::Nothing>,
     .parameters = {{{"HWnd"}, {"Container"}, {"Mode"}}}},
    {.name = "Detach", .invoke = Bind<NameList, &NameList::Nothing>},
};

}  // namespace

Ref<Object> CreateFrameData(const ComponentRow& row, const ServerRef& server) {
    return MakeRef<FrameData>(row.name, kFrameData, server);
}

Ref<Object> CreateUserProfile(const ComponentRow& row, const ServerRef& server) {
    return MakeRef<UserProfileComponent>(row.name, kUserProfile, server);
}

Ref<Object> CreateNameList(const ComponentRow& row, const ServerRef& server) {
    return MakeRef<NameList>(row.name, kNameList, server);
}

}  // namespace qor
