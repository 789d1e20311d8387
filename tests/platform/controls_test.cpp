#include "platform/controls.h"

#include <gtest/gtest.h>

#include "platform/headless.h"
#include "support/raises.h"
#include "support/sample_form.h"

namespace qor {
namespace {

using test::Log;
using test::RaisedBy;
using test::SampleForm;

class ControlsTest : public testing::Test {
 protected:
    HeadlessWindows windows;
    Ref<SampleForm> form = MakeRef<SampleForm>(windows);
    int raised = 0;
    std::function<void()> count = [this] { ++raised; };
};

TEST_F(ControlsTest, TextBoxRaisesChangeOnlyForAnotherText) {
    TextBox& box = form->first;
    box.onChange = count;
    box.SetText("往来");
    box.SetText("往来");
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(box.text(), "往来");
    EXPECT_EQ(box.length(), 2);
    EXPECT_EQ(box.selStart(), 2);
}

TEST_F(ControlsTest, TextBoxCutsItsSelectionToTheText) {
    TextBox& box = form->first;
    box.SetText("往来abc");
    box.Select(1, 100);
    EXPECT_EQ(box.selStart(), 1);
    EXPECT_EQ(box.selLength(), 4);
    box.Select(-3, -1);
    EXPECT_EQ(box.selStart(), 0);
    EXPECT_EQ(box.selLength(), 0);
    box.Select(99, 1);
    EXPECT_EQ(box.selStart(), 5);
}

TEST_F(ControlsTest, TextBoxReplacesItsSelectionByCharacters) {
    TextBox& box = form->first;
    box.SetText("往来单位");
    box.onChange = count;
    box.Select(1, 2);
    box.ReplaceSelection("x");
    EXPECT_EQ(box.text(), "往x位");
    EXPECT_EQ(box.selStart(), 2);
    EXPECT_EQ(box.selLength(), 0);
    EXPECT_EQ(raised, 1);
    box.Select(1, 1);
    box.ReplaceSelection("x");
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(box.selStart(), 2);
}

TEST_F(ControlsTest, TextBoxErasesItsSelectionOrOneCharacter) {
    TextBox& box = form->first;
    box.SetText("往来单位");
    box.Select(2, 0);
    box.Erase(true);
    EXPECT_EQ(box.text(), "往单位");
    box.Erase(false);
    EXPECT_EQ(box.text(), "往位");
    box.Select(0, 2);
    box.Erase(true);
    EXPECT_EQ(box.text(), "");
    box.onChange = count;
    box.Erase(true);
    box.Erase(false);
    EXPECT_EQ(raised, 0);
}

TEST_F(ControlsTest, CheckBoxRaisesClickOnlyForAnotherValue) {
    CheckBox& box = form->check;
    box.onClick = count;
    box.SetValue(0);
    EXPECT_EQ(raised, 0);
    box.SetValue(1);
    box.SetValue(1);
    EXPECT_EQ(raised, 1);
    EXPECT_TRUE(box.IsChecked());
    box.SetValue(2);
    EXPECT_FALSE(box.IsChecked());
    for (const std::int32_t value : {-1, 3, 65536}) {
        EXPECT_EQ(RaisedBy([&] { box.SetValue(value); }), Automation::InvalidPropertyValue) << value;
    }
    EXPECT_EQ(box.value(), 2);
}

TEST_F(ControlsTest, OptionButtonClearsTheOthersOfItsContainer) {
    int cleared = 0;
    form->no.onClick = count;
    form->yes.onClick = [&] { ++cleared; };
    form->no.SetValue(true);
    EXPECT_FALSE(form->yes.value());
    EXPECT_TRUE(form->outside.value());
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(cleared, 0);
    form->no.SetValue(true);
    EXPECT_EQ(raised, 1);
    form->no.SetValue(false);
    EXPECT_EQ(raised, 1);
}

TEST_F(ControlsTest, DropDownRaisesClickForEverySelectionByCode) {
    DropDown& list = form->list;
    list.AddItem("已审核");
    list.AddItem("未审核");
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.text(), "");
    list.onClick = count;
    list.SetListIndex(1);
    list.SetListIndex(1);
    EXPECT_EQ(raised, 2);
    EXPECT_EQ(list.text(), "未审核");
    for (const std::int32_t index : {-2, 2, 70000}) {
        EXPECT_EQ(RaisedBy([&] { list.SetListIndex(index); }), Automation::InvalidPropertyValue) << index;
    }
    EXPECT_EQ(list.listIndex(), 1);
    list.Clear();
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_TRUE(list.items().empty());
}

TEST_F(ControlsTest, DatePickerTakesOnlyDatesOfItsRange) {
    DatePicker& picker = form->date;
    picker.SetRange(Date{100}, Date{200});
    picker.onChange = count;
    picker.SetValue(Date{100});
    picker.SetValue(Date{100});
    picker.SetValue(Date{200.99});
    EXPECT_EQ(raised, 2);
    EXPECT_EQ(RaisedBy([&] { picker.SetValue(Date{99.9}); }), Automation::InvalidPropertyValue);
    EXPECT_EQ(RaisedBy([&] { picker.SetValue(Date{201}); }), Automation::InvalidPropertyValue);
    EXPECT_EQ(picker.value(), Date{200.99});
    EXPECT_EQ(picker.minDate(), Date{100});
    EXPECT_EQ(picker.maxDate(), Date{200});
}

TEST_F(ControlsTest, DatePickerReachesFrom1601To9999) {
    DatePicker& picker = form->date;
    picker.SetValue(*DateFromCalendar(1601, 1, 1));
    picker.SetValue(*DateFromCalendar(9999, 12, 31));
    EXPECT_EQ(RaisedBy([&] { picker.SetValue(*DateFromCalendar(1600, 12, 31)); }),
              Automation::InvalidPropertyValue);
}

TEST_F(ControlsTest, SpinCutsItsValueToItsRange) {
    Spin& spin = form->spin;
    spin.onChange = count;
    spin.SetRange(1, 5);
    spin.SetValue(9);
    EXPECT_EQ(spin.value(), 5);
    spin.SetValue(5);
    EXPECT_EQ(raised, 2);
    spin.Follow(-1);
    EXPECT_EQ(spin.value(), 1);
    EXPECT_EQ(raised, 2);
    spin.SetValue(4);
    spin.SetRange(1, 3);
    EXPECT_EQ(spin.value(), 3);
    spin.SetRange(2, 1);
    EXPECT_EQ(spin.max(), 2);
    EXPECT_EQ(spin.value(), 2);
}

TEST_F(ControlsTest, ProgressBarTakesOnlyValuesOfItsRange) {
    ProgressBar& bar = form->progress;
    bar.SetMin(10);
    bar.SetMax(20);
    bar.SetValue(15);
    EXPECT_EQ(RaisedBy([&] { bar.SetValue(9); }), Automation::InvalidPropertyValue);
    EXPECT_EQ(RaisedBy([&] { bar.SetValue(21); }), Automation::InvalidPropertyValue);
    EXPECT_EQ(bar.value(), 15);
}

TEST_F(ControlsTest, ButtonRaisesClick) {
    form->button.Click();
    form->button.onClick = count;
    form->button.Click();
    EXPECT_EQ(raised, 1);
}

TEST_F(ControlsTest, HiddenOrDisabledContainersTakeTheirControlsWithThem) {
    EXPECT_TRUE(form->check.CanHaveFocus());
    form->frame.SetVisible(false);
    EXPECT_TRUE(form->check.visible());
    EXPECT_FALSE(form->check.IsShown());
    EXPECT_FALSE(form->check.CanHaveFocus());
    form->frame.SetVisible(true);
    form->frame.SetEnabled(false);
    EXPECT_TRUE(form->check.enabled());
    EXPECT_FALSE(form->check.IsUsable());
    EXPECT_FALSE(form->check.CanHaveFocus());
}

TEST_F(ControlsTest, OnlySomeKindsTakeTheFocus) {
    for (const Control* control : form->controls()) {
        switch (control->kind()) {
            case Control::Kind::Label:
            case Control::Kind::Frame:
            case Control::Kind::Progress:
            case Control::Kind::Animation:
            case Control::Kind::Inert:
                EXPECT_FALSE(control->TakesFocus()) << control->name();
                break;
            default:
                EXPECT_TRUE(control->TakesFocus()) << control->name();
        }
    }
}

TEST_F(ControlsTest, SetFocusRaisesWhereTheFocusCannotGo) {
    form->Load();
    form->second.SetFocus();
    EXPECT_EQ(form->focus(), &form->second);
    form->first.SetEnabled(false);
    EXPECT_EQ(RaisedBy([&] { form->first.SetFocus(); }), Automation::InvalidCall);
    EXPECT_EQ(RaisedBy([&] { form->label.SetFocus(); }), Automation::InvalidCall);
    EXPECT_EQ(form->focus(), &form->second);
}

TEST_F(ControlsTest, MoveWithoutChangingTheirSize) {
    form->button.SetBounds({10, 20, 30, 40});
    form->button.SetLeft(1);
    form->button.SetTop(2);
    const Bounds& bounds = form->button.bounds();
    EXPECT_EQ(bounds.left, 1);
    EXPECT_EQ(bounds.top, 2);
    EXPECT_EQ(bounds.width, 30);
    EXPECT_EQ(bounds.height, 40);
}

/// Writes down what a view has to draw again.
struct View final : FormView {
    void ControlChanged(Control& control, Change what) override {
        changes.push_back(control.name() + " " + std::to_string(static_cast<int>(what)));
    }
    void CaptionChanged() override { changes.emplace_back("caption"); }
    void FocusMoved() override { changes.emplace_back("focus"); }
    void Closed() override { changes.emplace_back("closed"); }
    Log changes;
};

TEST_F(ControlsTest, TellTheViewOfEveryChange) {
    const auto changed = [](const char* name, Change what) {
        return name + (" " + std::to_string(static_cast<int>(what)));
    };
    View view;
    form->SetView(&view);
    form->label.SetCaption("x");
    form->first.SetText("x");
    form->check.SetValue(1);
    form->list.AddItem("x");
    form->list.SetListIndex(0);
    form->list.Clear();
    form->date.SetValue(Date{1000});
    form->date.SetRange(Date{1}, Date{2000});
    form->spin.SetRange(1, 2);
    form->spin.SetValue(2);
    form->progress.SetValue(1);
    form->button.SetVisible(false);
    form->button.SetEnabled(false);
    form->button.SetLeft(1);
    form->SetCaption("x");
    EXPECT_EQ(
        view.changes,
        (Log{changed("label", Change::Caption), changed("first", Change::Text),
             changed("check", Change::Value), changed("list", Change::Items), changed("list", Change::Value),
             changed("list", Change::Items), changed("date", Change::Value), changed("date", Change::Range),
             changed("spin", Change::Range), changed("spin", Change::Value),
             changed("progress", Change::Value), changed("button", Change::Visible),
             changed("button", Change::Enabled), changed("button", Change::Place), "caption"}));
    form->SetView(nullptr);
}

}  // namespace
}  // namespace qor
