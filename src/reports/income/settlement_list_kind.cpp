#include "reports/income/settlement_list_kind.h"

#include <algorithm>
#include <array>

namespace qor {

namespace {

// clang-format off
constexpr auto Items(std::int32_t partyClass, std::string_view partyCaption) {
    return std::to_array<ItemBox>({
        {"Label4", partyCaption,  partyClass, partyClass},
        {"Label9", "至: ",        partyClass, partyClass, true},
        {"Label3", "部门代码:",   2,          2},
        {"Label8", "至: ",        2,          2, true},
        {"Label7", "业务员代码:", 3,          3},
        {"Label6", "至: ",        3,          3, true},
    });
}

constexpr auto Fields(std::string_view partyBegin, std::string_view partyEnd) {
    return std::to_array<PlainField>({
        {"BDate",            "DtpBDate",         FieldDefault::PeriodStart},
        {"EDate",            "DtpEDate",         FieldDefault::Today},
        {partyBegin,         "txtItem(0)",       FieldDefault::Blank},
        {partyEnd,           "txtItem(1)",       FieldDefault::Blank},
        {"BDeptNumber",      "txtItem(2)",       FieldDefault::Blank},
        {"EDeptNumber",      "txtItem(3)",       FieldDefault::Blank},
        {"BEmpNumber",       "txtItem(4)",       FieldDefault::Blank},
        {"EEmpNumber",       "txtItem(5)",       FieldDefault::Blank},
        {"chkShowNonZero",   "chkShowNonZero",   FieldDefault::One},
        {"chkIncludeBill",   "chkIncludeBill",   FieldDefault::One},
        {"chkIncludeOther",  "chkIncludeOther",  FieldDefault::One},
        {"chkIncludePre",    "chkIncludePre",    FieldDefault::Zero},
        {"chkIncludeRebate", "chkIncludeRebate", FieldDefault::Leave},
        {"cboSortBy",        "cboSortBy",        FieldDefault::FirstEntry},
        {"cmbCheckState",    "cmbCheckState",    FieldDefault::FirstEntry},
        {"OptSortAsc",       "OptSortAsc",       FieldDefault::False},
        {"OptSortDesc",      "OptSortDesc",      FieldDefault::True},
    });
}

constexpr auto Columns(std::string_view allCaption, std::string_view uncheckedCaption) {
    return std::to_array<ColumnRow>({
        {"单据日期$",      "", "0", "FDate",          1, 7},
        {"单据编号$",      "", "1", "FBillNo",        1, 7},
        {"单据类型$",      "", "1", "FBillType",      1, 7},
        {allCaption,       "", "6", "FAllAmount",     1, 7},
        {"已核销金额$",    "", "6", "FCheckAmount",   1, 7},
        {uncheckedCaption, "", "6", "FUnCheckAmount", 1, 7},
        {"部门代码$",      "", "1", "FDeptNumber",    0, 7},
        {"部门名称$",      "", "1", "FDeptName",      1, 7},
        {"业务员代码$",    "", "1", "FEmpNumber",     0, 7},
        {"业务员名称$",    "", "1", "FEmpName",       1, 7},
        {"摘要$",          "", "1", "FExplanation",   1, 7},
    });
}
// clang-format on

/// The fields without the check state, which the payment list does not have.
template <std::size_t count>
constexpr auto WithoutCheckState(const std::array<PlainField, count>& all) {
    std::array<PlainField, count - 1> fields{};
    std::ranges::copy_if(all, fields.begin(),
                         [](const PlainField& field) { return field.key != "cmbCheckState"; });
    return fields;
}

constexpr auto kReceiptItems = Items(1, "客户代码:");
constexpr auto kPaymentItems = Items(8, "供应商代码:");
constexpr auto kReceiptFields = Fields("BCustNumber", "ECustNumber");
constexpr auto kPaymentFields = WithoutCheckState(Fields("BSupplyNumber", "ESupplyNumber"));
constexpr auto kReceiptColumns = Columns("应收金额$", "应收余额$");
constexpr auto kPaymentColumns = Columns("应付金额$", "应付余额$");

constexpr std::string_view kReceiptOrders[] = {"日期", "客户代码", "部门代码", "业务员代码", "应收余额"};
constexpr std::string_view kPaymentOrders[] = {"日期", "供应商代码", "部门代码", "业务员代码", "应付余额"};

constexpr RightItem kCustomers[] = {{"t_Organization", "t1", "1"}};
constexpr RightItem kSuppliers[] = {{"t_Supplier", "t1", "8"}};

}  // namespace

constexpr SettlementListKind kReceiptList{
    .report = {.number = 10525,
               .name = "收款一览表",
               .rptProperty = 4,
               .defaultIdentifier = 10525,
               .family = Family::DialogOnce,
               .begin = {"BDate", "BDate"},
               .end = {"EDate", "EDate"},
               .rightItems = kCustomers,
               .dataComponent = "QORMArApRpt.Data10525",
               .dataMember = "GetRptData"},
    .columns = kReceiptColumns,
    .dialog = {.formName = "frmFilter10525",
               .title = "收款一览表",
               .items = kReceiptItems,
               .fields = kReceiptFields},
    .includeBillCaption = "包括销售单",
    .includeOtherCaption = "包括其他应收",
    .includePreCaption = "包括预收单",
    .includeRebateCaption = "包括销售返利单",
    .sortOrders = kReceiptOrders,
    .hasCheckState = true,
};

constexpr SettlementListKind kPaymentList{
    .report = {.number = 10526,
               .name = "付款一览表",
               .rptProperty = 4,
               .defaultIdentifier = 10526,
               .family = Family::DialogOnce,
               .begin = {"BDate", "BDate"},
               .end = {"EDate", "EDate"},
               .rightItems = kSuppliers,
               .dataComponent = "QORMArApRpt.Data10526",
               .dataMember = "GetRptData"},
    .columns = kPaymentColumns,
    .dialog = {.formName = "frmFilter10526",
               .title = "付款一览表",
               .items = kPaymentItems,
               .fields = kPaymentFields},
    .includeBillCaption = "包括购货单",
    .includeOtherCaption = "包括其他应付",
    .includePreCaption = "包括预付单",
    .includeRebateCaption = "包括采购返利单",
    .sortOrders = kPaymentOrders,
    .hasCheckState = false,
};

}  // namespace qor
