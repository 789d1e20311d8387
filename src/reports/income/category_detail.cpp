#include "reports/income/category_detail.h"

#include "reports/income/category_detail_dialog.h"

namespace qor {

namespace {

class CategoryDetail final : public Report {
 public:
    CategoryDetail(Process& process, const CategoryDetailKind& kind)
        : Report(process, kind.report), kind_(kind) {}

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<CategoryDetailDialog>(process_, kind_); }

    void BuildColumns() override {
        AddColumns(kind_.leadingColumns);
        const std::int16_t settledIsShown = process_.bag.GetAppType() == 1 ? 1 : 0;
        AddColumn({kind_.settleCaption, "", "6", "FSettleAmount", settledIsShown, 7});
        AddColumns(kind_.trailingColumns);
    }

    const CategoryDetailKind& kind_;
};

}  // namespace

const ReportDescription& kRpt10522 = kIncomeDetail.report;
const ReportDescription& kRpt10524 = kExpenseDetail.report;

Ref<Report> MakeRpt10522(Process& process) { return MakeRef<CategoryDetail>(process, kIncomeDetail); }

Ref<Report> MakeRpt10524(Process& process) { return MakeRef<CategoryDetail>(process, kExpenseDetail); }

}  // namespace qor
