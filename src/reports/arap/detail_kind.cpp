#include "reports/arap/detail_kind.h"

#include "reports/arap/party_rows.h"

namespace qor {

namespace {

// clang-format off
constexpr auto kReceivableItems  = PartyItems(kCustomerSide);
constexpr auto kPayableItems     = PartyItems(kSupplierSide);
constexpr auto kReceivableCommon = PartyCommonItems(kCustomerSide);
constexpr auto kPayableCommon    = PartyCommonItems(kSupplierSide);

constexpr auto kReceivableCommonFields = PartyCommonFields(kCustomerSide);
constexpr auto kPayableCommonFields    = PartyCommonFields(kSupplierSide);

constexpr auto kZeroFields = std::to_array<SchemeField>({
    {"NotShowBalZero",  "chkNotShowBalZero",  FieldDefault::One},
    {"NotShowBillZero", "chkNotShowBillZero", FieldDefault::One},
});

constexpr auto kReceivableFields = Join(
    PartyRangeFields(kCustomerSide, FieldDefault::Today),
    kZeroFields,
    std::to_array<SchemeField>({
        {"IncludeOtherR", "chkIncludeOtherR", FieldDefault::One},
        {"CheckState",    "cmbCheckState",    FieldDefault::FirstEntry},
        {"IncludeWT",     "chkIncludeWT",     FieldDefault::Zero},
        {"IncludeFL",     "chkIncludeFL",     FieldDefault::One},
    }),
    kAskerFields,
    std::to_array<SchemeField>({
        {"UserFormula1",  "txt_UserFormula1(0)"},
        {"UserFormula2",  "txt_UserFormula1(1)"},
        {"UserFormula3",  "txt_UserFormula1(2)"},
        {"UserFormula4",  "txt_UserFormula1(3)"},
        {"UserFormula5",  "txt_UserFormula1(4)"},
        {"UserFormula6",  "txt_UserFormula1(5)"},
        {"CheckFormula1", "chk_Include(0)"},
        {"CheckFormula2", "chk_Include(1)"},
        {"CheckFormula3", "chk_Include(2)"},
        {"CheckFormula4", "chk_Include(3)"},
        {"CheckFormula5", "chk_Include(4)"},
        {"CheckFormula6", "chk_Include(5)"},
    }));

constexpr auto kPayableFields = Join(
    PartyRangeFields(kSupplierSide, FieldDefault::Today),
    kZeroFields,
    std::to_array<SchemeField>({
        {"IncludeOtherP", "chkIncludeOtherP", FieldDefault::One},
        {"IncludeGJ",     "chkIncludeGJ",     FieldDefault::Zero},
        {"CheckState",    "cmbCheckState",    FieldDefault::FirstEntry},
        {"IncludeFL",     "chkIncludeFL",     FieldDefault::One},
    }),
    kAskerFields);

constexpr CheckBoxRow kReceivableChecks[] = {
    {"chkNotShowBalZero",  "余额为零不显示"},
    {"chkNotShowBillZero", "发生额为零不显示"},
    {"chkIncludeOtherR",   "包括其他应收"},
    {"chkIncludeWT",       "包含委托代销未结算"},
    {"chkIncludeFL",       "包括返利单"},
};

constexpr CheckBoxRow kPayableChecks[] = {
    {"chkNotShowBalZero",  "余额为零不显示"},
    {"chkNotShowBillZero", "发生额为零不显示"},
    {"chkIncludeOtherP",   "包括其他应付"},
    {"chkIncludeGJ",       "包括估价业务"},
    {"chkIncludeFL",       "包括返利单"},
};

constexpr std::string_view kReceivableNotInType1[] = {"chkIncludeOtherR"};
constexpr std::string_view kPayableNotInType1[]    = {"chkIncludeGJ", "chkIncludeOtherP"};

constexpr ColumnRow kReceivableAmounts[] = {
    {"预收金额$", "", "6", "FPreAmount",        1, 7},
    {"应收金额$", "", "6", "FReceivableAmount", 1, 7},
    {"实收金额$", "", "6", "FReceiveAmount",    1, 7},
};

constexpr ColumnRow kPayableAmounts[] = {
    {"预付金额$", "", "6", "FPreAmount",     1, 7},
    {"应付金额$", "", "6", "FPayableAmount", 1, 7},
    {"实付金额$", "", "6", "FPayAmount",     1, 7},
};
// clang-format on

}  // namespace

constexpr DetailKind kReceivableDetail{
    .report = {.number = 10502,
               .name = "应收账款明细表",
               .rptProperty = 0,
               .defaultIdentifier = 10501,
               .family = Family::DialogKept,
               .handsFilterToDialog = true,
               .userFieldsOfHead = true,
               .publicDataRight = true,
               .begin = {"BDate", "BDate"},
               .end = {"EDate", "EDate"},
               .sendsLongNumber = false,
               .rightItems = kCustomerRights,
               .dataMember = "GetRpt10502Data"},
    .dialog = {.formName = "frmFilter10502",
               .items = kReceivableItems,
               .commonItems = kReceivableCommon,
               .fields = kReceivableFields,
               .commonFields = kReceivableCommonFields,
               .checks = kReceivableChecks,
               .notInType1 = kReceivableNotInType1},
    .asksForUserFormulas = true,
    .amountColumns = kReceivableAmounts,
};

constexpr DetailKind kPayableDetail{
    .report = {.number = 10504,
               .name = "应付账款明细表",
               .rptProperty = 0,
               .defaultIdentifier = 10504,
               .family = Family::DialogKept,
               .handsFilterToDialog = true,
               .userFieldsOfHead = true,
               .publicDataRight = true,
               .begin = {"BDate", "BDate"},
               .end = {"EDate", "EDate"},
               .sendsLongNumber = false,
               .rightItems = kSupplierRights,
               .dataMember = "GetRpt10504Data"},
    .dialog = {.formName = "frmFilter10504",
               .items = kPayableItems,
               .commonItems = kPayableCommon,
               .fields = kPayableFields,
               .commonFields = kPayableCommonFields,
               .checks = kPayableChecks,
               .notInType1 = kPayableNotInType1},
    .asksForUserFormulas = false,
    .amountColumns = kPayableAmounts,
};

}  // namespace qor
