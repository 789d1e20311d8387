#include "reports/other/cash_kind.h"

namespace qor {

namespace {

// clang-format off
constexpr ItemBox kJournalItems[] = {
    {"Label4",  "结算账户:",   36, 0},
    {"Label9",  "至: ",        36, 0, true},
    {"Label7",  "部门代码:",   2,  2},
    {"Label6",  "至: ",        2,  2, true},
    {"Label12", "经手人代码:", 3,  3},
    {"Label10", "至: ",        3,  3, true},
    {"Label3",  "制单人名称:", 0,  0, false, "（包含）"},
};

constexpr ItemBox kLedgerItems[] = {
    {"Label4", "账户代码:", 36, 0},
    {"Label9", "至: ",      36, 0, true},
    {"Label3", "账户名称:", 36, 0},
};

constexpr PlainField kJournalFields[] = {
    {"BDate",           "DtpBDate",           FieldDefault::PeriodStart},
    {"EDate",           "DtpEDate",           FieldDefault::Today},
    {"BAcctNumber",     "txtItem(0)",         FieldDefault::Blank},
    {"EAcctNumber",     "txtItem(1)",         FieldDefault::Blank},
    {"BDeptNumber",     "txtItem(2)",         FieldDefault::Blank},
    {"EDeptNumber",     "txtItem(3)",         FieldDefault::Blank},
    {"BEmpNumber",      "txtItem(4)",         FieldDefault::Blank},
    {"EEmpNumber",      "txtItem(5)",         FieldDefault::Blank},
    {"BillerName",      "txtItem(6)",         FieldDefault::Blank},
    {"NotShowBalZero",  "chkNotShowBalZero",  FieldDefault::Zero},
    {"NotShowBillZero", "chkNotShowBillZero", FieldDefault::Zero},
    {"CheckState",      "cmbCheckState",      FieldDefault::FirstEntry},
    {"IncludARAP",      "chkIncludARAP",      FieldDefault::Zero},
};

constexpr PlainField kLedgerFields[] = {
    {"BDate",           "DtpBDate",           FieldDefault::PeriodStart},
    {"EDate",           "DtpEDate",           FieldDefault::Today},
    {"BAcctNumber",     "txtItem(0)",         FieldDefault::Blank},
    {"EAcctNumber",     "txtItem(1)",         FieldDefault::Blank},
    {"AcctName",        "txtItem(2)",         FieldDefault::Blank},
    {"NotShowBalZero",  "chkNotShowBalZero",  FieldDefault::Zero},
    {"NotShowBillZero", "chkNotShowBillZero", FieldDefault::Zero},
    {"CheckState",      "cmbCheckState",      FieldDefault::FirstEntry},
    {"IncludARAP",      "chkIncludARAP",      FieldDefault::Zero},
};

constexpr ColumnRow kJournalColumns[] = {
    {"账户代码$", "", "1", "FAcctNumber",    1, 7},
    {"账户名称$", "", "1", "FAcctName",      1, 7},
    {"日期$",     "", "1", "FDate",          1, 7},
    {"单据编号$", "", "1", "FBillNo",        1, 7},
    {"单据类型$", "", "1", "FBillTypeName",  1, 7},
    {"收入$",     "", "6", "FInAmount",      1, 7},
    {"支出$",     "", "6", "FOutAmount",     1, 7},
    {"账户余额$", "", "6", "FBalanceAmount", 1, 7},
    {"摘要$",     "", "1", "FExplanation",   1, 7},
    {"往来单位$", "", "1", "FName",          1, 7},
    {"部门$",     "", "1", "FDeptName",      1, 7},
    {"业务员$",   "", "1", "FEmpName",       1, 7},
};

constexpr ColumnRow kLedgerColumns[] = {
    {"账户代码$", "", "1", "FAcctNumber",  1, 7},
    {"账户名称$", "", "1", "FAcctName",    1, 7},
    {"期初余额$", "", "6", "FBeginAmount", 1, 7},
    {"本期收入$", "", "6", "FInAmount",    1, 7},
    {"本期支出$", "", "6", "FOutAmount",   1, 7},
    {"期末余额$", "", "6", "FEndAmount",   1, 7},
};

constexpr RightItem kCustomers[] = {{"t_organization", "o", "1"}};
// clang-format on

/// What the two reports have in common.
constexpr ReportDescription CashReport(std::int32_t number, std::string_view name, std::int16_t rptProperty,
                                       std::string_view dataMember) {
    return {
        .number = number,
        .name = name,
        .rptProperty = rptProperty,
        .defaultIdentifier = number,
        .family = Family::DialogOnce,
        .publicDataRight = true,
        .begin = {"BDate", "BDate"},
        .end = {"EDate", "EDate"},
        .checksAccess = false,
        .sendsLongNumber = false,
        .rightsStep = RightsStep::AfterMessage,
        .rightItems = kCustomers,
        .dataMember = dataMember,
    };
}

constexpr ReportDescription OpeningTheJournal(ReportDescription ledger) {
    ledger.detailRptID = 10528;
    ledger.hasDetailReport = true;
    return ledger;
}

}  // namespace

constexpr CashKind kCashJournal{
    .report = CashReport(10528, "现金银行日记账", 1, "GetRpt10528Data"),
    .dialog = {.formName = "frmFilter10528",
               .title = "现金银行日记账",
               .items = kJournalItems,
               .fields = kJournalFields,
               .takesSchemeHost = false},
    .nameBox = kNoNameBox,
    .columns = kJournalColumns,
};

constexpr CashKind kCashLedger{
    .report = OpeningTheJournal(CashReport(10529, "现金银行总账", 2, "GetRpt10529Data")),
    .dialog = {.formName = "frmFilter10529",
               .title = "现金银行总账",
               .items = kLedgerItems,
               .fields = kLedgerFields,
               .hasNameList = false,
               .takesSchemeHost = false},
    .nameBox = 2,
    .columns = kLedgerColumns,
};

}  // namespace qor
