// What a report is, as data: its identity, what it hands to its dialog, the steps in which its fetch
// deviates from the common run, its base tables that are subject to data rights, and its data call.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace qor {

/// How a report treats its filter dialog.
enum class Family : std::uint8_t {
    DialogKept,  // the dialog is made once and kept between runs; captions are built under the progress
                 // window
    DialogOnce,  // a new dialog for each filter, unloaded at its end; captions are built before the fetch
    NoDialog,    // no dialog at all: the result dictionary itself is the filter
};

/// A base table in the server's statement that may be limited to what the user is allowed to see.
struct RightItem {
    std::string_view dataTable;
    std::string_view dataTableAs;
    std::string_view itemClassType;
};

/// When a fetch writes the data-right clause into the filter.
enum class RightsStep : std::uint8_t {
    BeforeComponent,    // when the column table is finished, before the data component is made
    AfterMessage,       // after the message that the server is being read
    InsideColumnTable,  // while the column list is still the current one
};

/// One name and value of the date text that the host shows above the grid, and the filter key it is read
/// from.
struct DateTitle {
    std::string_view name;
    std::string_view key;
};

struct ReportDescription {
    std::int32_t number = 0;
    std::string_view name{};        // as the user reads it
    std::int16_t rptProperty = 0;   // the report's kind for the host
    std::int16_t detailRptID = 0;   // the report that a double-clicked row opens; 0 is none
    std::int16_t frozenColumn = 0;  // columns that do not scroll; 0 leaves the property out
    std::int32_t defaultIdentifier =
        0;  // under which the dialog keeps its schemes until a host says otherwise
    Family family = Family::DialogOnce;
    bool handsFilterToDialog = false;  // the dialog begins with the last filter
    bool userFieldsOfHead = false;     // user-defined fields of the bill's head
    bool userFieldsOfEntry = false;    // ... and of its lines
    bool hasDetailReport = false;      // GetDetailReport is a member
    bool publicDataRight = false;      // AddDataRight is a member, and tolerates a missing filter
    bool hasPagedData = false;         // GetMutilPageData, MutilPageRs and RowBreakRs are members

    DateTitle begin{};
    DateTitle end{};

    bool checksAccess = true;     // the fetch begins with the rights check
    bool sendsLongNumber = true;  // bLongNumber is put into the filter just before the data call
    RightsStep rightsStep = RightsStep::BeforeComponent;
    std::span<const RightItem> rightItems{};

    std::string_view dataComponent = "QORMArApRpt.Data";
    std::string_view dataMember{};
    bool releasesComponentLast = false;  // of a failed fetch: when the progress window has closed
};

}  // namespace qor
