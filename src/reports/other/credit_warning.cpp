#include "reports/other/credit_warning.h"

namespace qor {

namespace {

struct CreditWarningKind {
    ReportDescription report;
    std::span<const ColumnRow> columns;
};

// clang-format off
// The day counts go as amounts.
constexpr ColumnRow kCustomerColumns[] = {
    {"客户代码$",     "", "1",   "FCustNumber",       1, 7},
    {"客户名称$",     "", "1",   "FCustName",         1, 7},
    {"日期$",         "", "1",   "FDate",             1, 7},
    {"单据编号$",     "", "1",   "FBillNo",           1, 7},
    {"收款期限$",     "", "1",   "FDeadLine",         1, 7},
    {"已超期(天)$",   "", "6",   "FOverDate",         1, 7},
    {"即将到期(天)$", "", "6",   "FSoonDate",         1, 7},
    {"应收金额$",     "", "6",   "FAmount",           1, 7},
    {"已收金额$",     "", "6",   "FCheckAmount",      1, 7},
    {"未收金额$",     "", "6",   "FUnCheckAmount",    1, 7},
    {"往来余额$",     "", "6",   "FCurComeGoBalance", 1, 7},
    {"信用额度$",     "", "6",   "FCreditAmount",     1, 7},
    {"超额比率$",     "", "999", "FRate",             1, 7},
    {"部门$",         "", "1",   "FDeptName",         1, 7},
    {"业务员$",       "", "1",   "FEmpName",          1, 7},
};

constexpr ColumnRow kSupplierColumns[] = {
    {"供应商代码$",   "", "1",   "FSupplyNumber",     1, 7},
    {"供应商名称$",   "", "1",   "FSupplyName",       1, 7},
    {"日期$",         "", "1",   "FDate",             1, 7},
    {"单据编号$",     "", "1",   "FBillNo",           1, 7},
    {"付款期限$",     "", "1",   "FDeadLine",         1, 7},
    {"已超期(天)$",   "", "6",   "FOverDate",         1, 7},
    {"即将到期(天)$", "", "6",   "FSoonDate",         1, 7},
    {"应付金额$",     "", "6",   "FAmount",           1, 7},
    {"已付金额$",     "", "6",   "FCheckAmount",      1, 7},
    {"未付金额$",     "", "6",   "FUnCheckAmount",    1, 7},
    {"往来余额$",     "", "6",   "FCurComeGoBalance", 1, 7},
    {"信用额度$",     "", "6",   "FCreditAmount",     1, 7},
    {"超额比率$",     "", "999", "FRate",             1, 7},
    {"部门名称$",     "", "1",   "FDeptName",         1, 7},
    {"业务员名称$",   "", "1",   "FEmpName",          1, 7},
};

constexpr RightItem kCustomers[] = {{"t_Organization", "o", "1"}};
constexpr RightItem kSuppliers[] = {{"t_Supplier", "o", "8"}};
// clang-format on

constexpr CreditWarningKind kCustomerWarning{
    .report = {.number = 10507,
               .name = "客户信用预警表",
               .rptProperty = 0,
               .defaultIdentifier = 10507,
               .family = Family::NoDialog,
               .sendsLongNumber = false,
               .rightItems = kCustomers,
               .dataMember = "GetRpt10507Data"},
    .columns = kCustomerColumns,
};

constexpr CreditWarningKind kSupplierWarning{
    .report = {.number = 10508,
               .name = "供应商信用预警表",
               .rptProperty = 0,
               .defaultIdentifier = 10508,
               .family = Family::NoDialog,
               .sendsLongNumber = false,
               .rightItems = kSuppliers,
               .dataMember = "GetRpt10508Data"},
    .columns = kSupplierColumns,
};

class CreditWarning final : public Report {
 public:
    CreditWarning(Process& process, const CreditWarningKind& kind)
        : Report(process, kind.report), kind_(kind) {}

 private:
    void BuildColumns() override { AddColumns(kind_.columns); }

    const CreditWarningKind& kind_;
};

}  // namespace

const ReportDescription& kRpt10507 = kCustomerWarning.report;
const ReportDescription& kRpt10508 = kSupplierWarning.report;

Ref<Report> MakeRpt10507(Process& process) { return MakeRef<CreditWarning>(process, kCustomerWarning); }

Ref<Report> MakeRpt10508(Process& process) { return MakeRef<CreditWarning>(process, kSupplierWarning); }

}  // namespace qor
