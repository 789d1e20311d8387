#include "viewer/display_width.h"

#include <algorithm>
#include <iterator>

namespace qor::viewer {

namespace {

struct Range {
    char32_t first, last;
};

// Characters that terminals draw two columns wide (East Asian wide and full-width forms).
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},
    {0xA000, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE4F},   {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

// Marks that are drawn over the character before them.
constexpr Range kZero[] = {{0x0300, 0x036F}, {0x200B, 0x200F}, {0xFE00, 0xFE0F}};

bool IsIn(const Range* begin, const Range* end, char32_t c) {
    return std::any_of(begin, end, [c](const Range& range) { return c >= range.first && c <= range.last; });
}

char32_t NextCharacter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
    char32_t c = length == 1 ? first : first & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length && i < text.size(); ++i) {
        c = (c << 6) | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    }
    text.remove_prefix(std::min(length, text.size()));
    return c;
}

}  // namespace

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const char32_t c = NextCharacter(text);
        if (IsIn(std::begin(kZero), std::end(kZero), c)) continue;
        width += IsIn(std::begin(kWide), std::end(kWide), c) ? 2 : 1;
    }
    return width;
}

std::string Padded(std::string_view text, std::size_t width, Align align) {
    const std::size_t own = DisplayWidth(text);
    const std::size_t blanks = width > own ? width - own : 0;
    const std::size_t before = align == Align::Left ? 0 : align == Align::Right ? blanks : blanks / 2;
    std::string padded(before, ' ');
    padded += text;
    padded.append(blanks - before, ' ');
    return padded;
}

}  // namespace qor::viewer
