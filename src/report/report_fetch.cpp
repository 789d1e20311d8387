// The fetch of a report: from the rights check to the data set, in the order that all reports share.
#include "platform/conversions.h"
#include "report/report_object.h"

namespace qor {

void Report::FetchData(bool withProgress) {
    Ref<Object> component;
    try {
        RunFetch(withProgress, component);
        if (withProgress) m_ProgBar->Unload();
        SetOutcome(true, "");
    } catch (const Error& error) {
        if (!description_.releasesComponentLast) component = {};
        TakeFetchError(error);
        if (withProgress) m_ProgBar->Unload();
    }
}

void Report::RunFetch(bool withProgress, Ref<Object>& component) {
    ReadFilter();
    if (description_.checksAccess) {
        process_.systemProfile.GetGLData().Call("AccessCheck", std::int16_t{1006}, std::int16_t{2},
                                                std::int16_t{4});
    }

    m_Header = process_.platform.NewVector();
    SetHeaderList(process_, m_Header);
    BuildColumns();
    if (description_.rightsStep == RightsStep::InsideColumnTable) WriteDataRight();
    SetHeaderList(process_, {});
    if (description_.rightsStep == RightsStep::BeforeComponent) WriteDataRight();

    component = process_.platform.CreateComponent(description_.dataComponent);
    if (withProgress) {
        m_ProgBar->HideProgBar();
        m_ProgBar->SetMsg(ResText("正在从服务器读取数据，请稍候..."));
    } else if (!m_ProgBar) {
        Raise(Automation::ObjectNotSet);
    }
    if (description_.rightsStep == RightsStep::AfterMessage) WriteDataRight();
    if (description_.sendsLongNumber) filter().Put("bLongNumber", m_LongNumber);

    m_Rs = CallDataComponent(*component);
    component = {};
}

Ref<RecordSet> Report::CallDataComponent(Object& component) {
    Value filterReference = m_Filter;
    const Value answer =
        component.Call(DataMember(), process_.session.GetPropsString(), Argument::ByRef(filterReference));
    m_Filter = As<Dictionary>(filterReference);
    return As<RecordSet>(answer);
}

void Report::TakeFetchError(const Error& error) {
    m_Rs = {};
    m_Result->Put("OK", false);
    m_Result->Put("ErrorSource", error.source());
    m_Result->Put("Error", error.description());
}

std::string Report::DataRightClause() {
    const Ref<Vector> items = process_.platform.NewVector();
    for (const RightItem& item : RightItems()) {
        items->Add(process_.dataRights.NewRightItem(item.dataTable, item.dataTableAs, item.itemClassType));
    }
    std::string clause;
    process_.dataRights.AddRightClause(items.get(), clause);
    return clause;
}

void Report::WriteDataRight() {
    if (description_.publicDataRight) return AddDataRight(nullptr);
    const std::string clause = DataRightClause();
    filter().Put("DataRightWhere", clause);
}

void Report::AddDataRight(Dictionary* target) {
    const std::string clause = DataRightClause();
    if (m_Filter) m_Filter->Put("DataRightWhere", clause);
    if (target) target->Put("DataRightWhere", clause);
}

Dictionary& Report::filter() const {
    if (!m_Filter) Raise(Automation::ObjectNotSet);
    return *m_Filter;
}

void Report::AddColumn(const ColumnRow& row) {
    AddHeader(process_, ResText(row.caption), ResText(row.headSecond), row.colType, row.colName, row.visible,
              row.appMask);
}

void Report::AddColumns(std::span<const ColumnRow> rows) {
    for (const ColumnRow& row : rows) {
        AddColumn(row);
    }
}

}  // namespace qor
