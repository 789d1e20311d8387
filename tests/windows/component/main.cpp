// Tests of the built component under wine. They share one prefix: what one of them registers, it takes back.
#include <gtest/gtest.h>

#include <iostream>

#include "tests/windows/component/wine_run.h"

namespace {

namespace fs = std::filesystem;
using qor::component::BuiltFolder;
using qor::component::RunUnderWine;

/// The component and the stage stand in the prefix's registry for the time of the tests.
class Registered : public testing::Environment {
 public:
    void SetUp() override {
        Run("regsvr32 /s QORArApRpt.dll");
        Run("regsvr32 /s qor_stage.dll");
    }
    void TearDown() override {
        Run("regsvr32 /s /u qor_stage.dll");
        Run("regsvr32 /s /u QORArApRpt.dll");
    }

 private:
    static void Run(const char* commandLine) {
        const auto result = RunUnderWine(BuiltFolder(), commandLine);
        ASSERT_EQ(result.status, 0) << commandLine << "\n" << result.output << result.errors;
    }
};

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    testing::AddGlobalTestEnvironment(new Registered);
    return RUN_ALL_TESTS();
}
