// The progress window: drawn while the work keeps the form's own thread busy, and only where the work lasts.
#include "windows/working_window.h"

#include <commctrl.h>

#include <atomic>

#include "support/raises.h"
#include "windows/native/working_bar.h"

namespace qor::windows {
namespace {

using WorkingWindowTest = WorkingBar;

/// Sees each message of its own that the thread of the shown window takes, before its window does.
class DrawingThread {
 public:
    explicit DrawingThread(std::function<void(const MSG&)> sees)
        : hook_(SetWindowsHookExW(WH_GETMESSAGE, &DrawingThread::Hook, nullptr,
                                  GetWindowThreadProcessId(Progress(), nullptr))) {
        sees_ = std::move(sees);
    }
    DrawingThread(const DrawingThread&) = delete;
    DrawingThread& operator=(const DrawingThread&) = delete;
    ~DrawingThread() { UnhookWindowsHookEx(hook_); }

 private:
    static LRESULT CALLBACK Hook(int code, WPARAM removed, LPARAM message) {
        const auto& taken = *reinterpret_cast<const MSG*>(message);
        if (code == HC_ACTION && removed == PM_REMOVE && taken.message >= WM_APP) sees_(taken);
        return CallNextHookEx(nullptr, code, removed, message);
    }

    static inline std::function<void(const MSG&)> sees_;
    HHOOK hook_;
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

TEST_F(WorkingWindowTest, ManyChangesAreOneMessageToWhoDraws) {
    std::atomic<int> messages = 0;
    std::atomic<bool> drawingWaits = true;
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        const HWND shown = Child("ProgressBar1");
        const DrawingThread drawing([&](const MSG&) {
            ++messages;
            WorksUntil([&] { return !drawingWaits; });
        });
        for (int value = 1; value <= 100; ++value) {
            bar.SetBarValue(value);
        }
        drawingWaits = false;
        EXPECT_TRUE(WorksUntil([shown] { return SendMessageW(shown, PBM_GETPOS, 0, 0) == 100; }));
        Sleep(100);
        EXPECT_LE(messages, 3);
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

TEST_F(WorkingWindowTest, IsReadOutThoughItDoesNotTakeTheKeyboard) {
    static HWND alert;
    alert = nullptr;
    const HWINEVENTHOOK reader = SetWinEventHook(
        EVENT_SYSTEM_ALERT, EVENT_SYSTEM_ALERT, nullptr,
        [](HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) { alert = window; },
        GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    for (int run = 0; run < 3 && !alert; ++run) {  // a thread that draws again may not know of the reader yet
        Run([](Bar& bar) {
            EXPECT_TRUE(WorksUntilSeen());
            for (int i = 0; i < 50 && !alert; ++i) {
                NativePlay::Settle();
                Sleep(5);
            }
            EXPECT_TRUE(!alert || alert == Progress());
            bar.Unload();
        });
    }
    EXPECT_TRUE(alert);
    UnhookWinEvent(reader);
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

TEST_F(WorkingWindowTest, TheSystemMayTakeItAway) {
    Run([](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        const DrawingThread drawing([](const MSG& message) { DestroyWindow(message.hwnd); });
        bar.SetMsg(kMessage);
        EXPECT_TRUE(WorksUntil([] { return !Progress(); }));
        bar.Unload();
    });
}

/// Ends its thread in the middle of a work that is seen, as a host may that gives a report up.
DWORD WINAPI WorkUntilTheThreadEnds(void*) {
    struct Work final : BarEvents {
        void Active() override { ExitThread(WorksUntilSeen() ? 1 : 0); }
    } work;
    test::ReportHost host;
    const Ref<Bar> bar = MakeRef<Bar>(host.process);
    bar->Connect(work);
    bar->Show();
    return 0;
}

TEST_F(WorkingWindowTest, GoesWithTheThreadThatWorks) {
    const HANDLE thread = CreateThread(nullptr, 0, &WorkUntilTheThreadEnds, nullptr, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    DWORD seen = 0;
    GetExitCodeThread(thread, &seen);
    CloseHandle(thread);
    EXPECT_TRUE(seen);
    EXPECT_TRUE(WorksUntil([] { return !Progress(); }));
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
