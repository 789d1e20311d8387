// WorkingWindow: what a person sees of a form that does its work while it is activated, as the progress
// window does. The work keeps the form's own thread busy, so the window lives on a thread of the system's
// pool; and it comes up only where the work lasts, for most runs are over before an eye could read a message,
// and making a window takes many times as long.
#pragma once

#include <threadpoolapiset.h>

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/form.h"
#include "windows/dialog_metrics.h"

namespace qor::windows {

class WorkingWindow final : private FormView {
 public:
    /// Milliseconds that the work may last unseen.
    static constexpr int kUnseen = 50;

    /// Borrows the form, whose work begins now on this thread. Once it is seen, what a person does to
    /// `host`'s windows comes to nothing. To stand on the heap: a thread that is ended takes its stack along,
    /// while the window's own thread lives on.
    WorkingWindow(Form& form, std::vector<HWND> host);
    /// Takes the window away; nothing of it is left on return.
    ~WorkingWindow();
    WorkingWindow(const WorkingWindow&) = delete;
    WorkingWindow& operator=(const WorkingWindow&) = delete;

 private:
    /// What is drawn of a control.
    struct Part {
        Control::Kind kind;
        std::string name, caption;
        Bounds place;  // in the form
        bool shown;
        float min, max, value;
    };
    struct Picture {
        std::string name, caption;
        Form::Size size;
        std::vector<Part> parts;
    };
    class Copy;
    class Published;

    void ControlChanged(Control&, Change) override { Redraw(); }
    void CaptionChanged() override { Redraw(); }
    void FocusMoved() override {}
    void Closed() override {}

    static Picture Of(const Form& form);
    void Redraw();
    /// With the lock taken.
    void Tell();
    void WaitUntilGone();

    // On the pool's thread.
    static void CALLBACK ComeUp(PTP_CALLBACK_INSTANCE instance, void* self, PTP_TIMER timer);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);
    bool Begin();
    void Live();
    HWND Owner() const;
    void TakeOver();
    void Redrawn();
    /// What is to be seen from now on; nothing where the work has ended.
    std::optional<Picture> Current();

    Form& form_;
    const std::vector<HWND> host_;
    const DWORD thread_ = GetCurrentThreadId();
    const ThreadScale scale_ = ThreadScale::Current();
    const PTP_TIMER timer_;
    Copy* copy_ = nullptr;  // the pool thread's own, while its window is to stand

    std::mutex mutex_;  // guards what follows
    Picture picture_;
    HWND window_ = nullptr;
    bool told_ = false;      // of a change that it has not taken over yet
    HANDLE gone_ = nullptr;  // an event; there from the moment on at which the window begins to come up
    bool ended_ = false;
};

}  // namespace qor::windows
