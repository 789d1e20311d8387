// What sets the income summary and the expense summary apart, for the report and for its dialog.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "dialogs/plain_dialog.h"
#include "report/column_table.h"
#include "report/report_description.h"
#include "reports/income/level_boxes.h"

namespace qor {

struct CategorySummaryKind {
    ReportDescription report;
    std::span<const ColumnRow> partyColumns;  // where the report is summed by party
    std::string_view levelCaption;            // ahead of a level's number
    std::string_view receiveCaption;          // over FReceiveAmount
    std::string_view settleCaption;           // over FSettleAmount
    std::string_view typeRangeCaption;        // of the class range above the grid
    std::string_view partyField;              // the party's code in a row
    std::string_view beginPartyKey;           // and its range in the detail's filter
    std::string_view endPartyKey;

    PlainDialogDescription dialog;
    std::int16_t typeClass = 0;  // item class of the classes summed
    std::string_view groupKey;   // the check box that sums by party, and its key
    std::string_view groupCaption;
    std::string_view forbiddenTypeCaption;
    std::string_view includeOtherCaption;
    std::string_view groupedTypeValue;  // ShowTypeValue where the report is summed by party
    std::string_view plainTypeValue;    // and where it is not
    LowEndLevel lowEndLevel{};
    bool levelBoxesOpenPickers = false;  // F7 and F8 work in the level boxes, not in the code boxes
};

extern const CategorySummaryKind kIncomeSummary;
extern const CategorySummaryKind kExpenseSummary;

}  // namespace qor
