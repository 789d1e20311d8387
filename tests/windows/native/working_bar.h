// WorkingBar: what tests of the progress window share: a bar to show, and what a person sees of it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "progress/bar.h"
#include "support/report_host.h"
#include "windows/control_window.h"
#include "windows/native/native_play.h"
#include "windows/window_names.h"

namespace qor::windows {

inline constexpr const char* kMessage = "正在从服务器读取数据，请稍候...";

inline HWND Progress() { return FindShownWindow("frmProgBar"); }

inline HWND Child(std::string_view name) {
    for (HWND child = GetWindow(Progress(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (NameOfWindow(child) == name) return child;
    }
    return nullptr;
}

inline std::string Message() { return Narrow(TextOf(Child("lblMsg"))); }

/// Works on, without a look at the thread's messages, until it holds; false where it never does.
template <class Condition>
bool WorksUntil(Condition holds) {
    for (const DWORD start = GetTickCount(); GetTickCount() - start < 5000; Sleep(5)) {
        if (holds()) return true;
    }
    return false;
}

inline bool WorksUntilSeen() {
    return WorksUntil([] { return Progress() != nullptr; });
}

/// A bar and its works, on native windows.
class WorkingBar : public testing::Test, protected BarEvents {
 protected:
    WorkingBar() { bar_->Connect(*this); }
    ~WorkingBar() override { bar_->Disconnect(*this); }

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

}  // namespace qor::windows
