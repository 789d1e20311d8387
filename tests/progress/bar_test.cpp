#include "progress/bar.h"

#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace qor {
namespace {

/// The work that a report does inside the activation of its progress window.
struct Work final : BarEvents {
    explicit Work(Bar& owner) : bar(owner) { bar.Connect(*this); }
    ~Work() { bar.Disconnect(*this); }
    void Active() override {
        ++activations;
        bar.SetMsg("正在连接服务器");
        bar.HideProgBar();
        if (closes) bar.Unload();
    }
    Bar& bar;
    int activations = 0;
    bool closes = true;
};

TEST(Bar, ShowReturnsWhenTheWorkHasClosedTheWindow) {
    test::TestProcess test;
    const Ref<Bar> bar = MakeRef<Bar>(test.process);
    Work work(*bar);
    bar->Show();
    EXPECT_EQ(work.activations, 1);
    EXPECT_FALSE(bar->IsShown());
}

TEST(Bar, ShowsAgainForEveryRun) {
    test::TestProcess test;
    const Ref<Bar> bar = MakeRef<Bar>(test.process);
    Work work(*bar);
    bar->Show();
    bar->Show();
    EXPECT_EQ(work.activations, 2);
}

}  // namespace
}  // namespace qor
