#include "viewer/command_sample.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "embedded/sample.h"
#include "platform/error.h"

namespace qor::viewer {

namespace {

struct SampleRequest {
    std::string file;
    SampleOptions options;
};

constexpr int kBarWidth = 40;

/// One line on standard error that fills up.
void ShowProgress(double done) {
    const int filled = static_cast<int>(std::clamp(done, 0.0, 1.0) * kBarWidth);
    std::cerr << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
              << std::string(static_cast<std::size_t>(kBarWidth - filled), '.') << "] "
              << static_cast<int>(done * 100) << " %" << std::flush;
}

int Make(const SampleRequest& request) {
    try {
        MakeSample(request.file, request.options, ShowProgress);
        std::cerr << '\n'
                  << request.file << ": " << request.options.bills << " bills, seed " << request.options.seed
                  << '\n';
        return 0;
    } catch (const Error& error) {
        std::cerr << "qorview sample: " << error.description() << '\n';
        return 1;
    }
}

}  // namespace

void AddSampleCommand(CLI::App& program, int& status) {
    const auto request = std::make_shared<SampleRequest>();
    CLI::App* command =
        program.add_subcommand("sample", "Makes an account set with the books of a sample firm");
    command->add_option("FILE", request->file, "The account set to be made; it must not exist")->required();
    command->add_option("--bills", request->options.bills, "How many bills the firm has")
        ->capture_default_str()
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{100'000'000}));
    command->add_option("--seed", request->options.seed, "The same seed gives the same books")
        ->capture_default_str();
    command->callback([request, &status] { status = Make(*request); });
}

}  // namespace qor::viewer
