#include "reports/income/category_summary.h"

#include "platform/conversions.h"
#include "reports/income/category_summary_dialog.h"

namespace qor {

namespace {

/// A filter's value as it is joined into a caption.
std::string CaptionText(const Value& value) { return value.IsNull() ? "" : ToText(value); }

/// A text that is no date stays as it is.
std::string CaptionDate(const Value& value) {
    const std::string text = CaptionText(value);
    return IsDate(text) || IsNumeric(text) ? FormatSlashDate(ToDate(value)) : text;
}

class CategorySummary final : public Report {
 public:
    CategorySummary(Process& process, const CategorySummaryKind& kind)
        : Report(process, kind.report), kind_(kind) {}

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<CategorySummaryDialog>(process_, kind_); }

    void BuildColumns() override {
        if (ToBoolean(FilterValue(kind_.groupKey))) AddColumns(kind_.partyColumns);
        AddLevelColumns(ToInt16(FilterValue("BLevel")), ToInt16(FilterValue("ELevel")));
        AddColumn({kind_.receiveCaption, "", "6", "FReceiveAmount", 0, 6});
        const std::int16_t settledIsShown = process_.bag.GetAppType() == 1 ? 1 : 0;
        AddColumn({kind_.settleCaption, "", "6", "FSettleAmount", settledIsShown, 7});
        AddColumn({"总金额$", "", "6", "FAmount", 1, 6});
    }

    void AddLevelColumns(std::int32_t begin, std::int32_t end) {
        for (std::int32_t level = begin; level <= end; ++level) {
            const std::string number = ToText(level);
            const std::string caption =
                std::string(ResText(kind_.levelCaption)) + number + std::string(ResText("级$"));
            AddHeader(process_, caption, "", "1", "FTypeName" + number, 1, 7);
        }
    }

    void BuildOwnCaptions() override {
        m_Title = process_.platform.NewVector();
        AddCaption("起始日期：", CaptionDate(FilterValue("DtpBDate")));
        AddCaption("截止日期：", CaptionDate(FilterValue("DtpEDate")));
        AddCaption(kind_.typeRangeCaption, RangeText("BTypeIn", "ETypeIn", ""));
        AddCaption("类别级次：", RangeText("BLevel", "ELevel", " 级"));
    }

    void AddCaption(std::string_view label, const std::string& value) {
        const Ref<Dictionary> row = process_.platform.NewDictionary();
        row->Put("FCaption", std::string(ResText(label)) + value);
        row->Put("FIndex", static_cast<std::int16_t>(m_Title->Count()));
        m_Title->Add(row);
    }

    std::string RangeText(std::string_view beginKey, std::string_view endKey, std::string_view unit) const {
        const std::string begin = CaptionText(FilterValue(beginKey));
        const std::string end = CaptionText(FilterValue(endKey));
        if (begin.empty() && end.empty()) return std::string(ResText("所有"));
        return begin + "  --  " + end + std::string(unit);
    }

    void BuildTitle() override { PutTitleObject(); }

    Ref<Dictionary> BuildDetailFilter() override {
        // Without the parties the data set need not have the field.
        Value party = "";
        IgnoringErrors([&] { party = FieldOr(*m_Rs, kind_.partyField, ""); });
        const bool byParty = ToBoolean(FilterValue(kind_.groupKey));
        if (byParty && ToText(party).empty()) return {};

        const Value partyBound = byParty ? party : Value("");
        const Value type = m_Rs->Field("FTypeNumber");
        Ref<Dictionary> detail = process_.platform.NewDictionary();
        detail->Put("DtpBDate", FilterValue("DtpBDate"));
        detail->Put("DtpEDate", FilterValue("DtpEDate"));
        detail->Put(kind_.beginPartyKey, partyBound);
        detail->Put(kind_.endPartyKey, partyBound);
        detail->Put("BTypeIn", type);
        detail->Put("ETypeIn", type);
        detail->Put("BDeptNumber", "");
        detail->Put("EDeptNumber", "");
        detail->Put("BEmpNumber", "");
        detail->Put("EEmpNumber", "");
        detail->Put("chkForbiddenTypeInclude", FilterValue("chkForbiddenTypeInclude"));
        detail->Put("CheckState", FilterValue("CheckState"));
        return detail;
    }

    const CategorySummaryKind& kind_;
};

}  // namespace

const ReportDescription& kRpt10521 = kIncomeSummary.report;
const ReportDescription& kRpt10523 = kExpenseSummary.report;

Ref<Report> MakeRpt10521(Process& process) { return MakeRef<CategorySummary>(process, kIncomeSummary); }

Ref<Report> MakeRpt10523(Process& process) { return MakeRef<CategorySummary>(process, kExpenseSummary); }

}  // namespace qor
