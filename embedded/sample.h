// A sample account set: a small trading firm with several years of bills in every state. The same options
// give the same file, byte for byte.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

#include "platform/value.h"

namespace qor {

struct SampleOptions {
    std::int64_t bills = 20000;
    std::uint64_t seed = 1;
    Date today{45838};  // the firm's last day, 2025-06-30; the bills begin on the first of January three
                        // years before
};

/// Called now and then with the share that is done, from 0 to 1.
using SampleProgress = std::function<void(double done)>;

/// Writes a new account set. It grows under another name and gets its own when it is whole. Raises an error
/// where `file` exists already, a number of bills is negative, or the disk fails; nothing is left then.
void MakeSample(const std::filesystem::path& file, const SampleOptions& options,
                const SampleProgress& progress = {});

}  // namespace qor
