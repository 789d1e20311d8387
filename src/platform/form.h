// Form: a dialog as a model. It owns its controls by name, the focus, and the order in which the platform
// tells of loading, activation, keys and unloading. A window system shows it; the user's verbs are in user.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "platform/object.h"

namespace qor {

class WindowSystem;

/// Draws one form while it is shown: hears of everything that code changes.
class FormView {
 public:
    virtual void ControlChanged(Control& control, Change what) = 0;
    virtual void CaptionChanged() = 0;
    virtual void SizeChanged() {}
    virtual void FocusMoved() = 0;
    /// The form was hidden or unloaded; its modal run is to end.
    virtual void Closed() = 0;

 protected:
    ~FormView() = default;
};

class Form : public TableObject {
 public:
    struct Size {
        std::int32_t width, height;  // client area, twips
    };

    ~Form() override;

    std::string_view ClassName() const override { return name_; }
    std::span<const Member> Members() const override { return {}; }

    const std::string& caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    Size size() const { return size_; }

    /// All controls in the order of their making, but for those moved to its end.
    const std::vector<Control*>& controls() const { return controls_; }
    Control* Find(std::string_view name) const;  // null if there is none of that name

    bool IsLoaded() const { return loaded_; }
    bool IsVisible() const { return visible_; }
    /// Loads the form, unless it is loaded, and shows it modally; returns when it is hidden or unloaded.
    /// Raises 400 for a form that is on the screen already.
    void ShowModal();
    void Hide();
    /// Ends the form's time on the screen; its members stay readable. Unloading twice is harmless.
    void Unload();

    Control* focus() const { return focus_; }
    /// Moves the focus as the platform does: Validate and LostFocus of the control left, GotFocus of the new
    /// one. A handler may send the focus elsewhere; answers whether it arrived at `target`.
    bool MoveFocus(Control& target);
    /// Moves the focus to the next control in tab order that can have it, or back.
    void MoveFocusByTab(bool backwards = false);
    /// Has a Tab keystroke follow the key that is being handled.
    void SendTab() { tabPending_ = true; }

    // For window systems: what happens to the form from outside.
    /// Whether the form does its whole work while it is activated, with nothing in it for the user to do.
    virtual bool WorksWhenActivated() const { return false; }
    void Load();
    void Activate();
    void TakeFirstFocus();
    void SetView(FormView* view) { view_ = view; }
    /// One key as the platform hands it over: to the form, then to the focused control, then what the key
    /// itself does. `character` 0 is a key without one.
    void Key(std::int32_t keyCode, std::string_view character);
    // The same in steps, for a window system whose own boxes take the characters. The code becomes 0 where
    // the key is swallowed; TabWasSent answers whether a handler had a Tab follow.
    void KeyDown(std::int32_t& keyCode);
    void KeyPress(std::int32_t& character);
    bool TabWasSent() { return std::exchange(tabPending_, false); }
    /// The user closes the form without confirming: close box, Escape, or nobody there to answer.
    virtual void CancelByUser() { Unload(); }

    void ControlChanged(Control& control, Change what) {
        if (view_) view_->ControlChanged(control, what);
    }

 protected:
    Form(WindowSystem& windows, std::string name, Size size);

    void SetSize(Size size);
    // The tab order is that of the making where these say nothing else.
    void MoveToEndOfTabOrder(Control& control);
    void TabBehind(Control& control, const Control& ahead);

    WindowSystem& windows() const { return windows_; }

    virtual void OnLoad() {}
    /// Runs between loading and showing, at every show; false ends the show before anything is seen.
    virtual bool BeforeShow() { return true; }
    virtual void OnActivate() {}
    virtual void OnUnload() {}
    virtual void OnKeyDown(std::int32_t& keyCode) { (void)keyCode; }
    virtual void OnKeyPress(std::int32_t& character) { (void)character; }

 private:
    friend class Control;
    void Add(Control& control);
    void Remove(Control& control);
    void LeaveFocus(Control& left);

    WindowSystem& windows_;
    std::string name_;
    std::string caption_;
    Size size_;
    std::vector<Control*> controls_;
    std::vector<Control*> tabOrder_;
    FormView* view_ = nullptr;
    Control* focus_ = nullptr;
    Control* redirected_ = nullptr;  // where a LostFocus handler sent the focus
    bool movingFocus_ = false;
    bool tabPending_ = false;
    bool loaded_ = false;
    bool visible_ = false;
};

}  // namespace qor
