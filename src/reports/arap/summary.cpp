#include "reports/arap/summary.h"

#include "platform/conversions.h"
#include "reports/arap/summary_dialog.h"

namespace qor {

namespace {

// clang-format off
constexpr ColumnRow kDepartmentColumns[] = {
    {"部门代码$", "", "1", "FDeptNumber", 0, 7},
    {"部门$",     "", "1", "FDeptName",   1, 7},
};

constexpr ColumnRow kEmployeeColumns[] = {
    {"业务员代码$", "", "1", "FEmpNumber", 0, 7},
    {"业务员$",     "", "1", "FEmpName",   1, 7},
};
// clang-format on

class Summary final : public Report {
 public:
    Summary(Process& process, const SummaryKind& kind) : Report(process, kind.report), kind_(kind) {}

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<SummaryDialog>(process_, kind_); }
    void ReadFilter() override;
    void BuildColumns() override;
    Ref<Dictionary> BuildDetailFilter() override;

    void AddLevelColumns();
    void AddGroupColumns();

    const SummaryKind& kind_;
    bool multiLevel_ = false;
    std::int32_t levelBegin_ = 0, levelEnd_ = 0;
};

void Summary::ReadFilter() {
    multiLevel_ = ToBoolean(FilterValue("MultiLevel"));
    levelBegin_ = ToInt32(FilterValue("MultiLevelBegin"));
    levelEnd_ = ToInt32(FilterValue("MultiLevelEnd"));
}

void Summary::BuildColumns() {
    if (multiLevel_) AddLevelColumns();
    AddGroupColumns();
    AddColumns(kind_.columns);
}

void Summary::AddLevelColumns() {
    for (std::int64_t level = levelBegin_; level <= levelEnd_; ++level) {
        const std::string number = std::to_string(level);
        const std::string caption = std::string(ResText("类别级次")) + number + "$";
        AddColumn({caption, "", "1", "FItemLevel0" + number + "Name", -1, 7});
    }
}

void Summary::AddGroupColumns() {
    if (levelBegin_ <= 0) return;
    const std::string groupBy = ToText(FilterValue("GroupBy"));
    if (groupBy == "FDeptNumber") AddColumns(kDepartmentColumns);
    if (groupBy == "FEmpNumber") AddColumns(kEmployeeColumns);
}

Ref<Dictionary> Summary::BuildDetailFilter() {
    const std::string party = ToText(FieldOr(*m_Rs, kind_.side.field, ""));
    if (party.empty()) return {};  // a row of a category level stands for no party

    Ref<Dictionary> detail = process_.platform.NewDictionary();
    const auto passOn = [&](std::string_view key) { detail->Put(key, FilterValue(key)); };
    passOn("BDate");
    passOn("EDate");
    detail->Put(kind_.side.beginKey, Trimmed(party));
    detail->Put(kind_.side.endKey, Trimmed(party));
    for (const std::string_view key :
         {"BDeptNumber", "EDeptNumber", "BEmpNumber", "EEmpNumber", "NotShowBalZero"}) {
        passOn(key);
    }
    detail->Put("NotShowBillZero", "0");
    for (const std::string_view key : kind_.detailIncludes) {
        passOn(key);
    }
    passOn("CheckState");
    return detail;
}

}  // namespace

const ReportDescription& kRpt10503 = kReceivableSummary.report;
const ReportDescription& kRpt10505 = kPayableSummary.report;
const ReportDescription& kRpt10531 = kReceivableAdvanceSummary.report;
const ReportDescription& kRpt10532 = kPayableAdvanceSummary.report;

Ref<Report> MakeRpt10503(Process& process) { return MakeRef<Summary>(process, kReceivableSummary); }

Ref<Report> MakeRpt10505(Process& process) { return MakeRef<Summary>(process, kPayableSummary); }

Ref<Report> MakeRpt10531(Process& process) { return MakeRef<Summary>(process, kReceivableAdvanceSummary); }

Ref<Report> MakeRpt10532(Process& process) { return MakeRef<Summary>(process, kPayableAdvanceSummary); }

}  // namespace qor
