#include "viewer/command_sample.h"

#include <algorithm>
#include <iostream>

#include "embedded/sample.h"
#include "platform/error.h"

namespace qor::viewer {

namespace {

constexpr int kBarWidth = 40;

/// One line on standard error that fills up.
void ShowProgress(double done) {
    const int filled = static_cast<int>(std::clamp(done, 0.0, 1.0) * kBarWidth);
    std::cerr << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
              << std::string(static_cast<std::size_t>(kBarWidth - filled), '.') << "] "
              << static_cast<int>(done * 100) << " %" << std::flush;
}

}  // namespace

int MakeSampleSet(const std::string& file, const SampleOptions& options) {
    try {
        MakeSample(file, options, ShowProgress);
        std::cerr << '\n' << file << ": " << options.bills << " bills, seed " << options.seed << '\n';
        return 0;
    } catch (const Error& error) {
        std::cerr << "qorview sample: " << error.description() << '\n';
        return 1;
    }
}

}  // namespace qor::viewer
