// Report: the public shape that all twenty report classes share, and the run from filter to data set,
// written once. A report class supplies its description, its columns and its dialog; what goes beyond
// that overrides a hook. No failure of a filter or a fetch leaves a public member: it ends in `Result`.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/record_set.h"
#include "process/process.h"
#include "progress/bar.h"
#include "report/column_table.h"
#include "report/filter_dialog.h"
#include "report/report_description.h"

namespace qor {

class Report : public TableObject, private BarEvents {
 public:
    ~Report() override;

    std::string_view ClassName() const override { return className_; }  // "Rpt10522"
    std::span<const Member> Members() const override;

    // The public members, under the names by which hosts bind to them. Those that run answer Empty.
    void SetExtFirter(std::string_view identifier);
    /// Opens the detail report of the row at a 0-based offset; nothing for a row that has none, or when the
    /// detail fails, which the user then sees in a message box.
    Ref<Object> GetDetailReport(std::int32_t row);
    void GetReportData();
    void Refresh();
    void ShowFilter();
    /// Writes the data-right clause into the filter and into `target`, each where it is there.
    void AddDataRight(Dictionary* target);
    const Ref<Dictionary>& Filter() const { return m_Filter; }
    void SetFilter(Ref<Dictionary> filter);
    const Ref<Vector>& Header() const { return m_Header; }
    const Ref<Dictionary>& Property() const { return m_Property; }
    const Ref<Dictionary>& Result() const { return m_Result; }
    std::int32_t RptID() const { return m_RptID; }
    void SetRptID(std::int32_t rptID) { m_RptID = rptID; }
    const Ref<RecordSet>& Rs() const { return m_Rs; }
    const Ref<Vector>& Title() const { return m_Title; }

    // Of the statement of account alone; the other classes have no such member.
    virtual void GetMutilPageData() {}
    virtual Ref<RecordSet> MutilPageRs() const { return {}; }
    virtual Ref<RecordSet> RowBreakRs() const { return {}; }

    const ReportDescription& description() const { return description_; }

 protected:
    Report(Process& process, const ReportDescription& description);

    // What a report class supplies.
    /// A new dialog, not yet loaded.
    virtual Ref<FilterDialog> NewDialog() { return {}; }
    /// The report's AddHeader calls, in the order of the columns on the screen.
    virtual void BuildColumns() = 0;

    // Hooks, with the common behaviour as their default.
    virtual void BuildOwnCaptions() {}
    virtual void BuildTitle();
    /// What the fetch reads of the filter before anything else.
    virtual void ReadFilter() {}
    virtual std::span<const RightItem> RightItems() const { return description_.rightItems; }
    /// The member of the data component that this fetch calls.
    virtual std::string_view DataMember() const { return description_.dataMember; }
    /// The data call: hands over the filter by reference, keeps what comes back of it, answers the data set.
    virtual Ref<RecordSet> CallDataComponent(Object& component);
    /// What is to be done between the dialog's confirmation and the filter's use.
    virtual void TakeConfirmedFilter() {}
    /// Runs before the dialog is made; false ends ShowFilter with everything as it was.
    virtual bool BeforeDialog() { return true; }
    /// Fills the filter of the detail report from the current row; nothing where the row opens none.
    virtual Ref<Dictionary> BuildDetailFilter() { return {}; }
    /// What a failed fetch leaves in `Result` and `Rs`.
    virtual void TakeFetchError(const Error& error);

    /// Puts the date text that the host shows above the grid into `Result`, as a new `RptTitleObject`.
    void PutTitleObject();
    /// One fetch. Without `withProgress` the calls on the progress object are left out; a report that has
    /// never run, and so has none, then fails where it would be called.
    void FetchData(bool withProgress);

    /// Whether the last step went well: `OK` of the result does not equal False. Null equals nothing.
    bool IsConfirmed() const;

    // The filter as the pipeline reads it. Reading a filter that is not there raises 91.
    Dictionary& filter() const;
    Value FilterValue(std::string_view key) const { return filter().Get(key); }

    /// Adds columns of the report's table; their captions pass through ResText.
    void AddColumn(const ColumnRow& row);
    void AddColumns(std::span<const ColumnRow> rows);

    Process& process_;

    Ref<Dictionary> m_Filter;
    Ref<Vector> m_Header;
    Ref<Dictionary> m_Result;
    Ref<Dictionary> m_Property;
    Ref<Vector> m_Title;
    Ref<RecordSet> m_Rs;
    std::string m_FilterID;
    std::int32_t m_RptID = 0;
    bool m_LongNumber = false;
    Ref<FilterDialog> m_FilterForm;
    Ref<Bar> m_ProgBar;

 private:
    void Active() override;  // m_ProgBar_Active

    void BuildProperty();
    std::int32_t IdentifierNumber() const;
    void ShowOneTimeDialog();
    void ShowKeptDialog();
    void TakeDialogResult(FilterDialog& dialog);
    void PrepareDialogOnce();
    void RunFetch(bool withProgress, Ref<Object>& component);
    void WriteDataRight();
    std::string DataRightClause();
    void SetOutcome(bool ok, std::string_view error);

    const ReportDescription& description_;
    std::string className_;
};

}  // namespace qor
