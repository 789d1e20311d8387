#include "report/report_object.h"

#include "platform/conversions.h"
#include "report/condition_captions.h"
#include "report/drill_down.h"
#include "report/report_members.h"

namespace qor {

namespace {

constexpr std::int32_t kShowDialog = -1;

/// A filter's value as it is joined into a text; "" for Null and where there is no filter.
std::string TitleText(const Dictionary* filter, std::string_view key) {
    return filter ? JoinedText(filter->Get(key)) : std::string();
}

}  // namespace

Report::Report(Process& process, const ReportDescription& description)
    : process_(process), description_(description), className_("Rpt" + std::to_string(description.number)) {
    m_Result = process_.platform.NewDictionary();
    m_LongNumber = process_.systemProfile.UseLongNumber();
    m_FilterID = std::to_string(description_.defaultIdentifier);
    BuildProperty();
    SetOutcome(false, "");
}

Report::~Report() {
    m_Result = {};
    m_Rs = {};
    m_Filter = {};
    m_Header = {};
    m_Property = {};
    m_Title = {};
    if (m_FilterForm) {
        IgnoringErrors([this] { m_FilterForm->Unload(); });
    }
    if (m_ProgBar) m_ProgBar->Disconnect(*this);
}

std::span<const Member> Report::Members() const { return ReportMembers(description_); }

void Report::SetOutcome(bool ok, std::string_view error) {
    m_Result->Put("OK", ok);
    m_Result->Put("Error", error);
}

bool Report::IsConfirmed() const {
    const Value ok = m_Result->Get("OK");
    return ok.IsNull() || ToBoolean(ok);
}

void Report::SetExtFirter(std::string_view identifier) {
    m_FilterID = identifier;
    IdentifierNumber();  // a number beyond 32 bits is refused here
    BuildProperty();
}

std::int32_t Report::IdentifierNumber() const {
    const bool beginsWithDigit = !m_FilterID.empty() && m_FilterID[0] >= '0' && m_FilterID[0] <= '9';
    return beginsWithDigit ? ToInt32(Val(m_FilterID)) : 0;
}

void Report::BuildProperty() {
    m_Property = process_.platform.NewDictionary();
    m_Property->Put("Name", ResText(description_.name));
    m_Property->Put("RptProperty", description_.rptProperty);
    if (description_.detailRptID != 0) m_Property->Put("DetailRptID", description_.detailRptID);
    const auto userFields = [this] { return process_.dataRights.NewUserFieldSpec(true, "FBillNo", "", ""); };
    if (description_.userFieldsOfHead) m_Property->Put("UserDefinedBillHead", userFields());
    if (description_.userFieldsOfEntry) m_Property->Put("UserDefinedBillEntry", userFields());
    if (description_.frozenColumn != 0) m_Property->Put("FrozenColumn", description_.frozenColumn);
}

void Report::SetFilter(Ref<Dictionary> filter) {
    m_Filter = std::move(filter);
    if (m_Filter) {
        SetOutcome(true, "");
    } else {
        SetOutcome(false, ResText("请选择过滤条件！"));
    }
}

void Report::ShowFilter() {
    const Ref<Report> kept(this);
    switch (description_.family) {
        case Family::DialogOnce:
            return ShowOneTimeDialog();
        case Family::DialogKept:
            return ShowKeptDialog();
        case Family::NoDialog:
            SetOutcome(true, "");
            m_Filter =
                m_Result;  // one dictionary from here on: what the fetch adds to the filter shows in both
            return;
    }
}

void Report::ShowOneTimeDialog() {
    Ref<FilterDialog> dialog;
    IgnoringErrors([&] {
        if (!BeforeDialog()) return;
        dialog = NewDialog();
        dialog->SetRptID(IdentifierNumber());
        dialog->ShowModal();
        TakeDialogResult(*dialog);
    });
    if (dialog) IgnoringErrors([&] { dialog->Unload(); });
}

void Report::ShowKeptDialog() {
    const bool done = IgnoringErrors([this] {
        if (!m_FilterForm) m_FilterForm = NewDialog();
        const Ref<FilterDialog> dialog = m_FilterForm;
        dialog->SetRptID(IdentifierNumber());
        dialog->SetAutoFilter(ToInt32(m_Property->GetOr("ShowFilter", kShowDialog)));
        if (description_.handsFilterToDialog) dialog->SetResult(m_Filter);
        dialog->ShowModal();
        if (!dialog->Result()) m_FilterForm = {};
        TakeDialogResult(*dialog);
    });
    if (!done) m_FilterForm = {};
}

void Report::TakeDialogResult(FilterDialog& dialog) {
    if (!dialog.Result()) {
        SetOutcome(false, ResText("过滤条件有误，请重新过滤！"));
    } else if (!ToBoolean(dialog.Result()->Get("OK"))) {
        m_Result->Put("OK", false);
    } else {
        SetOutcome(true, "");
        m_Filter = dialog.Result();
        TakeConfirmedFilter();
    }
}

void Report::GetReportData() {
    const Ref<Report> kept(this);
    const bool done = IgnoringErrors([this] {
        if (!IsConfirmed()) return;
        switch (description_.family) {
            case Family::DialogKept:
                break;
            case Family::DialogOnce:
                BuildOwnCaptions();
                BuildTitle();
                process_.platform.windows().Pump();
                break;
            case Family::NoDialog:
                BuildOwnCaptions();
                process_.platform.windows().Pump();
                break;
        }
        Refresh();
    });
    if (!done) SetOutcome(false, "");  // the error's text is dropped: the user gets no message here
}

void Report::Refresh() {
    const Ref<Report> kept(this);
    if (!m_ProgBar) {
        m_ProgBar = MakeRef<Bar>(process_);
        m_ProgBar->Connect(*this);
    }
    m_ProgBar->Show();
}

void Report::Active() {
    const Ref<Report> kept(this);
    try {
        m_ProgBar->SetMsg(ResText("正在连接服务器"));
        if (description_.family == Family::DialogKept) {
            BuildOwnCaptions();
            BuildTitle();
        }
    } catch (...) {
        m_ProgBar->Unload();  // the window must not stay open when its work cannot begin
        throw;
    }
    FetchData(true);
}

void Report::BuildTitle() {
    PutTitleObject();
    m_Title = BuildConditionCaptions(process_, m_Filter.get(), m_Property);
}

void Report::PutTitleObject() {
    const Ref<Dictionary> titleObject = process_.platform.NewDictionary();
    const auto part = [this](const DateTitle& date) {
        return std::string(date.name) + "," + TitleText(m_Filter.get(), date.key);
    };
    titleObject->Put("ShowDateDiff", part(description_.begin) + "|" + part(description_.end));
    m_Result->Put("RptTitleObject", titleObject);
}

Ref<Object> Report::GetDetailReport(std::int32_t row) {
    const Ref<Report> kept(this);
    Ref<Object> detail;
    try {
        if (!m_Rs) Raise(Automation::ObjectNotSet);
        m_Rs->MoveFirst();
        m_Rs->Move(row);
        if (ToDouble(FieldOr(*m_Rs, "FSumSort", 0)) > 0) return {};
        if (const Ref<Dictionary> filter = BuildDetailFilter()) {
            detail = RunDetailReport(process_, description_, filter);
        }
    } catch (const Error& error) {
        process_.platform.windows().MessageBox(error.description(), ResText("信息提示"), kInformationIcon);
    }
    return detail;
}

}  // namespace qor
