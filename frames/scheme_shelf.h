// SchemeShelf: what both frames do with the saved schemes of one report: the list of names, the scheme that
// is on the screen, and what the user is told when something is wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frames/scheme_store.h"
#include "platform/window_system.h"

namespace qor {

class SchemeShelf {
 public:
    /// Both outlive the shelf.
    SchemeShelf(WindowSystem& windows, SchemeStore& store) : windows_(windows), store_(store) {}

    bool IsOpenFor(std::int32_t rptID) const { return rptID_ == rptID; }
    /// Names the report whose schemes these are; no scheme is current.
    void Open(std::int32_t rptID);

    // A store that fails here shows its message in a box, each message once, and the dialog goes on.
    void Refresh();  // reads the names again
    /// The scheme to begin with, which becomes current; nothing where none was used last.
    std::optional<SavedScheme> TakeLastUsed();

    // What the user asks for. Each raises an Error for the user: the name is empty, there is no such scheme,
    // or the store fails.
    void Save(std::string_view name, const SavedScheme& scheme);  // becomes current
    SavedScheme Load(std::string_view name);                      // becomes current
    void Delete(std::string_view name);

    void ForgetCurrent() { current_.clear(); }
    const std::vector<std::string>& names() const { return names_; }
    const std::string& current() const { return current_; }  // "" for none

 private:
    std::int32_t OpenRptID() const;
    template <class Step>
    void Telling(Step&& step);

    WindowSystem& windows_;
    SchemeStore& store_;
    std::optional<std::int32_t> rptID_;
    std::vector<std::string> names_;
    std::string current_;
    std::string told_;  // the last message shown
};

}  // namespace qor
