// Texts: every text that a user sees passes through ResText, the one seam at which a translation can be
// hooked in. Today the language is simplified Chinese and every text passes unchanged.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/dictionary.h"
#include "services/session.h"

namespace qor {

/// Answers `text`, unchanged and with its marks.
inline std::string_view ResText(std::string_view text) { return text; }

class Texts {
 public:
    /// `language` is the language code; empty asks the session.
    Texts(Platform& platform, Session& session, std::string language = "")
        : platform_(platform), session_(session), language_(std::move(language)) {}

    /// A plain value straight out of the session string, found without regard to case; "" if it is not there.
    /// The language is always "chs".
    std::string GetSessionValue(std::string_view key);
    /// Hands a form to the resource loader when the language is not the built-in one; `options` is made where
    /// it is nothing and takes what the loader leaves in it.
    void LoadFormResources(Object* form, Ref<Dictionary>& options, std::string_view section);

 private:
    Platform& platform_;
    Session& session_;
    std::string language_;
};

}  // namespace qor
