// FormWindow: one form on the screen for the time of its modal show.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <vector>

#include "platform/form.h"
#include "windows/control_window.h"
#include "windows/dialog_metrics.h"

namespace qor::windows {

class FormWindow final : private FormView {
 public:
    /// A window over `owner`, not yet visible. Borrows the form and the window system, which must outlive it.
    FormWindow(WindowSystem& windows, Form& form, HWND owner);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    /// Shows the window, activates the form unless it has done its work by then, and returns when the form
    /// was hidden or unloaded.
    void Run();
    /// Shows the window without giving it the keyboard; its form is not told.
    void ShowIdle();
    void Close();
    /// Raises what a handler of the form raised during the run; it ended the run.
    void RethrowFailure();
    /// What a key does to the form before its control sees it; true where that was all.
    bool TranslateKey(const MSG& message);

    /// The form that a top-level window shows; null for a window of another kind.
    static FormWindow* Of(HWND window);

    HWND handle() const { return surface_.window; }
    Form& form() const { return form_; }
    /// The window of one of the form's controls; null for any other control.
    HWND HandleOf(const Control& control) const;
    ControlWindow* WindowOf(const Control* control) const;
    /// The form has come up and has its first focus; told once.
    std::function<void(FormWindow&)> onShown;

 private:
    void ControlChanged(Control& control, Change what) override;
    void CaptionChanged() override;
    void SizeChanged() override;
    void FocusMoved() override;
    void Closed() override;

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                             UINT_PTR id, DWORD_PTR self);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void Make(HWND owner);
    void JoinControls();
    void PlaceOver(HWND owner);
    void MoveToMonitorOf(int dotsPerInch, const RECT& place);
    SIZE OuterSize() const;
    void FitClientArea();
    void ComeUp();

    ControlWindow* Find(HWND window) const;
    /// Whether the user acts where the form's focus is; elsewhere the action is lost and taken back.
    bool MayAct(ControlWindow& drawn) const;
    bool KeyDown(WPARAM keyCode);
    bool Enter(ControlWindow* drawn);
    void Tab(ControlWindow* drawn, bool backwards);
    bool Mnemonic(wchar_t character);
    void TakeNativeFocus(HWND window);
    void ShowFocus();

    /// Runs what the user set off; an error ends the modal run and is raised from there.
    void Guarded(const std::function<void()>& step);

    Form& form_;
    DialogMetrics metrics_;
    FormSurface surface_;
    std::vector<std::unique_ptr<ControlWindow>> controls_;
    std::exception_ptr failure_;
    bool done_ = false;
    bool activating_ = false;  // the form's own start is running; it cannot be cancelled meanwhile
    enum class Arrival : std::uint8_t { Other, Tab, BackTab } arrival_ = Arrival::Other;
};

}  // namespace qor::windows
