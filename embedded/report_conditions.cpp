#include "embedded/report_conditions.h"

#include <cmath>

#include "embedded/bill_kinds.h"
#include "platform/conversions.h"

namespace qor {

void Conditions::Add(std::initializer_list<SqlText> pieces, std::vector<BoundValue> values) {
    if (!text_.empty()) text_ += " AND ";
    for (const SqlText& piece : pieces) {
        text_ += piece.view();
    }
    for (BoundValue& value : values) {
        values_.push_back(std::move(value));
    }
}

void Conditions::Add(const Conditions& others) {
    if (others.text_.empty()) return;
    if (!text_.empty()) text_ += " AND ";
    text_ += others.text_;
    values_.insert(values_.end(), others.values_.begin(), others.values_.end());
}

int Conditions::BindTo(Statement& statement, int first) const {
    for (const BoundValue& value : values_) {
        std::visit([&](const auto& bound) { statement.Bind(first, bound); }, value);
        ++first;
    }
    return first;
}

std::optional<Value> ReportFilter::Given(std::string_view key) const {
    const Value value = filter_.Get(key);
    const bool open = value.IsEmpty() || value.IsNull() || (value.IsText() && Trimmed(value.text()).empty());
    return open ? std::nullopt : std::optional(value);
}

std::optional<std::int64_t> ReportFilter::Day(std::string_view key) const {
    const auto value = Given(key);
    if (!value) return std::nullopt;
    if (!IsDate(*value)) RaiseAccountSetError("日期无效：" + ToText(*value));
    return static_cast<std::int64_t>(std::floor(ToDate(*value).serial));
}

std::string ReportFilter::Code(std::string_view key) const {
    const auto value = Given(key);
    return value ? std::string(Trimmed(ToText(*value))) : "";
}

bool ReportFilter::Flag(std::string_view key, bool open) const {
    const auto value = Given(key);
    return value ? ToBoolean(*value) : open;
}

std::optional<std::int32_t> ReportFilter::Number(std::string_view key) const {
    const auto value = Given(key);
    return value ? std::optional(ToInt32(*value)) : std::nullopt;
}

LevelRange ReportFilter::Levels(std::string_view firstKey, std::string_view lastKey) const {
    constexpr std::int64_t kMost = 100;
    const LevelRange range{Number(firstKey).value_or(0), Number(lastKey).value_or(0)};
    if (std::int64_t{range.last} - range.first >= kMost) {
        RaiseAccountSetError("类别级次无效：" + std::to_string(range.first) + " 至 " +
                             std::to_string(range.last));
    }
    return range;
}

bool ReportFilter::WantsShortNumbers() const { return filter_.Lookup("bLongNumber") && !Flag("bLongNumber"); }

void AddDayRange(Conditions& conditions, SqlText column, std::optional<std::int64_t> first,
                 std::optional<std::int64_t> last) {
    if (first) conditions.Add({column, ">=?"}, {*first});
    if (last) conditions.Add({column, "<=?"}, {*last});
}

void AddCodeRange(Conditions& conditions, SqlText column, std::int32_t itemClass, const std::string& first,
                  const std::string& last) {
    if (first.empty() && last.empty()) return;
    if (last.empty()) {
        conditions.Add({column, " IN (SELECT FItemID FROM t_Item WHERE FItemClassID=? AND FNumber>=?)"},
                       {itemClass, first});
        return;
    }
    conditions.Add({column,
                    " IN (SELECT FItemID FROM t_Item WHERE FItemClassID=? AND FNumber>=? AND"
                    " (FNumber<=? OR substr(FNumber,1,length(?)+1)=?||'.' COLLATE NOCASE))"},
                   {itemClass, first, last, last, last});
}

void AddPeople(Conditions& conditions, const ReportFilter& filter) {
    AddCodeRange(conditions, "b.FDeptID", item_class::kDepartment, filter.Code("BDeptNumber"),
                 filter.Code("EDeptNumber"));
    AddCodeRange(conditions, "b.FEmpID", item_class::kEmployee, filter.Code("BEmpNumber"),
                 filter.Code("EEmpNumber"));
    if (std::string name = filter.Code("BillerName"); !name.empty()) {
        conditions.Add({"b.FBillerID IN (SELECT FUserID FROM t_User WHERE instr(lower(FName),lower(?))>0)"},
                       {std::move(name)});
    }
}

void AddCheckState(Conditions& conditions, SqlText column, std::optional<std::int32_t> checkState) {
    constexpr std::int32_t kAll = 2;
    const std::int32_t state = checkState.value_or(kAll);
    if (state < 0 || state > kAll) RaiseAccountSetError("单据状态无效：" + std::to_string(state));
    if (state == kAll) {
        conditions.Add({column, "<>?"}, {static_cast<std::int64_t>(BillState::Void)});
    } else {
        conditions.Add({column, "=?"}, {std::int64_t{state}});
    }
}

}  // namespace qor
