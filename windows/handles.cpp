#include "windows/handles.h"

#include <algorithm>

namespace qor::windows {

namespace {

// Most texts over the border are names and keys of ASCII letters: they need no conversion.
template <class Text>
bool IsAscii(Text text) {
    return std::ranges::all_of(text, [](auto c) { return c >= 0 && c < 0x80; });
}

}  // namespace

std::wstring Wide(std::string_view text) {
    if (IsAscii(text)) return {text.begin(), text.end()};
    const int size = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Narrow(std::wstring_view text) {
    if (IsAscii(text)) {
        std::string ascii(text.size(), '\0');
        std::ranges::transform(text, ascii.begin(), [](wchar_t c) { return static_cast<char>(c); });
        return ascii;
    }
    const int size = static_cast<int>(text.size());
    std::string narrow(static_cast<std::size_t>(
                           WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
                       '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), static_cast<int>(narrow.size()),
                        nullptr, nullptr);
    return narrow;
}

Bstr::Bstr(std::string_view text) : text_(nullptr) {
    if (!IsAscii(text)) {
        text_ = Bstr(std::wstring_view(Wide(text))).Detach();
        return;
    }
    text_ = SysAllocStringLen(nullptr, static_cast<UINT>(text.size()));
    if (text_) std::ranges::copy(text, text_);
}

}  // namespace qor::windows
