// The rows that the summaries and the details of receivables and payables share: one side deals with
// customers, the other with suppliers, and their dialogs ask for the same ranges.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "dialogs/scheme_dialog.h"
#include "report/report_description.h"

namespace qor {

struct PartySide {
    std::string_view beginKey, endKey;  // of the range of parties
    std::string_view field;             // of the data set: whose row it is
    std::string_view caption;
    std::int32_t itemClass;
};

inline constexpr PartySide kCustomerSide{"BCustNumber", "ECustNumber", "FCustNumber", "客户代码:", 1};
inline constexpr PartySide kSupplierSide{"BSupplyNumber", "ESupplyNumber", "FSupplyNumber", "供应商代码:", 8};

inline constexpr RightItem kCustomerRights[] = {{"t_Organization", "t1", "1"}};
inline constexpr RightItem kSupplierRights[] = {{"t_Supplier", "t1", "8"}};

/// One table after the other.
template <class Row, std::size_t... counts>
constexpr auto Join(const std::array<Row, counts>&... tables) {
    std::array<Row, (counts + ...)> joined{};
    std::size_t next = 0;
    const auto append = [&](const auto& table) {
        for (const Row& row : table) {
            joined[next++] = row;
        }
    };
    (append(tables), ...);
    return joined;
}

// clang-format off
constexpr auto PartyItems(const PartySide& side) {
    return std::to_array<ItemBox>({
        {"Label3",  side.caption,   side.itemClass},
        {"Label4",  "至: ",         side.itemClass, 0, true},
        {"Label6",  "部门代码:",    2},
        {"Label7",  "至: ",         2,              0, true},
        {"Label11", "业务员代码:",  3},
        {"Label12", "至: ",         3,              0, true},
    });
}

constexpr auto PartyCommonItems(const PartySide& side) {
    return std::to_array<ItemBox>({
        {"Label10", side.caption, side.itemClass},
        {"Label9",  "至: ",       side.itemClass, 0, true},
    });
}

constexpr auto PartyCommonFields(const PartySide& side) {
    return std::to_array<SchemeField>({
        {"BDate",       "BEGDate"},
        {"EDate",       "ENDDate"},
        {side.beginKey, "txtItem(6)"},
        {side.endKey,   "txtItem(7)"},
    });
}

constexpr auto PartyRangeFields(const PartySide& side, FieldDefault firstDay) {
    return std::to_array<SchemeField>({
        {"BDate",       "DtpBDate",   firstDay},
        {"EDate",       "DtpEDate",   FieldDefault::Today},
        {side.beginKey, "txtItem(0)"},
        {side.endKey,   "txtItem(1)"},
        {"BDeptNumber", "txtItem(2)", FieldDefault::Leave, FieldSource::Trimmed},
        {"EDeptNumber", "txtItem(3)", FieldDefault::Leave, FieldSource::Trimmed},
        {"BEmpNumber",  "txtItem(4)", FieldDefault::Leave, FieldSource::Trimmed},
        {"EEmpNumber",  "txtItem(5)", FieldDefault::Leave, FieldSource::Trimmed},
    });
}

/// Who asked, and the check state once more: behind everything that can be read back.
inline constexpr auto kAskerFields = std::to_array<SchemeField>({
    {.key = "UserID", .source = FieldSource::UserID},
    {.key = "CheckState", .control = "cmbCheckState", .source = FieldSource::Copy},
});
// clang-format on

}  // namespace qor
