// What sets the cash journal and the cash ledger apart, for the report and for its dialog.
#pragma once

#include <cstddef>
#include <span>

#include "dialogs/plain_dialog.h"
#include "report/column_table.h"
#include "report/report_description.h"

namespace qor {

struct CashKind {
    ReportDescription report;
    PlainDialogDescription dialog;
    std::size_t nameBox;  // the box that takes an account's name from the picker, not its code
    std::span<const ColumnRow> columns;
};

/// No box takes a name.
inline constexpr std::size_t kNoNameBox = static_cast<std::size_t>(-1);

extern const CashKind kCashJournal;
extern const CashKind kCashLedger;

}  // namespace qor
