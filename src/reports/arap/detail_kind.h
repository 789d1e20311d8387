// What sets the receivable detail and the payable detail apart, for the report and for its dialog.
#pragma once

#include <span>

#include "dialogs/scheme_dialog.h"
#include "report/column_table.h"
#include "report/report_description.h"

namespace qor {

struct DetailKind {
    ReportDescription report;
    SchemeDialogDescription dialog;
    bool asksForUserFormulas;                  // for the user-defined fields of the bill's head
    std::span<const ColumnRow> amountColumns;  // what was paid ahead, what arose, what was paid
};

extern const DetailKind kReceivableDetail;
extern const DetailKind kPayableDetail;

}  // namespace qor
