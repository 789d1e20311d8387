#include "dialogs/date_range_guard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "platform/user.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::Log;
using testing::ElementsAre;
using testing::IsEmpty;

Date Day(std::string_view text) { return ToDate(text); }

constexpr std::string_view kWithStartDate = "10522", kWithoutStartDate = "10527";

/// A dialog with a date range and a button to go to.
class RangeForm final : public Form {
 public:
    explicit RangeForm(WindowSystem& windows) : Form(windows, "frmRange", {6540, 900}) {}
    void CancelByUser() override { Hide(); }

    DatePicker DtpBDate{*this, "DtpBDate", Day("2020-09-01"), {}};
    DatePicker DtpEDate{*this, "DtpEDate", Day("2020-09-15"), {}};
    Button cmdOK{*this, "cmdOK", "确定(&O)", {}};
};

class DateRangeGuard : public testing::Test {
 protected:
    void AccountStartsAt(const Value& day) {
        test.platform.Component("QORMAppConnection.AppConnection").Answers("Execute", [day](Arguments) {
            auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FStartDate", "FEndDate"});
            rows->AddRow({day, day});
            return Value(rows);
        });
    }
    void SetDates(std::string_view begin, std::string_view end) {
        form->DtpBDate.SetValue(Day(begin));
        form->DtpEDate.SetValue(Day(end));
    }
    std::string Dates() const {
        return FormatIsoDate(form->DtpBDate.value()) + " " + FormatIsoDate(form->DtpEDate.value());
    }
    void Attach(std::string_view identifier) {
        AttachDateRange(test.process, form->DtpBDate, form->DtpEDate, identifier);
    }
    ClsDtpickerRange& guard() { return static_cast<ClsDtpickerRange&>(*test.process.dateRangeGuard); }
    /// The texts of the boxes shown since the last call.
    Log Messages() {
        Log texts;
        for (const auto& box : std::exchange(test.platform.windows().boxes, {})) {
            texts.push_back(box.text);
        }
        return texts;
    }

    test::TestProcess test;
    Ref<RangeForm> form = MakeRef<RangeForm>(test.platform.windows());
    User user{*form};
};

struct Case {
    std::string_view begin, end;  // as the user leaves them
    std::string_view message;     // "" for none
    std::string_view corrected;   // both dates afterwards
};

// The account set starts at 2020-03-01.
constexpr Case kCases[] = {
    {"2020-03-01", "2020-03-01", "", "2020-03-01 2020-03-01"},
    {"2020-05-05", "2020-05-05", "", "2020-05-05 2020-05-05"},
    {"2020-05-05", "2020-06-30", "", "2020-05-05 2020-06-30"},
    {"2020-02-01", "2020-02-01", "[截至日期]不能小于账套启用日期。", "2020-03-01 2020-03-01"},
    {"2020-01-01", "2020-02-01", "[起始日期]和[截至日期]都不能小于账套启用日期。", "2020-03-01 2020-03-01"},
    {"2020-02-02", "2020-02-01", "[起始日期]和[截至日期]都不能小于账套启用日期。", "2020-03-01 2020-03-01"},
    {"2020-02-29", "2020-03-01", "[起始日期]不能小于账套启用日期。", "2020-03-01 2020-03-01"},
    {"2020-02-29", "2020-06-30", "[起始日期]不能小于账套启用日期。", "2020-03-01 2020-06-30"},
    {"2020-06-30", "2020-05-05", "[起始日期]不能大于[截至日期]。", "2020-06-30 2020-06-30"},
    {"2020-06-30", "2020-02-01", "[起始日期]不能大于[截至日期]。", "2020-06-30 2020-06-30"},
};

TEST_F(DateRangeGuard, LeavingAPickerMakesThePairValidAndSaysWhy) {
    AccountStartsAt(Day("2020-03-01"));
    Attach(kWithStartDate);
    for (const Case& row : kCases) {
        user.Focus(form->DtpBDate);
        SetDates(row.begin, row.end);
        const bool arrived = user.Focus(form->cmdOK);
        EXPECT_EQ(Dates(), row.corrected) << row.begin << " " << row.end;
        EXPECT_EQ(arrived, row.message.empty()) << row.begin << " " << row.end;
        const Log messages = Messages();
        if (row.message.empty()) {
            EXPECT_THAT(messages, IsEmpty());
        } else {
            EXPECT_THAT(messages, ElementsAre(row.message));
        }
    }
}

TEST_F(DateRangeGuard, AnswersWhetherThePairWasValid) {
    AccountStartsAt(Day("2020-03-01"));
    Attach(kWithStartDate);
    for (const Case& row : kCases) {
        SetDates(row.begin, row.end);
        EXPECT_EQ(guard().DTPickerValidateAfterLostFocus(false), row.message.empty()) << row.begin;
        EXPECT_EQ(Dates(), row.corrected) << "silence corrects too";
        EXPECT_TRUE(guard().DTPickerValidateAfterLostFocus(false)) << "what was corrected is valid";
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DateRangeGuard, AMessageHasTheInformationIconAndNoTitle) {
    Attach(kWithoutStartDate);
    SetDates("2020-06-30", "2020-05-05");
    EXPECT_FALSE(guard().DTPickerValidateAfterLostFocus(true));
    ASSERT_EQ(test.platform.windows().boxes.size(), 1u);
    EXPECT_EQ(test.platform.windows().boxes[0].title, "");
    EXPECT_EQ(test.platform.windows().boxes[0].style, 64);
}

TEST_F(DateRangeGuard, AttachingCorrectsInSilence) {
    AccountStartsAt(Day("2020-09-10"));
    Attach(kWithStartDate);
    EXPECT_EQ(Dates(), "2020-09-10 2020-09-15");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DateRangeGuard, TheFocusGoesBackToThePickerThatWasLeft) {
    Attach(kWithoutStartDate);
    for (DatePicker* left : {&form->DtpBDate, &form->DtpEDate}) {
        DatePicker* other = left == &form->DtpBDate ? &form->DtpEDate : &form->DtpBDate;
        for (Control* target : {static_cast<Control*>(other), static_cast<Control*>(&form->cmdOK)}) {
            SetDates("2020-06-01", "2020-06-30");
            user.Focus(*left);
            SetDates("2020-07-01", "2020-06-30");
            EXPECT_FALSE(user.Focus(*target));
            EXPECT_EQ(form->focus(), left) << left->name() << " to " << target->name();
            EXPECT_EQ(Dates(), "2020-07-01 2020-07-01");
            EXPECT_TRUE(user.Focus(*target)) << "the corrected pair lets the user go";
        }
    }
}

TEST_F(DateRangeGuard, AHiddenPickerDoesNotTakeTheFocusBack) {
    Attach(kWithoutStartDate);
    user.Focus(form->DtpEDate);
    SetDates("2020-07-01", "2020-06-30");
    form->DtpEDate.SetVisible(false);
    EXPECT_TRUE(user.Focus(form->cmdOK));
    EXPECT_EQ(Dates(), "2020-07-01 2020-07-01");
}

TEST_F(DateRangeGuard, OtherControlsAreLeftInPeace) {
    Attach(kWithoutStartDate);
    user.Focus(form->cmdOK);
    SetDates("2020-07-01", "2020-06-30");
    user.Focus(form->DtpBDate);
    EXPECT_EQ(Dates(), "2020-07-01 2020-06-30");
    EXPECT_THAT(Messages(), IsEmpty());
}

struct Bound {
    std::string_view identifier;
    bool checkSystemMinDate;
    std::string_view bound;  // the first date that is accepted
    std::string_view name;
};

constexpr Bound kBounds[] = {
    {kWithStartDate, false, "2020-03-01", "账套启用日期"},
    {kWithStartDate, true, "2020-03-01", "账套启用日期"},
    {kWithoutStartDate, true, "2000-01-01", "系统最小时间"},
    {kWithoutStartDate, false, "2020-01-15", "控件最小时间"},
    {" 10522 ", false, "2020-03-01", "账套启用日期"},
    {"010522", false, "2020-01-15", "控件最小时间"},
};

TEST_F(DateRangeGuard, TheLowerBoundComesFromOneOfThreeSources) {
    for (const Bound& row : kBounds) {
        AccountStartsAt(Day("2020-03-01"));
        form = MakeRef<RangeForm>(test.platform.windows());
        ClsDtpickerRange range(test.process);
        form->DtpBDate.SetRange(Day("2020-01-15"), Day("9999-12-31"));
        range.attach(form->DtpBDate, form->DtpEDate, row.identifier, row.checkSystemMinDate);
        form->DtpBDate.SetRange(Day("1900-01-01"), Day("9999-12-31"));
        const Date before{Day(row.bound).serial - 1};

        SetDates(row.bound, row.bound);
        EXPECT_TRUE(range.DTPickerValidateAfterLostFocus(true)) << row.identifier;
        form->DtpBDate.SetValue(before);
        EXPECT_FALSE(range.DTPickerValidateAfterLostFocus(true)) << row.identifier;
        EXPECT_THAT(Messages(), ElementsAre("[起始日期]不能小于" + std::string(row.name) + "。"));
        EXPECT_EQ(Dates(), std::string(row.bound) + " " + std::string(row.bound));
    }
}

TEST_F(DateRangeGuard, AStartDateThatCannotBeReadIsTheSystemsUnderTheAccountsName) {
    const auto startsInTwoThousand = [this](std::string_view why) {
        form = MakeRef<RangeForm>(test.platform.windows());
        Attach(kWithStartDate);
        SetDates("1999-12-31", "1999-12-31");
        EXPECT_FALSE(guard().DTPickerValidateAfterLostFocus(true)) << why;
        EXPECT_EQ(Dates(), "2000-01-01 2000-01-01") << why;
        EXPECT_THAT(Messages(), ElementsAre("[截至日期]不能小于账套启用日期。")) << why;
    };
    startsInTwoThousand("no such period");
    AccountStartsAt("soon");
    startsInTwoThousand("a text that is no date");
    test.platform.Component("QORMAppConnection.AppConnection").Raises("Execute", Error(-1, "Server", "down"));
    startsInTwoThousand("a failing statement");
    test.platform.Remove("QORMAppConnection.AppConnection");
    startsInTwoThousand("no server");
}

TEST_F(DateRangeGuard, TheStartDateLosesItsTimeOfDay) {
    AccountStartsAt(Day("2020-03-01 10:30:00"));
    Attach(kWithStartDate);
    SetDates("2020-03-01", "2020-03-01");
    EXPECT_TRUE(guard().DTPickerValidateAfterLostFocus(true));
}

TEST_F(DateRangeGuard, TheServerIsAskedAtEveryAttachAndNotLater) {
    const auto asked = [this] {
        return std::ranges::count(test.platform.log(), "create QORMAppConnection.AppConnection");
    };
    Attach(kWithoutStartDate);
    EXPECT_EQ(asked(), 1);
    user.Focus(form->DtpBDate);
    user.Focus(form->cmdOK);
    EXPECT_EQ(asked(), 1);
    Attach(kWithoutStartDate);
    EXPECT_EQ(asked(), 2);
}

TEST_F(DateRangeGuard, ASinglePickerKnowsOnlyTheLowerBound) {
    AccountStartsAt(Day("2020-03-01"));
    AttachDateRange(test.process, form->DtpEDate, form->DtpEDate, kWithStartDate);
    user.Focus(form->DtpEDate);
    form->DtpEDate.SetValue(Day("2020-02-01"));
    EXPECT_FALSE(user.Focus(form->cmdOK));
    EXPECT_THAT(Messages(), ElementsAre("[截至日期]不能小于账套启用日期。"));
    EXPECT_EQ(FormatIsoDate(form->DtpEDate.value()), "2020-03-01");
    EXPECT_TRUE(user.Focus(form->cmdOK));
}

TEST_F(DateRangeGuard, UnattachedItAnswersTrue) {
    ClsDtpickerRange range(test.process);
    EXPECT_TRUE(range.DTPickerValidateAfterLostFocus(true));
}

TEST_F(DateRangeGuard, ANewDialogTakesTheOneGuardOver) {
    Attach(kWithoutStartDate);
    ClsDtpickerRange* first = &guard();
    const Ref<RangeForm> old = std::exchange(form, MakeRef<RangeForm>(test.platform.windows()));
    Attach(kWithoutStartDate);
    EXPECT_EQ(&guard(), first);

    User onOld(*old);
    onOld.Focus(old->DtpBDate);
    old->DtpEDate.SetValue(Day("2020-01-01"));
    EXPECT_TRUE(onOld.Focus(old->cmdOK)) << "the old pickers are left";
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(DateRangeGuard, AnEndedDialogLeavesTheGuardIdle) {
    Attach(kWithoutStartDate);
    form = {};
    EXPECT_TRUE(guard().DTPickerValidateAfterLostFocus(true));
}

TEST_F(DateRangeGuard, ADateThatThePickerRefusesIsSkipped) {
    AccountStartsAt(Day("2020-03-01"));
    Attach(kWithStartDate);
    SetDates("2020-01-01", "2020-02-01");
    form->DtpEDate.SetRange(Day("2020-01-01"), Day("2020-02-28"));
    EXPECT_FALSE(guard().DTPickerValidateAfterLostFocus(false));
    EXPECT_EQ(Dates(), "2020-03-01 2020-02-01");
}

}  // namespace
}  // namespace qor
