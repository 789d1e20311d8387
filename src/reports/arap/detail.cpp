#include "reports/arap/detail.h"

#include "reports/arap/detail_dialog.h"

namespace qor {

namespace {

// clang-format off
constexpr ColumnRow kLeadingColumns[] = {
    {"日期$",     "", "1", "FDate",         1, 7},
    {"单据类型$", "", "1", "FBillTypeName", 1, 7},
    {"单据编号$", "", "1", "FBillNo",       1, 7},
    {"摘要$",     "", "1", "FExplanation",  1, 7},
};

constexpr ColumnRow kTrailingColumns[] = {
    {"期末余额$", "", "6", "FBalanceAmount", 1, 7},
    {"部门$",     "", "1", "FDeptName",      1, 7},
    {"业务员$",   "", "1", "FEmpName",       1, 7},
};
// clang-format on

class Detail final : public Report {
 public:
    Detail(Process& process, const DetailKind& kind) : Report(process, kind.report), kind_(kind) {}

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<DetailDialog>(process_, kind_); }

    void BuildColumns() override {
        AddColumns(kLeadingColumns);
        AddColumns(kind_.amountColumns);
        AddColumns(kTrailingColumns);
    }

    const DetailKind& kind_;
};

}  // namespace

const ReportDescription& kRpt10502 = kReceivableDetail.report;
const ReportDescription& kRpt10504 = kPayableDetail.report;

Ref<Report> MakeRpt10502(Process& process) { return MakeRef<Detail>(process, kReceivableDetail); }

Ref<Report> MakeRpt10504(Process& process) { return MakeRef<Detail>(process, kPayableDetail); }

}  // namespace qor
