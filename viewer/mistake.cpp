#include "viewer/mistake.h"

#include <algorithm>

#include "viewer/json.h"

namespace qor::viewer {

namespace {

bool IsPlainKey(std::string_view key) {
    return !key.empty() && std::ranges::all_of(key, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
               c == '$';
    });
}

}  // namespace

std::string Place::Text() const {
    if (!around_) return "";
    const std::string around = around_->Text();
    if (!key_.data()) return around + "[" + std::to_string(index_) + "]";
    if (!IsPlainKey(key_)) return around + "[" + Quoted(key_) + "]";
    return around.empty() ? std::string(key_) : around + "." + std::string(key_);
}

std::string Quoted(std::string_view name) {
    return Json(name).dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace qor::viewer
