// FormWindow: one form on the screen for the time of its modal show.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/form.h"
#include "windows/control_window.h"
#include "windows/dialog_metrics.h"

namespace qor::windows {

class FormWindow final : private FormView {
 public:
    /// A window over `owner`, not yet visible. Borrows the form, which must outlive it.
    FormWindow(Form& form, HWND owner);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    /// Shows the window, activates the form, and returns when the form was hidden or unloaded.
    void Run();
    void Close();
    /// Raises what a handler of the form raised during the run; it ended the run.
    void RethrowFailure();

    HWND handle() const { return window_; }
    /// The window of one of the form's controls; null for any other control.
    HWND HandleOf(const Control& control) const;

 private:
    void ControlChanged(Control& control, Change what) override;
    void CaptionChanged() override;
    void FocusMoved() override;
    void Closed() override;

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                             UINT_PTR id, DWORD_PTR self);
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    ControlWindow* Find(HWND window) const;
    /// What a key does to the form before its control sees it; true where that was all.
    bool TranslateKey(const MSG& message);
    bool KeyDown(WPARAM keyCode);
    bool Mnemonic(wchar_t character);
    void TakeNativeFocus(HWND window);
    void ShowFocus();

    /// Runs what the user set off; an error ends the modal run and is raised from there.
    void Guarded(const std::function<void()>& step);

    Form& form_;
    DialogMetrics metrics_;
    HWND window_ = nullptr;
    std::vector<std::unique_ptr<ControlWindow>> controls_;
    std::exception_ptr failure_;
    bool done_ = false;
};

}  // namespace qor::windows
