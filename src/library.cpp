#include "library.h"

#include <algorithm>

#include "reports/arap/detail.h"
#include "reports/arap/income_expense_detail.h"
#include "reports/arap/summary.h"
#include "reports/income/category_detail.h"
#include "reports/income/category_summary.h"
#include "reports/income/settlement_list.h"
#include "reports/other/ageing.h"
#include "reports/other/cash.h"
#include "reports/other/credit_warning.h"
#include "reports/other/matching_balance.h"
#include "reports/other/statement.h"

namespace qor {

namespace {

constexpr std::string_view kPrefix = "QORArApRpt.";

}  // namespace

std::span<const ReportEntry> Reports() {
    // clang-format off
    static const ReportEntry kReports[] = {
        {kRpt10501, MakeRpt10501},
        {kRpt10502, MakeRpt10502},
        {kRpt10503, MakeRpt10503},
        {kRpt10504, MakeRpt10504},
        {kRpt10505, MakeRpt10505},
        {kRpt10506, MakeRpt10506},
        {kRpt10507, MakeRpt10507},
        {kRpt10508, MakeRpt10508},
        {kRpt10521, MakeRpt10521},
        {kRpt10522, MakeRpt10522},
        {kRpt10523, MakeRpt10523},
        {kRpt10524, MakeRpt10524},
        {kRpt10525, MakeRpt10525},
        {kRpt10526, MakeRpt10526},
        {kRpt10527, MakeRpt10527},
        {kRpt10528, MakeRpt10528},
        {kRpt10529, MakeRpt10529},
        {kRpt10530, MakeRpt10530},
        {kRpt10531, MakeRpt10531},
        {kRpt10532, MakeRpt10532},
    };
    // clang-format on
    return kReports;
}

const ReportEntry* FindReport(std::int32_t number) {
    const auto reports = Reports();
    const auto found = std::ranges::find_if(
        reports, [number](const ReportEntry& entry) { return entry.description.number == number; });
    return found == reports.end() ? nullptr : &*found;
}

Ref<Object> CreateReportClass(Process& process, std::string_view name) {
    if (!EqualsIgnoringCase(name.substr(0, kPrefix.size()), kPrefix)) return {};
    name.remove_prefix(kPrefix.size());
    if (EqualsIgnoringCase(name, "Bar")) return MakeRef<Bar>(process);
    if (EqualsIgnoringCase(name, "clsPass")) return MakeRef<clsPass>();
    for (const ReportEntry& entry : Reports()) {
        if (EqualsIgnoringCase(name, "Rpt" + std::to_string(entry.description.number)))
            return entry.make(process);
    }
    return {};
}

}  // namespace qor
