#include "reports/arap/income_expense_detail.h"

#include "platform/conversions.h"
#include "reports/arap/income_expense_detail_dialog.h"

namespace qor {

namespace {

// clang-format off
constexpr ColumnRow kLeadingColumns[] = {
    {"日期$",     "", "1", "FDate",         1, 7},
    {"单据号$",   "", "1", "FBillNo",       1, 7},
    {"单据类型$", "", "1", "FBillTypeName", 1, 7},
    {"收入$",     "", "6", "FInAmount",     1, 7},
    {"支出$",     "", "6", "FOutAmount",    1, 7},
};

constexpr ColumnRow kBalanceColumn = {"账户余额$", "", "6", "FBalanceAmount", 1, 7};

constexpr ColumnRow kTrailingColumns[] = {
    {"摘要$",     "", "1", "FExplanation", 1, 7},
    {"往来单位$", "", "1", "FName",        1, 7},
    {"部门$",     "", "1", "FDeptName",    1, 7},
    {"业务员$",   "", "1", "FEmpName",     1, 7},
};

constexpr RightItem kRights[] = {{"t_organization", "o", "1"}};
// clang-format on

constexpr ReportDescription kReport{
    .number = 10501,
    .name = "收支明细表",
    .rptProperty = 1,
    .defaultIdentifier = 10501,
    .family = Family::DialogKept,
    .publicDataRight = true,
    .begin = {"BDate", "BDate"},
    .end = {"EDate", "EDate"},
    .rightsStep = RightsStep::AfterMessage,
    .rightItems = kRights,
    .dataMember = "GetRpt10501Data",
};

class IncomeExpenseDetail final : public Report {
 public:
    explicit IncomeExpenseDetail(Process& process) : Report(process, kReport) {}

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<IncomeExpenseDetailDialog>(process_); }

    void BuildColumns() override {
        AddColumns(kLeadingColumns);
        if (IsOfOneAccount()) AddColumn(kBalanceColumn);
        AddColumns(kTrailingColumns);
    }

    std::string_view DataMember() const override {
        return IsOfOneAccount() ? "GetRpt10501DataRollUp" : kReport.dataMember;
    }

    bool IsOfOneAccount() const { return !ToText(FilterValue("AcctNumber")).empty(); }
};

}  // namespace

const ReportDescription& kRpt10501 = kReport;

Ref<Report> MakeRpt10501(Process& process) { return MakeRef<IncomeExpenseDetail>(process); }

}  // namespace qor
