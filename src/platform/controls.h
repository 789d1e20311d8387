// Control models: what a dialog's controls hold and what they tell. A model is the truth; a window system
// only draws it and forwards the user (see user.h). Setting a value from code raises the same events as
// the user does. Places and sizes are in twips (1440 an inch), relative to the container.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/conversions.h"
#include "platform/error.h"

namespace qor {

class Form;

struct Bounds {
    std::int32_t left = 0, top = 0, width = 0, height = 0;
};

/// What of a control a view has to draw again.
enum class Change : std::uint8_t { Caption, Text, Value, Items, Range, Visible, Enabled, Place, Cells };

/// Hears of a control's focus from outside its form, as the date-range guard does.
class FocusListener {
 public:
    virtual void Validating(class Control& control) = 0;
    virtual void FocusLost(class Control& control) = 0;
    virtual void ControlGone(class Control& control) = 0;

 protected:
    ~FocusListener() = default;
};

class Control {
 public:
    enum class Kind : std::uint8_t {
        Label,
        Text,
        Check,
        Option,
        List,
        Date,
        Button,
        Spin,
        Frame,
        Grid,
        Progress,
        Animation,
        Inert,
    };

    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    Form& form() const { return form_; }
    Kind kind() const { return kind_; }
    const std::string& name() const { return name_; }  // as in the code, an array's element as "txtItem(0)"
    Control* container() const {
        return container_;
    }  // the frame that it stands in; null for the form itself

    const Bounds& bounds() const { return bounds_; }
    void SetBounds(const Bounds& bounds);
    void SetLeft(std::int32_t left) { SetBounds({left, bounds_.top, bounds_.width, bounds_.height}); }
    void SetTop(std::int32_t top) { SetBounds({bounds_.left, top, bounds_.width, bounds_.height}); }

    bool visible() const { return visible_; }
    bool enabled() const { return enabled_; }
    void SetVisible(bool visible);
    void SetEnabled(bool enabled);
    /// Visible, and standing in no hidden container.
    bool IsShown() const;
    /// Enabled, and standing in no disabled container.
    bool IsUsable() const;
    virtual bool TakesFocus() const { return false; }        // whether its kind does at all
    virtual bool IsTabStop() const { return TakesFocus(); }  // whether Tab halts there
    bool CanHaveFocus() const { return TakesFocus() && IsShown() && IsUsable(); }
    /// Moves the focus here. Raises 5 where the control cannot have it.
    void SetFocus();

    // Events. The key handlers may change the code; 0 swallows the key.
    std::function<void()> onGotFocus, onLostFocus, onValidate;
    std::function<void(std::int32_t&)> onKeyDown, onKeyPress;

    void AddFocusListener(FocusListener& listener);
    void RemoveFocusListener(FocusListener& listener);
    const std::vector<FocusListener*>& focusListeners() const { return focusListeners_; }

 protected:
    Control(Form& form, Kind kind, std::string name, Bounds bounds, Control* container);
    void Changed(Change what);

 private:
    Form& form_;
    Kind kind_;
    bool visible_ = true;
    bool enabled_ = true;
    std::string name_;
    Bounds bounds_;
    Control* container_;
    std::vector<FocusListener*> focusListeners_;
};

/// A control with a caption; an ampersand in it marks the mnemonic of a button.
class CaptionedControl : public Control {
 public:
    const std::string& caption() const { return caption_; }
    void SetCaption(std::string_view caption);

 protected:
    CaptionedControl(Form& form, Kind kind, std::string name, std::string_view caption, Bounds bounds,
                     Control* container)
        : Control(form, kind, std::move(name), bounds, container), caption_(caption) {}

 private:
    std::string caption_;
};

class Label final : public CaptionedControl {
 public:
    Label(Form& form, std::string name, std::string_view caption, Bounds bounds, Control* container = nullptr)
        : CaptionedControl(form, Kind::Label, std::move(name), caption, bounds, container) {}
};

/// A box around other controls. Hiding or disabling it hides or disables them.
class Frame final : public CaptionedControl {
 public:
    Frame(Form& form, std::string name, std::string_view caption, Bounds bounds, Control* container = nullptr)
        : CaptionedControl(form, Kind::Frame, std::move(name), caption, bounds, container) {}

    bool hasBorder() const { return hasBorder_; }  // a panel without one only holds what stands in it
    void SetBorder(bool hasBorder) { hasBorder_ = hasBorder; }

 private:
    bool hasBorder_ = true;
};

class Button final : public CaptionedControl {
 public:
    Button(Form& form, std::string name, std::string_view caption, Bounds bounds,
           Control* container = nullptr)
        : CaptionedControl(form, Kind::Button, std::move(name), caption, bounds, container) {}
    bool TakesFocus() const override { return true; }

    /// Drawn as the one that Enter presses wherever the focus is but on another button; the form's own key
    /// handler has to see to that.
    bool isDefault() const { return isDefault_; }
    void SetDefault(bool isDefault) { isDefault_ = isDefault; }

    std::function<void()> onClick;
    void Click() {
        if (onClick) onClick();
    }

 private:
    bool isDefault_ = false;
};

/// A single-line text box. Positions and lengths of the selection count characters, not bytes.
class TextBox final : public Control {
 public:
    TextBox(Form& form, std::string name, std::string_view text, Bounds bounds, Control* container = nullptr)
        : Control(form, Kind::Text, std::move(name), bounds, container), text_(text) {}
    bool TakesFocus() const override { return true; }

    const std::string& text() const { return text_; }
    /// Raises onChange where the text is another one; the caret goes behind it.
    void SetText(std::string_view text);

    std::int32_t length() const;
    std::int32_t selStart() const { return selStart_; }
    std::int32_t selLength() const { return selLength_; }
    /// Both are cut to the text.
    void Select(std::int32_t start, std::int32_t length);
    /// Puts `text` in place of the selection, the caret behind it.
    void ReplaceSelection(std::string_view text);
    /// Removes the selection, or the character before (backwards) or behind the caret.
    void Erase(bool backwards);

    bool grayed() const { return grayed_; }  // drawn with the grey of a box that is not for typing
    void SetGrayed(bool grayed) { grayed_ = grayed; }

    std::function<void()> onChange;

 private:
    std::string text_;
    std::int32_t selStart_ = 0;
    std::int32_t selLength_ = 0;
    bool grayed_ = false;
};

/// 0 clear, 1 checked, 2 grey; any other value raises 380.
class CheckBox final : public CaptionedControl {
 public:
    CheckBox(Form& form, std::string name, std::string_view caption, std::int16_t value, Bounds bounds,
             Control* container = nullptr)
        : CaptionedControl(form, Kind::Check, std::move(name), caption, bounds, container), value_(value) {}
    bool TakesFocus() const override { return true; }

    std::int16_t value() const { return value_; }
    bool IsChecked() const { return value_ == 1; }
    /// Raises onClick where the value is another one.
    void SetValue(std::int32_t value);

    std::function<void()> onClick;

 private:
    std::int16_t value_;
};

/// One choice of several; picking it clears the other option buttons of the same container.
class OptionButton final : public CaptionedControl {
 public:
    OptionButton(Form& form, std::string name, std::string_view caption, bool value, Bounds bounds,
                 Control* container = nullptr)
        : CaptionedControl(form, Kind::Option, std::move(name), caption, bounds, container), value_(value) {}
    bool TakesFocus() const override { return true; }

    bool value() const { return value_; }
    /// Raises onClick where it becomes picked.
    void SetValue(bool value);

    std::function<void()> onClick;

 private:
    bool value_;
};

/// A drop-down list. Index -1 is no selection; an index outside the list raises 380 and selects nothing.
class DropDown final : public Control {
 public:
    DropDown(Form& form, std::string name, Bounds bounds, Control* container = nullptr)
        : Control(form, Kind::List, std::move(name), bounds, container) {}
    bool TakesFocus() const override { return true; }

    const std::vector<std::string>& items() const { return items_; }
    void AddItem(std::string_view item);
    void Clear();

    std::int16_t listIndex() const { return listIndex_; }
    /// Raises onClick, also where the index stays the same.
    void SetListIndex(std::int32_t index);
    /// The selected entry's text, "" without a selection.
    std::string text() const;

    std::function<void()> onClick;

 private:
    std::vector<std::string> items_;
    std::int16_t listIndex_ = -1;
};

/// A value outside MinDate..MaxDate raises 380.
class DatePicker final : public Control {
 public:
    DatePicker(Form& form, std::string name, Date value, Bounds bounds, Control* container = nullptr)
        : Control(form, Kind::Date, std::move(name), bounds, container), value_(value) {}
    bool TakesFocus() const override { return true; }

    Date value() const { return value_; }
    /// Raises onChange where the value is another one.
    void SetValue(Date value);
    Date minDate() const { return minDate_; }
    Date maxDate() const { return maxDate_; }
    void SetRange(Date minDate, Date maxDate);

    std::function<void()> onChange;

 private:
    Date value_;
    Date minDate_{-109205};  // 1601-01-01
    Date maxDate_{2958465};  // 9999-12-31
};

/// An up-down control; the dialog decides what it moves.
class Spin final : public Control {
 public:
    Spin(Form& form, std::string name, Bounds bounds, Control* container = nullptr)
        : Control(form, Kind::Spin, std::move(name), bounds, container) {}

    bool TakesFocus() const override { return true; }
    bool IsTabStop() const override { return false; }  // Tab goes from box to box
    std::int32_t value() const { return value_; }
    std::int32_t min() const { return min_; }
    std::int32_t max() const { return max_; }
    void SetRange(std::int32_t min, std::int32_t max);
    /// Cuts the value to the range; raises onChange, also where it stays the same.
    void SetValue(std::int32_t value);
    /// Takes over the number that its box shows, cut to the range; raises nothing.
    void Follow(std::int32_t value);

    std::function<void()> onChange;

 private:
    std::int32_t value_ = 1;
    std::int32_t min_ = 1;
    std::int32_t max_ = 1;
};

/// A value outside Min..Max raises 380.
class ProgressBar final : public Control {
 public:
    ProgressBar(Form& form, std::string name, Bounds bounds, Control* container = nullptr)
        : Control(form, Kind::Progress, std::move(name), bounds, container) {}

    float min() const { return min_; }
    float max() const { return max_; }
    float value() const { return value_; }
    void SetMin(float min);
    void SetMax(float max);
    void SetValue(float value);

 private:
    float min_ = 0, max_ = 100, value_ = 0;
};

class Animation final : public Control {
 public:
    Animation(Form& form, std::string name, Bounds bounds, Control* container = nullptr)
        : Control(form, Kind::Animation, std::move(name), bounds, container) {}
};

/// A control that the library only carries: the host's look, or the place of a frame control.
class InertControl final : public Control {
 public:
    InertControl(Form& form, std::string name, Bounds bounds, bool takesFocus = false,
                 Control* container = nullptr)
        : Control(form, Kind::Inert, std::move(name), bounds, container), takesFocus_(takesFocus) {}
    bool TakesFocus() const override { return takesFocus_; }

 private:
    bool takesFocus_;
};

}  // namespace qor
