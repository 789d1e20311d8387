#include "windows/working_window.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "windows/form_window.h"
#include "windows/host_windows.h"
#include "windows/native_windows.h"

namespace qor::windows {

namespace {

constexpr UINT kRedraw = WM_APP + 3;  // the picture has changed, or the work has ended

/// The end of a thread of this process.
class ThreadEnd {
 public:
    explicit ThreadEnd(DWORD thread) : thread_(OpenThread(SYNCHRONIZE, FALSE, thread)) {}
    ThreadEnd(const ThreadEnd&) = delete;
    ThreadEnd& operator=(const ThreadEnd&) = delete;
    ~ThreadEnd() { CloseHandle(thread_); }

    /// Waits for a message to the thread that asks, or for a while; false where the end comes first.
    bool ComesAfterMessage() const {
        constexpr DWORD kAnyway = 500;  // milliseconds: a finger's messages need not count among the input
        const DWORD woken = MsgWaitForMultipleObjects(1, &thread_, FALSE, kAnyway, QS_ALLINPUT);
        return woken == WAIT_OBJECT_0 + 1 || woken == WAIT_TIMEOUT;
    }

 private:
    HANDLE thread_;
};

bool IsDrawn(const Control& control) {
    return control.kind() == Control::Kind::Label || control.kind() == Control::Kind::Progress;
}

}  // namespace

/// The form once more, for the thread that draws it: models know one thread alone.
class WorkingWindow::Copy final : public Form {
 public:
    Copy(WindowSystem& windows, const Picture& picture) : Form(windows, picture.name, picture.size) {
        for (const Part& part : picture.parts) {
            if (part.kind == Control::Kind::Label) {
                labels_.push_back(std::make_unique<Label>(*this, part.name, part.caption, part.place));
            } else {
                bars_.push_back(std::make_unique<ProgressBar>(*this, part.name, part.place));
            }
        }
        Take(picture);
    }

    void Take(const Picture& picture) {
        if (caption() != picture.caption) SetCaption(picture.caption);
        auto label = labels_.begin();
        auto bar = bars_.begin();
        for (const Part& part : picture.parts) {
            part.kind == Control::Kind::Label ? Take(part, **label++) : Take(part, **bar++);
        }
    }

 private:
    static void Take(const Part& part, Label& label) {
        if (label.caption() != part.caption) label.SetCaption(part.caption);
        if (label.visible() != part.shown) label.SetVisible(part.shown);
    }
    static void Take(const Part& part, ProgressBar& bar) {
        if (bar.min() != part.min) bar.SetMin(part.min);
        if (bar.max() != part.max) bar.SetMax(part.max);
        const bool fits = part.min <= part.value && part.value <= part.max;
        if (fits && bar.value() != part.value) bar.SetValue(part.value);
        if (bar.visible() != part.shown) bar.SetVisible(part.shown);
    }

    std::vector<std::unique_ptr<Label>> labels_;
    std::vector<std::unique_ptr<ProgressBar>> bars_;
};

WorkingWindow::WorkingWindow(Form& form, std::vector<HWND> host)
    : form_(form),
      host_(std::move(host)),
      timer_(CreateThreadpoolTimer(&WorkingWindow::ComeUp, this, nullptr)),
      picture_(Of(form)) {
    form_.SetView(this);
    if (!timer_) return;  // a system that is short of threads shows no window
    LARGE_INTEGER due;
    due.QuadPart = -LONGLONG{kUnseen} * 10'000;  // from now, in units of 100 nanoseconds
    FILETIME when{due.LowPart, static_cast<DWORD>(due.HighPart)};
    SetThreadpoolTimer(timer_, &when, 0, 0);
}

WorkingWindow::~WorkingWindow() {
    form_.SetView(nullptr);
    if (!timer_) return;
    SetThreadpoolTimer(timer_, nullptr, 0, 0);
    WaitUntilGone();
    WaitForThreadpoolTimerCallbacks(timer_, TRUE);
    CloseThreadpoolTimer(timer_);
    if (!gone_) return;
    CloseHandle(gone_);
    DiscardInput(host_);
}

WorkingWindow::Picture WorkingWindow::Of(const Form& form) {
    Picture picture{std::string(form.ClassName()), form.caption(), form.size(), {}};
    for (const Control* control : form.controls()) {
        if (!IsDrawn(*control)) continue;
        Part part{control->kind(), control->name(), {}, PlaceInForm(*control), control->IsShown(), 0, 0, 0};
        if (part.kind == Control::Kind::Label) {
            part.caption = static_cast<const Label*>(control)->caption();
        } else {
            const auto& bar = static_cast<const ProgressBar&>(*control);
            part.min = bar.min(), part.max = bar.max(), part.value = bar.value();
        }
        picture.parts.push_back(std::move(part));
    }
    return picture;
}

void WorkingWindow::Redraw() {
    Picture picture = Of(form_);
    const std::lock_guard lock(mutex_);
    picture_ = std::move(picture);
    Tell();
}

/// One message at a time: a window's queue is limited, and who draws may be slower than the work.
void WorkingWindow::Tell() {
    if (window_ && !told_) told_ = PostMessageW(window_, kRedraw, 0, 0);
}

void WorkingWindow::WaitUntilGone() {
    HANDLE gone = nullptr;
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        gone = gone_;
        Tell();
    }
    if (!gone) return;
    // A window that goes may have the system tell its owner, which is a window of this thread.
    do {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    } while (MsgWaitForMultipleObjects(1, &gone, FALSE, INFINITE, QS_SENDMESSAGE) == WAIT_OBJECT_0 + 1);
}

/// The window while it can be told of changes.
class WorkingWindow::Published {
 public:
    Published(WorkingWindow& working, Copy& copy, HWND window) : working_(working), window_(window) {
        working_.copy_ = &copy;
        SetWindowSubclass(window_, &WorkingWindow::Procedure, 1, reinterpret_cast<DWORD_PTR>(&working_));
        Tell(window_);
    }
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;
    ~Published() {
        Tell(nullptr);
        RemoveWindowSubclass(window_, &WorkingWindow::Procedure, 1);
        working_.copy_ = nullptr;
    }

 private:
    void Tell(HWND window) {
        const std::lock_guard lock(working_.mutex_);
        working_.window_ = window;
    }

    WorkingWindow& working_;
    HWND window_;
};

void CALLBACK WorkingWindow::ComeUp(PTP_CALLBACK_INSTANCE instance, void* self, PTP_TIMER) {
    CallbackMayRunLong(instance);
    auto& working = *static_cast<WorkingWindow*>(self);
    if (!working.Begin()) return;
    try {
        working.Live();
    } catch (...) {
        // Where the system has no window left, the work goes on unseen.
    }
    SetEvent(working.gone_);
}

bool WorkingWindow::Begin() {
    const std::lock_guard lock(mutex_);
    if (!ended_) gone_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return gone_;
}

void WorkingWindow::Live() {
    const ThreadEnd end(thread_);  // a host may end the thread in the middle of its work
    const std::optional<Picture> first = Current();
    if (!first) return;
    const ThreadScale::Taken scale(scale_);
    const InputGuard guard(thread_, host_);
    NativeWindows system;
    Copy copy(system, *first);
    FormWindow drawn(system, copy, Owner());
    const Published published(*this, copy, drawn.handle());
    TakeOver();  // what has changed while it was made
    if (copy_) {
        drawn.ShowIdle();
        // A screen reader follows the keyboard, which stays where it is.
        NotifyWinEvent(EVENT_SYSTEM_ALERT, drawn.handle(), OBJID_CLIENT, CHILDID_SELF);
    }
    do {
        MSG message;
        while (copy_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    } while (copy_ && end.ComesAfterMessage());
}

/// The host's active window. A box that has come up over it since the work began is not to be covered.
HWND WorkingWindow::Owner() const {
    HWND owner = HostWindow(thread_);
    if (host_.empty()) return owner;
    while (owner && std::ranges::find(host_, owner) == host_.end()) {
        owner = GetWindow(owner, GW_OWNER);
    }
    if (owner) return owner;
    return IsWindow(host_.front()) ? host_.front() : nullptr;
}

std::optional<WorkingWindow::Picture> WorkingWindow::Current() {
    const std::lock_guard lock(mutex_);
    told_ = false;
    return ended_ ? std::nullopt : std::optional(picture_);
}

void WorkingWindow::TakeOver() {
    const std::optional<Picture> picture = Current();
    if (picture) {
        copy_->Take(*picture);
    } else {
        copy_ = nullptr;
    }
}

void WorkingWindow::Redrawn() {
    try {
        if (copy_) TakeOver();
    } catch (...) {
        copy_ = nullptr;  // no exception may pass a window procedure
    }
}

LRESULT CALLBACK WorkingWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                          DWORD_PTR self) {
    auto& working = *reinterpret_cast<WorkingWindow*>(self);
    switch (message) {
        case kRedraw:
            working.Redrawn();
            return 0;
        // The work cannot be cancelled.
        case WM_NCHITTEST:
            return HTCLIENT;
        case WM_SYSCOMMAND:
        case WM_CLOSE:
            return 0;
        // A click would wait for the host's window to give up the keyboard, and that for the work.
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATEANDEAT;
        // The system may take a window away with its owner.
        case WM_NCDESTROY:
            working.copy_ = nullptr;
            PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);  // nothing else might end the wait
            return DefSubclassProc(window, message, wParam, lParam);
        default:
            return DefSubclassProc(window, message, wParam, lParam);
    }
}

}  // namespace qor::windows
