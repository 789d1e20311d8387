#include "embedded/lookup_components.h"

#include "embedded/bill_kinds.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// An item that was chosen.
class ChosenItem final : public TableObject {
 public:
    ChosenItem(Server& server, std::int64_t id) {
        Statement item(server.accountSet.database(),
                       "SELECT FNumber, FName, FDetail FROM t_Item WHERE FItemID=?");
        if (!item.With(id).Step()) RaiseAccountSetError("所选的基础资料不存在");
        id_ = static_cast<std::int32_t>(id);
        number_ = item.Text(0);
        name_ = item.Text(1);
        detail_ = item.Int(2) != 0;
    }
    std::string_view ClassName() const override { return "QOREBCGLView.Item"; }
    std::span<const Member> Members() const override;

    Value Id(Arguments) { return id_; }
    Value Number(Arguments) { return number_; }
    Value Name(Arguments) { return name_; }
    Value Detail(Arguments) { return detail_; }

 private:
    Value id_, number_, name_, detail_;
};

constexpr Member kChosenItem[] = {
    {.name = "ItemID", .kind = InvokeKind::Get, .invoke = Bind<ChosenItem, &ChosenItem::Id>},
    {.name = "Number", .kind = InvokeKind::Get, .invoke = Bind<ChosenItem, &ChosenItem::Number>},
    {.name = "Name", .kind = InvokeKind::Get, .invoke = Bind<ChosenItem, &ChosenItem::Name>},
    {.name = "Detail", .kind = InvokeKind::Get, .invoke = Bind<ChosenItem, &ChosenItem::Detail>},
};

std::span<const Member> ChosenItem::Members() const { return kChosenItem; }

/// What a picker leaves behind when it is closed.
class Lookup final : public TableObject {
 public:
    explicit Lookup(Ref<Object> chosen) : chosen_(std::move(chosen)) {}
    std::string_view ClassName() const override { return "QOREBCGLView.Lookup"; }
    std::span<const Member> Members() const override;

    Value ReturnObject(Arguments) { return chosen_; }

 private:
    Ref<Object> chosen_;  // nothing where the user cancelled
};

constexpr Member kLookup[] = {
    {.name = "ReturnObject", .kind = InvokeKind::Get, .invoke = Bind<Lookup, &Lookup::ReturnObject>},
};

std::span<const Member> Lookup::Members() const { return kLookup; }

/// The condition of a list, as the dialogs' own texts write it: nothing, everything, not the disabled ones.
bool AllowsDisabled(std::string_view condition) {
    bool allowed = true;
    while (!Trimmed(condition).empty()) {
        const std::size_t joint = condition.find(" And ");
        const std::string_view part = Trimmed(condition.substr(0, joint));
        if (part == "t1.FDeleted=0") {
            allowed = false;
        } else if (part != "1=1" && !part.empty()) {
            RaiseAccountSetError("无法识别的基础资料条件");
        }
        condition = joint == std::string_view::npos ? "" : condition.substr(joint + 5);
    }
    return allowed;
}

/// Dialogs have more than one number for the settlement accounts.
std::int32_t StoredClass(std::int32_t itemClass) {
    return itemClass == 13 || itemClass == 14 ? item_class::kAccount : itemClass;
}

Value Pick(Object& self, std::int32_t itemClass, const Value& search, bool withDisabled = true) {
    Server& server = ServerOf(self);
    const LookupRequest request{StoredClass(itemClass), ToText(search), withDisabled};
    const auto chosen =
        server.pick ? server.pick(server.accountSet, request) : FindBySearchText(server.accountSet, request);
    return MakeRef<Lookup>(chosen ? Ref<Object>(MakeRef<ChosenItem>(server, *chosen)) : Ref<Object>());
}

template <std::int32_t Class>
Value PickBySearch(Object& self, Arguments a) {
    return Pick(self, Class, *a[0]);
}

constexpr Parameter kClass{"ItemClass", ParameterType::Int32, true};
constexpr Parameter kSearch{"Search", ParameterType::Text, true};

constexpr Member kGLView[] = {
    {.name = "ItemLookUp",
     .invoke = [](Object& self,
                  Arguments a) { return Pick(self, a[0]->int32(), *a[1], AllowsDisabled(a[2]->text())); },
     .result = ParameterType::Object,
     .parameters = {{kClass,
                     kSearch,
                     {"Condition", ParameterType::Text, true},
                     {"Settings", ParameterType::Any, true, true}}}},
    {.name = "UnitLookup",
     .invoke = [](Object& self, Arguments a) { return Pick(self, item_class::kUnit, *a[1]); },
     .result = ParameterType::Object,
     .parameters = {{{"UnitGroup", ParameterType::Int32}, kSearch}}},
    {.name = "SubMesLookup",
     .invoke = [](Object& self, Arguments a) { return Pick(self, a[0]->int32(), *a[1]); },
     .result = ParameterType::Object,
     .parameters = {{kClass, kSearch}}},
    {.name = "CurrencyLookup",
     .invoke = PickBySearch<item_class::kCurrency>,
     .result = ParameterType::Object,
     .parameters = {{kSearch}}},
    {.name = "SettTypeLookup",
     .invoke = PickBySearch<item_class::kSettlementType>,
     .result = ParameterType::Object,
     .parameters = {{kSearch}}},
    {.name = "AccountLookup",
     .invoke = PickBySearch<item_class::kAccount>,
     .result = ParameterType::Object,
     .parameters = {{kSearch}}},
};

}  // namespace

const std::span<const Member> kGLViewMembers = kGLView;

std::optional<std::int64_t> FindBySearchText(AccountSet& set, const LookupRequest& request) {
    const std::string_view search = Trimmed(request.search);
    if (search.empty()) return std::nullopt;
    Statement found(
        set.database(),
        "SELECT FItemID FROM t_Item WHERE FItemClassID=?1 AND (?3 OR FDeleted=0)"
        " AND (substr(FNumber,1,length(?2))=?2 COLLATE NOCASE OR substr(FName,1,length(?2))=?2)"
        " ORDER BY FNumber<>?2, substr(FNumber,1,length(?2))<>?2 COLLATE NOCASE, FNumber LIMIT 1");
    if (!found.With(request.itemClass, search, request.withDisabled).Step()) return std::nullopt;
    return found.Int(0);
}

}  // namespace qor
