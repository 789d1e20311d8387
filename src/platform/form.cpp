#include "platform/form.h"

#include <algorithm>

#include "platform/window_system.h"

namespace qor {

namespace {

constexpr std::int32_t kBackspace = 8, kTab = 9, kEnter = 13, kEscape = 27, kDelete = 46;

std::int32_t CodePoint(std::string_view character) {
    if (character.empty()) return 0;
    const auto first = static_cast<unsigned char>(character[0]);
    if (first < 0x80) return first;
    std::int32_t code = first & (first >= 0xF0 ? 0x07 : first >= 0xE0 ? 0x0F : 0x1F);
    for (const char c : character.substr(1)) {
        code = (code << 6) | (static_cast<unsigned char>(c) & 0x3F);
    }
    return code;
}

}  // namespace

Form::Form(WindowSystem& windows, std::string name, Size size)
    : windows_(windows), name_(std::move(name)), size_(size) {}

Form::~Form() = default;

void Form::SetCaption(std::string_view caption) {
    caption_ = caption;
    if (view_) view_->CaptionChanged();
}

void Form::SetSize(Size size) {
    size_ = size;
    if (view_) view_->SizeChanged();
}

Control* Form::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(controls_, [name](Control* c) { return c->name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

void Form::Add(Control& control) {
    controls_.push_back(&control);
    tabOrder_.push_back(&control);
}

void Form::Remove(Control& control) {
    std::erase(controls_, &control);
    std::erase(tabOrder_, &control);
    if (focus_ == &control) focus_ = nullptr;
    if (redirected_ == &control) redirected_ = nullptr;
}

void Form::MoveToEndOfTabOrder(Control& control) {
    for (auto* order : {&controls_, &tabOrder_}) {
        std::erase(*order, &control);
        order->push_back(&control);
    }
}

void Form::TabBehind(Control& control, const Control& ahead) {
    std::erase(tabOrder_, &control);
    tabOrder_.insert(std::ranges::find(tabOrder_, &ahead) + 1, &control);
}

void Form::Load() {
    if (loaded_) return;
    loaded_ = true;
    windows_.FormLoading(*this);
    OnLoad();
}

void Form::ShowModal() {
    if (visible_) Raise(Automation::AlreadyShown);
    Load();
    if (!BeforeShow()) return;
    // Also where it could not be shown, it can be shown another time; and its last owner may let it go
    // meanwhile.
    struct Showing {
        explicit Showing(Form& shown) : form(&shown) { form->visible_ = true; }
        ~Showing() { form->visible_ = false; }
        Ref<Form> form;
    } const showing(*this);
    windows_.RunModal(*this);
}

void Form::Activate() {
    windows_.FormActivating(*this);
    OnActivate();
}

void Form::Hide() {
    if (!visible_) return;
    visible_ = false;
    windows_.FormHidden(*this);
    if (view_) view_->Closed();
}

void Form::Unload() {
    if (!loaded_) return;
    OnUnload();
    loaded_ = false;
    visible_ = false;
    focus_ = nullptr;
    windows_.FormUnloaded(*this);
    if (view_) view_->Closed();
}

void Form::LeaveFocus(Control& left) {
    // Also where a handler fails, the next move has to be a move again.
    struct Moving {
        explicit Moving(bool& flag) : moving(flag) { moving = true; }
        ~Moving() { moving = false; }
        bool& moving;
    } const moving(movingFocus_);

    const std::vector<FocusListener*> listeners = left.focusListeners();
    if (left.onValidate) left.onValidate();
    for (FocusListener* listener : listeners) {
        listener->Validating(left);
    }
    if (left.onLostFocus) left.onLostFocus();
    for (FocusListener* listener : listeners) {
        listener->FocusLost(left);
    }
}

bool Form::MoveFocus(Control& target) {
    if (movingFocus_) {
        redirected_ = &target;
        return false;
    }
    if (focus_ == &target) return true;

    redirected_ = nullptr;
    if (focus_) LeaveFocus(*focus_);

    Control* arrived = redirected_ ? redirected_ : &target;
    redirected_ = nullptr;
    focus_ = arrived->CanHaveFocus() ? arrived : nullptr;
    if (view_) view_->FocusMoved();
    if (focus_ && focus_->onGotFocus) focus_->onGotFocus();
    return focus_ == &target;
}

void Form::MoveFocusByTab(bool backwards) {
    const auto count = static_cast<std::ptrdiff_t>(tabOrder_.size());
    auto position = std::ranges::find(tabOrder_, focus_) - tabOrder_.begin();
    if (position == count) position = backwards ? count : -1;
    for (std::ptrdiff_t step = 1; step <= count; ++step) {
        const auto next = ((backwards ? position - step : position + step) % count + count) % count;
        Control& control = *tabOrder_[static_cast<std::size_t>(next)];
        if (control.IsTabStop() && control.CanHaveFocus()) {
            MoveFocus(control);
            return;
        }
    }
}

void Form::TakeFirstFocus() {
    if (!focus_ && visible_) MoveFocusByTab();
}

void Form::KeyDown(std::int32_t& keyCode) {
    OnKeyDown(keyCode);
    if (keyCode != 0 && focus_ && focus_->onKeyDown) focus_->onKeyDown(keyCode);
}

void Form::KeyPress(std::int32_t& character) {
    OnKeyPress(character);
    if (character != 0 && focus_ && focus_->onKeyPress) focus_->onKeyPress(character);
}

void Form::Key(std::int32_t keyCode, std::string_view character) {
    tabPending_ = false;
    KeyDown(keyCode);
    const bool tab = TabWasSent();
    auto* box = focus_ && focus_->kind() == Control::Kind::Text ? static_cast<TextBox*>(focus_) : nullptr;
    if (keyCode == kTab) {
        MoveFocusByTab();
    } else if (keyCode == kEscape) {
        CancelByUser();
    } else if (keyCode == kDelete && character.empty()) {
        if (box) box->Erase(false);
    } else if (std::int32_t code = CodePoint(character); code != 0) {
        KeyPress(code);
        if (box && code == kBackspace) box->Erase(true);
        if (box && code >= 32) box->ReplaceSelection(character);
    }
    if (tab) Key(kTab, "");
}

}  // namespace qor
