#include "frames/date_types.h"

#include <gtest/gtest.h>

#include "platform/form.h"
#include "platform/headless.h"
#include "platform/user.h"

namespace qor {
namespace {

Date Day(int year, int month, int day) { return DateFromCalendar(year, month, day).value(); }

std::string Dates(DateType type, Date today, Date periodStart) {
    const auto dates = DatesOf(type, today, periodStart);
    return dates ? FormatIsoDate(dates->begin) + " " + FormatIsoDate(dates->end) : "";
}

TEST(DateTypes, TheFreeChoiceStandsFirst) {
    EXPECT_EQ(static_cast<int>(DateType::Custom), 0);
    EXPECT_EQ(CaptionOf(DateType::Custom), "自定义");
    EXPECT_FALSE(DatesOf(DateType::Custom, Day(2020, 9, 15), Day(2020, 8, 1)));
}

TEST(DateTypes, EachPeriodHasItsDays) {
    const struct {
        std::string_view caption;
        const char* dates;  // on 2020-09-15, a Tuesday, in the accounting period 8
    } rows[] = {
        {"自定义", ""},
        {"今天", "2020-09-15 2020-09-15"},
        {"昨天", "2020-09-14 2020-09-14"},
        {"本周", "2020-09-14 2020-09-20"},
        {"上周", "2020-09-07 2020-09-13"},
        {"本期", "2020-08-01 2020-08-31"},
        {"上期", "2020-07-01 2020-07-31"},
        {"本月", "2020-09-01 2020-09-30"},
        {"上月", "2020-08-01 2020-08-31"},
        {"本季", "2020-07-01 2020-09-30"},
        {"上季", "2020-04-01 2020-06-30"},
        {"本年", "2020-01-01 2020-12-31"},
        {"上年", "2019-01-01 2019-12-31"},
    };
    ASSERT_EQ(std::size(rows), kDateTypeCount);
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto type = static_cast<DateType>(i);
        EXPECT_EQ(CaptionOf(type), rows[i].caption);
        EXPECT_EQ(Dates(type, Day(2020, 9, 15), Day(2020, 8, 1)), rows[i].dates) << rows[i].caption;
    }
}

TEST(DateTypes, TheTurnOfTheYearIsCrossed) {
    const Date newYear = Day(2021, 1, 1);  // a Friday
    EXPECT_EQ(Dates(DateType::Yesterday, newYear, newYear), "2020-12-31 2020-12-31");
    EXPECT_EQ(Dates(DateType::ThisWeek, newYear, newYear), "2020-12-28 2021-01-03");
    EXPECT_EQ(Dates(DateType::LastMonth, newYear, newYear), "2020-12-01 2020-12-31");
    EXPECT_EQ(Dates(DateType::LastPeriod, newYear, newYear), "2020-12-01 2020-12-31");
    EXPECT_EQ(Dates(DateType::LastQuarter, newYear, newYear), "2020-10-01 2020-12-31");
    EXPECT_EQ(Dates(DateType::ThisMonth, Day(2020, 12, 31), newYear), "2020-12-01 2020-12-31");
    EXPECT_EQ(Dates(DateType::ThisQuarter, Day(2020, 12, 31), newYear), "2020-10-01 2020-12-31");
}

TEST(DateTypes, WeeksRunFromMondayToSunday) {
    EXPECT_EQ(Dates(DateType::ThisWeek, Day(2020, 9, 14), {}), "2020-09-14 2020-09-20");
    EXPECT_EQ(Dates(DateType::ThisWeek, Day(2020, 9, 20), {}), "2020-09-14 2020-09-20");
    EXPECT_EQ(Dates(DateType::ThisWeek, Day(2020, 9, 21), {}), "2020-09-21 2020-09-27");
    for (int serial = -20; serial < 20; ++serial) {
        const auto week = DatesOf(DateType::ThisWeek, Date{static_cast<double>(serial)}, {}).value();
        EXPECT_LE(week.begin.serial, serial);
        EXPECT_GE(week.end.serial, serial);
        EXPECT_EQ(week.end.serial - week.begin.serial, 6);
    }
}

TEST(DateTypes, FebruaryHasALeapDay) {
    EXPECT_EQ(Dates(DateType::ThisMonth, Day(2020, 2, 10), {}), "2020-02-01 2020-02-29");
    EXPECT_EQ(Dates(DateType::LastMonth, Day(2021, 3, 31), {}), "2021-02-01 2021-02-28");
}

class ShortPanel : public Form {
 public:
    explicit ShortPanel(WindowSystem& windows) : Form(windows, "frmFilter10502", {1000, 1000}) {}
    DropDown cmbDateType{*this, "cmbDateType", {}};
    DatePicker BEGDate{*this, "BEGDate", Day(2020, 5, 5), {}};
    DatePicker ENDDate{*this, "ENDDate", Day(2020, 5, 6), {}};

    std::string Shown() const {
        return cmbDateType.text() + " " + FormatIsoDate(BEGDate.value()) + " " +
               FormatIsoDate(ENDDate.value());
    }
};

class DatesInStep : public testing::Test {
 protected:
    void SetUp() override {
        panel->Load();
        KeepDatesInStep(
            panel->cmbDateType, panel->BEGDate, panel->ENDDate, [] { return Day(2020, 9, 15); },
            [this] {
                ++periodsAsked;
                if (periodFails) Raise(Automation::CannotCreate);
                return Day(2020, 8, 1);
            });
    }

    HeadlessWindows windows;
    Ref<ShortPanel> panel = MakeRef<ShortPanel>(windows);
    int periodsAsked = 0;
    bool periodFails = false;
};

TEST_F(DatesInStep, TheListBeginsWithTheFreeChoiceAndLeavesTheDates) {
    EXPECT_EQ(panel->cmbDateType.items().size(), kDateTypeCount);
    EXPECT_EQ(panel->Shown(), "自定义 2020-05-05 2020-05-06");
}

TEST_F(DatesInStep, AChosenPeriodSetsBothDates) {
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisQuarter));
    EXPECT_EQ(panel->Shown(), "本季 2020-07-01 2020-09-30");
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::Today));
    EXPECT_EQ(panel->Shown(), "今天 2020-09-15 2020-09-15");
}

TEST_F(DatesInStep, ADateSetByHandIsTheFreeChoiceAgain) {
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisMonth));
    panel->BEGDate.SetValue(Day(2020, 9, 2));
    EXPECT_EQ(panel->Shown(), "自定义 2020-09-02 2020-09-30");
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisMonth));
    panel->ENDDate.SetValue(Day(2020, 9, 29));
    EXPECT_EQ(panel->Shown(), "自定义 2020-09-01 2020-09-29");
}

TEST_F(DatesInStep, TheFreeChoiceLeavesTheDates) {
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisYear));
    panel->cmbDateType.SetListIndex(0);
    EXPECT_EQ(panel->Shown(), "自定义 2020-01-01 2020-12-31");
}

TEST_F(DatesInStep, ThePeriodIsAskedOnlyWhereItIsNeeded) {
    for (int i = 0; i < static_cast<int>(kDateTypeCount); ++i) {
        panel->cmbDateType.SetListIndex(i);
    }
    EXPECT_EQ(periodsAsked, 2);
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisPeriod));
    EXPECT_EQ(panel->Shown(), "本期 2020-08-01 2020-08-31");
}

TEST_F(DatesInStep, APeriodThatCannotBeReadLeavesTheDates) {
    periodFails = true;
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::LastPeriod));
    EXPECT_EQ(panel->Shown(), "自定义 2020-05-05 2020-05-06");
    panel->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisMonth));
    EXPECT_EQ(panel->Shown(), "本月 2020-09-01 2020-09-30");
}

}  // namespace
}  // namespace qor
