#include "reports/other/age_groups.h"

#include <algorithm>
#include <vector>

#include "platform/conversions.h"
#include "services/texts.h"

namespace qor {

namespace {

constexpr std::string_view kOpenEnd = "......";  // as the user types the limit of the open group
constexpr std::string_view kMaxCol = "MaxCol";   // as the server knows it
constexpr double kMostDays = 1000000000;

constexpr std::string_view kStoredGroups[][AgeGroups::kColumns] = {
    {"1至30天", "30", "0"},
    {"31至60天", "60", "31"},
    {"61至90天", "90", "61"},
    {"91天以上", kOpenEnd, "91"},
};

std::vector<std::string_view> Split(std::string_view text, char delimiter) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(delimiter);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

/// The number of a numeric text less 1, another text as it is.
Value LessOne(const std::string& text) { return IsNumeric(text) ? Value(ToDouble(text) - 1) : Value(text); }

}  // namespace

/// What is known of the rows above while the chain is walked.
struct AgeGroups::Chain {
    Ref<Vector> groups;  // made with the first row
    std::int32_t lastLimit = 0;
    bool openEndSeen = false;
    bool openEndIsLast = false;
};

AgeGroups::AgeGroups(Grid& grid, std::function<void(std::string_view)> showGridMessage)
    : grid_(grid), showGridMessage_(std::move(showGridMessage)) {
    grid_.SetColumnHidden(kFirstDay, true);
    std::int32_t row = 0;
    for (const auto& group : kStoredGroups) {
        ++row;
        for (std::int32_t column = kLabel; column <= kFirstDay; ++column) {
            grid_.SetText(column, row, group[column - 1]);
        }
    }
}

bool AgeGroups::Refuse(std::string_view message) {
    showGridMessage_(ResText(message));
    return false;
}

double AgeGroups::DaysOf(std::int32_t row) const { return Val(grid_.GetText(kLimit, row)); }

void AgeGroups::Edited(std::int32_t column, std::int32_t row) {
    if (column == kLimit && !LimitEdited(row)) return;
    if (row == grid_.MaxRows()) AddRow();
    RefreshGridLocks();
}

bool AgeGroups::LimitEdited(std::int32_t row) {
    const std::string typed = grid_.GetText(kLimit, row);
    if (typed.find('-') != std::string::npos) return Refuse("不能“－”的字符");
    if (const double days = Val(typed); days > 0) return DaysTyped(row, days);
    if (typed != kOpenEnd) return Refuse("不能设置小于等于0的天数");
    return OpenEndTyped(row);
}

bool AgeGroups::DaysTyped(std::int32_t row, double days) {
    if (days > kMostDays) {
        grid_.SetText(kLimit, row, "");
        return false;
    }
    const std::int32_t wholeDays = ToInt32(days);
    if (wholeDays != days) {
        Refuse("天数需要输入整数");
        grid_.SetText(kLimit, row, ToText(wholeDays));
        return false;
    }
    if (row > 1 && days <= DaysOf(row - 1)) return Refuse("天数设置错误，不能小于等于上一行的天数");

    WriteGroup(row, row > 1 ? DaysOf(row - 1) + 1 : 1, days);
    if (row > 1 && row == grid_.MaxRows()) AddRow();

    // Only the next row follows; the rows below it begin where they did.
    const std::string& nextLimit = grid_.GetText(kLimit, row + 1);
    if (!nextLimit.empty() && nextLimit != kOpenEnd) {
        WriteGroup(row + 1, days + 1, DaysOf(row + 1));
    } else {
        grid_.SetText(kLimit, row + 1, kOpenEnd);
        WriteOpenGroup(row + 1, days + 1);
    }
    return true;
}

bool AgeGroups::OpenEndTyped(std::int32_t row) {
    if (row < 2) return Refuse("第一行不能设置“......”");
    if (const double daysBefore = DaysOf(row - 1); daysBefore > 0) WriteOpenGroup(row, daysBefore + 1);
    return true;
}

void AgeGroups::WriteGroup(std::int32_t row, double firstDay, double lastDay) {
    grid_.SetText(kLabel, row, ToText(firstDay) + "至" + ToText(lastDay) + "天");
    grid_.SetText(kFirstDay, row, ToText(firstDay));
}

void AgeGroups::WriteOpenGroup(std::int32_t row, double firstDay) {
    grid_.SetText(kLabel, row, ToText(firstDay) + "天以上");
    grid_.SetText(kFirstDay, row, ToText(firstDay));
}

void AgeGroups::LockLabels() { grid_.SetLock({kLabel, 1, kLabel, -1}, true); }

void AgeGroups::RefreshGridLocks() {
    std::int32_t free = 1;
    while (free <= grid_.MaxRows() && !grid_.GetText(kLimit, free).empty())
        ++free;
    free = std::min(free, grid_.MaxRows());
    if (free == grid_.MaxRows()) AddRow();
    grid_.SetLock({kLimit, 1, kLimit, free}, false);
    grid_.SetLock({kLimit, free + 1, kLimit, grid_.MaxRows()}, true);
}

void AgeGroups::AddRow() { grid_.SetMaxRows(grid_.MaxRows() + 1); }

void AgeGroups::DeleteRow() { grid_.DeleteRows(grid_.ActiveRow(), 1); }

bool AgeGroups::CheckGroups(Platform& platform, Dictionary& result) {
    Chain chain;
    const auto refused = [&result] {
        result.Put("OK", false);
        return false;
    };
    for (std::int32_t row = 1; row <= grid_.MaxRows() && !grid_.GetText(kLabel, row).empty(); ++row) {
        if (!TakeRow(platform, row, chain)) return refused();
    }
    if (!chain.openEndSeen) {
        Refuse("账龄分组条件错误，需要有“......”的格式。");
        return refused();
    }
    if (!chain.openEndIsLast) {
        Refuse("账龄分组条件错误，“......”必须在最后一行。");
        return refused();
    }
    if (!chain.groups) return Refuse("请设置账龄分组的过滤条件");
    result.Put("Vect", chain.groups);
    return true;
}

bool AgeGroups::TakeRow(Platform& platform, std::int32_t row, Chain& chain) {
    const Ref<Dictionary> group = platform.NewDictionary();
    group->Put("FCaption", grid_.GetText(kLabel, row));

    std::string limit = grid_.GetText(kLimit, row);
    if (limit == kOpenEnd) {
        limit = kMaxCol;
        if (chain.openEndSeen) return Refuse("账龄分组条件错误,只能出现1行的“......”");
        chain.openEndSeen = true;
    } else if (chain.lastLimit != 0 && Val(limit) <= chain.lastLimit) {
        return Refuse("账龄分组条件错误,下面一行的天数不能小于等于上一行的天数");
    }
    group->Put("FValue", LessOne(limit));
    chain.openEndIsLast = limit == kMaxCol;
    chain.lastLimit = ToInt32(Val(limit));

    const Value firstDay = LessOne(grid_.GetText(kFirstDay, row));
    group->Put("FFirstValue", firstDay.IsText() ? firstDay : Value(std::max(firstDay.number(), 0.0)));

    if (!chain.groups) chain.groups = platform.NewVector();
    chain.groups->Add(group);
    return true;
}

std::string AgeGroups::GridToText() const {
    std::string text;
    for (std::int32_t row = 1; row <= grid_.MaxRows(); ++row) {
        if (grid_.GetText(kLabel, row).empty()) continue;
        if (!text.empty()) text += '|';
        text += grid_.GetText(kLabel, row) + "," + grid_.GetText(kLimit, row) + "," +
                grid_.GetText(kFirstDay, row);
    }
    return text;
}

void AgeGroups::TextToGrid(std::string_view text) {
    if (text.empty()) return;
    const std::vector<std::string_view> rows = Split(text, '|');
    grid_.ClearRange({1, 1, grid_.MaxCols(), grid_.MaxRows()});
    const auto count = static_cast<std::int32_t>(rows.size());
    if (grid_.MaxRows() < count) grid_.SetMaxRows(count);

    for (std::int32_t row = 1; row <= count; ++row) {
        const std::vector<std::string_view> items = Split(rows[static_cast<std::size_t>(row - 1)], ',');
        for (std::size_t item = 0; item < kColumns; ++item) {
            if (item >= items.size()) Raise(Automation::SubscriptOutOfRange);
            grid_.SetText(static_cast<std::int32_t>(item) + 1, row, items[item]);
        }
    }
}

}  // namespace qor
