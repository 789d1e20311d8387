// The program `qorview` as tests run it, from a shell.
#pragma once

#include <filesystem>
#include <string>

namespace qor::test {

struct Outcome {
    int status = 0;
    std::string out, errors;
};

/// Runs it with arguments as a shell reads them, with `home` for schemes and sample firm where one is given.
/// QORVIEW_PROGRAM in the environment names another build of it.
Outcome RunProgram(const std::string& arguments, const std::filesystem::path& home = {});

}  // namespace qor::test
