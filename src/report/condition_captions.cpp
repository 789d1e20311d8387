#include "report/condition_captions.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "platform/conversions.h"

namespace qor {

namespace {

/// Numbers of reports; 0 fills up.
using Reports = std::array<std::int32_t, 6>;

struct Keys {
    std::string_view begin, end;
};

/// One range of codes: its label and its pair of filter keys, and the reports that have others.
struct RangeRow {
    std::string_view label;
    Keys keys;
    struct {
        std::string_view label;
        Reports reports;
    } otherLabel{};
    struct {
        Keys keys;
        Reports reports;
    } otherKeys[2]{};
    Reports without{};           // reports that have no such row
    bool notInAppType1 = false;  // the row under its first label is left out in application type 1
};

constexpr RangeRow kType = {
    .label = "收入类别", .keys = {"BTypeIn", "ETypeIn"}, .otherLabel = {"支出类别", {10524}}};

constexpr RangeRow kItem = {.label = "商品代码",
                            .keys = {"BItemNumber", "EItemNumber"},
                            .otherLabel = {"往来单位", {10506}},
                            .otherKeys = {{{"BItemNo", "EItemNo"}, {12015, 12016}}}};

constexpr RangeRow kFurtherRanges[] = {
    {.label = "客户代码", .keys = {"BCustNumber", "ECustNumber"}, .without = {10219, 10220}},
    {.label = "部门代码", .keys = {"BDeptNumber", "EDeptNumber"}},
    {.label = "业务员代码",
     .keys = {"BEmpNumber", "EEmpNumber"},
     .otherLabel = {"经手人代码", {10506, 10522, 10524, 10501}},
     .without = {10413}},
    {.label = "仓库代码",
     .keys = {"BStockNumber", "EStockNumber"},
     .otherKeys = {{{"BStockNo", "EStockNo"}, {10354}}}},
    {.label = "供应商代码",
     .keys = {"BSupplyNumber", "ESupplyNumber"},
     .otherKeys = {{{"BCustNumber", "ECustNumber"}, {10219, 10220}}, {{"BSupply", "ESupply"}, {10229}}}},
    {.label = "辅助属性",
     .keys = {"BAuxPropNumber", "EAuxPropNumber"},
     .otherKeys = {{{"BAuxNumber", "EAuxNumber"}, {10422}}},
     .notInAppType1 = true},
    {.label = "批号", .keys = {"BBatchNo", "EBatchNo"}},
    {.label = "订单编号",
     .keys = {"BBillNumber", "EBillNumber"},
     .otherLabel = {"单据编号", {10354}},
     .otherKeys = {{{"BBillNo", "EBillNo"}, {10351, 10352, 10357, 10325, 10354, 10227}}},
     .notInAppType1 = true},
};

constexpr std::int32_t kStockReport = 10422;                   // dated by its stock, summed by its goods
constexpr std::int32_t kUnderscoreReports[] = {10901, 10903};  // write SumBy with "_" behind the name

/// Blanks are stripped; a value that is no text and cannot become one reads as "".
std::string StrippedText(const Value& value) {
    std::string text;
    IgnoringErrors([&] { text = Trimmed(ToText(value)); });
    return text;
}

class Captions {
 public:
    Captions(Process& process, Dictionary& filter, std::int32_t appType)
        : process_(process), filter_(filter), appType_(appType), rows_(process.platform.NewVector()) {
        IgnoringErrors([&] { report_ = ToInt32(filter_.GetOr("RptID", 0)); });
    }

    /// A step that fails is skipped, and the next one goes on.
    Ref<Vector> Build() {
        IgnoringErrors([&] { AddRange(kType); });
        bool dated = false;
        IgnoringErrors([&] { dated = AddStockDate(); });
        IgnoringErrors([&] { AddRange(kItem); });
        if (dated) IgnoringErrors([&] { AddPrintDate(); });
        for (const RangeRow& range : kFurtherRanges) {
            IgnoringErrors([&] { AddRange(range); });
        }
        IgnoringErrors([&] { AddSumBy(); });
        if (report_ == kStockReport) IgnoringErrors([&] { AddSummary("商品"); });
        return rows_;
    }

 private:
    bool IsOneOf(const Reports& reports) const {
        return report_ != 0 && std::ranges::find(reports, report_) != reports.end();
    }

    /// Adds a row; without a caption it still takes its number.
    void AddRow(const std::optional<std::string>& caption) {
        const Ref<Dictionary> row = process_.platform.NewDictionary();
        if (caption) row->Put("FCaption", *caption);
        row->Put("FIndex", index_);
        rows_->Add(row);
        ++index_;
    }

    void AddRange(const RangeRow& range) {
        if (IsOneOf(range.without)) return;
        const bool relabelled = IsOneOf(range.otherLabel.reports);
        if (range.notInAppType1 && !relabelled && appType_ == 1) return;
        Keys keys = range.keys;
        for (const auto& other : range.otherKeys) {
            if (IsOneOf(other.reports)) keys = other.keys;
        }
        if (!filter_.Lookup(keys.begin) || !filter_.Lookup(keys.end)) return;

        const std::string label(relabelled ? range.otherLabel.label : range.label);
        const Value begin = filter_.Get(keys.begin);
        const Value end = filter_.Get(keys.end);
        std::optional<std::string> caption;
        if (StrippedText(begin).empty() && StrippedText(end).empty()) {
            caption = label + "[全部]";
        } else {
            IgnoringErrors(
                [&] { caption = label + "从[" + JoinedText(begin) + "]到[" + JoinedText(end) + "]"; });
        }
        AddRow(caption);
    }

    bool AddStockDate() {
        if (report_ != kStockReport || !filter_.Lookup("OnTime")) return false;
        bool isNow = true;  // also where OnTime is no number
        IgnoringErrors([&] { isNow = ToDouble(StrippedText(filter_.Get("OnTime"))) != 0; });
        if (isNow) {
            AddRow("日期[即时库存]");
            return true;
        }
        if (!filter_.Lookup("EDate")) return false;
        const std::string endDate = StrippedText(filter_.Get("EDate"));
        AddRow(endDate.empty() ? std::optional<std::string>() : "截止日期[" + endDate + "]");
        return true;
    }

    void AddPrintDate() { AddRow("打印日期[" + FormatIsoDate(process_.platform.Today()) + "]"); }

    void AddSumBy() {
        if (!filter_.Lookup("SumBy")) return;
        const std::string sumBy = StrippedText(filter_.Get("SumBy"));
        if (sumBy.empty()) return;
        const bool underscore =
            std::ranges::find(kUnderscoreReports, report_) != std::end(kUnderscoreReports);
        AddSummary(Trimmed(std::string_view(sumBy).substr(0, sumBy.find(underscore ? '_' : '|'))));
    }

    void AddSummary(std::string_view name) {
        bool multiLevel = false;
        IgnoringErrors([&] { multiLevel = ToBoolean(filter_.GetOr("MultiLevel", "")); });
        std::string caption = "汇总依据[" + std::string(name);
        if (multiLevel) {
            caption += "(" + JoinedText(filter_.GetOr("MultiLevelBegin", "1")) + "-" +
                       JoinedText(filter_.GetOr("MultiLevelEnd", "1")) + "级)";
        }
        AddRow(caption + "]");
    }

    Process& process_;
    Dictionary& filter_;
    const std::int32_t appType_;
    std::int32_t report_ = 0;
    std::int16_t index_ = 0;
    Ref<Vector> rows_;
};

/// What a report without a filter is taken to restrict.
Ref<Dictionary> FilterOfNone(Process& process) {
    Ref<Dictionary> filter = process.platform.NewDictionary();
    for (const std::string_view key : {"BItemNumber", "EItemNumber", "BStockNumber", "EStockNumber"}) {
        filter->Put(key, "");
    }
    return filter;
}

}  // namespace

Ref<Vector> BuildConditionCaptions(Process& process, Dictionary* filter, Ref<Dictionary>& property) {
    std::int32_t appType = 0;
    IgnoringErrors([&] { appType = process.bag.GetAppType(); });
    IgnoringErrors([&] {
        if (!property) property = process.platform.NewDictionary();
        property->Put("ShowInPreview", std::int16_t{1});
    });
    const Ref<Dictionary> own = filter ? Ref<Dictionary>(filter) : FilterOfNone(process);
    return Captions(process, *own, appType).Build();
}

}  // namespace qor
