// What sets the four summaries of receivables and payables apart, for the report and for its dialog.
#pragma once

#include <span>
#include <string_view>

#include "dialogs/multi_level_group.h"
#include "dialogs/scheme_dialog.h"
#include "report/column_table.h"
#include "report/report_description.h"
#include "reports/arap/party_rows.h"

namespace qor {

struct SummaryKind {
    ReportDescription report;
    SchemeDialogDescription dialog;
    const PartySide& side;
    std::span<const SumWay> ways;                      // of summing
    std::span<const ColumnRow> columns;                // behind the levels and the group
    std::span<const std::string_view> detailIncludes;  // which of its inclusions the detail is handed
};

extern const SummaryKind kReceivableSummary;
extern const SummaryKind kPayableSummary;
extern const SummaryKind kReceivableAdvanceSummary;
extern const SummaryKind kPayableAdvanceSummary;

}  // namespace qor
