#include "reports/income/category_detail_kind.h"

#include <array>

namespace qor {

namespace {

// clang-format off
constexpr auto Items(std::int32_t typeClass, std::string_view typeCaption,
                     std::int32_t partyClass, std::string_view partyCaption) {
    return std::to_array<ItemBox>({
        {"Label4",  typeCaption,   typeClass,  typeClass},
        {"Label9",  "至: ",        typeClass,  typeClass, true},
        {"Label3",  partyCaption,  partyClass, partyClass},
        {"Label8",  "至: ",        partyClass, partyClass, true},
        {"Label7",  "部门代码:",   2,          2},
        {"Label6",  "至: ",        2,          2, true},
        {"Label12", "经手人代码:", 3,          3},
        {"Label10", "至: ",        3,          3, true},
    });
}

constexpr auto Fields(std::string_view partyBegin, std::string_view partyEnd) {
    return std::to_array<PlainField>({
        {"DtpBDate",                "DtpBDate",                FieldDefault::PeriodStart},
        {"DtpEDate",                "DtpEDate",                FieldDefault::Today},
        {"BTypeIn",                 "txtItem(0)",              FieldDefault::Blank},
        {"ETypeIn",                 "txtItem(1)",              FieldDefault::Blank},
        {partyBegin,                "txtItem(2)",              FieldDefault::Blank},
        {partyEnd,                  "txtItem(3)",              FieldDefault::Blank},
        {"BDeptNumber",             "txtItem(4)",              FieldDefault::Blank},
        {"EDeptNumber",             "txtItem(5)",              FieldDefault::Blank},
        {"BEmpNumber",              "txtItem(6)",              FieldDefault::Blank},
        {"EEmpNumber",              "txtItem(7)",              FieldDefault::Blank},
        {"chkForbiddenTypeInclude", "chkForbiddenTypeInclude", FieldDefault::Zero},
        {"CheckState",              "cmbCheckState",           FieldDefault::FirstEntry},
    });
}

constexpr auto kIncomeItems   = Items(1121, "收入类别:", 1, "客户代码:");
constexpr auto kExpenseItems  = Items(1122, "支出类别:", 8, "供应商代码:");
constexpr auto kIncomeFields  = Fields("BCustNumber", "ECustNumber");
constexpr auto kExpenseFields = Fields("BSupplyNumber", "ESupplyNumber");

constexpr ColumnRow kIncomeLeading[] = {
    {"收入类别$", "", "1", "FName",          1, 7},
    {"日期$",     "", "0", "FDate",          1, 7},
    {"客户代码$", "", "1", "FCustNumber",    1, 7},
    {"客户名称$", "", "1", "FCustName",      1, 7},
    {"结算账户$", "", "1", "FAcctName",      1, 7},
    {"应收金额$", "", "6", "FReceiveAmount", 0, 6},
};

constexpr ColumnRow kExpenseLeading[] = {
    {"支出类别$",   "", "1", "FName",          1, 7},
    {"日期$",       "", "0", "FDate",          1, 7},
    {"供应商代码$", "", "1", "FSupplyNumber",  1, 7},
    {"供应商名称$", "", "1", "FSupplyName",    1, 7},
    {"结算账户$",   "", "1", "FAcctName",      1, 7},
    {"应付金额$",   "", "6", "FReceiveAmount", 0, 6},
};

constexpr ColumnRow kTrailing[] = {
    {"总金额$",     "", "6", "FAmount",     1, 6},
    {"经手人代码$", "", "1", "FEmpNumber",  0, 7},
    {"经手人$",     "", "1", "FEmpName",    0, 7},
    {"部门代码$",   "", "1", "FDeptNumber", 0, 7},
    {"部门$",       "", "1", "FDeptName",   0, 7},
    {"单据编号$",   "", "1", "FBillNo",     1, 7},
    {"备注$",       "", "1", "FNote",       1, 7},
};

constexpr RightItem kCustomers[] = {{"t_Organization", "t1", "1"}};
constexpr RightItem kSuppliers[] = {{"t_Supplier", "t1", "8"}};
// clang-format on

}  // namespace

constexpr CategoryDetailKind kIncomeDetail{
    .report = {.number = 10522,
               .name = "收入类别明细表",
               .rptProperty = 4,
               .defaultIdentifier = 10522,
               .family = Family::DialogOnce,
               .userFieldsOfHead = true,
               .userFieldsOfEntry = true,
               .begin = {"DtpBDate", "DtpBDate"},
               .end = {"DtpEDate", "DtpEDate"},
               .rightItems = kCustomers,
               .dataMember = "GetRpt10522Data"},
    .dialog = {.formName = "frmFilter10522",
               .title = "收入类别明细表",
               .items = kIncomeItems,
               .fields = kIncomeFields,
               .hidesCheckStateForAppType1 = true},
    .forbiddenTypeCaption = "显示禁用收入类别",
    .leadingColumns = kIncomeLeading,
    .settleCaption = "收款结算$",
    .trailingColumns = kTrailing,
};

constexpr CategoryDetailKind kExpenseDetail{
    .report = {.number = 10524,
               .name = "支出类别明细表",
               .rptProperty = 4,
               .defaultIdentifier = 10524,
               .family = Family::DialogOnce,
               .userFieldsOfHead = true,
               .userFieldsOfEntry = true,
               .begin = {"DtpBDate", "DtpBDate"},
               .end = {"DtpEDate", "DtpEDate"},
               .rightItems = kSuppliers,
               .dataMember = "GetRpt10524Data"},
    .dialog = {.formName = "frmFilter10524",
               .title = "支出类别明细表",
               .items = kExpenseItems,
               .fields = kExpenseFields,
               .hidesCheckStateForAppType1 = true},
    .forbiddenTypeCaption = "显示禁用支出类别",
    .leadingColumns = kExpenseLeading,
    .settleCaption = "费用结算$",
    .trailingColumns = kTrailing,
};

}  // namespace qor
