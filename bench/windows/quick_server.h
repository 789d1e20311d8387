// The middle tier of the bench: components that answer every call at once.
#pragma once

#include "platform/dictionary.h"

namespace qor::bench {

/// Answers a data set of one row, lets every check pass, and has no profile.
Ref<Object> MakeQuickServer();

/// Milliseconds that each data call of it lasts from here on.
void SetServerDelay(unsigned milliseconds);

/// The filter of a run that it answers.
Ref<Dictionary> QuickFilter();

/// From here on this process finds it under the names of the middle tier's components, before registered
/// ones.
void ServeQuickly();

}  // namespace qor::bench
