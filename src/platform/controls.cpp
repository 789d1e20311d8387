#include "platform/controls.h"

#include <algorithm>

#include "platform/form.h"

namespace qor {

namespace {

bool IsContinuationByte(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::int32_t CountCharacters(std::string_view text) {
    return static_cast<std::int32_t>(
        std::ranges::count_if(text, [](char c) { return !IsContinuationByte(c); }));
}

/// The byte at which the character of that number begins, or the text's end.
std::size_t ByteOfCharacter(std::string_view text, std::int32_t character) {
    std::size_t byte = 0;
    while (byte < text.size() && character > 0) {
        ++byte;
        while (byte < text.size() && IsContinuationByte(text[byte]))
            ++byte;
        --character;
    }
    return byte;
}

}  // namespace

Control::Control(Form& form, Kind kind, std::string name, Bounds bounds, Control* container)
    : form_(form), kind_(kind), name_(std::move(name)), bounds_(bounds), container_(container) {
    form_.Add(*this);
}

Control::~Control() {
    for (FocusListener* listener : std::vector(focusListeners_)) {
        listener->ControlGone(*this);
    }
    form_.Remove(*this);
}

void Control::Changed(Change what) { form_.ControlChanged(*this, what); }

void Control::SetBounds(const Bounds& bounds) {
    bounds_ = bounds;
    Changed(Change::Place);
}

void Control::SetVisible(bool visible) {
    visible_ = visible;
    Changed(Change::Visible);
}

void Control::SetEnabled(bool enabled) {
    enabled_ = enabled;
    Changed(Change::Enabled);
}

bool Control::IsShown() const { return visible_ && (!container_ || container_->IsShown()); }

bool Control::IsUsable() const { return enabled_ && (!container_ || container_->IsUsable()); }

void Control::SetFocus() {
    if (!CanHaveFocus()) Raise(Automation::InvalidCall);
    form_.MoveFocus(*this);
}

void Control::AddFocusListener(FocusListener& listener) { focusListeners_.push_back(&listener); }

void Control::RemoveFocusListener(FocusListener& listener) { std::erase(focusListeners_, &listener); }

void CaptionedControl::SetCaption(std::string_view caption) {
    caption_ = caption;
    Changed(Change::Caption);
}

std::int32_t TextBox::length() const { return CountCharacters(text_); }

void TextBox::SetText(std::string_view text) {
    if (text == text_) return;
    text_ = text;
    Select(length(), 0);
    Changed(Change::Text);
    if (onChange) onChange();
}

void TextBox::Select(std::int32_t start, std::int32_t length) {
    const std::int32_t end = CountCharacters(text_);
    selStart_ = std::clamp(start, 0, end);
    selLength_ = std::clamp(length, 0, end - selStart_);
}

void TextBox::ReplaceSelection(std::string_view text) {
    const std::size_t from = ByteOfCharacter(text_, selStart_);
    const std::size_t to = ByteOfCharacter(text_, selStart_ + selLength_);
    std::string changed = text_;
    changed.replace(from, to - from, text);
    if (changed == text_) return Select(selStart_ + CountCharacters(text), 0);
    const std::int32_t caret = selStart_ + CountCharacters(text);
    text_ = std::move(changed);
    Select(caret, 0);
    Changed(Change::Text);
    if (onChange) onChange();
}

void TextBox::Erase(bool backwards) {
    if (selLength_ == 0) {
        if (backwards && selStart_ == 0) return;
        Select(backwards ? selStart_ - 1 : selStart_, 1);
    }
    ReplaceSelection("");
}

void CheckBox::SetValue(std::int32_t value) {
    if (value < 0 || value > 2) Raise(Automation::InvalidPropertyValue);
    if (value == value_) return;
    value_ = static_cast<std::int16_t>(value);
    Changed(Change::Value);
    if (onClick) onClick();
}

void OptionButton::SetValue(bool value) {
    if (value == value_) return;
    value_ = value;
    Changed(Change::Value);
    if (!value) return;
    for (Control* other : form().controls()) {
        if (other != this && other->kind() == Kind::Option && other->container() == container()) {
            static_cast<OptionButton*>(other)->SetValue(false);
        }
    }
    if (onClick) onClick();
}

void DropDown::AddItem(std::string_view item) {
    items_.emplace_back(item);
    Changed(Change::Items);
}

void DropDown::Clear() {
    items_.clear();
    listIndex_ = -1;
    Changed(Change::Items);
}

void DropDown::SetListIndex(std::int32_t index) {
    if (index < -1 || index >= static_cast<std::int32_t>(items_.size()))
        Raise(Automation::InvalidPropertyValue);
    listIndex_ = static_cast<std::int16_t>(index);
    Changed(Change::Value);
    if (onClick) onClick();
}

std::string DropDown::text() const {
    return listIndex_ < 0 ? "" : items_[static_cast<std::size_t>(listIndex_)];
}

void DatePicker::SetValue(Date value) {
    if (value.serial < minDate_.serial || value.serial >= maxDate_.serial + 1)
        Raise(Automation::InvalidPropertyValue);
    if (value == value_) return;
    value_ = value;
    Changed(Change::Value);
    if (onChange) onChange();
}

void DatePicker::SetRange(Date minDate, Date maxDate) {
    minDate_ = minDate;
    maxDate_ = maxDate;
    Changed(Change::Range);
}

void Spin::SetRange(std::int32_t min, std::int32_t max) {
    min_ = min;
    max_ = std::max(min, max);
    value_ = std::clamp(value_, min_, max_);
    Changed(Change::Range);
}

void Spin::Follow(std::int32_t value) {
    value_ = std::clamp(value, min_, max_);
    Changed(Change::Value);
}

void Spin::SetValue(std::int32_t value) {
    Follow(value);
    if (onChange) onChange();
}

void ProgressBar::SetMin(float min) {
    min_ = min;
    Changed(Change::Range);
}

void ProgressBar::SetMax(float max) {
    max_ = max;
    Changed(Change::Range);
}

void ProgressBar::SetValue(float value) {
    if (value < min_ || value > max_) Raise(Automation::InvalidPropertyValue);
    value_ = value;
    Changed(Change::Value);
}

}  // namespace qor
