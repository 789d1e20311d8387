// The text of a plain dialog's scheme: "key=value" items joined by ";". Keys and values may hold anything;
// the three marks and the backslash are escaped by a backslash before them.
#pragma once

#include <string>
#include <string_view>

#include "frames/scheme_store.h"

namespace qor {

/// The value under a key, "" where the key is missing.
std::string FindInSchemeText(std::string_view scheme, std::string_view key);
/// Replaces the value where it stands, or adds the key at the end.
void PutIntoSchemeText(std::string& scheme, std::string_view key, std::string_view value);

/// All values are texts.
SavedScheme ParseSchemeText(std::string_view scheme);
/// Values become text as the system writes them; Null becomes "".
std::string MakeSchemeText(const SavedScheme& scheme);

}  // namespace qor
