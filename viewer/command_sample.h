// `qorview sample`: makes an account set with the books of a sample firm.
#pragma once

#include <string>

#include "embedded/sample.h"

namespace qor::viewer {

/// Makes the account set in `file`, which must not exist, with a bar of its progress on standard error.
/// Answers the exit status.
int MakeSampleSet(const std::string& file, const SampleOptions& options);

}  // namespace qor::viewer
