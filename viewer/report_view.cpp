#include "viewer/report_view.h"

#include "platform/conversions.h"

namespace qor::viewer {

namespace {

constexpr std::string_view kFurtherColumn = "+|";

std::string Text(const Dictionary& dictionary, std::string_view key) { return ToText(dictionary.Get(key)); }

/// "DtpBDate,2020-09-01|DtpEDate,2020-09-15" without the names.
std::string JoinDates(std::string_view showDateDiff) {
    std::string joined;
    while (!showDateDiff.empty()) {
        const std::size_t bar = showDateDiff.find('|');
        const std::string_view pair = showDateDiff.substr(0, bar);
        const std::string_view date = pair.substr(pair.find(',') + 1);
        if (!date.empty()) joined += (joined.empty() ? "" : " 至 ") + std::string(date);
        showDateDiff = bar == std::string_view::npos ? std::string_view() : showDateDiff.substr(bar + 1);
    }
    return joined;
}

std::string ReadDates(Object& report) {
    const Ref<Dictionary> result = As<Dictionary>(report.Get("Result"));
    const Value titleObject = result->Get("RptTitleObject");
    if (!titleObject.IsObject()) return "";
    return JoinDates(Text(*As<Dictionary>(titleObject), "ShowDateDiff"));
}

std::vector<std::string> ReadConditions(Object& report) {
    std::vector<std::string> conditions;
    const Ref<Vector> title = As<Vector>(report.Get("Title"));
    for (std::int32_t i = 1; title && i <= title->Count(); ++i) {
        conditions.push_back(Text(*As<Dictionary>(title->Item(i)), "FCaption"));
    }
    return conditions;
}

std::size_t FindField(const RecordSet& rows, std::string_view name) {
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
        if (EqualsIgnoringCase(rows.FieldName(i), name)) return i;
    }
    return kNoField;
}

/// Takes the marks off a first header line; `groupSize` becomes the number of columns that it stands over.
std::string WithoutMarks(std::string caption, std::size_t& groupSize) {
    groupSize = 1;
    while (caption.ends_with(kFurtherColumn)) {
        caption.resize(caption.size() - kFurtherColumn.size());
        ++groupSize;
    }
    if (groupSize == 1 && caption.ends_with('$')) caption.pop_back();
    return caption;
}

std::vector<ViewColumn> ReadColumns(const Vector& header, const RecordSet& rows, Columns which) {
    std::vector<ViewColumn> columns;
    std::string group;
    std::size_t leftInGroup = 0;
    for (std::int32_t i = 1; i <= header.Count(); ++i) {
        const Ref<Dictionary> descriptor = As<Dictionary>(header.Item(i));
        std::size_t groupSize = 1;
        std::string caption = WithoutMarks(Text(*descriptor, "FColCaption"), groupSize);
        if (groupSize > 1) {
            group = caption;
            leftInGroup = groupSize;
        }
        const bool inGroup = leftInGroup > 0;
        if (inGroup) --leftInGroup;
        const bool hidden = ToInt32(descriptor->Get("FVisible")) == 0 && which == Columns::Shown;
        if (hidden || ToBoolean(descriptor->Get("FForceHide"))) continue;

        const std::string field = Text(*descriptor, "FColName");
        columns.push_back({inGroup ? group : "", inGroup ? Text(*descriptor, "FHeadSecond") : caption,
                           Text(*descriptor, "FColType"), field, FindField(rows, field)});
    }
    return columns;
}

}  // namespace

ReportView ReadReport(Object& report, Columns columns) {
    ReportView view;
    view.name = Text(*As<Dictionary>(report.Get("Property")), "Name");
    view.dates = ReadDates(report);
    view.conditions = ReadConditions(report);
    view.rows = As<RecordSet>(report.Get("Rs"));
    if (!view.rows) Raise(Automation::ObjectNotSet);
    view.columns = ReadColumns(*As<Vector>(report.Get("Header")), *view.rows, columns);
    if (!(view.rows->Bof() && view.rows->Eof())) view.rows->MoveFirst();
    return view;
}

}  // namespace qor::viewer
