#include "frames/date_types.h"

#include <array>
#include <memory>

namespace qor {

namespace {

struct Row {
    DateType type;
    std::string_view caption;
    DateSpan (*dates)(Date day);  // null for the free choice
    bool ofPeriod = false;        // reckoned from the period's first day, not from today
};

Date DaysAfter(Date day, int count) { return {day.serial + count}; }

DateSpan OneDay(Date day) { return {day, day}; }

DateSpan WeekOf(Date day) {
    // Day 2 of the reckoning, 1900-01-01, was a Monday.
    const auto sinceMonday = static_cast<int>((static_cast<std::int64_t>(day.serial) % 7 + 14 - 2) % 7);
    return {DaysAfter(day, -sinceMonday), DaysAfter(day, 6 - sinceMonday)};
}

/// `count` months that begin `shift` months after the first day of a year.
DateSpan Months(int year, int shift, int count) {
    const auto firstDay = [year](int month) {
        const int years = month >= 0 ? month / 12 : -((11 - month) / 12);
        const std::optional<Date> day = DateFromCalendar(year + years, month - years * 12 + 1, 1);
        if (!day) Raise(Automation::InvalidPropertyValue);
        return *day;
    };
    return {firstDay(shift), DaysAfter(firstDay(shift + count), -1)};
}

template <int shift>
DateSpan MonthOf(Date day) {
    const CalendarTime at = ToCalendar(day);
    return Months(at.year, at.month - 1 + shift, 1);
}

template <int shift>
DateSpan QuarterOf(Date day) {
    const CalendarTime at = ToCalendar(day);
    return Months(at.year, ((at.month - 1) / 3 + shift) * 3, 3);
}

template <int shift>
DateSpan YearOf(Date day) {
    return Months(ToCalendar(day).year + shift, 0, 12);
}

constexpr std::array<Row, kDateTypeCount> kRows{{
    {DateType::Custom, "自定义", nullptr},
    {DateType::Today, "今天", OneDay},
    {DateType::Yesterday, "昨天", [](Date day) { return OneDay(DaysAfter(day, -1)); }},
    {DateType::ThisWeek, "本周", WeekOf},
    {DateType::LastWeek, "上周", [](Date day) { return WeekOf(DaysAfter(day, -7)); }},
    {DateType::ThisPeriod, "本期", MonthOf<0>, true},
    {DateType::LastPeriod, "上期", MonthOf<-1>, true},
    {DateType::ThisMonth, "本月", MonthOf<0>},
    {DateType::LastMonth, "上月", MonthOf<-1>},
    {DateType::ThisQuarter, "本季", QuarterOf<0>},
    {DateType::LastQuarter, "上季", QuarterOf<-1>},
    {DateType::ThisYear, "本年", YearOf<0>},
    {DateType::LastYear, "上年", YearOf<-1>},
}};

constexpr bool StandInOrder() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].type != static_cast<DateType>(i)) return false;
    }
    return true;
}
static_assert(StandInOrder());

const Row& RowOf(DateType type) { return kRows[static_cast<std::size_t>(type)]; }

/// Belongs to the events of the three controls and goes with them.
class Step {
 public:
    Step(DropDown& types, DatePicker& begin, DatePicker& end, std::function<Date()> today,
         std::function<Date()> periodStart)
        : types_(types),
          begin_(begin),
          end_(end),
          today_(std::move(today)),
          periodStart_(std::move(periodStart)) {}

    void TypeChosen() {
        if (types_.listIndex() <= 0) return;
        const auto type = static_cast<DateType>(types_.listIndex());
        moving_ = true;
        const bool moved = IgnoringErrors([&] { MovePickers(type); });
        moving_ = false;
        if (!moved) types_.SetListIndex(0);
    }

    void DateChanged() {
        if (!moving_ && types_.listIndex() != 0) types_.SetListIndex(0);
    }

 private:
    void MovePickers(DateType type) {
        const Date today = today_();
        const auto dates = DatesOf(type, today, NeedsPeriodStart(type) ? periodStart_() : today);
        begin_.SetValue(dates->begin);
        end_.SetValue(dates->end);
    }

    DropDown& types_;
    DatePicker& begin_;
    DatePicker& end_;
    std::function<Date()> today_, periodStart_;
    bool moving_ = false;
};

}  // namespace

std::string_view CaptionOf(DateType type) { return RowOf(type).caption; }

bool NeedsPeriodStart(DateType type) { return RowOf(type).ofPeriod; }

std::optional<DateSpan> DatesOf(DateType type, Date today, Date periodStart) {
    const Row& row = RowOf(type);
    if (!row.dates) return std::nullopt;
    return row.dates(row.ofPeriod ? periodStart : today);
}

void KeepDatesInStep(DropDown& types, DatePicker& begin, DatePicker& end, std::function<Date()> today,
                     std::function<Date()> periodStart) {
    types.Clear();
    for (const Row& row : kRows) {
        types.AddItem(row.caption);
    }
    types.SetListIndex(0);

    const auto step = std::make_shared<Step>(types, begin, end, std::move(today), std::move(periodStart));
    types.onClick = [step] { step->TypeChosen(); };
    begin.onChange = end.onChange = [step] { step->DateChanged(); };
}

}  // namespace qor
