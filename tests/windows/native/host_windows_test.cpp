// The windows of a host while the progress window stands over them, and what a person does to them.
#include "windows/host_windows.h"

#include <commctrl.h>

#include <optional>

#include "windows/instance.h"
#include "windows/native/working_bar.h"
#include "windows/working_window.h"

namespace qor::windows {
namespace {

using WorkingWindowHostTest = WorkingBar;

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
    int keys = 0, clicks = 0, commands = 0, ticks = 0;

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) {
        auto& host = *reinterpret_cast<ViewerWindow*>(self);
        if (message == WM_KEYDOWN) ++host.keys;
        if (message == WM_LBUTTONDOWN || message == WM_NCLBUTTONDOWN) ++host.clicks;
        if (message == WM_SYSCOMMAND) ++host.commands;
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

bool StandsOver(HWND window, HWND other) {
    while (window && window != other) {
        window = GetWindow(window, GW_HWNDNEXT);
    }
    return window;
}

TEST_F(WorkingWindowHostTest, StandsOverTheHostsWindowAndLeavesItTheKeyboard) {
    ViewerWindow host;
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        EXPECT_EQ(GetWindow(Progress(), GW_OWNER), host.handle());
        EXPECT_TRUE(StandsOver(Progress(), host.handle()));
        EXPECT_EQ(GetActiveWindow(), host.handle());
        EXPECT_EQ(GetFocus(), host.handle());
        bar.Unload();
    });
    EXPECT_EQ(GetFocus(), host.handle());
}

TEST_F(WorkingWindowHostTest, WhatAPersonDoesBeforeItIsSeenWaits) {
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

TEST_F(WorkingWindowHostTest, WhatAPersonDoesWhileItIsSeenComesToNothing) {
    ViewerWindow host;
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        PressKey();
        bar.SetMsg(kMessage);
        PostMessageW(host.handle(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
        PostMessageW(host.handle(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
        PostMessageW(host.handle(), WM_SYSCOMMAND, SC_MINIMIZE, 0);  // as the task bar does
        NativePlay::Settle();  // as a server may that keeps its own windows alive
        PressKey();
        bar.Unload();
    });
    NativePlay::Settle();
    EXPECT_EQ(host.keys, 0);
    EXPECT_EQ(host.clicks, 0);
    EXPECT_EQ(host.commands, 0);

    PressKey();
    NativePlay::Settle();
    EXPECT_EQ(host.keys, 1) << "the host's window stays deaf";
}

TEST_F(WorkingWindowHostTest, AWindowThatComesUpMeanwhileKeepsItsInput) {
    ViewerWindow host;
    std::optional<ViewerWindow> other;
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        other.emplace();
        PressKey();
        bar.Unload();
    });
    NativePlay::Settle();
    EXPECT_EQ(other->keys, 1);
}

TEST_F(WorkingWindowHostTest, AHeldMouseButtonIsLetGoOf) {
    ViewerWindow host;
    for (const bool seen : {false, true}) {
        Run([&](Bar& bar) {
            SetCapture(host.handle());
            if (seen) WorksUntilSeen();
            bar.Unload();
        });
    }
    EXPECT_FALSE(GetCapture());
}

TEST_F(WorkingWindowHostTest, AClickOnItLeavesTheHostActive) {
    ViewerWindow host;
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        const LPARAM click = MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN);
        for (const HWND clicked : {Progress(), Child("ProgressBar1")}) {
            EXPECT_EQ(SendMessageW(clicked, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(Progress()), click),
                      MA_NOACTIVATEANDEAT);
        }
        bar.Unload();
    });
}

TEST_F(WorkingWindowHostTest, TheEndOfTheHostsLoopIsKept) {
    ViewerWindow host;
    for (const bool seen : {false, true}) {
        Run([&](Bar& bar) {
            if (seen) WorksUntilSeen();
            PostQuitMessage(7);
            bar.SetMsg(kMessage);
            bar.Unload();
        });
        MSG message{};
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
        EXPECT_EQ(message.wParam, 7u);
    }
}

TEST_F(WorkingWindowHostTest, TheHostsTimersRun) {
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

TEST_F(WorkingWindowHostTest, ABoxOverItIsAnswered) {
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

TEST_F(WorkingWindowHostTest, ABoxThatWasThereFirstStaysInFront) {
    ViewerWindow host;
    bool inFront = false;
    windows().onBox = [&](HWND box) {
        EXPECT_TRUE(WorksUntilSeen());
        EXPECT_EQ(GetWindow(Progress(), GW_OWNER), host.handle());
        inFront = StandsOver(box, Progress());
    };
    Run([&](Bar& bar) {
        windows().MessageBox(kMessage, "", kInformationIcon);
        bar.Unload();
    });
    EXPECT_TRUE(inFront);
}

TEST_F(WorkingWindowHostTest, TheHostMayCloseItsWindowMeanwhile) {
    std::optional<ViewerWindow> host(std::in_place);
    Run([&](Bar& bar) {
        EXPECT_TRUE(WorksUntilSeen());
        host.reset();
        bar.SetMsg(kMessage);
        bar.Unload();
    });
    EXPECT_FALSE(Progress());
}

}  // namespace
}  // namespace qor::windows
