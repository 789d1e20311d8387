#include "reports/arap/summary_kind.h"

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
    {"NotShowBalZero", "chkNotShowBalZero", FieldDefault::Zero},
    {"OccurNotZero",   "chkOccurNotZero",   FieldDefault::Zero},
    {"NotShowZero",    "chkNotShowZero",    FieldDefault::Zero},
});

/// The keys that bring the dialog's own group back.
constexpr auto kGroupFields = std::to_array<SchemeField>({
    {"CheckState",      "cmbCheckState",      FieldDefault::FirstEntry},
    {"cboTotal",        "cboTotal",           FieldDefault::FirstEntry},
    {"chkShowTotalRow", "chkShowTotalRow",    FieldDefault::Zero},
    {"MultiLevel",      "chkMultiLevel",      FieldDefault::Zero},
    {"MultiLevelBegin", "txtMultiLevelBegin", FieldDefault::Leave, FieldSource::Level},
    {"MultiLevelEnd",   "txtMultiLevelEnd",   FieldDefault::Leave, FieldSource::Level},
});

/// The same group as the server reads it.
constexpr auto kServerFields = std::to_array<SchemeField>({
    {.key = "GroupBy",                                    .source = FieldSource::Own},
    {.key = "MultiLevel",   .control = "chkMultiLevel",   .source = FieldSource::Copy},
    {.key = "ShowTotalRow", .control = "chkShowTotalRow", .source = FieldSource::Copy},
    {.key = "SumBy",                                      .source = FieldSource::Own},
    {.key = "MultiLevelBegin",                            .source = FieldSource::Own},
    {.key = "MultiLevelEnd",                              .source = FieldSource::Own},
});

constexpr auto kReceivableFields = Join(
    PartyRangeFields(kCustomerSide, FieldDefault::PeriodStart),
    kZeroFields,
    std::to_array<SchemeField>({
        {"IncludeOtherR", "chkIncludeOtherR", FieldDefault::One},
    }),
    kGroupFields,
    std::to_array<SchemeField>({
        {"IncludeWT", "chkIncludeWT", FieldDefault::Zero},
        {"IncludeFL", "chkIncludeFL", FieldDefault::One},
    }),
    kAskerFields,
    kServerFields);

// The payable dialogs came from the receivable ones: the box of the other payables kept its name.
constexpr auto kPayableFields = Join(
    PartyRangeFields(kSupplierSide, FieldDefault::PeriodStart),
    kZeroFields,
    std::to_array<SchemeField>({
        {"IncludeOtherP", "chkIncludeOtherR", FieldDefault::One},
        {"IncludeGJ",     "chkIncludeGJ",     FieldDefault::Zero},
    }),
    kGroupFields,
    std::to_array<SchemeField>({
        {"IncludeFL", "chkIncludeFL", FieldDefault::One},
    }),
    kAskerFields,
    kServerFields);

constexpr CheckBoxRow kReceivableChecks[] = {
    {"chkNotShowBalZero", "余额为零不显示"},
    {"chkOccurNotZero",   "无发生额不显示"},
    {"chkNotShowZero",    "无发生额且余额为零不显示"},
    {"chkIncludeOtherR",  "包括其他应收"},
    {"chkIncludeWT",      "包含委托代销未结算"},
    {"chkMultiLevel",     "分级汇总"},
    {"chkIncludeFL",      "包括返利单"},
};

constexpr CheckBoxRow kPayableChecks[] = {
    {"chkNotShowBalZero", "余额为零不显示"},
    {"chkOccurNotZero",   "无发生额不显示"},
    {"chkNotShowZero",    "无发生额且余额为零不显示"},
    {"chkIncludeOtherR",  "包括其他应付"},
    {"chkIncludeGJ",      "包括估价业务"},
    {"chkMultiLevel",     "分级汇总"},
    {"chkIncludeFL",      "包括返利单"},
};

constexpr std::string_view kReceivableNotInType1[] = {"chkIncludeOtherR"};
constexpr std::string_view kPayableNotInType1[]    = {"chkIncludeGJ", "chkIncludeOtherR"};

constexpr SumWay kReceivableWays[] = {
    {"客户",   kCustomerSide.field, kCustomerSide.itemClass},
    {"部门",   "FDeptNumber", 2},
    {"业务员", "FEmpNumber",  3},
};

constexpr SumWay kPayableWays[] = {
    {"供应商", kSupplierSide.field, kSupplierSide.itemClass},
    {"部门",   "FDeptNumber",   2},
    {"业务员", "FEmpNumber",    3},
};

constexpr std::string_view kReceivableIncludes[] = {"IncludeOtherR", "IncludeWT", "IncludeFL"};
constexpr std::string_view kPayableIncludes[]    = {"IncludeOtherP", "IncludeGJ"};

constexpr auto kCustomerColumns = std::to_array<ColumnRow>({
    {"客户内码$", "", "1", "FCustId",     0, 0},
    {"客户代码$", "", "1", "FCustNumber", 1, 7},
    {"客户名称$", "", "1", "FCustName",   1, 7},
});

constexpr auto kSupplierColumns = std::to_array<ColumnRow>({
    {"供应商内码$", "", "1", "FSupplyId",     0, 0},
    {"供应商代码$", "", "1", "FSupplyNumber", 1, 7},
    {"供应商名称$", "", "1", "FSupplyName",   1, 7},
});

constexpr auto kReceivableColumns = Join(kCustomerColumns, std::to_array<ColumnRow>({
    {"期初余额$", "", "6", "FInitAmount",       1, 7},
    {"本期应收$", "", "6", "FReceivableAmount", 1, 7},
    {"本期收款$", "", "6", "FReceiveAmount",    1, 7},
    {"期末余额$", "", "6", "FBalanceAmount",    1, 7},
}));

constexpr auto kPayableColumns = Join(kSupplierColumns, std::to_array<ColumnRow>({
    {"期初余额$", "", "6", "FInitAmount",    1, 7},
    {"本期应付$", "", "6", "FPayableAmount", 1, 7},
    {"本期付款$", "", "6", "FPayAmount",     1, 7},
    {"期末余额$", "", "6", "FBalanceAmount", 1, 7},
}));

constexpr auto kReceivableAdvanceColumns = Join(kCustomerColumns, std::to_array<ColumnRow>({
    {"期初余额+|+|", "预收", "6", "FInitPreAmount",    1, 7},
    {"",             "应收", "6", "FInitSuppAmount",   1, 7},
    {"",             "小计", "6", "FInitAmount",       1, 7},
    {"本期应收$",    "",     "6", "FReceivableAmount", 1, 7},
    {"本期收款+|+|", "预收", "6", "FCurPreAmount",     1, 7},
    {"",             "实收", "6", "FCurSuppAmount",    1, 7},
    {"",             "小计", "6", "FReceiveAmount",    1, 7},
    {"期末余额+|+|", "预收", "6", "FEndPreAmount",     1, 7},
    {"",             "应收", "6", "FEndSuppAmount",    1, 7},
    {"",             "小计", "6", "FBalanceAmount",    1, 7},
}));

constexpr auto kPayableAdvanceColumns = Join(kSupplierColumns, std::to_array<ColumnRow>({
    {"期初余额+|+|", "预付", "6", "FInitPreAmount",  1, 7},
    {"",             "应付", "6", "FInitSuppAmount", 1, 7},
    {"",             "小计", "6", "FInitAmount",     1, 7},
    {"本期应付$",    "",     "6", "FPayableAmount",  1, 7},
    {"本期付款+|+|", "预付", "6", "FCurPreAmount",   1, 7},
    {"",             "实付", "6", "FCurSuppAmount",  1, 7},
    {"",             "小计", "6", "FPayAmount",      1, 7},
    {"期末余额+|+|", "预付", "6", "FEndPreAmount",   1, 7},
    {"",             "应付", "6", "FEndSuppAmount",  1, 7},
    {"",             "小计", "6", "FBalanceAmount",  1, 7},
}));
// clang-format on

/// What stands in the four as it stands in every summary; the identifiers are the callers' to say.
constexpr ReportDescription SummaryReport(std::int32_t number, std::string_view name, std::int16_t detail,
                                          std::int32_t defaultIdentifier, bool handsFilter,
                                          std::span<const RightItem> rights, std::string_view member) {
    return {.number = number,
            .name = name,
            .rptProperty = 2,
            .detailRptID = detail,
            .defaultIdentifier = defaultIdentifier,
            .family = Family::DialogKept,
            .handsFilterToDialog = handsFilter,
            .hasDetailReport = true,
            .publicDataRight = true,
            .begin = {"BDate", "BDate"},
            .end = {"EDate", "EDate"},
            .sendsLongNumber = false,
            .rightItems = rights,
            .dataMember = member};
}

constexpr SchemeDialogDescription ReceivableDialog(std::string_view formName) {
    return {.formName = formName,
            .items = kReceivableItems,
            .commonItems = kReceivableCommon,
            .fields = kReceivableFields,
            .commonFields = kReceivableCommonFields,
            .checks = kReceivableChecks,
            .notInType1 = kReceivableNotInType1};
}

constexpr SchemeDialogDescription PayableDialog(std::string_view formName) {
    return {.formName = formName,
            .items = kPayableItems,
            .commonItems = kPayableCommon,
            .fields = kPayableFields,
            .commonFields = kPayableCommonFields,
            .checks = kPayableChecks,
            .notInType1 = kPayableNotInType1};
}

}  // namespace

constexpr SummaryKind kReceivableSummary{
    .report = SummaryReport(10503, "应收账款汇总表", 10502, 10503, true, kCustomerRights, "GetRpt10503Data"),
    .dialog = ReceivableDialog("frmFilter10503"),
    .side = kCustomerSide,
    .ways = kReceivableWays,
    .columns = kReceivableColumns,
    .detailIncludes = kReceivableIncludes,
};

constexpr SummaryKind kPayableSummary{
    .report = SummaryReport(10505, "应付账款汇总表", 10504, 10503, false, kSupplierRights, "GetRpt10505Data"),
    .dialog = PayableDialog("frmFilter10505"),
    .side = kSupplierSide,
    .ways = kPayableWays,
    .columns = kPayableColumns,
    .detailIncludes = kPayableIncludes,
};

constexpr SummaryKind kReceivableAdvanceSummary{
    .report =
        SummaryReport(10531, "应收预收账款汇总表", 10502, 10531, true, kCustomerRights, "GetRpt10531Data"),
    .dialog = ReceivableDialog("frmFilter10531"),
    .side = kCustomerSide,
    .ways = kReceivableWays,
    .columns = kReceivableAdvanceColumns,
    .detailIncludes = kReceivableIncludes,
};

constexpr SummaryKind kPayableAdvanceSummary{
    .report =
        SummaryReport(10532, "应付预付账款汇总表", 10504, 10503, false, kSupplierRights, "GetRpt10532Data"),
    .dialog = PayableDialog("frmFilter10532"),
    .side = kSupplierSide,
    .ways = kPayableWays,
    .columns = kPayableAdvanceColumns,
    .detailIncludes = kPayableIncludes,
};

}  // namespace qor
