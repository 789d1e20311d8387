// The progress window: drawn while the work keeps the form's own thread busy, and only where the work lasts.
#include "windows/working_window.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <optional>

#include "progress/bar.h"
#include "support/raises.h"
#include "support/report_host.h"
#include "windows/instance.h"
#include "windows/native/screen.h"
#include "windows/window_names.h"

namespace qor::windows {
namespace {

constexpr const char* kMessage = "正在从服务器读取数据，请稍候...";

HWND Progress() { return FindShownWindow("frmProgBar"); }

HWND Child(std::string_view name) {
    for (HWND child = GetWindow(Progress(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (NameOfWindow(child) == name) return child;
    }
    return nullptr;
}

std::string Message() { return Narrow(TextOf(Child("lblMsg"))); }

/// Works on, without a look at the thread's messages, until it holds; false where it never does.
template <class Condition>
bool WorksUntil(Condition holds) {
    for (const DWORD start = GetTickCount(); GetTickCount() - start < 5000; Sleep(5)) {
        if (holds()) return true;
    }
    return false;
}

bool WorksUntilSeen() {
    return WorksUntil([] { return Progress() != nullptr; });
}

/// A host's window that counts what a person does to it. It has the keyboard.
class ViewerWindow {
 public:
    ViewerWindow()
        : window_(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                  nullptr, nullptr, ThisInstance(), nullptr)) {
        SetWindowSubclass(window_, &ViewerWindow::Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
        SetForegroundWindow(window_);
        SetFocus(window_);
    }
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;
    ~ViewerWindow() {
        RemoveWindowSubclass(window_, &ViewerWindow::Procedure, 1);
        DestroyWindow(window_);
    }

    HWND handle() const { return window_; }
    int keys = 0, clicks = 0, ticks = 0;

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) {
        auto& host = *reinterpret_cast<ViewerWindow*>(self);
        if (message == WM_KEYDOWN) ++host.keys;
        if (message == WM_LBUTTONDOWN || message == WM_NCLBUTTONDOWN) ++host.clicks;
        if (message == WM_TIMER) ++host.ticks;
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND window_;
};

/// A key as the keyboard sends it.
void PressKey() {
    INPUT down{}, up{};
    down.type = up.type = INPUT_KEYBOARD;
    down.ki.wVk = up.ki.wVk = 'A';
    up.ki.dwFlags = KEYEVENTF_KEYUP;
    INPUT both[] = {down, up};
    SendInput(2, both, sizeof(INPUT));
}

class WorkingWindowTest : public testing::Test, protected BarEvents {
 protected:
    WorkingWindowTest() { bar_->Connect(*this); }
    ~WorkingWindowTest() override { bar_->Disconnect(*this); }

    /// Shows the bar for the time of a work.
    void Run(std::function<void(Bar& bar)> work) {
        work_ = std::move(work);
        bar_->Show();
    }
    NativePlay& windows() { return host_.platform.windows(); }

 private:
    void Active() override { work_(*bar_); }

    test::ReportHost host_;
    const Ref<Bar> bar_ = MakeRef<Bar>(host_.process);
    std::function<void(Bar& bar)> work_;
};

TEST_F(WorkingWindowTest, WorkThatIsOverAtOnceIsNotSeen) {
    Run([](Bar& bar) {
        bar.SetMsg(kMessage);
        bar.Unload();
    });
    Sleep(4 * WorkingWindow::kUnseen);
    EXPECT_FALSE(Progress()) << "it comes up when the work is over";
}

TEST_F(WorkingWindowTest, TheMessageIsReadWhileTheThreadIsBusy) {
    Run([](Bar& bar) {
        bar.HideProgBar();
        bar.SetMsg(kMessage);
        EXPECT_TRUE(WorksUntilSeen());
        EXPECT_EQ(Message(), kMessage);
        EXPECT_FALSE(IsWindowVisible(Child("ProgressBar1")));
        bar.Unload();
    });
    EXPECT_FALSE(Progress());
}

TEST_F(WorkingWindowTest, ShowsWhatTheWorkChanges) {
    Run([](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        EXPECT_EQ(Message(), "");
        bar.SetMsg(kMessage);
        EXPECT_TRUE(WorksUntil([] { return Message() == kMessage; }));

        const HWND shown = Child("ProgressBar1");
        bar.SetBarMaxValue(400);
        bar.SetBarMinValue(100);
        bar.SetBarValue(300);
        EXPECT_TRUE(WorksUntil([shown] { return SendMessageW(shown, PBM_GETPOS, 0, 0) == 300; }));
        EXPECT_EQ(SendMessageW(shown, PBM_GETRANGE, TRUE, 0), 100);
        EXPECT_EQ(SendMessageW(shown, PBM_GETRANGE, FALSE, 0), 400);
        bar.SetBarMaxValue(200);  // below the value: the bar is full
        EXPECT_TRUE(WorksUntil([shown] { return SendMessageW(shown, PBM_GETRANGE, FALSE, 0) == 200; }));
        bar.HideProgBar();
        EXPECT_TRUE(WorksUntil([shown] { return !IsWindowVisible(shown); }));
        bar.ShowProgBar();
        EXPECT_TRUE(WorksUntil([shown] { return IsWindowVisible(shown); }));
        bar.Unload();
    });
}

TEST_F(WorkingWindowTest, EachRunBeginsAnew) {
    for (const char* message : {"正在连接服务器", kMessage}) {
        Run([message](Bar& bar) {
            EXPECT_TRUE(WorksUntilSeen());
            EXPECT_EQ(Message(), "");
            EXPECT_EQ(SendMessageW(Child("ProgressBar1"), PBM_GETPOS, 0, 0), 0);
            bar.SetMsg(message);
            bar.SetBarValue(50);
            EXPECT_TRUE(WorksUntil([message] { return Message() == message; }));
            bar.Unload();
        });
        EXPECT_FALSE(Progress());
    }
}

TEST_F(WorkingWindowTest, StandsOverTheHostsWindowAndLeavesItTheKeyboard) {
    ViewerWindow host;
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        EXPECT_EQ(GetWindow(Progress(), GW_OWNER), host.handle());
        EXPECT_EQ(GetActiveWindow(), host.handle());
        EXPECT_EQ(GetFocus(), host.handle());
        bar.Unload();
    });
    EXPECT_EQ(GetFocus(), host.handle());
}

TEST_F(WorkingWindowTest, WhatAPersonDoesBeforeItIsSeenWaits) {
    ViewerWindow host;
    bool unseen = false;
    for (int attempt = 0; attempt < 50 && !unseen; ++attempt) {  // the machine may be busy
        const DWORD start = GetTickCount();
        host.keys = 0;
        Run([&](Bar& bar) {
            PressKey();
            bar.SetMsg(kMessage);
            EXPECT_EQ(host.keys, 0);
            bar.Unload();
        });
        unseen = GetTickCount() - start < DWORD{WorkingWindow::kUnseen} / 2;
        NativePlay::Settle();
    }
    EXPECT_TRUE(unseen);
    EXPECT_EQ(host.keys, 1);
}

TEST_F(WorkingWindowTest, WhatAPersonDoesWhileItIsSeenComesToNothing) {
    ViewerWindow host;
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        PressKey();
        bar.SetMsg(kMessage);
        PostMessageW(host.handle(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
        PostMessageW(host.handle(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
        NativePlay::Settle();  // as a server may that keeps its own windows alive
        PressKey();
        bar.Unload();
    });
    NativePlay::Settle();
    EXPECT_EQ(host.keys, 0);
    EXPECT_EQ(host.clicks, 0);

    PressKey();
    NativePlay::Settle();
    EXPECT_EQ(host.keys, 1) << "the host's window stays deaf";
}

TEST_F(WorkingWindowTest, TheHostsTimersRun) {
    ViewerWindow host;
    SetTimer(host.handle(), 1, 10, nullptr);
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntil([&] {
            bar.SetMsg(kMessage);
            return host.ticks > 1;
        }));
        bar.Unload();
    });
}

TEST_F(WorkingWindowTest, CannotBeClosed) {
    Run([](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        SendMessageW(Progress(), WM_SYSCOMMAND, SC_CLOSE, 0);
        SendMessageW(Progress(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(Progress());
        EXPECT_EQ(SendMessageW(Progress(), WM_NCHITTEST, 0, 0), HTCLIENT);
        bar.Unload();
    });
}

TEST_F(WorkingWindowTest, ABoxOverItIsAnswered) {
    ViewerWindow host;
    int seenWithBox = 0;
    windows().onBox = [&](HWND) { seenWithBox += Progress() != nullptr; };
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        EXPECT_EQ(windows().MessageBox(kMessage, "", kInformationIcon), IDOK);
        bar.Unload();
    });
    EXPECT_EQ(seenWithBox, 1);
}

TEST_F(WorkingWindowTest, TheHostMayCloseItsWindowMeanwhile) {
    std::optional<ViewerWindow> host(std::in_place);
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        host.reset();
        bar.SetMsg(kMessage);
        bar.Unload();
    });
    EXPECT_FALSE(Progress());
}

TEST_F(WorkingWindowTest, GoesWithAFailure) {
    for (const bool seen : {false, true}) {
        const Automation raised = test::RaisedBy([&] {
            Run([seen](Bar&) {
                if (seen) WorksUntilSeen();
                Raise(Automation::ObjectNotSet);
            });
        });
        EXPECT_EQ(raised, Automation::ObjectNotSet);
        EXPECT_FALSE(Progress());
    }
}

TEST_F(WorkingWindowTest, StaysWithItsUserWhereTheWorkLeavesItOpen) {
    for (const bool seen : {false, true}) {
        int shown = 0;
        windows().user = [&](Form& form) {
            ++shown;
            EXPECT_EQ(GetWindowThreadProcessId(Progress(), nullptr), GetCurrentThreadId());
            EXPECT_EQ(Message(), kMessage);
            EXPECT_TRUE(form.IsVisible());
            SendMessageW(Progress(), WM_CLOSE, 0, 0);
            EXPECT_FALSE(form.IsVisible());
        };
        int activations = 0;
        Run([&](Bar& bar) {
            ++activations;
            bar.SetMsg(kMessage);
            if (seen) WorksUntilSeen();
        });
        EXPECT_EQ(activations, 1);
        EXPECT_EQ(shown, 1);
        EXPECT_FALSE(Progress());
    }
}

TEST_F(WorkingWindowTest, ManyOfThemGiveBackWhatTheyTook) {
    const auto handles = [] {
        DWORD count = 0;
        GetProcessHandleCount(GetCurrentProcess(), &count);
        return count;
    };
    const auto run = [this] {
        Run([](Bar& bar) {
            EXPECT_TRUE(WorksUntilSeen());
            bar.Unload();
        });
    };
    for (int i = 0; i < 5; ++i)
        run();
    const DWORD before = handles();
    for (int i = 0; i < 30; ++i)
        run();
    EXPECT_LE(handles(), before + 3);
}

}  // namespace
}  // namespace qor::windows
