#include "services/data_rights.h"

#include <algorithm>

#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::string_view kRightTables[] = {
    "t_item", "t_supplier", "t_stock", "t_Organization", "t_ls_branchshop", "t_ls_cashier",
};

bool IsSubjectToRights(std::string_view table) {
    return std::ranges::any_of(kRightTables,
                               [table](std::string_view known) { return EqualsIgnoringCase(known, table); });
}

/// The classes stand in the list as digits and are found as substrings: "1" is in "11". An empty list has
/// none.
bool Lists(std::string_view classList, std::string_view itemClass) {
    return !classList.empty() && classList.find(itemClass) != std::string_view::npos;
}

/// The rows of `alias` that the user may see: those whose rights name him, and those without an item.
std::string Condition(const std::string& user, const std::string& alias) {
    return " (CharIndex('" + user + "'," + alias + ".FRightUserID)>0 OR ISNULL(" + alias + ".FItemID,0)=0) ";
}

}  // namespace

std::string DataRights::GetAuthrizeItemClassList() {
    Value list = bag_.GetProcessBagItem("AuthrizeItemClassList");
    if (list.IsEmpty() || list == Value("")) {
        Ref<Object> data = platform_.CreateComponent("QOREBCGLView.GLData");
        list = data->Call("GetAuthItemClassList");
        data = nullptr;
        bag_.SetProcessBagItem("AuthrizeItemClassList", list);
    }
    return ToText(list);
}

Value DataRights::AskServer() {
    Ref<Object> security = platform_.CreateComponent("QOREBSBase.SecurityInfo");
    Value needed = security->Call("NeedAutorized", ToText(session_.GetSharedProperty("PropsString")));
    security = nullptr;
    bag_.SetProcessBagItem("NeedAuthrize", needed);
    return needed;
}

bool DataRights::NeedAuthrize() {
    bool needed = false;
    IgnoringErrors([&] {
        if (!asked_) {
            AskServer();
            asked_ = true;
        }
        Value known = bag_.GetProcessBagItem("NeedAuthrize");
        if (known.IsEmpty()) known = AskServer();
        needed = ToBoolean(known);
    });
    return needed;
}

bool DataRights::AddRightClause(Vector* items, std::string& clause) {
    if (!NeedAuthrize()) return false;
    session_.ParsePropsString(session_.GetPropsString());
    if (!items) Raise(Automation::ObjectNotSet);
    for (std::int32_t i = 1, count = items->Count(); i <= count; ++i) {
        const Ref<Dictionary> item = As<Dictionary>(items->Item(i));
        if (!item) Raise(Automation::ObjectNotSet);
        if (!IsSubjectToRights(ToText(item->Get("DataTable")))) continue;
        if (!Lists(GetAuthrizeItemClassList(), ToText(item->Get("ItemClassType")))) continue;
        if (!Trimmed(clause).empty()) clause += " And ";
        clause += Condition(std::to_string(session_.GetUserID()), ToText(item->Get("DataTableAs")));
    }
    return true;
}

Ref<Dictionary> DataRights::NewRightItem(std::string_view dataTable, std::string_view alias,
                                         std::string_view itemClass) {
    Ref<Dictionary> item = platform_.NewDictionary();
    item->Put("DataTable", dataTable);
    item->Put("DataTableAs", alias);
    item->Put("ItemClassType", itemClass);
    return item;
}

Ref<Dictionary> DataRights::NewUserFieldSpec(bool hasVect, std::string_view prefixValue,
                                             std::string_view classType, std::string_view displayFields) {
    Ref<Dictionary> fields = platform_.NewDictionary();
    fields->Put("hasVect", hasVect);
    fields->Put("prefixValue", prefixValue);
    fields->Put("classType", classType);
    fields->Put("DisplayFields", displayFields);
    return fields;
}

}  // namespace qor
