// The condition captions: what a filter restricts, in words. One routine serves all reports; it goes by the
// keys that the filter holds, and by its report number where a report words a condition in its own way.
#pragma once

#include "process/process.h"

namespace qor {

/// The rows (FCaption, FIndex from 0) of a filter; `filter` may be null. Writes `ShowInPreview` into
/// `property`, which is made where it holds nothing. What fails on the way is skipped; no error leaves.
Ref<Vector> BuildConditionCaptions(Process& process, Dictionary* filter, Ref<Dictionary>& property);

}  // namespace qor
