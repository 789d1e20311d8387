// The checks that a native host makes of the component under wine, each in a process of its own.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/windows/component/wine_run.h"

namespace qor::component {
namespace {

TEST(NativeHost, EveryCheckHolds) {
    const RunResult list = RunUnderWine(BuiltFolder(), "qor_host_tests.exe");
    ASSERT_EQ(list.status, 0) << list.output << list.errors;
    std::istringstream names(list.output);
    int checks = 0;
    for (std::string name; std::getline(names, name); ++checks) {
        const RunResult run = RunUnderWine(BuiltFolder(), "qor_host_tests.exe " + name);
        EXPECT_EQ(run.status, 0) << name << ": " << run.errors;
        EXPECT_EQ(run.output, "held\n") << name << ": " << run.errors;
    }
    EXPECT_GE(checks, 20);
}

}  // namespace
}  // namespace qor::component
