// Transcript: what happened in a conversation, one JSON object a line, in the order of happening.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "viewer/json.h"

namespace qor::viewer {

class Transcript {
 public:
    /// Appends a line; `rest` is an object that holds what stands behind `event`.
    void Add(std::string_view event, const Json& rest = Json::object()) { Fill(Reserve(), event, rest); }

    /// Keeps a line's place for an event whose outcome is not known yet; until it is filled it is left out.
    std::size_t Reserve();
    void Fill(std::size_t line, std::string_view event, const Json& rest);

    /// From here on nothing is recorded: the conversation has ended.
    void Close() { closed_ = true; }

    void Write(std::ostream& out) const;
    const std::vector<std::string>& lines() const { return lines_; }

 private:
    std::vector<std::string> lines_;
    bool closed_ = false;
};

}  // namespace qor::viewer
