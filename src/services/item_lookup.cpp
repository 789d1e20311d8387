#include "services/item_lookup.h"

#include <algorithm>

#include "platform/conversions.h"
#include "services/texts.h"

namespace qor {

namespace {

enum class Picker { Item, ItemByLastDigit, Unit, Currency, Account, Settlement, Subsidiary };

struct PickerRow {
    std::int32_t first;
    std::int32_t last;
    Picker picker;
};

constexpr std::int32_t kAccounts = 13;

// The first row that holds the class counts.
constexpr PickerRow kPickers[] = {
    {1, 5, Picker::Item},
    {8, 8, Picker::Item},
    {10, 10, Picker::Item},
    {1121, 1122, Picker::Item},
    {2014, 2014, Picker::Item},
    {104031, 104034, Picker::ItemByLastDigit},
    {104038, 104038, Picker::ItemByLastDigit},
    {1040301, 1040301, Picker::ItemByLastDigit},
    {1040308, 1040308, Picker::ItemByLastDigit},
    {7, 7, Picker::Unit},
    {12, 12, Picker::Currency},
    {kAccounts, kAccounts, Picker::Account},
    {130, 130, Picker::Settlement},
    {20, 999, Picker::Subsidiary},
};

const PickerRow* FindPicker(std::int32_t itemClass) {
    const auto* found = std::ranges::find_if(kPickers, [itemClass](const PickerRow& row) {
        return row.first <= itemClass && itemClass <= row.last;
    });
    return found == std::end(kPickers) ? nullptr : found;
}

constexpr std::string_view kTitle = "信息提示";
constexpr std::string_view kNoRight = "基础资料可能没有授权！";
constexpr std::string_view kNoDetailAccount = "不能选择非明细科目 ";

/// A value that is no object at all is an error.
Ref<Object> ObjectOrNothing(const Value& value) {
    if (!value.IsObject()) Raise(Automation::ObjectRequired);
    return Ref<Object>(value.object());
}

bool EqualsFalse(const Value& value) { return !value.IsNull() && !ToBoolean(value); }

}  // namespace

std::string ItemPicker::Condition(std::string_view where) {
    const bool displayDeleted = profile_.DisplayDeleted();
    if (where.empty()) return displayDeleted ? "" : " t1.FDeleted=0 ";
    return std::string(where) + " And " + (displayDeleted ? " 1=1 " : " t1.FDeleted=0 ");
}

Value ItemPicker::PickItem(std::int32_t itemClass, std::string_view search, std::string_view where,
                           std::int16_t dataType) {
    Value condition = Condition(where);
    const Ref<Dictionary> settings = platform_.NewDictionary();
    settings->Put("GetDataType", dataType);
    settings->Put("Search", search);
    // The server's caches of base data are renewed before each list.
    profile_.GetGLData().Call("Refresh");

    Value classVariable = itemClass;
    Value searchVariable = search;
    Value settingsVariable = settings;
    return profile_.GetGLView().Call("ItemLookUp", Argument::ByRef(classVariable),
                                     Argument::ByRef(searchVariable), Argument::ByRef(condition),
                                     Argument::ByRef(settingsVariable));
}

Value ItemPicker::Pick(std::int32_t itemClass, std::string_view search, std::string_view where,
                       std::int16_t dataType) {
    const PickerRow* row = FindPicker(itemClass);
    if (!row) return Value::Nothing();
    Value searchVariable = search;
    const auto pickBySearch = [&](std::string_view member) {
        return profile_.GetGLView().Call(member, Argument::ByRef(searchVariable));
    };
    switch (row->picker) {
        case Picker::Item:
            return PickItem(itemClass, search, where, dataType);
        case Picker::ItemByLastDigit:
            return PickItem(itemClass % 10, search, where, dataType);
        case Picker::Unit:
            return profile_.GetGLView().Call("UnitLookup", ToInt32(where), Argument::ByRef(searchVariable));
        case Picker::Currency:
            return pickBySearch("CurrencyLookup");
        case Picker::Account:
            return pickBySearch("AccountLookup");
        case Picker::Settlement:
            return pickBySearch("SettTypeLookup");
        case Picker::Subsidiary: {
            Value classVariable = itemClass;
            return profile_.GetGLView().Call("SubMesLookup", Argument::ByRef(classVariable),
                                             Argument::ByRef(searchVariable));
        }
    }
    return Value::Nothing();
}

Ref<Object> ItemPicker::ItemLookup(std::int32_t itemClass, std::string_view search, std::string_view where,
                                   std::int16_t dataType) {
    const auto tell = [this](std::string_view message) {
        platform_.windows().MessageBox(ResText(message), ResText(kTitle), kInformationIcon);
    };
    try {
        Ref<Object> lookup = ObjectOrNothing(Pick(itemClass, search, where, dataType));
        if (!lookup) return {};
        const Ref<Object> chosen = ObjectOrNothing(lookup->Get("ReturnObject"));
        if (!chosen) return {};
        if (itemClass == kAccounts && EqualsFalse(chosen->Get("Detail"))) {
            tell(kNoDetailAccount);
            return {};
        }
        return lookup;
    } catch (const Error&) {
        tell(kNoRight);
        return {};
    }
}

}  // namespace qor
