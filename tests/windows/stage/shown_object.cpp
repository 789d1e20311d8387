#include "tests/windows/stage/shown_object.h"

#include "platform/late_bound.h"
#include "windows/foreign_object.h"

namespace qor::stage {

namespace {

/// Stands for an object of which only the name of its class is told.
class NamedObject final : public Object {
 public:
    explicit NamedObject(std::string name) : name_(std::move(name)) {}
    std::string_view ClassName() const override { return name_; }
    MemberId FindMember(std::string_view) override { return kNoMember; }
    Value Invoke(MemberId, InvokeKind, Arguments) override { Raise(Automation::NoSuchMember); }

 private:
    std::string name_;
};

/// "Rpt10522" from the description of its members, "_Rpt10522".
std::string ClassNameOf(IDispatch& dispatch) {
    windows::ComPtr<ITypeInfo> info;
    BSTR name = nullptr;
    if (FAILED(dispatch.GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) ||
        FAILED(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) {
        return "Object";
    }
    const std::string text = windows::Narrow({name, SysStringLen(name)});
    SysFreeString(name);
    return text.starts_with('_') ? text.substr(1) : text;
}

}  // namespace

Ref<Object> ShownObject(Object& object) {
    const auto* foreign = dynamic_cast<const windows::ForeignObject*>(&object);
    if (!foreign) return {};
    const auto has = [&](std::string_view member) { return object.FindMember(member) != kNoMember; };
    if (has("Lookup") && has("Name")) return MakeRef<LateBoundDictionary>(Ref<Object>(&object));
    if (has("Item") && has("Add")) return MakeRef<LateBoundVector>(Ref<Object>(&object));
    return MakeRef<NamedObject>(ClassNameOf(*foreign->dispatch()));
}

}  // namespace qor::stage
