// How wide a text stands on a terminal: Chinese and full-width characters take two columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qor::viewer {

std::size_t DisplayWidth(std::string_view text);

enum class Align { Left, Right, Center };

/// `text` with blanks around it up to `width` columns; a wider text stays whole.
std::string Padded(std::string_view text, std::size_t width, Align align);

}  // namespace qor::viewer
