#include "reports/income/category_summary_kind.h"

#include <array>

namespace qor {

namespace {

// clang-format off
constexpr auto Items(std::int32_t typeClass, std::string_view typeCaption) {
    return std::to_array<ItemBox>({
        {"Label4", typeCaption, typeClass},
        {"Label9", "至: ",      typeClass, 0, true},
    });
}

constexpr auto Fields(std::string_view groupKey) {
    return std::to_array<PlainField>({
        {"DtpBDate",                "DtpBDate",                FieldDefault::PeriodStart},
        {"DtpEDate",                "DtpEDate",                FieldDefault::Today},
        {"BTypeIn",                 "txtItem(0)",              FieldDefault::Blank},
        {"ETypeIn",                 "txtItem(1)",              FieldDefault::Blank},
        {"BLevel",                  "txtlevel1",               FieldDefault::One},
        {"ELevel",                  "txtlevel2",               FieldDefault::Leave},  // by application type
        {groupKey,                  groupKey,                  FieldDefault::Zero},
        {"chkForbiddenTypeInclude", "chkForbiddenTypeInclude", FieldDefault::Zero},
        {"chkIncludeOther",         "chkIncludeOther",         FieldDefault::Zero},
        {"chkOccurNotZero",         "chkOccurNotZero",         FieldDefault::One},
        {"CheckState",              "cmbCheckState",           FieldDefault::FirstEntry},
    });
}

constexpr auto kIncomeItems   = Items(1121, "收入类别:");
constexpr auto kExpenseItems  = Items(1122, "支出类别:");
constexpr auto kIncomeFields  = Fields("chkGrouyByCust");
constexpr auto kExpenseFields = Fields("chkGrouyBySupply");

constexpr ColumnRow kCustomerColumns[] = {
    {"客户代码$", "", "1", "FCustNumber", 1, 7},
    {"客户名称$", "", "1", "FCustName",   1, 7},
};

constexpr ColumnRow kSupplierColumns[] = {
    {"供应商代码$", "", "1", "FSupplyNumber", 1, 7},
    {"供应商名称$", "", "1", "FSupplyName",   1, 7},
};

// The expense summary too is limited by the rights to customers, unlike the detail that it opens.
constexpr RightItem kCustomers[] = {{"t_Organization", "t1", "1"}};
// clang-format on

}  // namespace

constexpr CategorySummaryKind kIncomeSummary{
    .report = {.number = 10521,
               .name = "收入类别汇总表",
               .rptProperty = 2,
               .detailRptID = 10522,
               .defaultIdentifier = 10521,
               .family = Family::DialogOnce,
               .hasDetailReport = true,
               .begin = {"DtpEDate", "DtpBDate"},  // the begin date under the name of the end date
               .end = {"DtpEDate", "DtpEDate"},
               .rightsStep = RightsStep::AfterMessage,
               .rightItems = kCustomers,
               .dataMember = "GetRpt10521Data"},
    .partyColumns = kCustomerColumns,
    .levelCaption = "收入级别",
    .receiveCaption = "应收金额$",
    .settleCaption = "收款结算$",
    .typeRangeCaption = "收入类别范围：",
    .partyField = "FCustNumber",
    .beginPartyKey = "BCustNumber",
    .endPartyKey = "ECustNumber",
    .dialog = {.formName = "frmFilter10521",
               .title = "收入类别汇总表",
               .items = kIncomeItems,
               .fields = kIncomeFields,
               .hasNameList = false,
               .hidesCheckStateForAppType1 = true},
    .typeClass = 1121,
    .groupKey = "chkGrouyByCust",
    .groupCaption = "按客户汇总",
    .forbiddenTypeCaption = "显示禁用收入类别",
    .includeOtherCaption = "包括其他应收",
    .groupedTypeValue = "InvoiceStyle,0|客户,0|",
    .plainTypeValue = "InvoiceStyle,0|客户,0",
    .lowEndLevel = LowEndLevel::BeginLevelFollows,
    .levelBoxesOpenPickers = false,
};

constexpr CategorySummaryKind kExpenseSummary{
    .report = {.number = 10523,
               .name = "支出类别汇总表",
               .rptProperty = 2,
               .detailRptID = 10524,
               .defaultIdentifier = 10523,
               .family = Family::DialogOnce,
               .hasDetailReport = true,
               .begin = {"DtpBDate", "DtpBDate"},
               .end = {"DtpEDate", "DtpEDate"},
               .rightsStep = RightsStep::AfterMessage,
               .rightItems = kCustomers,
               .dataMember = "GetRpt10523Data"},
    .partyColumns = kSupplierColumns,
    .levelCaption = "支出级别",
    .receiveCaption = "应付金额$",
    .settleCaption = "费用结算$",
    .typeRangeCaption = "支出类别范围：",
    .partyField = "FSupplyNumber",
    .beginPartyKey = "BSupplyNumber",
    .endPartyKey = "ESupplyNumber",
    .dialog = {.formName = "frmFilter10523",
               .title = "支出类别汇总表",
               .items = kExpenseItems,
               .fields = kExpenseFields,
               .hasNameList = false,
               .hidesCheckStateForAppType1 = true},
    .typeClass = 1122,
    .groupKey = "chkGrouyBySupply",
    .groupCaption = "按供应商汇总",
    .forbiddenTypeCaption = "显示禁用支出类别",
    .includeOtherCaption = "包括其他应付",
    .groupedTypeValue = "InvoiceStyle,0|供应商,0|",
    .plainTypeValue = "InvoiceStyle,0|供应商,0",
    .lowEndLevel = LowEndLevel::EndLevelIsHeld,
    .levelBoxesOpenPickers = true,
};

}  // namespace qor
