// What sets the income detail and the expense detail apart, for the report and for its dialog.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "dialogs/plain_dialog.h"
#include "report/column_table.h"
#include "report/report_description.h"

namespace qor {

struct CategoryDetailKind {
    ReportDescription report;
    PlainDialogDescription dialog;
    std::string_view forbiddenTypeCaption;      // of chkForbiddenTypeInclude
    std::span<const ColumnRow> leadingColumns;  // up to the settled amount
    std::string_view settleCaption;             // over FSettleAmount
    std::span<const ColumnRow> trailingColumns;
};

extern const CategoryDetailKind kIncomeDetail;
extern const CategoryDetailKind kExpenseDetail;

}  // namespace qor
