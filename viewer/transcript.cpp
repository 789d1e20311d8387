#include "viewer/transcript.h"

#include <ostream>

namespace qor::viewer {

std::size_t Transcript::Reserve() {
    lines_.emplace_back();
    return lines_.size() - 1;
}

void Transcript::Fill(std::size_t line, std::string_view event, const Json& rest) {
    if (closed_) return;
    Json whole = {{"event", event}};
    whole.update(rest);
    lines_[line] = whole.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void Transcript::Write(std::ostream& out) const {
    for (const std::string& line : lines_) {
        if (!line.empty()) out << line << '\n';
    }
    out.flush();
}

}  // namespace qor::viewer
