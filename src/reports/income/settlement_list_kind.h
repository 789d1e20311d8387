// What sets the receipt list and the payment list apart, for the report and for its dialog.
#pragma once

#include <span>
#include <string_view>

#include "dialogs/plain_dialog.h"
#include "report/column_table.h"
#include "report/report_description.h"

namespace qor {

struct SettlementListKind {
    ReportDescription report;
    std::span<const ColumnRow> columns;

    PlainDialogDescription dialog;
    std::string_view includeBillCaption;
    std::string_view includeOtherCaption;
    std::string_view includePreCaption;
    std::string_view includeRebateCaption;
    std::span<const std::string_view> sortOrders;  // entries of cboSortBy
    bool hasCheckState = false;                    // bills are told apart by their check state
};

extern const SettlementListKind kReceiptList;
extern const SettlementListKind kPaymentList;

}  // namespace qor
